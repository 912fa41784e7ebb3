#include <array>

#include "tbvnonpara/report/alternative.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

void clsNonParaOutput::OutputMWTest(const Labels& names, double U, const Array<Long>& DF, double P,
                                    TBVNPTails tails) try {
    writeTitle(alternative(names, tails));
    m_Row += 1;

    writeLine(m_Row, std::array<CellValue, 4>{"U", "DF 1", "DF 2", "P"});
    m_Formatter->FormatTable(line(m_Row, 1, 4), false);

    const Long values = m_Row + 1;
    write(values, 1, U);
    write(values, 2, toDouble(DF(1)));
    write(values, 3, toDouble(DF(2)));
    write(values, 4, P);
    m_Formatter->FormatBody(line(values, 1, 4), false);
    line(values, 2, 3)->LetNumberFormat("0");
    m_Row += 2;
    widenTo(4);
} catch (...) {
    passOn("clsNonParaOutput.OutputMWTest");
}

}  // namespace TBVNonPara
