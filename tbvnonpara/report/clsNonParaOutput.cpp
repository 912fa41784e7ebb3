#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

namespace {

WorksheetRef reportSheetOf(const CompanionLibrary& companions, std::string_view workbook) {
    try {
        return companions.application->GetWorkbooks(workbook)->GetWorksheets(scratchSheetName);
    } catch (...) {
        // A workbook that is not open is no error yet: the first use of a sheet that was not found is.
        return {};
    }
}

WorksheetRef findReportSheet(const CompanionLibrary& companions) {
    const WorksheetRef sheet = reportSheetOf(companions, scratchWorkbookName);
    return sheet.isSet() ? sheet : reportSheetOf(companions, olderScratchWorkbookName);
}

std::string_view reportTitle(TBVNPMethod method) noexcept {
    switch (method) {
        case tbvNPMannU:
            return "Mann-Whitney Test Results for:";
        case tbvNPWilcoxon:
            return "Wilcoxon Paired-Sample Test Results for:";
        case tbvNPSpearman:
            return "Spearman Rank Correlation Results for:";
        case tbvNPSign:
            return "Sign Test Results for:";
        case tbvNPMedian:
            return "Mood Median Test Results for:";
        case tbvNPFriedman:
            return "Friedman Test Results for:";
        case tbvNPKWallis:
            return "Kruskal-Wallis Test Results for:";
        case tbvNPWWRuns:
            return "Wald-Wolfowitz Runs Test Results for:";
    }
    return {};
}

bool hasOneDataRange(TBVNPMethod method) noexcept {
    return method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis ||
           method == tbvNPWWRuns;
}

std::string describe(std::string_view name, std::string_view rangeText) {
    return std::string(name).append(" = ").append(rangeText);
}

}  // namespace

clsNonParaOutput::clsNonParaOutput(const CompanionLibrary& companions) try
    : m_Constants(companions.constants) {
    // Asked for in this order, which members that are released in this order cannot be initialised in.
    m_Sheet = findReportSheet(companions);
    m_Style = companions.createReportStyle();
    m_Formatter = companions.createReportFormatter();
    m_Sheet->GetCells()->Clear();
    const Integer colour = m_Style->GetInteriorColorIndex();
    m_Sheet->GetCells()->LetInteriorColorIndex(colour);
} catch (...) {
    passOn("clsNonParaOutput.Initialise");
}

void clsNonParaOutput::OutputHeader(std::string_view text1, std::string_view text2, TBVNPMethod method) try {
    if (const std::string_view text = reportTitle(method); !text.empty()) {
        write(m_Row, 1, text);
    }
    std::string_view titleBlock = "A1:A2";
    write(m_Row + 1, 1, describe(hasOneDataRange(method) ? "Data Range" : "Set 1 Range", text1));
    m_Row += 1;
    if (!hasOneDataRange(method) && !text2.empty()) {
        write(m_Row + 1, 1, describe("Set 2 Range", text2));
        m_Row += 1;
        titleBlock = "A1:A3";
    }
    // The block stands at the top of the sheet, wherever the cursor is: the header is written first.
    m_Formatter->FormatTitle(m_Sheet->GetRange(titleBlock), true);
    m_Row += 1;
} catch (...) {
    passOn("clsNonParaOutput.OutputHeader");
}

void clsNonParaOutput::OutputComment(std::string_view text, Integer blankLines, bool emphasise) try {
    write(m_Row, 1, text);
    m_Formatter->FormatTitle(cell(m_Row, 1), emphasise);
    m_Row = m_Row + blankLines.value() + 1;
} catch (...) {
    passOn("clsNonParaOutput.OutputComment");
}

void clsNonParaOutput::InsertBlankLines(Integer n) try { m_Row += n.value(); } catch (...) {
    passOn("clsNonParaOutput.InsertBlankLines");
}

RangeRef clsNonParaOutput::GetResults() try {
    constexpr Integer narrowest = 6;

    m_Formatter->FormatTitle(cell(m_Row, 1), true);
    if (m_MaxCol == 1) {
        m_MaxCol = narrowest;
    }
    return block(1, 1, m_Row, m_MaxCol.value());
} catch (...) {
    passOnAs("clsNonParaOutput.GetResults");
}

RangeRef clsNonParaOutput::cell(Long row, Long column) const {
    return m_Sheet->GetCells(row, column);
}

RangeRef clsNonParaOutput::block(Long firstRow, Long firstColumn, Long lastRow, Long lastColumn) const {
    const RangeRef first = cell(firstRow, firstColumn);
    const RangeRef last = cell(lastRow, lastColumn);
    return m_Sheet->GetRange(first, last);
}

RangeRef clsNonParaOutput::line(Long row, Long firstColumn, Long lastColumn) const {
    return block(row, firstColumn, row, lastColumn);
}

void clsNonParaOutput::write(Long row, Long column, const CellValue& value) const {
    cell(row, column)->LetValue(value);
}

void clsNonParaOutput::write(Long row, Long column, const ValueGrid& values) const {
    if (values.rows() > 0) {
        block(row, column, row + values.rows() - 1, column + values.columns() - 1)->LetValue(values);
    }
}

void clsNonParaOutput::writeLine(Long row, std::span<const CellValue> values) const {
    line(row, 1, Long(values.size()))->LetValue(values);
}

void clsNonParaOutput::writeTitle(std::string_view text) {
    write(m_Row, 1, text);
    m_Formatter->FormatTitle(cell(m_Row, 1), false);
}

void clsNonParaOutput::writeStatistic(double statistic, const Array<Long>& counts, double P) {
    const Long values = m_Row + 1;
    write(values, 1, statistic);
    write(values, 2, toDouble(counts(1)));
    write(values, 3, P);
    m_Formatter->FormatBody(line(values, 1, 3), false);
    cell(values, 2)->LetNumberFormat("0");
    m_Row += 2;
    widenTo(3);
}

void clsNonParaOutput::widenTo(Long column) {
    const Integer width = column.value();
    if (m_MaxCol < width) {
        m_MaxCol = width;
    }
}

}  // namespace TBVNonPara
