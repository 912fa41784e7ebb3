#include "tbvnonpara/analysis/column_address.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"
#include "tbvnonpara/workbook/address.hpp"

namespace TBVNonPara::analysis {

namespace {

using workbook::Sheet;

Piece column(Index number) {
    return {{1, number, 1, number}, true};
}

/// A user's text and where it is looked up.
class Lookup {
 public:
    Lookup(const workbook::EmbeddedApplication& application, HeaderLookup lookup, std::int32_t badRange)
        : m_Application(application),
          m_Sheet(application.activeSheet()),
          m_Used(m_Sheet->usedArea()),
          m_Lookup(lookup),
          m_BadRange(badRange) {
        for (Index number = m_Used ? m_Used->left : 1; m_Used && number <= m_Used->right; ++number) {
            if (const std::string header = headerOf(number); !header.empty()) {
                m_Headed[header].push_back(number);
            }
        }
    }

    [[nodiscard]] NamedCells find(std::string_view text) const {
        if (const std::optional<Index> single = columnNamed(text)) {
            return {m_Sheet, {column(*single)}, isHeaded(*single, text)};
        }
        NamedCells found{m_Sheet, {}, false};
        bool cells = false;
        for (const std::string_view part : splitUnquoted(text)) {
            if (const std::optional<Index> number = columnNamed(part)) {
                found.pieces.push_back(column(*number));
                found.byHeader = found.byHeader || isHeaded(*number, part);
            } else {
                cells = true;
            }
        }
        return cells ? cellsAt(text, found) : found;
    }

    /// The column with this header or these letters.
    [[nodiscard]] std::optional<Index> columnNamed(std::string_view text) const {
        const std::vector<Index> headed = columnsHeaded(text);
        if (headed.size() > 1) {
            refuse("Two columns are headed " + inQuotes(text) + ": " + letters(headed[0]) + " and " +
                   letters(headed[1]) + "; name one of them by its letters.");
        }
        const std::optional<Index> lettered = columnLettered(text);
        if (headed.empty()) {
            return lettered;
        }
        if (lettered && *lettered != headed.front()) {
            refuse(inQuotes(text) + " is the header of column " + letters(headed.front()) +
                   " and the letters of column " + letters(*lettered) + "; write " +
                   wholeColumn(headed.front()) + " or " + wholeColumn(*lettered) + '.');
        }
        return headed.front();
    }

    /// The column of an address such as B:B.
    [[nodiscard]] std::optional<Index> columnAddressed(std::string_view text) const {
        const std::size_t colon = text.find(':');
        if (colon == std::string_view::npos) {
            return std::nullopt;
        }
        const std::optional<Index> first = columnLettered(text.substr(0, colon));
        return first == columnLettered(text.substr(colon + 1)) ? first : std::nullopt;
    }

    /// A sentence that names the columns.
    [[nodiscard]] std::string known() const {
        constexpr Index most = 12;
        std::string names;
        for (Index number = m_Used ? m_Used->left : 1; m_Used && number <= std::min(m_Used->right, most);
             ++number) {
            const CellValue& header = m_Sheet->value(m_Used->top, number);
            const bool headed = m_Lookup != HeaderLookup::None && std::holds_alternative<Text>(header);
            names +=
                (names.empty() ? "" : ", ") + letters(number) + (headed ? " (" + toText(header) + ')' : "");
        }
        return names.empty() ? "The sheet is empty." : "The columns are " + names + '.';
    }

 private:
    /// From left to right.
    [[nodiscard]] std::vector<Index> columnsHeaded(std::string_view text) const {
        const auto found = m_Headed.find(text);
        return found == m_Headed.end() ? std::vector<Index>() : found->second;
    }

    [[nodiscard]] bool isHeaded(Index number, std::string_view text) const {
        return !text.empty() && headerOf(number) == text;
    }

    /// The header of a column, empty where it has none.
    [[nodiscard]] std::string headerOf(Index number) const {
        const CellValue& header = m_Sheet->value(m_Used->top, number);
        const bool readable = m_Lookup == HeaderLookup::All ||
                              (m_Lookup == HeaderLookup::Texts && std::holds_alternative<Text>(header));
        return readable && !isEmpty(header) ? toText(header) : std::string();
    }

