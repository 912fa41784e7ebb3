#include "tbvnonpara/engine/clsNonParaBO.hpp"

#include <utility>

namespace TBVNonPara {

namespace {

template <typename Field>
void change(Field& field, Field value, std::string_view procedure) try {
    field = std::move(value);
} catch (...) {
    passOnAs(procedure);
}

template <typename Field>
Field read(const Field& field, std::string_view procedure) try {
    return field;
} catch (...) {
    passOnAs(procedure);
}

/// What is told of the groups, by `part`.
auto read(const UnreadDescriptives& groups, const ObjectRef<ArrayUtility>& utility, auto part,
          std::string_view procedure) try {
    return part(groups.read(utility));
} catch (...) {
    passOnAs(procedure);
}

/// Numbers and a grid as they are, a list as one column; anything that is not an array is a list of one
/// element.
EngineData asData(EngineInput values, const ObjectRef<ArrayUtility>& utility) {
    if (auto* numbers = std::get_if<NumberColumns>(&values)) {
        return std::move(*numbers);
    }
    if (auto* grid = std::get_if<ValueGrid>(&values); grid != nullptr && grid->allocated()) {
        return std::move(*grid);
    }
    if (const auto* list = std::get_if<Array<CellValue>>(&values); list != nullptr && list->allocated()) {
        return utility->MakeTwoDimensional(*list);
    }
    const auto* single = std::get_if<CellValue>(&values);
    return utility->MakeTwoDimensional(Array<CellValue>(1, single != nullptr ? *single : CellValue()));
}

void changeInput(EngineData& field, EngineInput values, const ObjectRef<ArrayUtility>& utility,
                 std::string_view procedure) try {
    field = asData(std::move(values), utility);
} catch (...) {
    passOnAs(procedure);
}

}  // namespace

clsNonParaBO::clsNonParaBO(CompanionLibrary companions) try : m_Companions(std::move(companions)) {
    m_Utility = m_Companions.createArrayUtility();
} catch (...) {
    passOn("clsNonParaBO.Initialise");
}

void clsNonParaBO::LetDescriptives(bool descriptives) {
    change(m_WantsDescriptives, descriptives, "clsNonParaBO.LetDescriptives");
}

void clsNonParaBO::LetIgnoreTies(bool ignoreTies) {
    change(m_IgnoreTies, ignoreTies, "clsNonParaBO.LetIgnoreTies");
}

void clsNonParaBO::LetYs(EngineInput values) {
    changeInput(m_Ys, std::move(values), m_Utility, "clsNonParaBO.LetYs");
}

void clsNonParaBO::Letxs(EngineInput values) {
    changeInput(m_Xs, std::move(values), m_Utility, "clsNonParaBO.Letxs");
}

// clang-format off
void clsNonParaBO::LetTails(TBVNPTails tails)    { change(m_Tails, tails, "clsNonParaBO.LetTails"); }
void clsNonParaBO::LetMethod(TBVNPMethod method) { change(m_Method, method, "clsNonParaBO.LetMethod"); }

double clsNonParaBO::GetU() const           { return read(m_Statistic, "clsNonParaBO.GetU"); }
double clsNonParaBO::GetWilcoxonT() const   { return read(m_Statistic, "clsNonParaBO.GetWilcoxonT"); }
double clsNonParaBO::GetZ() const           { return read(m_Statistic, "clsNonParaBO.GetZ"); }
double clsNonParaBO::GetChiSq() const       { return read(m_Statistic, "clsNonParaBO.GetChiSq"); }
double clsNonParaBO::GetP() const           { return read(m_P, "clsNonParaBO.GetP"); }
double clsNonParaBO::GetAlternateP() const  { return read(m_AlternateP, "clsNonParaBO.GetAlternateP"); }
double clsNonParaBO::GetGrandMedian() const { return read(m_GrandMedian, "clsNonParaBO.GetGrandMedian"); }
Long   clsNonParaBO::GetNumRuns() const     { return read(m_NumRuns, "clsNonParaBO.GetNumRuns"); }
double clsNonParaBO::ExpectedRuns() const   { return read(m_ExpectedRuns, "clsNonParaBO.ExpectedRuns"); }
bool   clsNonParaBO::GetUseApprox() const   { return read(m_UseApprox, "clsNonParaBO.GetUseApprox"); }

Array<Long>   clsNonParaBO::GetDF() const       { return read(m_DF, "clsNonParaBO.GetDF"); }
OtherResults  clsNonParaBO::GetOther() const    { return read(m_Other, "clsNonParaBO.GetOther"); }
// clang-format on

double clsNonParaBO::GetAlternateStat() const {
    return read(m_AlternateStat, "clsNonParaBO.GetAlternateStat");
}

Array<Long> clsNonParaBO::GetAlternateDF() const {
    return read(m_AlternateDF, "clsNonParaBO.GetAlternateDF");
}

Grid<double> clsNonParaBO::GetData() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.data; },
        "clsNonParaBO.GetData");
}

Grid<double> clsNonParaBO::GetRanks() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.ranks; },
        "clsNonParaBO.GetRanks");
}

Array<double> clsNonParaBO::GetSumsRaw() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.summaries.raw.sums; },
        "clsNonParaBO.GetSumsRaw");
}

Array<Long> clsNonParaBO::GetNsRaw() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.summaries.raw.ns; },
        "clsNonParaBO.GetNsRaw");
}

Array<double> clsNonParaBO::GetSumsRank() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.summaries.rank.sums; },
        "clsNonParaBO.GetSumsRank");
}

Array<Long> clsNonParaBO::GetNsRank() const {
    return read(
        m_Descriptives, m_Utility, [](const GroupDescriptives& filled) { return filled.summaries.rank.ns; },
        "clsNonParaBO.GetNsRank");
}

Array<double> clsNonParaBO::GetMediansRaw() const {
    return read(
        m_Descriptives, m_Utility,
        [](const GroupDescriptives& filled) { return filled.summaries.raw.medians; },
        "clsNonParaBO.GetMediansRaw");
}

Array<double> clsNonParaBO::GetMediansRank() const {
    return read(
        m_Descriptives, m_Utility,
        [](const GroupDescriptives& filled) { return filled.summaries.rank.medians; },
        "clsNonParaBO.GetMediansRank");
}

ObjectRef<ContingencyAnalysis> clsNonParaBO::GetContingencyResults() const {
    return read(m_ContingencyResults, "clsNonParaBO.GetContingencyResults");
}

// An error leaves through the handler of the test it arose in.
void clsNonParaBO::Analyse() {
    switch (m_Method) {
        case tbvNPMannU:
            return AnalyseMannWhitney();
        case tbvNPWilcoxon:
            return AnalyseWilcoxon();
        case tbvNPSpearman:
            return AnalyseSpearman();
        case tbvNPSign:
            return AnalyseSign();
        case tbvNPMedian:
            return AnalyseMedian();
        case tbvNPFriedman:
            return AnalyseFriedman();
        case tbvNPKWallis:
            return AnalyseKWallis();
        case tbvNPWWRuns:
            return AnalyseWWRuns();
    }
}

const WorksheetFunction& clsNonParaBO::functions() const {
    return m_Companions.application->GetWorksheetFunction();
}

NormalTail clsNonParaBO::normal() const {
    return [this](double z) { return functions().NORMSDIST(z); };
}

}  // namespace TBVNonPara
