#include "tbvnonpara/files/csv/reader.hpp"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "tbvnonpara/core/parallel.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/csv/dialect.hpp"
#include "tbvnonpara/files/csv/field.hpp"
#include "tbvnonpara/files/csv/header_row.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// No character of a text: the whole line is one field.
constexpr char noDelimiter = '\0';

/// The line that a position stands on, and the byte in that line, both from 1.
struct TextPosition {
    TextPosition(std::string_view text, std::size_t position) {
        for (std::size_t i = 0; i < position; ++i) {
            const bool lineEnd = text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n");
            line += lineEnd ? 1 : 0;
            byte = lineEnd ? 1 : byte + 1;
        }
    }

    std::size_t line = 1;
    std::size_t byte = 1;
};

[[noreturn]] void complain(std::string_view source, std::size_t line, const std::string& problem) {
    refuse(std::string(source) + ", line " + std::to_string(line) + ": " + problem);
}

[[noreturn]] void complainAt(std::string_view source, std::string_view text, std::size_t position,
                             const std::string& problem) {
    const TextPosition at(text, position);
    refuse(std::string(source) + ", line " + std::to_string(at.line) + ", byte " + std::to_string(at.byte) +
           ": " + problem);
}

void requireText(std::string_view text, std::string_view source) {
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
        complainAt(source, text, nul, "a NUL byte; this is no text file.");
    }
    if (const auto invalid = firstInvalidUtf8(text)) {
        const TextPosition at(text, *invalid);
        throw NotUtf8(hostErrorNumber, std::string(source) + ", line " + std::to_string(at.line) + ", byte " +
                                           std::to_string(at.byte) +
                                           ": not valid UTF-8; save the file as UTF-8.");
    }
}

bool isDelimiter(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x80U && c != '\0' && c != '"' && c != '\r' && c != '\n';
}

void requireDialect(const CsvOptions& options) {
    if (options.delimiter && !isDelimiter(*options.delimiter)) {
        refuse("Quotes, line ends and characters beyond ASCII cannot stand between fields.");
    }
    if (options.decimalMark && *options.decimalMark != '.' && *options.decimalMark != ',') {
        refuse("The decimal mark must be a point or a comma.");
    }
    if (options.thousands && std::string_view(".,' ").find(*options.thousands) == std::string_view::npos) {
        refuse("Thousands are divided by a point, a comma, an apostrophe or a blank.");
    }
    if (options.thousands && options.thousands == options.decimalMark) {
        refuse("The same character cannot divide thousands and mark decimals.");
    }
    if (options.decimalMark && options.delimiter == options.decimalMark) {
        refuse("The same character cannot stand between fields and mark decimals.");
    }
}

/// Which character stands between fields when it was not said: with decimal commas it is no comma.
char delimiterFor(std::string_view text, const CsvOptions& options) {
    if (options.delimiter) {
        return *options.delimiter;
    }
    const char delimiter = sniffDelimiter(text, options.comment).value_or(noDelimiter);
    return delimiter == ',' && options.decimalMark == ',' ? ';' : delimiter;
}

/// A number with groups of thousands has the other mark for decimals, wherever a comma stands between fields.
std::optional<char> decimalMarkFor(char delimiter, const CsvOptions& options) {
    if (options.decimalMark) {
        return options.decimalMark;
    }
    switch (options.thousands.value_or('\0')) {
        case '.':
            return ',';
        case ',':
            return '.';
        default:
            return delimiter == ',' ? std::optional('.') : std::nullopt;
    }
}

/// Some lines of a text, whose first one is this row.
struct Lines {
    std::size_t begin = 0;
    std::size_t end = 0;
    Index firstRow = 1;
};

/// Walks through lines of a text, field by field.
class CsvParser {
 public:
    CsvParser(std::string_view text, char delimiter, const CsvOptions& options, std::string_view source,
              const Lines& lines, std::size_t linesBefore)
        : m_Text(text.substr(0, lines.end)),
          m_Delimiter(delimiter),
          m_Fields(decimalMarkFor(delimiter, options), options.thousands),
          m_Comment(options.comment),
          m_MostColumns(options.mostColumns),
          m_Source(source),
          m_At(lines.begin),
          m_Line(linesBefore + static_cast<std::size_t>(lines.firstRow)),
          m_Row(lines.firstRow - 1) {
        for (const char c : {delimiter, '\n', '\r', delimiter == ' ' ? '\t' : delimiter}) {
            m_Ends.at(static_cast<unsigned char>(c)) = true;
        }
    }

    void read() {
        while (m_At < m_Text.size()) {
            if (m_Comment.empty() || !m_Text.substr(m_At).starts_with(m_Comment)) {
                readRecord();
            } else {
                m_At = std::min(m_Text.find_first_of("\r\n", m_At), m_Text.size());
                takeLineEnd();
            }
        }
    }

