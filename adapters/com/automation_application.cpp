#include "adapters/com/automation_application.hpp"

#include <optional>
#include <utility>

#include "adapters/com/addresses.hpp"
#include "adapters/com/automation_range.hpp"

namespace TBVNonPara::com {

namespace {

class AutomationFunctions final : public WorksheetFunction {
 public:
    explicit AutomationFunctions(HostObject object) : m_Object(std::move(object)) {}

    [[nodiscard]] double NORMSDIST(double z) const override { return number(m_Object.get(L"NormSDist", z)); }
    [[nodiscard]] double ChiDist(double x, Long df) const override {
        return number(m_Object.get(L"ChiDist", x, df));
    }
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override {
        return number(m_Object.get(L"FDist", x, df1, df2));
    }
    [[nodiscard]] double CountIf(const RangeRef& range, std::string_view criterion) const override {
        return number(m_Object.get(L"CountIf", objectOf(range), criterion));
    }

 private:
    static double number(const Variant& value) { return toDouble(fromVariant(value.get())); }

    HostObject m_Object;
};

class AutomationApplication final : public Application {
 public:
    explicit AutomationApplication(std::function<ComPtr<IDispatch>()> find) : m_Find(std::move(find)) {}

    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        return toRange(rangeAt(application(), address));
    }
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        return toRange(application().object(Kind::Range, L"Range", objectOf(first), objectOf(last)));
    }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override {
        return toWorkbook(application().item(Kind::Workbooks, L"Workbooks", Kind::Workbook, name));
    }
    [[nodiscard]] WorksheetRef AddWorksheets() override {
        return toWorksheet(
            application().object(Kind::Worksheets, L"Worksheets").object(Kind::Worksheet, L"Add"));
    }
    void LetScreenUpdating(bool updating) override { application().put(L"ScreenUpdating", updating); }
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override {
        if (!m_Functions) {
            m_Functions.emplace(application().object(Kind::WorksheetFunction, L"WorksheetFunction"));
        }
        return *m_Functions;
    }

 private:
    const HostObject& application() const {
        if (!m_Application) {
            m_Application.emplace(m_Find(), Kind::Application, std::make_shared<ObjectModel>());
        }
        return *m_Application;
    }

    std::function<ComPtr<IDispatch>()> m_Find;
    mutable std::optional<HostObject> m_Application;
    mutable std::optional<AutomationFunctions> m_Functions;
};

}  // namespace

ObjectRef<Application> automationApplication(std::function<ComPtr<IDispatch>()> find) {
    return makeObject<AutomationApplication>(std::move(find));
}

}  // namespace TBVNonPara::com
