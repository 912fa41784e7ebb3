#include "tbvnonpara/c/options.hpp"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

#include "tbvnonpara/c/guarded.hpp"

namespace TBVNonPara::c {

namespace {

constexpr tbv_options defaults = TBV_OPTIONS_INIT;

/// The members that both know. A caller of a later version may have more of them, all unused: 0.
tbv_options membersOf(const tbv_options& given) {
    if (given.size < sizeof(tbv_options)) {
        throw BadArgument("options.size is " + std::to_string(given.size) +
                          ", not sizeof(tbv_options): begin with TBV_OPTIONS_INIT or tbv_options_init.");
    }
    tbv_options known = defaults;
    std::memcpy(&known, &given, sizeof known);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(&given);
    if (known.reserved != 0 ||
        std::any_of(bytes + sizeof known, bytes + given.size, [](unsigned char byte) { return byte != 0; })) {
        throw BadArgument("The options use what this version of the library, " + std::string(tbv_version()) +
                          ", does not know.");
    }
    return known;
}

void requireChoice(const char* member, int value, int last) {
    if (value < 0 || value > last) {
        throw BadArgument("options." + std::string(member) + " is " + std::to_string(value) +
                          ", which is none of its choices.");
    }
}

}  // namespace

TakenOptions takenOptions(const tbv_options* options) {
    const tbv_options given = options == nullptr ? defaults : membersOf(*options);
    requireChoice("missing", given.missing, TBV_MISSING_OMIT);
    requireChoice("adjustment", given.adjustment, TBV_ADJUST_NONE);
    if (!(given.exact_steps >= 0)) {
        throw BadArgument("options.exact_steps must be 0 or more.");
    }
    TakenOptions taken{{.confidence = given.confidence,
                        .missing = static_cast<statistics::Missing>(given.missing),
                        .adjustment = static_cast<statistics::Adjustment>(given.adjustment),
                        .trend = given.trend != 0,
                        .exactSteps = given.exact_steps},
                       {}};
    if (given.control != 0) {
        taken.control = given.control - 1;
    }
    try {
        statistics::checkOptions(taken.options);
    } catch (const std::invalid_argument& wrong) {
        throw BadArgument(wrong.what());
    }
    return taken;
}

static_assert(static_cast<int>(statistics::Missing::Refuse) == TBV_MISSING_REFUSE);
static_assert(static_cast<int>(statistics::Missing::Omit) == TBV_MISSING_OMIT);
static_assert(static_cast<int>(statistics::Adjustment::Holm) == TBV_ADJUST_HOLM);
static_assert(static_cast<int>(statistics::Adjustment::Bonferroni) == TBV_ADJUST_BONFERRONI);
static_assert(static_cast<int>(statistics::Adjustment::BenjaminiHochberg) == TBV_ADJUST_BENJAMINI_HOCHBERG);
static_assert(static_cast<int>(statistics::Adjustment::None) == TBV_ADJUST_NONE);

}  // namespace TBVNonPara::c

void tbv_options_init(tbv_options* options, size_t size) {
    if (options != nullptr) {
        std::memset(options, 0, size);
        std::memcpy(options, &TBVNonPara::c::defaults, std::min(size, sizeof(tbv_options)));
        if (size >= sizeof options->size) {
            options->size = size;
        }
    }
}
