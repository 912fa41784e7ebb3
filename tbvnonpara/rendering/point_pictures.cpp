#include "tbvnonpara/rendering/point_pictures.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <map>

#include "tbvnonpara/rendering/svg.hpp"

namespace TBVNonPara::rendering {

namespace {

constexpr double belowAxis = 28;

std::string rounded(double value) {
    return fmt::format("{:.6g}", value + 0.0);
}

/// A row of points over a scale: those that would lie on each other are stacked, and of a high stack only the
/// lowest are drawn.
class PointRow {
 public:
    PointRow(Svg& svg, const Scale& scale, double y, int highest)
        : m_Svg(svg), m_Scale(scale), m_Y(y), m_Highest(highest) {}

    void draw(double value, std::string_view cssClass) {
        constexpr double binWidth = 4;
        constexpr double stackStep = 3;
        const double x = m_Scale.at(value);
        int& stacked = m_Stacks[static_cast<int>(x / binWidth)];
        if (stacked < m_Highest) {
            const int step = (stacked + 1) / 2;
            m_Svg.circle(x, m_Y + (stacked % 2 == 0 ? step : -step) * stackStep, 3, cssClass);
            stacked += 1;
        }
    }

 private:
    Svg& m_Svg;
    const Scale& m_Scale;
    double m_Y;
    int m_Highest;
    std::map<int, int> m_Stacks;
};

/// A group and its row of the drawing.
struct Group {
    std::string label;
    std::vector<double> sorted;
};

void drawGroup(Svg& svg, const Scale& scale, const Group& group, double y, double halfHeight) {
    svg.text(labelsEnd, y + 4, shortened(group.label, labelLength), "end");
    if (group.sorted.empty()) {
        return;
    }
    constexpr std::size_t enoughForABox = 5;
    if (group.sorted.size() >= enoughForABox) {
        const double left = scale.at(quantile(group.sorted, 0.25));
        const double right = scale.at(quantile(group.sorted, 0.75));
        svg.line(scale.at(group.sorted.front()), y, scale.at(group.sorted.back()), y, "axis");
        svg.rectangle(left, y - halfHeight, right - left, 2 * halfHeight, "box");
    }
    PointRow points(svg, scale, y, halfHeight > 10 ? 7 : 3);
    for (const double value : group.sorted) {
        points.draw(value, "first");
    }
    const double median = scale.at(quantile(group.sorted, 0.5));
    svg.line(median, y - halfHeight - 2, median, y + halfHeight + 2, "median");
}

}  // namespace

std::string groupsPicture(const std::vector<PictureColumn>& columns) {
    constexpr std::size_t mostGroups = 30;
    constexpr std::size_t mostMedians = 8;
    const std::size_t count = std::min(columns.size(), mostGroups);
    std::vector<Group> groups;
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    for (std::size_t i = 0; i < count; ++i) {
        Group group{columns[i].label, numbersOf(columns[i])};
        std::ranges::sort(group.sorted);
        lowest = group.sorted.empty() ? lowest : std::min(lowest, group.sorted.front());
        highest = group.sorted.empty() ? highest : std::max(highest, group.sorted.back());
        groups.push_back(std::move(group));
    }
    if (!(lowest <= highest)) {
        return "";
    }
    const double rowHeight = count <= 8 ? 44 : 24;
    const double bottom = 10 + rowHeight * static_cast<double>(count);
    Svg svg;
    const Scale scale(lowest, highest, plotLeft, plotRight);
    scale.drawAxis(svg, 6, bottom);
    std::string medians;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        drawGroup(svg, scale, groups[i], 10 + rowHeight * (static_cast<double>(i) + 0.5), rowHeight * 0.3);
        if (i < mostMedians && !groups[i].sorted.empty()) {
            medians += (medians.empty() ? "" : ", ") + shortened(groups[i].label, labelLength) + ' ' +
                       rounded(quantile(groups[i].sorted, 0.5));
        }
    }
    std::string description =
        "Points, quartiles as a box and the median as a line. Medians: " + medians + '.';
    if (groups.size() > mostMedians || columns.size() > groups.size()) {
        description += fmt::format(" {} of {} groups are drawn.", groups.size(), columns.size());
    }
    return svg.finish(bottom + belowAxis, "The groups", description);
}

