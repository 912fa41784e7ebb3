#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/range_checks.hpp"
#include "tbvnonpara/request/reading.hpp"
#include "tbvnonpara/request/run_mark.hpp"

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
    const RunMark mark(m_Companions.running, "Results");
    if (!m_YRange.isSet()) {
        raise(tbvNPNoYRange);
    }
    const Run run = currentRun();
    RangeRef output = m_OutputRange;
    const ObjectRef<DataCheck> check = m_Companions.createDataCheck();
    checkRanges(*check, run);

    const RangeRef report = currentReport(run);
    if (!output.isSet()) {
        output = newOutputRange();
    }
    const Long columns = report->GetColumnsCount();
    const Long rows = report->GetRowsCount();
    check->CheckOutputArea(output, columns, rows, OverWrite);
    output->GetWorksheet()->GetParent()->Activate();
    output->GetWorksheet()->Activate();
    report->Copy();
    output->GetCells(1, 1)->PasteSpecial(m_Companions.constants.ReportPaste);
    m_Companions.application->LetScreenUpdating(true);
    output->GetCells(1, 1)->Select();
    m_Results.release();
} catch (...) {
    passOn("clsNonPara.Results");
}

clsNonPara::Run clsNonPara::Compute() {
    if (!m_YRange.isSet()) {
        raise(tbvNPNoYRange);
    }
    Run run = currentRun();
    checkRanges(*m_Companions.createDataCheck(), run);
    loadEngine(run);
    m_Engine->Analyse();
    return run;
}

clsNonPara::Run clsNonPara::currentRun() const {
    return {m_YRange, m_XRange, m_Headers, m_OutputDescriptives, m_IgnoreTies, m_Tails, m_Method};
}

void clsNonPara::checkRanges(const DataCheck& check, const Run& run) const {
    const RangeChecks checks{*m_Companions.application, check, run.method, run.headers};
    if (run.method == tbvNPSign && !run.xRange.isSet()) {
        checks.checkSignCodes(run.yRange);
    } else {
        checks.checkData(run.yRange);
        checks.checkPair(run.yRange, run.xRange);
    }
    checks.checkRows(run.yRange);
    if (run.xRange.isSet()) {
        checks.checkXData(run.xRange);
    }
}

RangeRef clsNonPara::currentReport(const Run& run) {
    if (m_Results.isSet()) {
        return m_Results;
    }
    RangeRef report = GetResults(run);
    // A report whose settings were changed while it was built is not what a later run may paste.
    if (run == currentRun()) {
        m_Results = report;
    }
    return report;
}

RangeRef clsNonPara::newOutputRange() {
    RangeRef output = newWorksheet(*m_Companions.application);
    // A place that was set meanwhile is meant for the next run.
    if (!m_OutputRange.isSet()) {
        m_OutputRange = output;
    }
    return output;
}

RangeRef clsNonPara::GetResults(const Run& run) try {
    loadEngine(run);
    m_Engine->Analyse();
    switch (run.method) {
        case tbvNPMannU:
            return FormatMannUResults(run);
        case tbvNPWilcoxon:
            return FormatWilcoxonResults(run);
        case tbvNPSpearman:
            return FormatSpearmanResults(run);
        case tbvNPSign:
            return FormatSignResults(run);
        case tbvNPMedian:
            return FormatMedianResults(run);
        case tbvNPFriedman:
        case tbvNPKWallis:
            return FormatKWallisResults(run);
        case tbvNPWWRuns:
            return FormatWWRunsResults(run);
    }
    return {};
} catch (...) {
    passOn("clsNonPara.GetResults");
}

void clsNonPara::loadEngine(const Run& run) {
    const Application& application = *m_Companions.application;
    const ObjectRef<ArrayUtility> utility = m_Companions.createArrayUtility();
    EngineInput Ys = readInputs(application, *utility, run.yRange, run.headers);
    EngineInput Xs = CellValue(Empty());
    if (run.xRange.isSet()) {
        Xs = readInput(application, run.xRange, run.headers);
    }
    m_Engine->LetYs(std::move(Ys));
    m_Engine->Letxs(std::move(Xs));
    m_Engine->LetTails(run.tails);
    m_Engine->LetMethod(run.method);
    m_Engine->LetDescriptives(run.outputDescriptives);
    m_Engine->LetIgnoreTies(run.ignoreTies);
}

}  // namespace TBVNonPara
