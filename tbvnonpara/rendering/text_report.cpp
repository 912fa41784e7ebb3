#include "tbvnonpara/rendering/text_report.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/rendering/text_layout.hpp"

namespace TBVNonPara::rendering {

namespace {

constexpr std::string_view bold = "\033[1m";
constexpr std::string_view faint = "\033[2m";
constexpr std::string_view plain = "\033[0m";

/// A line being written: pieces at their places, from left to right.
class Line {
 public:
    explicit Line(bool colour) : m_Colour(colour) {}

    /// A piece that would begin inside what stands already begins behind it.
    void put(std::size_t start, std::string_view text, std::size_t width, std::string_view style) {
        if (start > m_Width) {
            m_Text.append(start - m_Width, ' ');
            m_Width = start;
        }
        const bool styled = m_Colour && !style.empty();
        m_Text += styled ? style : "";
        m_Text += text;
        m_Text += styled ? plain : "";
        m_Width += width;
    }

    [[nodiscard]] bool isBlank() const noexcept { return m_Width == 0; }
    [[nodiscard]] const std::string& text() const noexcept { return m_Text; }

 private:
    bool m_Colour;
    std::string m_Text;
    std::size_t m_Width = 0;
};

/// Writes the rows of one section.
class SectionWriter {
 public:
    SectionWriter(const ReportBlock& report, Section rows, bool colour, std::size_t width, Output& output)
        : m_Report(report),
          m_Layout(report, rows),
          m_Rows(rows),
          m_Colour(colour),
          m_Width(width),
          m_Output(output) {}

    void write() {
        findRules();
        if (m_Width == 0 || m_Layout.width({1, m_Report.columns()}) <= m_Width) {
            writeRows();
            return;
        }
        for (std::vector<Index>& part : parts()) {
            if (m_IsContinued) {
                m_Output.write("\n");
            }
            m_Layout.arrange(std::move(part), m_Width);
            writeRows();
            m_IsContinued = true;
        }
    }

 private:
    /// Where labels and one more column are wider than the terminal, texts are shortened until they fit.
    [[nodiscard]] std::vector<std::vector<Index>> parts() {
        std::vector<std::vector<Index>> parts = m_Layout.parts(m_Width);
        if (std::ranges::all_of(parts, [&](const auto& part) { return m_Layout.fits(part, m_Width); })) {
            return parts;
        }
        m_MostOfText = std::min(mostInTable, std::max(m_Width, gap + 2) / 2 - gap / 2);
        m_Layout = TextLayout(m_Report, m_Rows, m_MostOfText);
        return m_Layout.parts(m_Width);
    }

    /// The lines under the rows, each drawn by cells above it or below it.
    void findRules() {
        for (Index row = m_Rows.first; row <= m_Rows.last; ++row) {
            for (Index column = 1; column <= m_Report.columns(); ++column) {
                const Index first = column;
                while (column <= m_Report.columns() && isRuled(row, column)) {
                    column += 1;
                }
                if (column > first) {
                    m_Rules[row].push_back({first, column - 1});
                }
            }
        }
    }

    void writeRows() {
        for (Index row = m_Rows.first; row <= m_Rows.last; ++row) {
            if (const Index alone = m_Layout.onlyCell(row); alone != 0) {
                writeAlone(row, alone);
            } else {
                emit(cells(row));
            }
            if (const auto rules = m_Rules.find(row); rules != m_Rules.end()) {
                emit(rule(rules->second));
            }
        }
    }

    /// A cell by itself stands once, however many parts its table has, and is folded at the terminal's width.
    void writeAlone(Index row, Index column) {
        if (m_IsContinued) {
            return;
        }
        const std::string text = shownShort(m_Report, row, column, true, m_MostOfText);
        const std::string_view style = m_Report.format(row, column).bold ? bold : "";
        if (m_Width == 0 || m_Layout.start(column) + displayWidth(text) <= m_Width) {
            Line line(m_Colour);
            place(line, row, {column, column}, text, true);
            emit(line);
            return;
        }
        for (const std::string& piece : folded(text, m_Width)) {
            Line line(m_Colour);
            line.put(0, piece, displayWidth(piece), style);
            emit(line);
        }
    }

    [[nodiscard]] Line cells(Index row) const {
        Line line(m_Colour);
        Index written = 0;
        for (const Index column : m_Layout.columns()) {
            const Run run = m_Layout.across(row, column);
            const std::string text =
                run.first > written ? shownShort(m_Report, row, run.first, false, m_MostOfText) : "";
            if (!text.empty()) {
                place(line, row, run, text, false);
            }
            written = std::max(written, run.last);
        }
        return line;
    }

    void place(Line& line, Index row, Run run, const std::string& text, bool alone) const {
        const std::size_t room = m_Layout.width(run);
        // Of a heading over several columns only some may be in this part.
        const std::string whole(withoutBlankEnd(text));
        const std::string shown = alone ? whole : shortenedToWidth(whole, room);
        const std::size_t taken = displayWidth(shown);
        const std::size_t spare = room > taken ? room - taken : 0;
        const Side side = sideOf(m_Report, row, run.first, alone);
        const std::size_t before = side == Side::Left ? 0 : side == Side::Right ? spare : spare / 2;
        const std::string_view style = m_Report.format(row, run.first).bold ? bold : "";
        line.put(m_Layout.start(run.first) + before, shown, taken, style);
    }

    /// The line under a row, as far as it is drawn under columns that are arranged.
    [[nodiscard]] Line rule(const std::vector<Run>& rules) const {
        Line line(m_Colour);
        Index drawn = 0;
        for (const Index column : m_Layout.columns()) {
            const Run* run = runAt(rules, column);
            const std::size_t width = run == nullptr || run->first <= drawn ? 0 : m_Layout.width(*run);
            if (width > 0) {
                std::string dashes;
                for (std::size_t i = 0; i < width; ++i) {
                    dashes += "─";
                }
                line.put(m_Layout.start(run->first), dashes, width, faint);
                drawn = run->last;
            }
        }
        return line;
    }

    [[nodiscard]] bool isRuled(Index row, Index column) const {
        return m_Report.format(row, column).borders.bottom ||
               (row < m_Report.rows() && m_Report.format(row + 1, column).borders.top);
    }

    void emit(const Line& line) {
        if (!line.isBlank()) {
            m_Output.write(line.text());
            m_Output.write("\n");
        }
    }

    const ReportBlock& m_Report;
    TextLayout m_Layout;
    Section m_Rows;
    std::map<Index, std::vector<Run>> m_Rules;  ///< row by row, from left to right
    bool m_Colour;
    std::size_t m_Width;
    std::size_t m_MostOfText = mostInTable;
    bool m_IsContinued = false;
    Output& m_Output;
};

}  // namespace

void writeText(const ReportBlock& report, bool colour, Output& output, std::size_t width) {
    std::string blankLines;  // held back until something follows
    for (Index row = 1; row <= report.rows(); ++row) {
        const Section section = sectionAt(report, row);
        if (section.last < section.first) {
            blankLines += '\n';
            continue;
        }
        output.write(blankLines);
        blankLines.clear();
        SectionWriter(report, section, colour, width, output).write();
        row = section.last;
    }
}

}  // namespace TBVNonPara::rendering