    /// A column that holds data, by its letters in either case.
    [[nodiscard]] std::optional<Index> columnLettered(std::string_view text) const {
        constexpr std::size_t longest = 3;
        if (text.empty() || text.size() > longest) {
            return std::nullopt;
        }
        std::string_view rest = text;
        const Index number = takeColumn(rest);
        if (!rest.empty()) {
            return std::nullopt;
        }
        const bool holdsData = number <= sheetColumns && m_Sheet->values().lastUsedRow(number, number) > 0;
        return holdsData ? std::optional(number) : std::nullopt;
    }

    [[nodiscard]] NamedCells cellsAt(std::string_view text, const NamedCells& columns) const {
        if (!columns.pieces.empty()) {
            refuse(inQuotes(text) + " mixes columns and cells, or names a column that is not there. " +
                   known());
        }
        NamedCells found{m_Sheet, {}, false};
        try {
            for (const AddressArea& area : workbook::parseAddress(text)) {
                found.pieces.push_back({area.cells, area.wholeColumns});
            }
            // Finds the sheet and refuses areas on different ones.
            const std::string name = m_Application.GetRange(text)->GetWorksheet()->GetName();
            found.sheet = m_Application.activeBook()->sheet(name);
        } catch (const Error& error) {
            requireNoNumberAbove(text);
            const bool isWord = text.find_first_of(":!$0123456789") == std::string_view::npos;
            refuse("There is no column " + inQuotes(text) + ". " + known() + ' ' +
                   (isWord ? "Name one by its header or letters, or give an address such as A1:A9."
                           : error.description()));
        }
        return found;
    }

    /// A number above a column is taken for data, unless the user says that the first row holds headers.
    void requireNoNumberAbove(std::string_view text) const {
        for (Index number = m_Used ? m_Used->left : 1; m_Used && number <= m_Used->right; ++number) {
            const CellValue& top = m_Sheet->value(m_Used->top, number);
            if (m_Lookup == HeaderLookup::Texts && std::holds_alternative<double>(top) &&
                toText(top) == text) {
                throw reshaping::Refusal(m_BadRange,
                                         "There is no column " + inQuotes(text) + ": the number " +
                                             toText(top) + " in " + plainAddress(m_Used->top, number) +
                                             " is taken for data. " + known(),
                                         reshaping::Remedy::SayHeaders);
            }
        }
    }

    static std::string letters(Index number) { return columnLetters(number); }
    static std::string wholeColumn(Index number) { return letters(number) + ':' + letters(number); }

    [[noreturn]] void refuse(std::string description) const {
        analysis::refuse(m_BadRange, std::move(description));
    }

    const workbook::EmbeddedApplication& m_Application;
    std::shared_ptr<Sheet> m_Sheet;
    std::optional<Rectangle> m_Used;
    HeaderLookup m_Lookup;
    std::int32_t m_BadRange;
    std::map<std::string, std::vector<Index>, std::less<>> m_Headed;
};

}  // namespace

NamedCells findCells(const workbook::EmbeddedApplication& application, std::string_view text,
                     HeaderLookup lookup, std::int32_t badRange) {
    return Lookup(application, lookup, badRange).find(text);
}

std::optional<Index> findColumn(const workbook::EmbeddedApplication& application, std::string_view text,
                                HeaderLookup lookup) {
    const Lookup columns(application, lookup, tbvNPBadYRange);
    const std::optional<Index> named = columns.columnNamed(text);
    return named ? named : columns.columnAddressed(text);
}

std::string columnsInWords(const workbook::EmbeddedApplication& application, HeaderLookup lookup) {
    return Lookup(application, lookup, tbvNPBadYRange).known();
}

HeaderLookup lookupFor(const std::optional<bool>& headers) noexcept {
    if (!headers) {
        return HeaderLookup::Texts;
    }
    return *headers ? HeaderLookup::All : HeaderLookup::None;
}

std::vector<Piece> columnsWithData(const workbook::Sheet& sheet) {
    std::vector<Piece> found;
    const auto used = sheet.usedArea();
    for (Index number = used ? used->left : 1; used && number <= used->right; ++number) {
        if (sheet.values().lastUsedRow(number, number) > 0) {
            found.push_back(column(number));
        }
    }
    return found;
}

}  // namespace TBVNonPara::analysis
