#include "tbvnonpara/rendering/text_report.hpp"

#include "tbvnonpara/rendering/display_width.hpp"
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
    SectionWriter(const ReportBlock& report, Section rows, bool colour, Output& output)
        : m_Report(report), m_Layout(report, rows), m_Rows(rows), m_Colour(colour), m_Output(output) {}

    void write() {
        for (Index row = m_Rows.first; row <= m_Rows.last; ++row) {
            emit(cells(row));
            emit(rule(row));
        }
    }

 private:
    [[nodiscard]] Line cells(Index row) const {
        Line line(m_Colour);
        for (Index column = 1; column <= m_Report.columns(); ++column) {
            const std::string text = m_Report.shown(row, column);
            if (!text.empty()) {
                place(line, row, column, text);
            }
        }
        return line;
    }

    void place(Line& line, Index row, Index column, const std::string& text) const {
        const std::size_t room = m_Layout.width(column, lastOfSpan(m_Report, row, column));
        const Side side = sideOf(m_Report, row, column);
        const std::string_view shown = withoutBlankEnd(text);
        const std::size_t taken = displayWidth(shown);
        const std::size_t spare = room > taken ? room - taken : 0;
        const std::size_t before = side == Side::Left ? 0 : side == Side::Right ? spare : spare / 2;
        const std::string_view style = m_Report.format(row, column).bold ? bold : "";
        line.put(m_Layout.start(column) + before, shown, taken, style);
    }

    /// The line under a row, drawn by the cells above it or below it.
    [[nodiscard]] Line rule(Index row) const {
        Line line(m_Colour);
        for (Index column = 1; column <= m_Report.columns(); ++column) {
            const Index first = column;
            while (column <= m_Report.columns() && isRuled(row, column)) {
                column += 1;
            }
            if (column > first) {
                const std::size_t width = m_Layout.width(first, column - 1);
                std::string dashes;
                for (std::size_t i = 0; i < width; ++i) {
                    dashes += "─";
                }
                line.put(m_Layout.start(first), dashes, width, faint);
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
    bool m_Colour;
    Output& m_Output;
};

}  // namespace

void writeText(const ReportBlock& report, bool colour, Output& output) {
    std::string blankLines;  // held back until something follows
    for (Index row = 1; row <= report.rows(); ++row) {
        const Section section = sectionAt(report, row);
        if (section.last < section.first) {
            blankLines += '\n';
            continue;
        }
        output.write(blankLines);
        blankLines.clear();
        SectionWriter(report, section, colour, output).write();
        row = section.last;
    }
}

}  // namespace TBVNonPara::rendering
