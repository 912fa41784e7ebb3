#include "tbvnonpara/files/xlsx/plain_rows.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

namespace TBVNonPara::workbook {

namespace {

constexpr bool isDecimalFigure(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr bool isNameCharacter(char c) noexcept {
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || isDecimalFigure(c) || c == '_' || c == ':' || c == '-' ||
           c == '.';
}

/// Steps through tags. A step that fails leaves the place where it is of no account: the row is none.
class Steps {
 public:
    explicit Steps(std::string_view text) : m_Text(text) {}

    [[nodiscard]] std::size_t at() const noexcept { return m_At; }

    bool skip(std::string_view expected) noexcept {
        const bool there = m_Text.size() - m_At >= expected.size() &&
                           std::memcmp(m_Text.data() + m_At, expected.data(), expected.size()) == 0;
        m_At += there ? expected.size() : 0;
        return there;
    }

    /// The attributes up to the end of the tag, each by take(name, value), which says whether it may be
    /// there.
    bool skipAttributes(const auto& take) {
        std::array<std::string_view, 16> names;
        for (std::size_t known = 0; skip(" "); ++known) {
            const std::string_view name = nameHere();
            const auto earlier = std::span(names).first(known);
            if (name.empty() || known == names.size() || name.starts_with("xmlns") || !skip("=\"") ||
                std::ranges::find(earlier, name) != earlier.end()) {
                return false;
            }
            names[known] = name;
            const std::size_t begin = m_At;
            while (m_At < m_Text.size() && isPlain(m_Text[m_At]) && m_Text[m_At] != '"') {
                m_At += 1;
            }
            if (!take(name, m_Text.substr(begin, m_At - begin)) || !skip("\"")) {
                return false;
            }
        }
        return true;
    }

    /// What stands up to the next tag, as far as it is plain.
    std::string_view value() noexcept {
        const std::size_t begin = m_At;
        while (m_At < m_Text.size() && isPlain(m_Text[m_At])) {
            m_At += 1;
        }
        return m_Text.substr(begin, m_At - begin);
    }

 private:
    /// A printable character of ASCII that neither begins anything nor stands for another one.
    static constexpr bool isPlain(char c) noexcept {
        return c >= ' ' && c <= '~' && c != '<' && c != '&' && c != '>';
    }

    std::string_view nameHere() noexcept {
        const std::size_t begin = m_At;
        while (m_At < m_Text.size() && isNameCharacter(m_Text[m_At])) {
            m_At += 1;
        }
        const std::string_view name = m_Text.substr(begin, m_At - begin);
        return !name.empty() && (isDecimalFigure(name.front()) || name.front() == '-' || name.front() == '.')
                   ? std::string_view()
                   : name;
    }

    std::string_view m_Text;
    std::size_t m_At = 0;
};

/// "B7" as a place; none for what is written otherwise.
std::optional<CellPlace> plainPlace(std::string_view reference) noexcept {
    constexpr std::size_t mostLetters = 3;
    constexpr std::size_t mostFigures = 7;
    CellPlace place{0, 0};
    std::size_t at = 0;
    for (; at < reference.size() && reference[at] >= 'A' && reference[at] <= 'Z'; ++at) {
        place.column = place.column * 26 + (reference[at] - 'A' + 1);
    }
    const std::size_t figures = reference.size() - at;
    if (at == 0 || at > mostLetters || figures == 0 || figures > mostFigures || reference[at] == '0') {
        return std::nullopt;
    }
    for (; at < reference.size(); ++at) {
        if (!isDecimalFigure(reference[at])) {
            return std::nullopt;
        }
        place.row = place.row * 10 + (reference[at] - '0');
    }
    return place;
}

/// The rest of a cell behind "<c".
bool takeCell(Steps& steps, PlainCell& cell) {
    const bool known = steps.skipAttributes([&](std::string_view name, std::string_view value) {
        if (name == "r") {
            cell.place = plainPlace(value);
            return cell.place.has_value();
        }
        if (name == "t") {
            cell.isShared = value == "s";
            return cell.isShared || value == "n";
        }
        return true;
    });
    if (!known) {
        return false;
    }
    if (steps.skip("/>")) {
        return true;
    }
    if (!steps.skip("><v>")) {
        return false;
    }
    cell.hasValue = true;
    cell.value = steps.value();
    return steps.skip("</v></c>");
}

}  // namespace

std::size_t PlainRows::take(std::string_view text) {
    Steps steps(text);
    m_Row = {};
    m_Cells.clear();
    if (!steps.skip("<row") || !steps.skipAttributes([&](std::string_view name, std::string_view value) {
            if (name == "r") {
                m_Row.number = value;
            }
            return true;
        })) {
        return 0;
    }
    if (steps.skip("/>")) {
        return steps.at();
    }
    if (!steps.skip(">")) {
        return 0;
    }
    while (steps.skip("<c")) {
        if (!takeCell(steps, m_Cells.emplace_back())) {
            return 0;
        }
    }
    return steps.skip("</row>") ? steps.at() : 0;
}

}  // namespace TBVNonPara::workbook
