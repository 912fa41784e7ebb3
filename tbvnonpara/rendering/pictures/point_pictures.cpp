#include "tbvnonpara/rendering/pictures/point_pictures.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <map>
#include <span>

#include "tbvnonpara/details/words.hpp"
#include "tbvnonpara/rendering/pictures/svg.hpp"

namespace TBVNonPara::rendering {

namespace {

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
    double median = 0;
    std::optional<MedianIntervals::Interval> interval = {};
};

/// The groups that there is room for, those of y first.
std::vector<Group> groupsOf(const std::vector<PictureColumn>& y, const std::vector<PictureColumn>& x,
                            const clsNonParaBO& engine, const MedianIntervals& intervals) {
    constexpr std::size_t mostGroups = 30;
    // Without descriptives the engine holds no medians of samples.
    const Array<double> medians = engine.GetMediansRaw();
    const bool known = medians.allocated() && toIndex(medians.size()) == std::ssize(y) + std::ssize(x);
    std::vector<Group> groups;
    for (const auto* const columns : {&y, &x}) {
        for (std::size_t i = 0; i < columns->size() && groups.size() < mostGroups; ++i) {
            Group group{(*columns)[i].label, numbersOf((*columns)[i])};
            std::ranges::sort(group.sorted);
            if (!group.sorted.empty()) {
                group.median = known ? medians.elements()[groups.size()] : quantile(group.sorted, 0.5);
            }
            group.interval = intervals.of(groups.size());
            groups.push_back(std::move(group));
        }
    }
    return groups;
}

/// " (0.1 to 4.6)".
std::string inWords(const std::optional<MedianIntervals::Interval>& interval) {
    return interval ? fmt::format(" ({} to {})", rounded(interval->low), rounded(interval->high)) : "";
}

/// A bar from one end to the other, wide enough to be seen where they are one.
void drawInterval(Svg& svg, const Scale& scale, const MedianIntervals::Interval& interval, double top) {
    constexpr double height = 4;
    const double left = scale.at(interval.low);
    svg.rectangle(left, top, std::max(scale.at(interval.high) - left, 2.0), height, "interval");
}

/// The medians of the first groups in words.
std::string mediansOf(const std::vector<Group>& groups, std::size_t most) {
    std::string medians;
    for (std::size_t i = 0; i < std::min(groups.size(), most); ++i) {
        if (!groups[i].sorted.empty()) {
            medians += (medians.empty() ? "" : ", ") + shortened(groups[i].label, labelLength) + ' ' +
                       rounded(groups[i].median) + inWords(groups[i].interval);
        }
    }
    return medians;
}

/// Between two of the values, which ascend.
std::optional<MedianIntervals::Interval> intervalOfMedian(const std::vector<double>& ascending,
                                                          std::optional<double> confidence) {
    if (!confidence) {
        return std::nullopt;
    }
    const statistics::OrderedEstimate median = statistics::medianOf(ascending, *confidence);
    return median.low && median.high ? std::optional(MedianIntervals::Interval{*median.low, *median.high})
                                     : std::nullopt;
}

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
    const double median = scale.at(group.median);
    svg.line(median, y - halfHeight - 2, median, y + halfHeight + 2, "median");
    if (group.interval) {
        drawInterval(svg, scale, *group.interval, y + halfHeight + 3);
    }
}

}  // namespace

