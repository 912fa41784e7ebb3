#include "tbvnonpara/details/trend.hpp"

#include <fmt/format.h>

#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara {

namespace {

struct TrendWords {
    std::string_view title;
    std::string_view statistic;
    std::string_view correlation;
    std::string_view groups;
};

TrendWords wordsOf(const statistics::Trend& trend) {
    if (trend.test == "page") {
        return {"Trend (Page)", "L", "Page's rho", "treatment"};
    }
    return {"Trend (Jonckheere and Terpstra)", "J", "Kendall's tau-b", "group"};
}

template <typename Tails>
void addRow(DetailTable& table, std::string name, std::optional<double> z, const Tails& tails) {
    table.rows.push_back({nameCell(std::move(name)), numberCell(z), probabilityCell(tails.two),
                          probabilityCell(tails.greater), probabilityCell(tails.less)});
}

}  // namespace

std::string trendText(const statistics::Trend& trend, const DetailChoices& choices) {
    const TrendWords words = wordsOf(trend);
    const double limit = 1 - choices.confidence;
    const statistics::Probability& p = trend.exact ? trend.exact->two : trend.normal->plain.two;
    const std::string_view direction = p.value > limit         ? "Whether values rise or fall"
                                       : trend.correlation > 0 ? "Values rise"
                                                               : "Values fall";
    return fmt::format("{} from {} to {}{} ({} = {:.2f}, P = {}, {}).", direction, words.groups, words.groups,
                       p.value > limit ? " stays open" : "", words.correlation, trend.correlation,
                       probabilityText(p), trend.exact ? "exact" : "normal approximation");
}

void tellTrend(DetailPage& page, const std::optional<statistics::Trend>& trend,
               const DetailChoices& choices) {
    if (!trend || !trend->normal) {
        return;
    }
    const TrendWords words = wordsOf(*trend);
    page.words.push_back(trendText(*trend, choices));
    DetailTable table{std::string(words.title), {"z", "P", "P (rising)", "P (falling)"}, {}};
    if (trend->exact) {
        addRow(table, "Exact", {}, *trend->exact);
    }
    addRow(table, "Normal", trend->normal->plain.z, trend->normal->plain);
    addRow(table, "  with continuity correction", trend->normal->corrected.z, trend->normal->corrected);
    page.tables.push_back(std::move(table));
    page.notes.push_back(fmt::format("{} = {}, expected {} without a trend; {} = {}.", words.statistic,
                                     fourDecimals(trend->statistic), fourDecimals(trend->expected),
                                     words.correlation, fourDecimals(trend->correlation)));
}

}  // namespace TBVNonPara
