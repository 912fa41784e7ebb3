#include <array>

#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

void clsNonParaOutput::OutputKWallis(double ChiSq, const Array<Long>& DF, double P, double AlternateStat,
                                     const Array<Long>& AlternateDF, double AlternateP) try {
    writeTitle("Test Results");
    m_Row += 1;
    writeLine(m_Row, std::array<CellValue, 5>{"Statistic", "Value", "DF 1", "DF 2", "P"});
    m_Formatter->FormatTable(line(m_Row, 1, 5), false);
    m_Row += 1;

    const Long chiSquare = m_Row;
    write(chiSquare, 1, "Chi-Square");
    write(chiSquare, 2, ChiSq);
    write(chiSquare, 3, toDouble(DF(1)));
    write(chiSquare, 4, "-");
    write(chiSquare, 5, P);
    m_Row += 1;

    const Long F = m_Row;
    write(F, 1, "F");
    write(F, 2, AlternateStat);
    write(F, 3, toDouble(AlternateDF(1)));
    write(F, 4, toDouble(AlternateDF(2)));
    write(F, 5, AlternateP);

    m_Formatter->FormatTable(block(chiSquare, 1, F, 1), true);
    m_Formatter->FormatBody(block(chiSquare, 2, F, 5), false);
    block(chiSquare, 3, F, 4)->LetNumberFormat("0");
    m_Row += 1;
    widenTo(5);
} catch (...) {
    passOn("clsNonParaOutput.OutputKWallis");
}

}  // namespace TBVNonPara
