#include <array>

#include "tbvnonpara/report/alternative.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

namespace {

/// A correlation has a sign, not a larger variable: its titles do not name the variables.
std::string_view alternativeForCorrelation(TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return "1-tailed Test (Positive Correlation)";
        case tbvNPVar1LTVar2:
            return "1-tailed Test (Negative Correlation)";
        default:
            return "2-tailed Test";
    }
}

std::string correlationTitle(const Labels& labels, TBVNPTails tails, TBVNPMethod method,
                             std::string_view methodWord) {
    switch (method) {
        case tbvNPSpearman:
            return std::string(alternativeForCorrelation(tails));
        case tbvNPWilcoxon:
            return alternative(labels, tails, std::string(methodWord) + " Test");
        default:
            return alternative(labels, tails);
    }
}

}  // namespace

void clsNonParaOutput::OutputTest(const Labels& labels, double Statistic, const Array<Long>& DF, double P,
                                  TBVNPTails tails, TBVNPMethod method, std::string_view methodWord) try {
    writeTitle(correlationTitle(labels, tails, method, methodWord));
    m_Row += 1;

    m_Formatter->FormatTable(line(m_Row, 1, 3), false);
    if (method == tbvNPWilcoxon) {
        writeLine(m_Row, std::array<CellValue, 3>{"T", "N", "P"});
    } else if (method == tbvNPSpearman) {
        writeLine(m_Row, std::array<CellValue, 3>{"rs", "DF", "P"});
        cell(m_Row, 1)->LetCharactersFontSubscript(2, 1, true);
    }

    writeStatistic(Statistic, DF, P);
} catch (...) {
    passOn("clsNonParaOutput.OutputTest");
}

}  // namespace TBVNonPara
