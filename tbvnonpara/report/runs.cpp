#include <array>

#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/report/collect_then_write.hpp"

namespace TBVNonPara {

namespace {

std::string_view alternativeForRuns(TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return "Fewer Runs than Expected";
        case tbvNPVar1LTVar2:
            return "More Runs than Expected";
        default:
            return "2-tailed Test";
    }
}

}  // namespace

void clsNonParaOutput::OutputWWRuns(const Labels&, const Array<CellValue>& categories,
                                    const Array<Long>& counts, Long runs, double expected, double z, double p,
                                    TBVNPTails tails) try {
    const Long k = categories.size();

    writeTitle("Counts");
    writeLine(m_Row + 1, std::array<CellValue, 2>{"Group", "Count"});
    m_Formatter->FormatTable(line(m_Row + 1, 1, 2), false);
    const Long firstCount = m_Row + 2;
    const Long lastCount = m_Row + 1 + k;
    ValueGrid table(k, 2);
    const auto fill = [&] {
        for (Long i = 1; i <= k; ++i) {
            table(i, 1) = categories(i);
            table(i, 2) = toDouble(counts(i));
        }
    };
    collectThenWrite(fill, [&] { write(firstCount, 1, table); });
    m_Formatter->FormatBody(block(firstCount, 1, lastCount, 2), true);
    block(firstCount, 2, lastCount, 2)->LetNumberFormat("0");
    m_Row += k + 3;

    writeTitle("Runs");
    const Long observed = m_Row + 1;
    write(observed, 1, "Observed");
    write(observed, 2, toDouble(runs));
    write(observed + 1, 1, "Expected");
    write(observed + 1, 2, expected);
    m_Formatter->FormatBody(block(observed, 1, observed + 1, 2), true);
    cell(observed, 2)->LetNumberFormat("0");
    m_Row += 5;

    writeTitle(alternativeForRuns(tails));
    // The value is the same continuity-corrected z under either heading.
    writeLine(m_Row + 1, std::array<CellValue, 2>{tails == tbvNPTwoTailed ? "Z adjusted" : "Z", "P"});
    m_Formatter->FormatTable(line(m_Row + 1, 1, 2), false);
    write(m_Row + 2, 1, z);
    write(m_Row + 2, 2, p);
    m_Formatter->FormatBody(line(m_Row + 2, 1, 2), true);
    m_Row += 3;
    widenTo(4);
} catch (...) {
    // The name of the two-sample section: clients know the errors of this section under it.
    passOn("clsNonParaOutput.OutputMWTest");
}

}  // namespace TBVNonPara