    [[nodiscard]] CellStore& cells() noexcept { return m_Cells; }
    [[nodiscard]] const RecordWidths& widths() const noexcept { return m_Widths; }
    [[nodiscard]] std::optional<char> decimalMark() const noexcept { return m_Fields.knownDecimalMark(); }

 private:
    void readRecord() {
        m_Row += 1;
        m_Column = 0;
        skipBlanks();
        const std::size_t start = m_At;
        do {
            m_Column += 1;
            if (m_At < m_Text.size() && m_Text[m_At] == '"') {
                store(quotedField());
            } else if (!storeShortNumber()) {
                store(m_Fields.plain(takePlain()));
            }
        } while (takeDelimiter());
        if (m_At > start) {
            m_Widths.add(m_Row, m_Column);
        }
        takeLineEnd();
    }

    [[nodiscard]] bool endsField(char c) const noexcept { return m_Ends[static_cast<unsigned char>(c)]; }

    /// Between fields that blanks divide.
    void skipBlanks() noexcept {
        while (m_Delimiter == ' ' && m_At < m_Text.size() && (m_Text[m_At] == ' ' || m_Text[m_At] == '\t')) {
            m_At += 1;
        }
    }

    /// Stores the field as a number where it is one of the usual kind.
    bool storeShortNumber() {
        const ShortNumber number = shortNumber(m_Text.substr(m_At));
        const std::size_t end = m_At + number.size;
        if ((end < m_Text.size() && !endsField(m_Text[end])) || !m_Fields.takes(number)) {
            return false;
        }
        requireRoom();
        m_Cells.set(m_Row, m_Column, number.value);
        m_At = end;
        return true;
    }

    std::string_view takePlain() {
        const std::string_view rest = m_Text.substr(m_At);
        const auto* const end = std::ranges::find_if(rest, [this](char c) { return endsField(c); });
        const auto size = static_cast<std::size_t>(end - rest.begin());
        m_At += size;
        return rest.substr(0, size);
    }

    CellValue quotedField() {
        const std::size_t opening = m_At;
        m_At += 1;
        const std::size_t close = m_Text.find('"', m_At);
        if (close != std::string_view::npos && (close + 1 == m_Text.size() || endsField(m_Text[close + 1]))) {
            const std::string_view field = m_Text.substr(m_At, close - m_At);
            countLines(field);
            m_At = close + 1;
            return m_Fields.quoted(field);
        }
        return m_Fields.quoted(unescaped(opening));
    }

    /// The slow way: doubled quotes, and characters behind the closing quote, which belong to the text.
    std::string unescaped(std::size_t opening) {
        std::string field;
        while (true) {
            const std::size_t quote = m_Text.find('"', m_At);
            if (quote == std::string_view::npos) {
                complainAt(m_Source, m_Text, opening,
                           "the quote that opens here is never closed; close it or double it.");
            }
            field += m_Text.substr(m_At, quote - m_At);
            m_At = quote + 1;
            if (m_At >= m_Text.size() || m_Text[m_At] != '"') {
                break;
            }
            field += '"';
            m_At += 1;
        }
        countLines(field);
        field += takePlain();
        return field;
    }

    void countLines(std::string_view field) {
        for (std::size_t i = 0; i < field.size(); ++i) {
            m_Line += field[i] == '\n' || (field[i] == '\r' && field.substr(i + 1, 1) != "\n") ? 1 : 0;
        }
    }

    bool takeDelimiter() {
        if (m_Delimiter == ' ') {
            skipBlanks();
            return m_At < m_Text.size() && m_Text[m_At] != '\n' && m_Text[m_At] != '\r';
        }
        const bool there = m_At < m_Text.size() && m_Text[m_At] == m_Delimiter;
        m_At += there ? 1 : 0;
        return there;
    }

    void takeLineEnd() {
        if (m_At < m_Text.size()) {
            const bool both = m_Text[m_At] == '\r' && m_Text.substr(m_At + 1, 1) == "\n";
            m_At += both ? 2 : 1;
            m_Line += 1;
        }
    }

    void store(CellValue value) {
        if (!isEmpty(value)) {
            requireRoom();
            m_Cells.set(m_Row, m_Column, std::move(value));
        }
    }

    void requireRoom() const {
        if (m_Row > sheetRows) {
            complain(m_Source, m_Line, "more rows than the 1048576 of a sheet; split the file.");
        }
        if (m_Column > m_MostColumns) {
            complain(m_Source, m_Line,
                     "more columns than the " + std::to_string(m_MostColumns) +
                         (m_MostColumns == sheetColumns ? " of a sheet" : " that can be read") +
                         "; is another character between the fields?");
        }
    }

