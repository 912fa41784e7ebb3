#include "adapters/calc/figure_cells.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace TBVNonPara::calc {

namespace {

using Words = std::vector<std::string_view>;

/// P of the report has no name of its own: TEST gives it.
constexpr std::string_view reportedProbability;

/// Which of the two sums speaks for an alternative, as the engine chooses it.
std::string_view byTails(TBVNPTails tails, std::string_view two, std::string_view greater,
                         std::string_view less) {
    return tails == tbvNPVar1GTVar2 ? greater : tails == tbvNPVar1LTVar2 ? less : two;
}

class FigureFinder {
 public:
    explicit FigureFinder(const ValueGrid& report) : m_Report(report) {}

    /// The last line that begins with these cells: what the user named stands above the section of the test.
    [[nodiscard]] std::optional<Long> lineOf(const Words& cells) const {
        for (Long row = m_Report.rows(); row >= 1; row -= 1) {
            if (beginsWith(row, cells)) {
                return row;
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] std::string at(Long row, Long column) const {
        const bool inside = row <= m_Report.rows() && column <= m_Report.columns();
        return inside && !isEmpty(m_Report(row, column)) ? toText(m_Report(row, column)) : std::string();
    }

    void add(Long row, Long column, std::string heading, std::string_view figure) {
        m_Found.push_back({row, column, std::move(heading), std::string(figure)});
    }

    /// The figures below a line of headings.
    void addBelow(const Words& headings, const Words& figures) {
        if (const std::optional<Long> line = lineOf(headings)) {
            for (std::size_t column = 0; column < headings.size(); ++column) {
                add(*line + 1, Long(column + 1), std::string(headings[column]), figures[column]);
            }
        }
    }

    [[nodiscard]] std::vector<FigureCell> found() && { return std::move(m_Found); }

 private:
    [[nodiscard]] bool beginsWith(Long row, const Words& cells) const {
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (at(row, Long(column + 1)) != cells[column]) {
                return false;
            }
        }
        return true;
    }

    const ValueGrid& m_Report;
    std::vector<FigureCell> m_Found;
};

/// A line of a table of several statistics: "Chi-Square", its value, its degrees of freedom, its P.
struct StatisticLine {
    std::string_view label;
    Words figures;
};

/// The lines below the headings of such a table, as many as there are.
void addStatistics(FigureFinder& report, const Words& headings, std::span<const StatisticLine> known) {
    const std::optional<Long> line = report.lineOf(headings);
    if (!line) {
        return;
    }
    for (Long row = *line + 1; !report.at(row, 1).empty(); row += 1) {
        const std::string label = report.at(row, 1);
        const auto statistic = std::ranges::find(known, label, &StatisticLine::label);
        if (statistic == known.end()) {
            continue;
        }
        for (std::size_t i = 0; i < statistic->figures.size(); ++i) {
            const Long column(i + 2);
            if (report.at(row, column) != "-") {
                report.add(row, column, label + ' ' + std::string(headings[i + 1]), statistic->figures[i]);
            }
        }
    }
}

void addMedian(FigureFinder& report) {
    const std::array lines{StatisticLine{"Chi-Square", {"chiSquare", "df.1", reportedProbability}},
                           StatisticLine{"Yates Correction", {"yates", "df.1", "yatesP"}},
                           StatisticLine{"Cochran Correction", {"cochran", "df.1", "cochranP"}},
                           StatisticLine{"Log-Likelihood", {"logLikelihood", "df.1", "logLikelihoodP"}}};
    addStatistics(report, {"Statistic", "Value", "DF", "P"}, lines);
}

void addKSamples(FigureFinder& report) {
    const std::array lines{StatisticLine{"Chi-Square", {"chiSquare", "df.1", "", reportedProbability}},
                           StatisticLine{"F", {"f", "fDf.1", "fDf.2", "fP"}}};
    addStatistics(report, {"Statistic", "Value", "DF 1", "DF 2", "P"}, lines);
}

void addWilcoxon(FigureFinder& report, TBVNPTails tails) {
    const std::string_view T = byTails(tails, "t", "negative.sum", "positive.sum");
    report.addBelow({"T", "N", "P"}, {T, "n", reportedProbability});
    report.addBelow({"Z", "N", "P"}, {"z", "n", reportedProbability});
}

void addSign(FigureFinder& report) {
    report.addBelow({"1 > 2", "1 = 2", "1 < 2"}, {"positive", "neither", "negative"});
    if (const std::optional<Long> line = report.lineOf({"P = "})) {
        report.add(*line, 2, "P", reportedProbability);
    }
}

void addRuns(FigureFinder& report) {
    if (const std::optional<Long> line = report.lineOf({"Observed"})) {
        report.add(*line, 2, "Observed", "runs");
        report.add(*line + 1, 2, "Expected", "expected");
    }
    report.addBelow({"Z adjusted", "P"}, {"z", reportedProbability});
    report.addBelow({"Z", "P"}, {"z", reportedProbability});
}

}  // namespace

std::vector<FigureCell> figureCells(const ValueGrid& cells, TBVNPMethod method, TBVNPTails tails) {
    FigureFinder report(cells);
    switch (method) {
        case tbvNPMannU: {
            const std::string_view U = byTails(tails, "u", "statistic.u.1", "statistic.u.2");
            report.addBelow({"U", "DF 1", "DF 2", "P"}, {U, "df.1", "df.2", reportedProbability});
            break;
        }
        case tbvNPWilcoxon:
            addWilcoxon(report, tails);
            break;
        case tbvNPSpearman:
            report.addBelow({"rs", "DF", "P"}, {"rs", "df.1", reportedProbability});
            break;
        case tbvNPSign:
            addSign(report);
            break;
        case tbvNPMedian:
            addMedian(report);
            break;
        case tbvNPFriedman:
        case tbvNPKWallis:
            addKSamples(report);
            break;
        case tbvNPWWRuns:
            addRuns(report);
            break;
    }
    return std::move(report).found();
}

}  // namespace TBVNonPara::calc