std::string differencesPicture(const PictureColumn& y, const PictureColumn& x) {
    std::vector<double> differences;
    std::size_t above = 0;
    std::size_t below = 0;
    for (const Pair& pair : pairsOf(y, x)) {
        const double difference = pair.y - pair.x;
        if (std::isfinite(difference)) {
            differences.push_back(difference);
        }
        above += pair.y > pair.x ? 1 : 0;
        below += pair.y < pair.x ? 1 : 0;
    }
    if (differences.empty()) {
        return "";
    }
    std::ranges::sort(differences);
    constexpr double middle = 60;
    constexpr double bottom = 110;
    constexpr double left = 25;
    Svg svg;
    const Scale scale(std::min(differences.front(), 0.0), std::max(differences.back(), 0.0), left, plotRight);
    scale.drawAxis(svg, 18, bottom);
    svg.line(scale.at(0), 14, scale.at(0), bottom, "axis");
    PointRow points(svg, scale, middle, 21);
    for (const double difference : differences) {
        points.draw(difference, difference > 0 ? "first" : difference < 0 ? "second" : "none");
    }
    const double median = quantile(differences, 0.5);
    svg.line(scale.at(median), 22, scale.at(median), bottom - 8, "median");
    return svg.finish(
        bottom + belowAxis, "The differences of the pairs",
        fmt::format(
            "{} minus {}, pair by pair: {} above zero, {} below, {} equal. The line is their median, {}.",
            shortened(y.label, 40), shortened(x.label, 40), above, below,
            differences.size() - std::min(differences.size(), above + below), rounded(median)));
}

std::string ranksPicture(const PictureColumn& y, const PictureColumn& x) {
    std::vector<double> ys;
    std::vector<double> xs;
    for (const Pair& pair : pairsOf(y, x)) {
        ys.push_back(pair.y);
        xs.push_back(pair.x);
    }
    if (ys.empty()) {
        return "";
    }
    const std::vector<double> yRanks = averageRanks(ys);
    const std::vector<double> xRanks = averageRanks(xs);
    constexpr double top = 26;
    constexpr double bottom = 300;
    constexpr double left = 60;
    constexpr double right = 460;
    constexpr double cell = 7;
    constexpr std::size_t drawnSingly = 1000;
    const auto n = static_cast<double>(ys.size());
    Svg svg;
    const Scale across(0, n + 1, left, right);
    const Scale upwards(0, n + 1, bottom, top);
    across.drawAxis(svg, top, bottom);
    upwards.drawUprightAxis(svg, left, right);
    std::map<std::pair<int, int>, int> cells;
    for (std::size_t i = 0; i < ys.size(); ++i) {
        const double px = across.at(xRanks[i]);
        const double py = upwards.at(yRanks[i]);
        int& there = cells[{static_cast<int>(px / cell), static_cast<int>(py / cell)}];
        if (there == 0 || ys.size() <= drawnSingly) {
            svg.circle(px, py, 3.5, "first");
        }
        there += 1;
    }
    svg.text(left, 16, "rank of " + shortened(y.label, 30), "start");
    svg.text(right, bottom + 40, "rank of " + shortened(x.label, 30), "end");
    std::string description = fmt::format("The ranks of {} against those of {}, {} pairs.",
                                          shortened(y.label, 40), shortened(x.label, 40), ys.size());
    description += ys.size() > drawnSingly ? " Points that lie close together are drawn as one." : "";
    return svg.finish(bottom + 50, "Scatter of the ranks", description);
}

}  // namespace TBVNonPara::rendering
