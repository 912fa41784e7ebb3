#include "tbvnonpara/details/sampled.hpp"

#include <fmt/format.h>
#include <utility>

#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara {

namespace {

void addRowOfP(DetailTable& table, std::string name, const statistics::SampledP& sampled) {
    std::vector<DetailCell> row(table.headings.size() + 1);
    row.front() = nameCell(std::move(name));
    row.back() = probabilityCell(sampled.p);
    table.rows.push_back(std::move(row));
}

const statistics::SampledP& sampledIn(const statistics::SampledTails& sampled, TBVNPTails tails) {
    return tails == tbvNPTwoTailed ? sampled.two : tails == tbvNPVar1GTVar2 ? sampled.greater : sampled.less;
}

const statistics::SampledP& sampledIn(const statistics::SampledUpper& sampled, TBVNPTails /*tails*/) {
    return sampled.p;
}

template <typename Sampled>
void addNote(DetailPage& page, const std::optional<Sampled>& sampled, bool exact, const Details& details) {
    if (sampled) {
        page.notes.push_back(
            fmt::format("{} (seed {}): the standard error of P is {:.2g}.",
                        counted(sampled->arrangements, "random arrangement", "random arrangements"),
                        sampled->seed, sampledIn(*sampled, details.tails).standardError));
    } else if (exact && details.choices.permutations > 0) {
        page.notes.emplace_back("P was counted exactly, so no random arrangements were drawn.");
    }
}

}  // namespace

void addSampled(DetailTable& table, std::string name, const std::optional<statistics::SampledTails>& sampled,
                TBVNPTails tails) {
    if (sampled) {
        addRowOfP(table, std::move(name), sampledIn(*sampled, tails));
    }
}

void addSampled(DetailTable& table, const std::optional<statistics::SampledUpper>& sampled) {
    if (sampled) {
        addRowOfP(table, "Random arrangements", sampled->p);
    }
}

std::optional<statistics::SampledTails> fewerFirst(const std::optional<statistics::Runs::Sampled>& sampled) {
    if (!sampled) {
        return std::nullopt;
    }
    statistics::SampledTails tails = sampled->tails;
    std::swap(tails.greater, tails.less);
    return tails;
}

void noteSampled(DetailPage& page, const std::optional<statistics::SampledTails>& sampled, bool exact,
                 const Details& details) {
    addNote(page, sampled, exact, details);
}

void noteSampled(DetailPage& page, const std::optional<statistics::SampledUpper>& sampled, bool exact,
                 const Details& details) {
    addNote(page, sampled, exact, details);
}

}  // namespace TBVNonPara
