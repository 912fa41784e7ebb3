#include "tbvnonpara/companion/own/contingency_analysis.hpp"

#include <string>
#include <utility>

#include "tbvnonpara/companion/own/contingency_statistics.hpp"
#include "tbvnonpara/core/arithmetic.hpp"

namespace TBVNonPara {

namespace {

struct ContingencyResults {
    Grid<double> expected;
    std::string warning;
    Long DF;
    ContingencyStatistic chiSquare;
    ContingencyStatistic logLikelihood;
    bool isTwoByTwo = false;
    ContingencyStatistic yates;
    ContingencyStatistic cochran;
};

class OwnContingencyAnalysis final : public ContingencyAnalysis {
 public:
    explicit OwnContingencyAnalysis(ObjectRef<Application> application)
        : m_Application(std::move(application)) {}

    void LetObserved(const ValueGrid& table) override { m_Observed = table; }
    void LetExpectedFrom(Long source) override {
        if (source != Long(0)) {
            raise(RuntimeError::InvalidProcedureCall);
        }
    }
    void LetLabels(bool labels) override { m_Labels = labels; }

    void Calculate() override {
        m_Results = {};
        m_Results = resultsOf(contingencyTable(m_Observed, m_Labels));
    }

    [[nodiscard]] Grid<double> GetExpected() const override { return m_Results.expected; }
    [[nodiscard]] std::string GetWarning() const override { return m_Results.warning; }
    [[nodiscard]] Long GetDF() const override { return m_Results.DF; }
    [[nodiscard]] ContingencyStatistic GetChiSquare() const override { return m_Results.chiSquare; }
    [[nodiscard]] ContingencyStatistic GetLogLikelihood() const override { return m_Results.logLikelihood; }
    [[nodiscard]] bool GetHasYates() const override { return m_Results.isTwoByTwo; }
    [[nodiscard]] ContingencyStatistic GetYates() const override { return m_Results.yates; }
    [[nodiscard]] bool GetHasCochran() const override { return m_Results.isTwoByTwo; }
    [[nodiscard]] ContingencyStatistic GetCochran() const override { return m_Results.cochran; }

 private:
    [[nodiscard]] ContingencyResults resultsOf(const ContingencyTable& table) const {
        const Long rows = table.observed.rows();
        const Long columns = table.observed.columns();
        ContingencyResults results;
        results.expected = table.expected;
        results.warning = warningOn(table.expected);
        results.DF = (rows - 1) * (columns - 1);
        results.chiSquare = withProbability(pearsonChiSquare(table), results.DF);
        results.logLikelihood = withProbability(logLikelihoodG(table), results.DF);
        results.isTwoByTwo = rows == Long(2) && columns == Long(2);
        if (results.isTwoByTwo) {
            results.yates = withProbability(yatesChiSquare(table), results.DF);
            results.cochran = withProbability(cochranChiSquare(table), results.DF);
        }
        return results;
    }

    [[nodiscard]] ContingencyStatistic withProbability(double statistic, Long DF) const {
        const double value = checked(statistic);
        return {value, m_Application->GetWorksheetFunction().ChiDist(value, DF)};
    }

    ObjectRef<Application> m_Application;
    ValueGrid m_Observed;
    bool m_Labels = false;
    ContingencyResults m_Results;
};

}  // namespace

ObjectRef<ContingencyAnalysis> createContingencyAnalysis(ObjectRef<Application> application) {
    return makeObject<OwnContingencyAnalysis>(std::move(application));
}

}  // namespace TBVNonPara
