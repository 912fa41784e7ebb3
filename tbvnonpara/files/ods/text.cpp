#include "tbvnonpara/files/ods/text.hpp"

#include <algorithm>

#include "tbvnonpara/files/file_cells.hpp"
#include "tbvnonpara/files/file_values.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostMeantAtOnce = 1U << 20U;

}  // namespace

void OdsText::clear() noexcept {
    m_Text.clear();
    m_Blanks.clear();
    m_HasParagraph = false;
}

void OdsText::startParagraph() {
    if (m_HasParagraph) {
        appendToText(m_Text, "\n");
    }
    m_HasParagraph = true;
    m_AtStart = true;
}

void OdsText::append(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t first = std::min(piece.find_first_not_of(xmlBlanks), piece.size());
        appendToText(m_Blanks, piece.substr(0, first));
        piece.remove_prefix(first);
        const std::string_view word = piece.substr(0, piece.find_first_of(xmlBlanks));
        if (!word.empty()) {
            takeBlanks(false);
            appendToText(m_Text, word);
            m_AtStart = false;
        }
        piece.remove_prefix(word.size());
    }
}

void OdsText::takeBlanks(bool atEnd) {
    const bool indented = m_Blanks.find_first_of("\t\r\n") != std::string::npos;
    if (!indented) {
        appendToText(m_Text, m_Blanks);
    } else if (!atEnd && !m_AtStart) {
        appendToText(m_Text, " ");
    }
    m_Blanks.clear();
}

void OdsText::appendMeant(std::size_t count, char c) {
    takeBlanks(false);
    appendToText(m_Text, std::string(std::min(count, mostMeantAtOnce), c));
    m_AtStart = false;
}

void OdsText::endParagraph() {
    takeBlanks(true);
}

}  // namespace TBVNonPara::workbook
