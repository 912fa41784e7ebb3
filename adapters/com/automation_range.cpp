#include "adapters/com/automation_range.hpp"

#include <optional>
#include <utility>

#include "adapters/com/errors.hpp"
#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::com {

namespace {

// What the application calls the ways of drawing a line.
constexpr std::int32_t continuousLine = 1;
constexpr std::int32_t noLine = -4142;

Long count(const HostObject& collection) {
    return roundHalfToEven(collection.getNumber(L"Count"));
}

class AutomationRange final : public Range {
 public:
    explicit AutomationRange(HostObject object) : m_Object(std::move(object)) {}

    [[nodiscard]] const HostObject& object() const noexcept { return m_Object; }

    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override {
        return toRange(m_Object.item(Kind::Range, L"Cells", Kind::Range, row, column));
    }
    [[nodiscard]] Long GetRowsCount() const override { return count(m_Object.object(Kind::Range, L"Rows")); }
    [[nodiscard]] Long GetColumnsCount() const override {
        return count(m_Object.object(Kind::Range, L"Columns"));
    }
    [[nodiscard]] Long GetAreasCount() const override {
        return count(m_Object.object(Kind::Areas, L"Areas"));
    }
    [[nodiscard]] RangeRef GetAreas(Long area) const override {
        return toRange(m_Object.item(Kind::Areas, L"Areas", Kind::Range, area));
    }
    [[nodiscard]] WorksheetRef GetWorksheet() const override {
        return toWorksheet(m_Object.object(Kind::Worksheet, L"Worksheet"));
    }
    [[nodiscard]] std::string GetAddress() const override { return m_Object.getText(L"Address"); }
    [[nodiscard]] std::string GetAddressLocal() const override { return m_Object.getText(L"AddressLocal"); }

    [[nodiscard]] ValueGrid GetValue() const override {
        const Variant values = m_Object.get(L"Value");
        return holdsAmount(values.get()) ? valuesBehindAmounts(values) : gridFromVariant(values.get());
    }
    void LetValue(const CellValue& value) override { enter(toVariant(value, Texts::AsEntered)); }
    void LetValue(std::span<const CellValue> values) override { enter(toVariant(values, Texts::AsEntered)); }
    void LetValue(const ValueGrid& values) override { enter(toVariant(values, Texts::AsEntered)); }

    void Clear() override { m_Object.call(L"Clear"); }
    void LetNumberFormat(std::string_view format) override { m_Object.put(L"NumberFormat", format); }
    void LetHorizontalAlignment(HorizontalAlignment alignment) override {
        m_Object.put(L"HorizontalAlignment", static_cast<std::int32_t>(alignment));
    }
    void LetInteriorColorIndex(Integer index) override {
        m_Object.object(Kind::Interior, L"Interior").put(L"ColorIndex", Long(index.value()));
    }
    void LetFontBold(bool bold) override { m_Object.object(Kind::Font, L"Font").put(L"Bold", bold); }
    void LetBorder(BorderEdge edge, BorderLine line) override {
        const HostObject border =
            m_Object.item(Kind::Borders, L"Borders", Kind::Border, static_cast<std::int32_t>(edge));
        if (line == BorderLine::None) {
            border.put(L"LineStyle", noLine);
            return;
        }
        border.put(L"LineStyle", continuousLine);
        border.put(L"Weight", static_cast<std::int32_t>(line));
    }
    void LetCharactersFontSubscript(Long start, Long length, bool subscript) override {
        m_Object.object(Kind::Characters, L"Characters", start, length)
            .object(Kind::Font, L"Font")
            .put(L"Subscript", subscript);
    }

    void Copy() override { m_Object.call(L"Copy"); }
    void PasteSpecial(PasteKind kind) override {
        m_Object.call(L"PasteSpecial", static_cast<std::int32_t>(kind));
    }
    void Select() override { m_Object.call(L"Select"); }

 private:
    /// The numbers that cells shown as amounts hold, with all their digits; an application without Value2 has
    /// only the amounts.
    [[nodiscard]] ValueGrid valuesBehindAmounts(const Variant& amounts) const {
        try {
            return gridFromVariant(m_Object.get(L"Value2").get());
        } catch (const Error& error) {
            if (error.number() != noSuchMember) {
                throw;
            }
        }
        return gridFromVariant(amounts.get());
    }

