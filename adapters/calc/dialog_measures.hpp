#pragma once

#include <cstdint>

/// Sizes of the dialog in the units of its font: a quarter of a letter's width, an eighth of its height.
namespace TBVNonPara::calc::measures {

constexpr std::int32_t width = 252;
constexpr std::int32_t margin = 6;
constexpr std::int32_t gap = 3;
constexpr std::int32_t sectionGap = 6;
constexpr std::int32_t row = 14;  // the least; so are the heights of boxes and buttons
constexpr std::int32_t line = 9;
constexpr std::int32_t letter = 4;
constexpr std::int32_t boxHeight = 10;
constexpr std::int32_t labelWidth = 84;
constexpr std::int32_t fieldLeft = margin + labelWidth + gap;
constexpr std::int32_t pickerWidth = 22;
constexpr std::int32_t listHeight = 56;
constexpr std::int32_t tickWidth = 10;
constexpr std::int32_t buttonWidth = 52;
constexpr std::int32_t buttonHeight = 15;
constexpr std::int32_t messageColour = 0xA0001C;
constexpr std::int32_t messageColourOnDark = 0xFF9A8C;

}  // namespace TBVNonPara::calc::measures
