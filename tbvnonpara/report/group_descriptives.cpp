#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/report/collect_then_write.hpp"

namespace TBVNonPara {

void clsNonParaOutput::OutputMWDescriptives(const Labels& labels, const Grid<double>& Data,
                                            const Array<double>& MediansRaw, const Array<double>& SumsRaw,
                                            const Array<Long>& NsRaw, const Grid<double>& Ranks,
                                            const Array<double>& MediansRank, const Array<double>& SumsRank,
                                            const Array<Long>& NsRank, TBVNPMethod method) try {
    const Long n = labels.size();
    const Long m = Data.rows();
    const Long lastColumn = 2 * n + 1;

    writeTitle("Descriptive Statistics");
    m_Row += 1;
    const Long headings = m_Row;
    write(headings, 2, "Value");
    write(headings, n + 2, method == tbvNPFriedman ? "Within Block Rank" : "Rank");
    for (Long i = 1; i <= n; ++i) {
        write(headings + 1, 1 + i, labels(i));
        write(headings + 1, n + 1 + i, labels(i));
    }
    m_Formatter->FormatTable(block(headings, 1, headings + 1, lastColumn), false);
    m_Row += 1;

    const Long firstDatum = m_Row + 1;
    const Long medians = m_Row + m + 1;
    const Long sums = medians + 1;
    const Long counts = medians + 2;
    write(medians, 1, "Median");
    write(sums, 1, "Sum");
    write(counts, 1, "N");
    m_Formatter->FormatTable(block(headings, 1, medians - 1, lastColumn), false);
    m_Formatter->FormatTable(block(headings, 1, counts, lastColumn), true);
    line(headings, 2, lastColumn)->LetHorizontalAlignment(m_Constants.HeadingAlignment);

    for (Long i = 1; i <= n; ++i) {
        Array<CellValue> data;
        Array<CellValue> ranks;
        const auto fill = [&] {
            for (Long j = 1; j <= NsRaw(i); ++j) {
                data.append(Data(j, i));
                ranks.append(Ranks(j, i));
            }
        };
        collectThenWrite(fill, [&] {
            write(firstDatum, 1 + i, asColumn(data));
            write(firstDatum, n + 1 + i, asColumn(ranks));
        });
    }
    for (Long i = 1; i <= n; ++i) {
        write(medians, 1 + i, MediansRaw(i));
        write(sums, 1 + i, SumsRaw(i));
        write(counts, 1 + i, toDouble(NsRaw(i)));
        write(medians, n + 1 + i, MediansRank(i));
        write(sums, n + 1 + i, SumsRank(i));
        write(counts, n + 1 + i, toDouble(NsRank(i)));
    }

    m_Formatter->FormatBody(block(firstDatum, 2, counts, lastColumn), false);
    block(firstDatum, n + 2, counts, lastColumn)->LetNumberFormat("0.0");
    // Takes back the decimal that the rank counts were given with the ranks above them.
    line(counts, 2, lastColumn)->LetNumberFormat("0");
    m_Row = counts + 1;
    widenTo(lastColumn);
} catch (...) {
    passOn("clsNonParaOutput.OutputMWDescriptives");
}

}  // namespace TBVNonPara
