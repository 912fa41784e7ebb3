#include "tbvnonpara/report/alternative.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

void clsNonParaOutput::OutputSignTest(Labels& labels, const Array<Long>& Counts, double P,
                                      TBVNPTails tails) try {
    if (labels(1).empty()) {
        labels(1) = "Var 1";
    }
    if (labels(2).empty()) {
        labels(2) = "Var 2";
    }

    writeTitle("Counts");
    m_Row += 1;
    const Long values = m_Row + 1;
    write(m_Row, 1, "1 > 2");
    write(values, 1, toDouble(Counts(1)));
    write(m_Row, 2, "1 = 2");
    write(values, 2, toDouble(Counts(2)));
    write(m_Row, 3, "1 < 2");
    write(values, 3, toDouble(Counts(3)));
    m_Formatter->FormatTable(line(m_Row, 1, 3), false);
    m_Formatter->FormatBody(line(values, 1, 3), false);
    line(values, 1, 3)->LetNumberFormat("0");
    line(values, 1, 3)->LetHorizontalAlignment(m_Constants.CountsAlignment);
    m_Row += 3;

    writeTitle(alternative(labels, tails));
    write(m_Row + 1, 1, "P = ");
    write(m_Row + 1, 2, P);
    m_Formatter->FormatBody(line(m_Row + 1, 1, 2), true);
    m_Row += 2;
    // Set, not compared: this section is the whole report.
    m_MaxCol = 3;
} catch (...) {
    passOn("clsNonParaOutput.OutputSignTest");
}

}  // namespace TBVNonPara
