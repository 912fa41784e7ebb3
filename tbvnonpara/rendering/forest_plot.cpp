#include "tbvnonpara/rendering/forest_plot.hpp"

#include <algorithm>
#include <fmt/format.h>
#include <numeric>

#include "tbvnonpara/details/words.hpp"
#include "tbvnonpara/rendering/pictures/svg.hpp"
#include "tbvnonpara/statistics/newcombe.hpp"

namespace TBVNonPara::rendering {

namespace {
using statistics::Estimate;

constexpr std::size_t mostRows = 40;

/// A line of the plot: a share with its interval, and what P says of it.
struct ForestRow {
    std::string label;
    std::optional<Estimate> share;
    std::string note;
    bool differs = false;
};

struct Forest {
    std::string name;
    std::string description;
    double reference = 0.5;
    std::vector<ForestRow> rows;
};

/// The places of the comparisons to draw, in their order.
template <typename Comparison>
std::vector<std::size_t> chosenOf(const std::vector<Comparison>& comparisons) {
    std::vector<std::size_t> places(comparisons.size());
    std::iota(places.begin(), places.end(), std::size_t(0));
    if (places.size() > mostRows) {
        const auto end = places.begin() + static_cast<std::ptrdiff_t>(mostRows);
        std::ranges::partial_sort(places, end, {},
                                  [&](std::size_t place) { return comparisons[place].p.log10; });
        places.erase(end, places.end());
        std::ranges::sort(places);
    }
    return places;
}

template <typename Comparison>
ForestRow rowOf(const Comparison& comparison, const Estimate& share, const Details& details) {
    return {fmt::format("{} - {}", shortened(details.labels[comparison.first], 12),
                        shortened(details.labels[comparison.second], 12)),
            share, "P " + probabilityText(comparison.adjusted),
            comparison.adjusted.value <= 1 - details.choices.confidence};
}

template <typename Test>
std::string tellOf(const Test& test, std::string_view shares, const Details& details) {
    const std::size_t drawn = std::min(test.comparisons.size(), mostRows);
    const std::string part =
        drawn < test.comparisons.size()
            ? fmt::format(" The {} of {} with the smallest P are drawn.", drawn, test.comparisons.size())
            : "";
    return fmt::format(
        "{}, each with its {} interval; the line is 50 %. {} The "
        "intervals are not adjusted.{}",
        shares, levelText(details.choices.confidence), differencesText(test.comparisons, details.choices),
        part);
}

/// Tied values would make an interval a little narrower.
Forest forestOf(const statistics::KruskalWallis& test, const Details& details) {
    Forest forest{"The comparisons", "", 0.5, {}};
    for (const std::size_t place : chosenOf(test.comparisons)) {
        const auto& comparison = test.comparisons[place];
        forest.rows.push_back(
            rowOf(comparison,
                  statistics::superiorityOf(
                      comparison.superiority, static_cast<double>(test.groups[comparison.first].n),
                      static_cast<double>(test.groups[comparison.second].n), 1, details.choices.confidence),
                  details));
    }
    forest.description =
        tellOf(test, "In which share of all pairs of values the first group is larger", details);
    return forest;
}

Forest forestOf(const statistics::Friedman& test, const Details& details) {
    Forest forest{"The comparisons", "", 0.5, {}};
    for (const std::size_t place : chosenOf(test.comparisons)) {
        const auto& comparison = test.comparisons[place];
        const auto greater = static_cast<std::size_t>(comparison.blocks.greater);
        const std::size_t differing = greater + static_cast<std::size_t>(comparison.blocks.less);
        ForestRow row = rowOf(comparison, {}, details);
        row.share = differing > 0
                        ? std::optional(statistics::share(greater, differing, details.choices.confidence))
                        : std::nullopt;
        forest.rows.push_back(std::move(row));
    }
    forest.description =
        tellOf(test, "In which share of the blocks that differ the first is larger", details);
    return forest;
}

/// Pairs about the grand median have a P and no share of their own.
Forest forestOf(const statistics::Median& test, const Details& details) {
    Forest forest{"The shares above the grand median", "", 0, {}};
    std::size_t above = 0;
    for (std::size_t g = 0; g < test.groups.size(); ++g) {
        above += test.groups[g].above;
        if (g < mostRows) {
            forest.rows.push_back({shortened(details.labels[g], 26), test.groups[g].share,
                                   fmt::format("{} of {}", test.groups[g].above, test.groups[g].n), false});
        }
    }
    forest.reference = static_cast<double>(above) / static_cast<double>(test.n);
    forest.description = fmt::format(
        "Each group's share above the grand median with its {} interval; the line is that of all values.{}",
        levelText(details.choices.confidence),
        test.groups.size() > mostRows
            ? fmt::format(" {} of {} groups are drawn.", mostRows, test.groups.size())
            : "");
    return forest;
}

void drawRow(Svg& svg, const Scale& scale, const ForestRow& row, double y, double labelsEndAt) {
    constexpr double half = 5;
    svg.text(labelsEndAt, y + 4, row.label, "end");
    svg.text(Svg::width, y + 4, row.note, "end", "quiet");
    if (!row.share) {
        return;
    }
    if (row.share->low && row.share->high) {
        svg.line(scale.at(*row.share->low), y, scale.at(*row.share->high), y,
                 row.differs ? "span differs" : "span");
    }
    svg.rectangle(scale.at(row.share->value) - half, y - half, 2 * half, 2 * half,
                  row.differs ? "second" : "first");
}

std::string drawn(const Forest& forest) {
    constexpr double labelsEndAt = 262;
    constexpr double left = 276;
    constexpr double right = 522;
    constexpr double rowHeight = 26;
    const double bottom = 10 + rowHeight * static_cast<double>(forest.rows.size());
    Svg svg;
    const Scale scale(0, 1, left, right);
    scale.drawAxis(svg, 6, bottom);
    svg.line(scale.at(forest.reference), 2, scale.at(forest.reference), bottom, "reference");
    double y = 10 + rowHeight / 2;
    for (const ForestRow& row : forest.rows) {
        drawRow(svg, scale, row, y, labelsEndAt);
        y += rowHeight;
    }
    return figureOf(svg.finish(bottom + 28, forest.name, forest.description), "forest");
}

}  // namespace

std::string forestPlot(const Details& details) {
    const auto plot = [&](const auto& test) -> std::string {
        if constexpr (requires { test.comparisons; }) {
            return test.chiSquare && !test.comparisons.empty() ? drawn(forestOf(test, details)) : "";
        } else {
            return "";
        }
    };
    return std::visit(plot, details.result);
}

}  // namespace TBVNonPara::rendering
