#include "tbvnonpara/rendering/pictures/drawn_data.hpp"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <unordered_map>

#include "tbvnonpara/rendering/pictures/point_pictures.hpp"

namespace TBVNonPara::rendering {

namespace {

Drawing signsPicture(const clsNonParaBO& engine) {
    const auto counts = std::get<Array<Long>>(engine.GetOther());
    struct Bar {
        std::string_view label;
        Long count;
        std::string_view cssClass;
    };
    const std::array<Bar, 3> bars = {{{"positive", counts(1), "first"},
                                      {"neither", counts(2), "none"},
                                      {"negative", counts(3), "second"}}};
    const double most = toDouble(std::max({counts(1), counts(2), counts(3), Long(1)}));
    Svg svg;
    double top = 8;
    for (const Bar& bar : bars) {
        constexpr double longest = 400;
        const double length = longest * toDouble(bar.count) / most;
        svg.text(labelsEnd, top + 20, bar.label, "end");
        svg.rectangle(plotLeft, top, length, 30, bar.cssClass);
        svg.text(plotLeft + length + 8, top + 20, std::to_string(bar.count.value()), "start");
        top += 40;
    }
    svg.line(plotLeft, 2, plotLeft, top - 4, "axis");
    return svg.finish(top, "The signs",
                      fmt::format("{} positive, {} neither, {} negative.", counts(1).value(),
                                  counts(2).value(), counts(3).value()));
}

/// The parts of the drawing that a category takes, by columns one unit wide.
struct Category {
    std::string label;
    std::vector<bool> covered;
};

std::string nameOf(const CellValue& value) {
    const std::string text = toText(value);
    return isEmpty(value) ? "(blank)" : text.empty() ? "(empty text)" : text;
}

Drawing sequencePicture(const PictureColumn& column) {
    constexpr std::size_t mostCategories = 12;
    constexpr auto units = static_cast<std::size_t>(plotRight - plotLeft);
    const std::size_t n = column.cells.size();
    std::unordered_map<std::string, std::size_t> known;
    std::vector<Category> categories;
    for (std::size_t i = 0; i < n; ++i) {
        const std::string key = std::to_string(column.cells[i].index()) + toText(column.cells[i]);
        const auto [entry, isNew] = known.try_emplace(key, known.size());
        if (isNew && categories.size() < mostCategories) {
            categories.push_back({nameOf(column.cells[i]), std::vector<bool>(units)});
        }
        if (entry->second < categories.size()) {
            const std::size_t first = i * units / n;
            const std::size_t end = std::max(first + 1, (i + 1) * units / n);
            std::fill(categories[entry->second].covered.begin() + static_cast<Index>(first),
                      categories[entry->second].covered.begin() + static_cast<Index>(std::min(end, units)),
                      true);
        }
    }
    constexpr double rowHeight = 30;
    Svg svg;
    double top = 8;
    for (std::size_t i = 0; i < categories.size(); ++i) {
        const std::vector<bool>& covered = categories[i].covered;
        svg.text(labelsEnd, top + 18, shortened(categories[i].label, labelLength), "end");
        for (std::size_t first = 0; first < units; ++first) {
            std::size_t end = first;
            while (end < units && covered[end]) {
                end += 1;
            }
            if (end > first) {
                svg.rectangle(plotLeft + static_cast<double>(first), top, static_cast<double>(end - first),
                              rowHeight - 6, i % 2 == 0 ? "first" : "second");
                first = end;
            }
        }
        top += rowHeight;
    }
    const Scale scale(1, std::max(static_cast<double>(n), 2.0), plotLeft, plotRight);
    scale.drawAxis(svg, top, top);
    return svg.finish(
        top + belowAxis, "The sequence",
        fmt::format("{} values in their order, a row for each of {} {}.", n, known.size(),
                    known.size() > categories.size()
                        ? fmt::format("categories, of which the first {} are drawn", categories.size())
                        : "categories"));
}

bool needsTwoColumns(TBVNPMethod method) {
    return method == tbvNPMannU || method == tbvNPWilcoxon || method == tbvNPSpearman;
}

}  // namespace

Drawing drawnData(TBVNPMethod method, const PictureData& data, const clsNonParaBO& engine,
                  const Details* details) {
    if (data.y.empty() || (data.x.empty() && needsTwoColumns(method))) {
        return {};
    }
    switch (method) {
        case tbvNPWilcoxon:
            return differencesPicture(
                data.y.front().label, data.x.front().label, engine,
                details == nullptr ? std::nullopt : std::optional(details->choices.confidence));
        case tbvNPSpearman:
            return ranksPicture(data.y.front().label, data.x.front().label, engine);
        case tbvNPSign:
            return signsPicture(engine);
        case tbvNPWWRuns:
            return sequencePicture(data.y.front());
        default:
            return groupsPicture(data.y, data.x, engine,
                                 details == nullptr
                                     ? MedianIntervals()
                                     : medianIntervals(*details, data.y.size() + data.x.size()));
    }
}

}  // namespace TBVNonPara::rendering
