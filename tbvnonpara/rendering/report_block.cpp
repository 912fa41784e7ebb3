#include "tbvnonpara/rendering/report_block.hpp"

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/number_format.hpp"

namespace TBVNonPara::rendering {

namespace {

constexpr std::string_view subscriptS = "ₛ";

/// The text with each s of its subscripts as the character for it.
std::string withSubscripts(const std::string& text, const std::vector<workbook::CharacterRun>& subscripts) {
    std::string marked;
    std::string_view rest = text;
    for (std::int32_t position = 1; !rest.empty(); ++position) {
        const std::string_view character = firstCharacters(rest, 1);
        bool lowered = false;
        for (const workbook::CharacterRun& run : subscripts) {
            lowered = lowered || (position >= run.start && position < run.start + run.length);
        }
        marked += lowered && character == "s" ? subscriptS : character;
        rest.remove_prefix(character.size());
    }
    return marked;
}

}  // namespace

std::string ReportBlock::shown(Index row, Index column) const {
    const CellValue& cell = value(row, column);
    if (isEmpty(cell)) {
        return {};
    }
    const workbook::CellFormat& look = format(row, column);
    std::string text = workbook::displayText(cell, look.numberFormat);
    if (!std::holds_alternative<Text>(cell)) {
        return text;
    }
    return onOneLine(look.subscripts.empty() ? text : withSubscripts(text, look.subscripts));
}

}  // namespace TBVNonPara::rendering
