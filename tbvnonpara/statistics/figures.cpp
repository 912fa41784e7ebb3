#include "tbvnonpara/statistics/figures.hpp"

#include <algorithm>
#include <charconv>

namespace TBVNonPara::statistics {

namespace {

const Figure* memberOf(const FigureBlock& block, std::string_view name) {
    const auto found = std::ranges::find(block, name, &NamedFigure::name);
    return found == block.end() ? nullptr : &found->figure;
}

const Figure* elementOf(const FigureList& list, std::string_view place) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(place.data(), place.data() + place.size(), number);
    const bool whole = error == std::errc() && end == place.data() + place.size();
    return whole && number >= 1 && number <= list.size() ? &list[number - 1] : nullptr;
}

}  // namespace

const Figure* find(const Figure& figure, std::string_view path) {
    if (path.empty()) {
        return &figure;
    }
    const std::string_view step = path.substr(0, path.find('.'));
    const std::string_view rest = path.substr(std::min(step.size() + 1, path.size()));
    const Figure* below = nullptr;
    if (const auto* block = std::get_if<FigureBlock>(&figure.value)) {
        below = memberOf(*block, step);
    } else if (const auto* list = std::get_if<FigureList>(&figure.value)) {
        below = elementOf(*list, step);
    }
    return below == nullptr ? nullptr : find(*below, rest);
}

}  // namespace TBVNonPara::statistics
