#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/range_checks.hpp"
#include "tbvnonpara/request/reading.hpp"

namespace TBVNonPara {

namespace {

/// The first cell of a new worksheet behind the last one of its workbook.
RangeRef newWorksheet(Application& application) {
    const WorksheetRef sheet = application.AddWorksheets();
    const Long last = sheet->GetParent()->GetWorksheetsCount();
    sheet->Move(sheet->GetParent()->GetWorksheets(last));
    return sheet->GetCells(1, 1);
}

}  // namespace

void clsNonPara::Results(bool OverWrite) try {
    if (!m_YRange.isSet()) {
        raise(tbvNPNoYRange);
    }
    const ObjectRef<DataCheck> check = m_Companions.createDataCheck();
    checkRanges(*check);

    if (!m_Results.isSet()) {
        m_Results = GetResults();
    }
    if (!m_OutputRange.isSet()) {
        m_OutputRange = newWorksheet(*m_Companions.application);
    }
    const Long columns = m_Results->GetColumnsCount();
    const Long rows = m_Results->GetRowsCount();
    check->CheckOutputArea(m_OutputRange, columns, rows, OverWrite);
    m_OutputRange->GetWorksheet()->GetParent()->Activate();
    m_OutputRange->GetWorksheet()->Activate();
    m_Results->Copy();
    m_OutputRange->GetCells(1, 1)->PasteSpecial(m_Companions.constants.ReportPaste);
    m_Companions.application->LetScreenUpdating(true);
    m_OutputRange->GetCells(1, 1)->Select();
    m_Results.release();
} catch (...) {
    passOn("clsNonPara.Results");
}

void clsNonPara::checkRanges(const DataCheck& check) const {
    const RangeChecks checks{*m_Companions.application, check, m_Method, m_Headers};
    if (m_Method == tbvNPSign && !m_XRange.isSet()) {
        checks.checkSignCodes(m_YRange);
    } else {
        checks.checkData(m_YRange);
        checks.checkPair(m_YRange, m_XRange);
    }
    checks.checkRows(m_YRange);
    if (m_XRange.isSet()) {
        checks.checkXData(m_XRange);
    }
}

RangeRef clsNonPara::GetResults() try {
    loadEngine();
    m_Engine->Analyse();
    switch (m_Method) {
        case tbvNPMannU:
            return FormatMannUResults();
        case tbvNPWilcoxon:
            return FormatWilcoxonResults();
        case tbvNPSpearman:
            return FormatSpearmanResults();
        case tbvNPSign:
            return FormatSignResults();
        case tbvNPMedian:
            return FormatMedianResults();
        case tbvNPFriedman:
        case tbvNPKWallis:
            return FormatKWallisResults();
        case tbvNPWWRuns:
            return FormatWWRunsResults();
    }
    return {};
} catch (...) {
    passOn("clsNonPara.GetResults");
}

void clsNonPara::loadEngine() {
    const Application& application = *m_Companions.application;
    const ObjectRef<ArrayUtility> utility = m_Companions.createArrayUtility();
    ValueGrid Ys = readAreas(application, *utility, m_YRange, m_Headers);
    EngineInput Xs = CellValue(Empty());
    if (m_XRange.isSet()) {
        Xs = readArea(application, m_XRange, m_Headers);
    }
    m_Engine->LetYs(std::move(Ys));
    m_Engine->Letxs(std::move(Xs));
    m_Engine->LetTails(m_Tails);
    m_Engine->LetMethod(m_Method);
    m_Engine->LetDescriptives(m_OutputDescriptives);
    m_Engine->LetIgnoreTies(m_IgnoreTies);
}

}  // namespace TBVNonPara