    std::string_view m_Text;
    char m_Delimiter;
    std::array<bool, 256> m_Ends{};  ///< which bytes end a field without quotes
    CsvFieldReader m_Fields;
    std::string_view m_Comment;
    Index m_MostColumns;
    std::string_view m_Source;
    std::size_t m_At;
    std::size_t m_Line;
    Index m_Row;
    Index m_Column = 0;
    CellStore m_Cells;
    RecordWidths m_Widths;
};

/// Whether lines can be told by line feeds alone: there is no quote for one to stand in, and none is missing.
bool hasPlainLines(std::string_view text) {
    if (text.find('"') != std::string_view::npos) {
        return false;
    }
    std::size_t at = text.find('\r');
    while (at != std::string_view::npos && text.substr(at + 1, 1) == "\n") {
        at = text.find('\r', at + 2);
    }
    return at == std::string_view::npos;
}

/// Cuts the text behind `start` into pieces of about the same size that begin with a block of rows.
std::vector<Lines> piecesOf(std::string_view text, std::size_t start, std::size_t pieces) {
    const auto boundary = [&](std::size_t piece) {
        return start + beginOfPart(piece, pieces, text.size() - start);
    };
    std::vector<Index> lines(pieces);
    inParallel(pieces, [&](std::size_t piece) {
        lines[piece] =
            std::ranges::count(text.substr(boundary(piece), boundary(piece + 1) - boundary(piece)), '\n');
    });
    std::vector<Lines> cut = {{start, text.size(), 1}};
    Index row = 1;
    for (std::size_t piece = 1; piece < pieces; ++piece) {
        row += lines[piece - 1];
        std::size_t at = boundary(piece);
        Index firstRow = row;
        do {
            at = std::min(text.find('\n', at), text.size() - 1) + 1;
            firstRow += 1;
        } while (at < text.size() && !CellStore::beginsBlock(firstRow));
        if (at < text.size() && at > cut.back().begin) {
            cut.back().end = at;
            cut.push_back({at, text.size(), firstRow});
        }
    }
    return cut;
}

/// The decimal mark that the first lines settle, where something does.
std::optional<char> decimalMarkInFirstLines(std::string_view text, char delimiter, const CsvOptions& options,
                                            std::string_view source, std::size_t start) {
    constexpr std::size_t enough = std::size_t(1) << 16U;
    const std::size_t end = text.find('\n', start + enough);
    CsvParser parser(text, delimiter, options, source, {start, std::min(end, text.size()), 1}, 0);
    parser.read();
    return parser.decimalMark();
}

}  // namespace

CsvData readCsv(std::string_view bytes, const CsvOptions& options, std::string_view source) {
    requireDialect(options);
    const DecodedText decoded(bytes, options.encoding, source);
    const std::string_view text = decoded.text();
    requireText(text, source);
    CsvOptions settled = options;
    const auto line = delimiterLine(text);
    if (line && !settled.delimiter) {
        settled.delimiter = line->delimiter;
        requireDialect(settled);
    }
    const std::size_t start = line ? line->size : 0;
    const char delimiter = delimiterFor(text.substr(start), settled);

    constexpr std::size_t bytesOfElement = 8;
    std::size_t threads = partsWorthwhile(settled.threads, (text.size() - start) / bytesOfElement);
    if (threads > 1 && (!settled.comment.empty() || !hasPlainLines(text))) {
        threads = 1;
    }
    if (threads > 1 && !decimalMarkFor(delimiter, settled)) {
        settled.decimalMark = decimalMarkInFirstLines(text, delimiter, settled, source, start);
        threads = settled.decimalMark ? threads : 1;
    }
    std::vector<CsvParser> parsers;
    for (const Lines& lines :
         threads > 1 ? piecesOf(text, start, threads) : std::vector<Lines>{{start, text.size(), 1}}) {
        parsers.emplace_back(text, delimiter, settled, source, lines, start == 0 ? 0 : 1);
    }
    inParallel(parsers.size(), [&](std::size_t piece) { parsers[piece].read(); });

    CellStore cells = std::move(parsers.front().cells());
    RecordWidths widths = parsers.front().widths();
    for (std::size_t piece = 1; piece < parsers.size(); ++piece) {
        cells.append(std::move(parsers[piece].cells()));
        widths.join(parsers[piece].widths());
    }
    const bool moved = alignHeader(cells, widths, source);
    return {std::move(cells), delimiter == noDelimiter ? std::nullopt : std::optional(delimiter),
            parsers.front().decimalMark().value_or('.'), moved};
}

}  // namespace TBVNonPara::workbook
