#include "tbvnonpara/c/options.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

#include "tbvnonpara/c/guarded.hpp"

namespace TBVNonPara::c {

namespace {

constexpr tbv_options defaults = TBV_OPTIONS_INIT;

constexpr std::size_t mostPermutations = 1000000000;
constexpr std::uint64_t defaultSeed = 1;

/// The size before there were arrangements and a watch. The seed comes first behind it because no member that
/// needs less alignment may: it would lie in what was padding at the end, which callers leave as it is.
constexpr std::size_t sizeWithoutSeed = offsetof(tbv_options, seed);
static_assert(sizeWithoutSeed % alignof(tbv_options) == 0);

/// The members that both know. A caller of an earlier version has the defaults of those that it lacks; one of
/// a later version may have more of them, all unused: 0.
tbv_options membersOf(const tbv_options& given) {
    if (given.size < sizeof(tbv_options) && given.size != sizeWithoutSeed) {
        throw BadArgument("options.size is " + std::to_string(given.size) +
                          ", not sizeof(tbv_options): begin with TBV_OPTIONS_INIT or tbv_options_init.");
    }
    tbv_options known = defaults;
    const std::size_t shared = std::min(given.size, sizeof known);
    std::memcpy(&known, &given, shared);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(&given);
    if (known.reserved != 0 ||
        std::any_of(bytes + shared, bytes + given.size, [](unsigned char byte) { return byte != 0; })) {
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

/// What the library asks from time to time; it passes on what a watch in C++ throws.
CountWatch watchOf(const tbv_options& given) {
    if (given.watch == nullptr) {
        return {};
    }
    return [watch = given.watch, data = given.watch_data](double share) {
        if (watch(share, data) != 0) {
            throw Interrupted();
        }
    };
}

}  // namespace

TakenOptions takenOptions(const tbv_options* options) {
    const tbv_options given = options == nullptr ? defaults : membersOf(*options);
    requireChoice("missing", given.missing, TBV_MISSING_OMIT);
    requireChoice("adjustment", given.adjustment, TBV_ADJUST_NONE);
    if (!(given.exact_steps >= 0)) {
        throw BadArgument("options.exact_steps must be 0 or more.");
    }
    if (given.permutations > mostPermutations) {
        throw BadArgument("options.permutations is " + std::to_string(given.permutations) +
                          ", which is more than 1000000000.");
    }
    TakenOptions taken{{.confidence = given.confidence,
                        .missing = static_cast<statistics::Missing>(given.missing),
                        .adjustment = static_cast<statistics::Adjustment>(given.adjustment),
                        .trend = given.trend != 0,
                        .exactSteps = given.exact_steps,
                        .permutations = given.permutations,
                        .seed = given.seed == 0 ? defaultSeed : given.seed,
                        .watch = watchOf(given)},
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
