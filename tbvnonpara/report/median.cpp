#include <array>

#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

void clsNonParaOutput::OutputMedianCounts(const Labels& names, const ValueGrid& counts) try {
    const Long k = names.size();

    writeTitle("Counts");
    m_Row += 1;
    const Long above = m_Row + 1;
    const Long notAbove = m_Row + 2;
    for (Long g = 1; g <= k; ++g) {
        write(m_Row, g + 1, names(g));
        write(above, g + 1, counts(2, g + 1));
        write(notAbove, g + 1, counts(3, g + 1));
    }
    write(above, 1, "> Grand Median");
    write(notAbove, 1, "<= Grand Median");

    m_Formatter->FormatTable(block(above, 1, notAbove, 1), false);
    m_Formatter->FormatTable(line(m_Row, 2, k + 1), false);
    m_Formatter->FormatBody(block(above, 2, notAbove, k + 1), false);
    block(above, 2, notAbove, k + 1)->LetNumberFormat("0");
    m_Row += 3;
    widenTo(k + 1);
} catch (...) {
    passOn("clsNonParaOutput.OutputMedianCounts");
}

void clsNonParaOutput::OutputContingency(double ChiSquare, double ChiSquareP, Long DF, double LogLikelihood,
                                         double LogLikelihoodP, double Yates, std::optional<double> YatesP,
                                         double Cochran, std::optional<double> CochranP,
                                         double LogLikelihoodYates,
                                         std::optional<double> LogLikelihoodYatesP) try {
    writeTitle("Test Results");
    m_Row += 1;
    writeLine(m_Row, std::array<CellValue, 4>{"Statistic", "Value", "DF", "P"});
    m_Formatter->FormatTable(line(m_Row, 1, 4), false);
    m_Row += 1;

    const Long first = m_Row;
    const auto writeStatistic = [&](std::string_view label, double value, double p) {
        writeLine(m_Row, std::array<CellValue, 4>{label, value, toDouble(DF), p});
        m_Row += 1;
    };
    writeStatistic("Chi-Square", ChiSquare, ChiSquareP);
    if (YatesP) {
        writeStatistic("Yates Correction", Yates, *YatesP);
        if (CochranP) {
            writeStatistic("Cochran Correction", Cochran, *CochranP);
        }
    }
    writeStatistic("Log-Likelihood", LogLikelihood, LogLikelihoodP);
    if (LogLikelihoodYatesP) {
        writeStatistic("Yates Correction", LogLikelihoodYates, *LogLikelihoodYatesP);
    }

    const Long last = m_Row - 1;
    m_Formatter->FormatTable(block(first, 1, last, 1), false);
    m_Formatter->FormatBody(block(first, 2, last, 4), false);
    block(first, 3, last, 3)->LetNumberFormat("0");
    widenTo(4);
} catch (...) {
    passOn("clsNonParaOutput.OutputContingency");
}

}  // namespace TBVNonPara
