#include "tbvnonpara/details/words.hpp"

#include <fmt/format.h>

#include "tbvnonpara/core/shortest.hpp"

namespace TBVNonPara {

namespace {

std::vector<DetailCell> rowOf(std::string name, double value, const std::optional<double>& low,
                              const std::optional<double>& high) {
    return {nameCell(std::move(name)), numberCell(value), numberCell(low), numberCell(high)};
}

}  // namespace

DetailCell nameCell(std::string name) {
    return {std::move(name)};
}

DetailCell numberCell(std::optional<double> number) {
    return number ? DetailCell{*number} : DetailCell{};
}

DetailCell wholeCell(std::size_t number) {
    return {static_cast<double>(number), DetailForm::Whole};
}

DetailCell percentCell(double part) {
    return {part, DetailForm::Percent};
}

DetailCell shareCell(std::uint64_t number, std::uint64_t whole) {
    return {static_cast<double>(number), DetailForm::Share, 0, static_cast<double>(whole)};
}

DetailCell probabilityCell(const statistics::Probability& p) {
    return {p.value, DetailForm::Probability, p.log10};
}

std::string fourDecimals(double number) {
    const std::string text = fmt::format("{:.4f}", number);
    return text == "-0.0000" ? text.substr(1) : text;
}

std::string probabilityText(const statistics::Probability& p) {
    constexpr double smallestWithDecimals = 0.0001;
    if (p.value >= smallestWithDecimals) {
        return fourDecimals(p.value);
    }
    return p.value >= smallestProbability ? fmt::format("{:.2e}", p.value) : smallProbabilityText(p.log10);
}

std::string percentage(double part) {
    return fmt::format("{:.0f}", 100 * part);
}

std::string counted(std::size_t number, std::string_view one, std::string_view several) {
    return fmt::format("{} {}", number, number == 1 ? one : several);
}

std::string ways(double number) {
    constexpr double readable = 1e12;
    if (!(number < readable)) {
        return "";
    }
    std::string digits = fmt::format("{:.0f}", number);
    for (std::size_t end = digits.size(); end > 3; end -= 3) {
        digits.insert(end - 3, 1, ',');
    }
    return digits + ' ';
}

double choose(std::size_t n, std::size_t k) {
    double product = 1;
    for (std::size_t i = 1; i <= k; ++i) {
        product = product * static_cast<double>(n - k + i) / static_cast<double>(i);
    }
    return product;
}

std::string levelText(double confidence) {
    return fmt::format("{:.6g} %", 100 * confidence);
}

std::string intervalText(const std::optional<double>& low, const std::optional<double>& high,
                         double confidence) {
    return low && high ? fmt::format(", {} CI {} to {}", levelText(confidence), fourDecimals(*low),
                                     fourDecimals(*high))
                       : "";
}

std::string intervalInPercent(const std::optional<double>& low, const std::optional<double>& high,
                              double confidence) {
    return low && high
               ? fmt::format(", {} CI {} to {} %", levelText(confidence), percentage(*low), percentage(*high))
               : "";
}

std::string sentenceOnP(const statistics::Probability& p, std::string_view how, double reportedP) {
    const bool same = fourDecimals(p.value) == fourDecimals(reportedP);
    const std::string report = same ? "" : fmt::format(" The report has {}.", fourDecimals(reportedP));
    return fmt::format("P = {} {}.{}", probabilityText(p), how, report);
}

std::string differencesText(std::size_t differ, std::size_t comparisons, const DetailChoices& choices) {
    const std::string verb = differ == 1 || comparisons == 1 ? "differs" : "differ";
    const std::string what =
        choices.control.empty()
            ? fmt::format("{} {}", counted(comparisons, "pair of groups", "pairs of groups"), verb)
            : fmt::format("{} {} from {}", counted(comparisons, "group", "groups"), verb, choices.control);
    return fmt::format("{} of {} at {} ({}).", differ, what, levelText(1 - choices.confidence),
                       adjustmentText(choices.adjustment));
}

std::string adjustmentText(statistics::Adjustment adjustment) {
    switch (adjustment) {
        case statistics::Adjustment::Holm:
            return "P adjusted by Holm";
        case statistics::Adjustment::Bonferroni:
            return "P adjusted by Bonferroni";
        case statistics::Adjustment::BenjaminiHochberg:
            return "P adjusted by Benjamini and Hochberg";
        case statistics::Adjustment::None:
            break;
    }
    return "P not adjusted";
}

void noteLevel(const statistics::OrderedEstimate& estimate, std::string_view what, double confidence,
               std::vector<std::string>& notes) {
    if (!estimate.attained) {
        notes.push_back(fmt::format(
            "There are too few values for an interval of the {} of {}: at most {:.1f} % can be had.", what,
            levelText(confidence), 100 * estimate.best));
    } else if (fmt::format("{:.1f}", 100 * *estimate.attained) != fmt::format("{:.1f}", 100 * confidence)) {
        notes.push_back(fmt::format(
            "The interval of the {} is in fact one of {:.1f} %, the nearest level above that can be had.",
            what, 100 * *estimate.attained));
    }
}

std::string tiesText(const statistics::Ties& ties, std::string_view values) {
    return ties.groups == 0 ? "No ties."
                            : fmt::format("Ties: {} with {} {}, the largest of {}; factor {}.",
                                          counted(ties.groups, "group", "groups"), ties.values, values,
                                          ties.largest, fourDecimals(ties.factor));
}

std::vector<DetailCell> effectRow(std::string name, const statistics::Estimate& estimate) {
    return rowOf(std::move(name), estimate.value, estimate.low, estimate.high);
}

std::vector<DetailCell> effectRow(std::string name, const statistics::OrderedEstimate& estimate) {
    return rowOf(std::move(name), estimate.value, estimate.low, estimate.high);
}

DetailTable effectTable() {
    return {"Effect", {"Estimate", "Low", "High"}, {}};
}

DetailTable probabilityTable(TBVNPTails tails, std::string_view greater, std::string_view less) {
    const std::string heading = tails == tbvNPTwoTailed
                                    ? "2-tailed P"
                                    : fmt::format("P ({})", tails == tbvNPVar1GTVar2 ? greater : less);
    return {"Probability", {"z or t", heading}, {}};
}

void addExact(DetailTable& table, std::string name, const std::optional<statistics::Tails>& exact,
              TBVNPTails tails) {
    if (exact) {
        table.rows.push_back({nameCell(std::move(name)), {}, probabilityCell(inDirection(*exact, tails))});
    }
}

void addNormal(DetailTable& table, std::string name,
               const std::optional<statistics::NormalApproximation>& normal, TBVNPTails tails) {
    if (normal) {
        const auto& [plain, corrected] = *normal;
        table.rows.push_back(
            {nameCell(std::move(name)), numberCell(plain.z), probabilityCell(inDirection(plain, tails))});
        table.rows.push_back({nameCell("  with continuity correction"), numberCell(corrected.z),
                              probabilityCell(inDirection(corrected, tails))});
    }
}

void addStudent(DetailTable& table, std::string name, const std::optional<statistics::StudentTails>& student,
                TBVNPTails tails) {
    if (student) {
        table.rows.push_back({nameCell(std::move(name)), numberCell(student->t),
                              probabilityCell(inDirection(*student, tails))});
    }
}

}  // namespace TBVNonPara
