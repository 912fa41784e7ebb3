#include <array>

#include "tbvnonpara/report/alternative.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/report/collect_then_write.hpp"

namespace TBVNonPara {

namespace {

/// One row per pair: both values, the difference, its rank and the signed rank. A pair without a rank (a
/// difference of zero that was left out of the ranking) keeps its difference and leaves the ranks empty.
void fillPairs(ValueGrid& pairs, const Grid<double>& Data, const Grid<double>& Differences) {
    for (Long j = 1; j <= pairs.rows(); ++j) {
        pairs(j, 1) = Data(j, 1);
        pairs(j, 2) = Data(j, 2);
        pairs(j, 3) = Differences(j, 1);
        if (Differences(j, 2) != 0) {
            pairs(j, 4) = Differences(j, 2);
            pairs(j, 5) = Differences(j, 3);
        }
    }
}

}  // namespace

void clsNonParaOutput::OutputWilcoxonDescriptives(const Labels& labels, const Grid<double>& Data,
                                                  const Array<double>& Medians, const Array<double>& Sums,
                                                  const Array<Long>& Ns,
                                                  const Grid<double>& Differences) try {
    const Long m = Data.rows();

    writeTitle("Descriptive Statistics");
    m_Row += 1;
    const Long firstPair = m_Row + 1;
    const Long medians = m_Row + m + 1;
    const Long sums = medians + 1;
    const Long counts = medians + 2;

    writeLine(m_Row, std::array<CellValue, 6>{"", labels(1), labels(2), "Difference", "Rank of |Diff|",
                                              "Signed Rank"});
    m_Formatter->FormatTable(line(m_Row, 1, 6), false);
    write(medians, 1, "Median");
    write(sums, 1, "Sum");
    write(counts, 1, "N");
    m_Formatter->FormatTable(block(m_Row, 1, medians - 1, 6), false);
    m_Formatter->FormatTable(block(m_Row, 1, counts, 6), true);

    ValueGrid pairs(m, 5);
    collectThenWrite([&] { fillPairs(pairs, Data, Differences); }, [&] { write(firstPair, 2, pairs); });
    for (Long i = 1; i <= 2; ++i) {
        write(medians, 1 + i, Medians(i));
        write(sums, 1 + i, Sums(i));
        write(counts, 1 + i, toDouble(Ns(i)));
    }

    m_Formatter->FormatBody(block(firstPair, 2, counts, 6), false);
    block(firstPair, 5, counts, 6)->LetNumberFormat("0.0");
    line(counts, 2, 6)->LetNumberFormat("0");
    m_Row = counts + 1;
    // Set, not compared, unlike most tables.
    m_MaxCol = 6;
} catch (...) {
    passOn("clsNonParaOutput.OutputWilcoxonDescriptives");
}

void clsNonParaOutput::OutputWilcoxonRanks(const Array<double>& Medians, const Array<double>& Sums,
                                           const Array<Long>& Ns, const Labels&) try {
    writeTitle("Summary of Ranks");
    m_Row += 1;
    const Long positive = m_Row + 1;
    const Long zero = m_Row + 3;

    writeLine(m_Row, std::array<CellValue, 4>{"", "Median", "Sum", "N"});
    m_Formatter->FormatTable(line(m_Row, 1, 4), false);
    write(positive, 1, "Positive Ranks");
    write(positive + 1, 1, "Negative Ranks");
    write(zero, 1, "Zero Differences");
    m_Formatter->FormatTable(block(m_Row, 1, zero, 4), true);
    for (Long i = 1; i <= 3; ++i) {
        write(m_Row + i, 2, Medians(i));
        write(m_Row + i, 3, Sums(i));
        write(m_Row + i, 4, toDouble(Ns(i)));
    }
    if (Ns(3) > 0 && Sums(3) == 0) {
        write(zero, 1, "Zero Differences (not ranked)");
        write(zero, 2, "");
        write(zero, 3, "");
    }
    m_Formatter->FormatBody(block(positive, 2, zero, 4), false);
    block(positive, 4, zero, 4)->LetNumberFormat("0");
    m_Row += 4;
    widenTo(4);
} catch (...) {
    passOn("clsNonParaOutput.OutputWilcoxonRanks");
}

void clsNonParaOutput::OutputWilcoxonTest(const Labels& labels, double Statistic, const Array<Long>& Counts,
                                          double P, TBVNPTails tails, bool UseApprox) try {
    // Clients know the approximation by this spelling.
    writeTitle(alternative(labels, tails, UseApprox ? "Asymptopic Test" : "Exact Test"));
    m_Row += 1;

    m_Formatter->FormatTable(line(m_Row, 1, 3), false);
    writeLine(m_Row, std::array<CellValue, 3>{UseApprox ? "Z" : "T", "N", "P"});

    writeStatistic(Statistic, Counts, P);
} catch (...) {
    passOn("clsNonParaOutput.OutputWilcoxonTest");
}

}  // namespace TBVNonPara