Drawing groupsPicture(const std::vector<PictureColumn>& y, const std::vector<PictureColumn>& x,
                      const clsNonParaBO& engine, const MedianIntervals& intervals) {
    constexpr std::size_t mostMedians = 8;
    const std::vector<Group> groups = groupsOf(y, x, engine, intervals);
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    for (const Group& group : groups) {
        lowest = group.sorted.empty() ? lowest : std::min(lowest, group.sorted.front());
        highest = group.sorted.empty() ? highest : std::max(highest, group.sorted.back());
    }
    if (!(lowest <= highest)) {
        return {};
    }
    const double rowHeight = groups.size() <= 8 ? 44 : 24;
    const double bottom = 10 + rowHeight * static_cast<double>(groups.size());
    Svg svg;
    const Scale scale(lowest, highest, plotLeft, plotRight);
    scale.drawAxis(svg, 6, bottom);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        drawGroup(svg, scale, groups[i], 10 + rowHeight * (static_cast<double>(i) + 0.5), rowHeight * 0.3);
    }
    std::string description =
        "Points, quartiles as a box and the median as a line. Medians: " + mediansOf(groups, mostMedians) +
        '.';
    if (std::ranges::any_of(groups, [](const Group& group) { return group.interval.has_value(); })) {
        description +=
            fmt::format(" The bar below a median is its {} interval.", levelText(intervals.confidence));
    }
    const std::size_t columns = y.size() + x.size();
    if (groups.size() > mostMedians || columns > groups.size()) {
        description += fmt::format(" {} of {} groups are drawn.", groups.size(), columns);
    }
    return svg.finish(bottom + belowAxis, "The groups", description);
}

Drawing differencesPicture(const std::string& y, const std::string& x, const clsNonParaBO& engine,
                           std::optional<double> confidence) {
    const Grid<double> pairs = engine.GetRanks();  // difference, rank and signed rank of each
    const std::span<const double> inOrder = pairs.column(1);
    std::vector<double> differences(inOrder.begin(), inOrder.end());
    if (differences.empty()) {
        return {};
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
    const Array<Long> ns = engine.GetNsRank();  // positive, negative, zero
    svg.line(scale.at(median), 22, scale.at(median), bottom - 8, "median");
    std::string description = fmt::format(
        "{} minus {}, pair by pair: {} above zero, {} below, {} equal. The line is their median, {}.",
        shortened(y, 40), shortened(x, 40), ns(1).value(), ns(2).value(), ns(3).value(), rounded(median));
    if (const auto interval = intervalOfMedian(differences, confidence)) {
        drawInterval(svg, scale, *interval, bottom - 8);
        description += fmt::format(" The bar below it is its {} interval, {} to {}.", levelText(*confidence),
                                   rounded(interval->low), rounded(interval->high));
    }
    return svg.finish(bottom + belowAxis, "The differences of the pairs", description);
}

Drawing ranksPicture(const std::string& y, const std::string& x, const clsNonParaBO& engine) {
    const Grid<double> ranks = engine.GetRanks();
    const auto count = static_cast<std::size_t>(toIndex(ranks.rows()));
    constexpr double top = 26;
    constexpr double bottom = 300;
    constexpr double left = 60;
    constexpr double right = 460;
    constexpr double cell = 7;
    constexpr std::size_t drawnSingly = 1000;
    const auto n = static_cast<double>(count);
    Svg svg;
    const Scale across(0, n + 1, left, right);
    const Scale upwards(0, n + 1, bottom, top);
    across.drawAxis(svg, top, bottom);
    upwards.drawUprightAxis(svg, left, right);
    const std::span<const double> yRanks = ranks.column(1);
    const std::span<const double> xRanks = ranks.column(2);
    std::map<std::pair<int, int>, int> cells;
    for (std::size_t i = 0; i < count; ++i) {
        const double px = across.at(xRanks[i]);
        const double py = upwards.at(yRanks[i]);
        int& there = cells[{static_cast<int>(px / cell), static_cast<int>(py / cell)}];
        if (there == 0 || count <= drawnSingly) {
            svg.circle(px, py, 3.5, "first");
        }
        there += 1;
    }
    svg.text(left, 16, "rank of " + shortened(y, 30), "start");
    svg.text(right, bottom + 40, "rank of " + shortened(x, 30), "end");
    std::string description = fmt::format("The ranks of {} against those of {}, {} pairs.", shortened(y, 40),
                                          shortened(x, 40), count);
    description += count > drawnSingly ? " Points that lie close together are drawn as one." : "";
    return svg.finish(bottom + 50, "Scatter of the ranks", description);
}

}  // namespace TBVNonPara::rendering
