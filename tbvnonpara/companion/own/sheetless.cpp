#include "tbvnonpara/companion/own/sheetless.hpp"

#include <cmath>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/distributions/normal.hpp"
#ifdef TBVNONPARA_HAS_STATISTICS
#include "tbvnonpara/statistics/probability.hpp"
#endif

namespace TBVNonPara {

namespace {

[[noreturn]] void refuseWithoutSheet() {
    raise(RuntimeError::ObjectNotSet);
}

#ifdef TBVNONPARA_HAS_STATISTICS
void requireDomain(double x, Long df1, Long df2) {
    if (!std::isfinite(x) || x < 0 || df1 < Long(1) || df2 < Long(1)) {
        raise(RuntimeError::InvalidProcedureCall);
    }
}
#endif

class SheetlessFunctions final : public WorksheetFunction {
 public:
    [[nodiscard]] double NORMSDIST(double z) const override { return normalLowerTail(z); }
#ifdef TBVNONPARA_HAS_STATISTICS
    [[nodiscard]] double ChiDist(double x, Long df) const override {
        requireDomain(x, df, df);
        return statistics::chiSquareTail(x, toDouble(df)).value;
    }
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override {
        requireDomain(x, df1, df2);
        return statistics::fTail(x, toDouble(df1), toDouble(df2)).value;
    }
#else
    [[nodiscard]] double ChiDist(double, Long) const override {
        refuseWithoutSheet();
    }
    [[nodiscard]] double FDist(double, Long, Long) const override {
        refuseWithoutSheet();
    }
#endif
    [[nodiscard]] double CountIf(const RangeRef&, std::string_view) const override {
        refuseWithoutSheet();
    }
};

class Sheetless final : public Application {
 public:
    [[nodiscard]] RangeRef GetRange(std::string_view) const override { refuseWithoutSheet(); }
    [[nodiscard]] RangeRef GetRange(const RangeRef&, const RangeRef&) const override { refuseWithoutSheet(); }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view) const override { refuseWithoutSheet(); }
    [[nodiscard]] WorksheetRef AddWorksheets() override { refuseWithoutSheet(); }
    void LetScreenUpdating(bool) override { refuseWithoutSheet(); }
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override { return m_Functions; }

 private:
    SheetlessFunctions m_Functions;
};

}  // namespace

ObjectRef<Application> sheetlessApplication() {
    return makeObject<Sheetless>();
}

}  // namespace TBVNonPara