    void enter(Variant values) { m_Object.put(L"Value", std::move(values)); }

    HostObject m_Object;
};

/// Keeps the application from asking its user whether a sheet may go. An application that never asks, or does
/// not say, is left alone.
class WithoutAlerts {
 public:
    explicit WithoutAlerts(const HostObject& sheet) noexcept {
        try {
            HostObject application = sheet.object(Kind::Application, L"Application");
            if (fromVariant(application.get(L"DisplayAlerts").get()) == CellValue(true)) {
                application.put(L"DisplayAlerts", false);
                m_Application.emplace(std::move(application));
            }
        } catch (...) {
            // What comes of the sheet is what counts.
            return;
        }
    }
    WithoutAlerts(const WithoutAlerts&) = delete;
    WithoutAlerts& operator=(const WithoutAlerts&) = delete;
    ~WithoutAlerts() {
        try {
            if (m_Application) {
                m_Application->put(L"DisplayAlerts", true);
            }
        } catch (...) {
            return;
        }
    }

 private:
    std::optional<HostObject> m_Application;
};

class AutomationWorksheet final : public Worksheet {
 public:
    explicit AutomationWorksheet(HostObject object) : m_Object(std::move(object)) {}

    [[nodiscard]] const HostObject& object() const noexcept { return m_Object; }

    [[nodiscard]] std::string GetName() const override { return m_Object.getText(L"Name"); }
    [[nodiscard]] WorkbookRef GetParent() const override {
        return toWorkbook(m_Object.object(Kind::Workbook, L"Parent"));
    }
    [[nodiscard]] RangeRef GetCells() const override {
        return toRange(m_Object.object(Kind::Range, L"Cells"));
    }
    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override {
        return toRange(m_Object.item(Kind::Range, L"Cells", Kind::Range, row, column));
    }
    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        return toRange(m_Object.object(Kind::Range, L"Range", address));
    }
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        return toRange(m_Object.object(Kind::Range, L"Range", objectOf(first), objectOf(last)));
    }
    void Move(const WorksheetRef& after) override {
        m_Object.call(L"Move", Variant::missing(), objectOf(after));
    }
    void Activate() override { m_Object.call(L"Activate"); }
    void LetName(std::string_view name) override { m_Object.put(L"Name", name); }
    void Delete() override {
        const WithoutAlerts quiet(m_Object);
        m_Object.call(L"Delete");
    }

 private:
    HostObject m_Object;
};

class AutomationWorkbook final : public Workbook {
 public:
    explicit AutomationWorkbook(HostObject object) : m_Object(std::move(object)) {}

    [[nodiscard]] Long GetWorksheetsCount() const override {
        return count(m_Object.object(Kind::Worksheets, L"Worksheets"));
    }
    [[nodiscard]] WorksheetRef GetWorksheets(Long position) const override { return worksheet(position); }
    [[nodiscard]] WorksheetRef GetWorksheets(std::string_view name) const override { return worksheet(name); }
    void Activate() override { m_Object.call(L"Activate"); }

 private:
    [[nodiscard]] WorksheetRef worksheet(auto which) const {
        return toWorksheet(m_Object.item(Kind::Worksheets, L"Worksheets", Kind::Worksheet, which));
    }

    HostObject m_Object;
};

}  // namespace

RangeRef toRange(HostObject object) {
    return makeObject<AutomationRange>(std::move(object));
}

WorksheetRef toWorksheet(HostObject object) {
    return makeObject<AutomationWorksheet>(std::move(object));
}

WorkbookRef toWorkbook(HostObject object) {
    return makeObject<AutomationWorkbook>(std::move(object));
}

const HostObject& objectOf(const RangeRef& range) {
    return dynamic_cast<const AutomationRange&>(*range).object();
}

const HostObject& objectOf(const WorksheetRef& worksheet) {
    return dynamic_cast<const AutomationWorksheet&>(*worksheet).object();
}

}  // namespace TBVNonPara::com
