#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::statistics {

struct Figure;
struct NamedFigure;
/// Figures in order; they have places instead of names.
using FigureList = std::vector<Figure>;
/// Figures with names, in order.
using FigureBlock = std::vector<NamedFigure>;

/// A result as names and values, in the order of its visit(): what does not exist, a number, a whole number,
/// a text, a list, or a block of named figures.
struct Figure {
    /// std::monostate: these data have no such figure.
    std::variant<std::monostate, double, std::int64_t, std::string, FigureList, FigureBlock> value;
};

/// One figure of a block.
struct NamedFigure {
    std::string name;  ///< as in JSON, "superiority"
    Figure figure;     ///< may be a block again
};

/// All figures of a result, of a test or of a part of one, under the names that JSON has:
///
///     const Figure all = figureOf(mannWhitney(before, after));
///     std::get<double>(find(all, "effect.superiority.value")->value);
///
/// A type of one's own needs visit(value, member), which calls member(name, part) for each of its parts. Time
/// and memory are those of the figures.
template <typename Value>
[[nodiscard]] Figure figureOf(const Value& value);

/// @cond
/// Takes the members that visit() names.
class FigureCollector {
 public:
    template <typename Value>
    void operator()(std::string_view name, const Value& value) {
        m_Block.push_back({std::string(name), figureOf(value)});
    }

    [[nodiscard]] Figure figure() && { return {std::move(m_Block)}; }

 private:
    FigureBlock m_Block;
};

template <typename Value>
struct IsOptional : std::false_type {};
template <typename Value>
struct IsOptional<std::optional<Value>> : std::true_type {};

template <typename List>
[[nodiscard]] Figure listOfFigures(const List& values) {
    FigureList list;
    for (const auto& value : values) {
        list.push_back(figureOf(value));
    }
    return {std::move(list)};
}

template <typename Value>
Figure figureOf(const Value& value) {
    if constexpr (std::floating_point<Value>) {
        return {static_cast<double>(value)};
    } else if constexpr (std::integral<Value>) {
        return {static_cast<std::int64_t>(value)};
    } else if constexpr (std::convertible_to<Value, std::string_view>) {
        return {std::string(std::string_view(value))};
    } else if constexpr (IsOptional<Value>::value) {
        return value ? figureOf(*value) : Figure();
    } else if constexpr (requires { value.begin(); }) {
        return listOfFigures(value);
    } else {
        FigureCollector collector;
        if constexpr (std::invocable<const Value&, FigureCollector&>) {
            value(collector);
        } else {
            visit(value, collector);
        }
        return std::move(collector).figure();
    }
}

/// @endcond

/// The figure at a path of names and places counted from 1, "groups.2.median.low". Null where the path leads
/// nowhere; the figure belongs to the tree. Time grows with the members on the way.
[[nodiscard]] TBVNONPARA_API const Figure* find(const Figure& figure, std::string_view path);

}  // namespace TBVNonPara::statistics
