#include "tests/support/watched_host.hpp"

#include <algorithm>

namespace TBVNonPara::Support {

namespace {

using SharedWatch = std::shared_ptr<const Watch>;

RangeRef watched(const RangeRef& range, const SharedWatch& watch);
WorksheetRef watched(const WorksheetRef& sheet, const SharedWatch& watch);
WorkbookRef watched(const WorkbookRef& book, const SharedWatch& watch);
/// What stands behind a watched object: the host knows only its own.
RangeRef unwatched(const RangeRef& range);
WorksheetRef unwatched(const WorksheetRef& sheet);

class WatchedRange : public Range {
 public:
    WatchedRange(RangeRef range, SharedWatch watch) : m_Range(std::move(range)), m_Watch(std::move(watch)) {}
    [[nodiscard]] const RangeRef& behind() const { return m_Range; }
    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override {
        tell("Range.GetCells");
        return watched(m_Range->GetCells(row, column), m_Watch);
    }
    [[nodiscard]] Long GetRowsCount() const override {
        tell("Range.GetRowsCount");
        return m_Range->GetRowsCount();
    }
    [[nodiscard]] Long GetColumnsCount() const override {
        tell("Range.GetColumnsCount");
        return m_Range->GetColumnsCount();
    }
    [[nodiscard]] Long GetAreasCount() const override {
        tell("Range.GetAreasCount");
        return m_Range->GetAreasCount();
    }
    [[nodiscard]] RangeRef GetAreas(Long area) const override {
        tell("Range.GetAreas");
        return watched(m_Range->GetAreas(area), m_Watch);
    }
    [[nodiscard]] WorksheetRef GetWorksheet() const override {
        tell("Range.GetWorksheet");
        return watched(m_Range->GetWorksheet(), m_Watch);
    }
    [[nodiscard]] std::string GetAddress() const override {
        tell("Range.GetAddress");
        return m_Range->GetAddress();
    }
    [[nodiscard]] std::string GetAddressLocal() const override {
        tell("Range.GetAddressLocal");
        return m_Range->GetAddressLocal();
    }
    [[nodiscard]] ValueGrid GetValue() const override {
        tell("Range.GetValue");
        return m_Range->GetValue();
    }
    void LetValue(const CellValue& value) override {
        tell("Range.LetValue");
        m_Range->LetValue(value);
    }
    void LetValue(std::span<const CellValue> values) override {
        tell("Range.LetValue");
        m_Range->LetValue(values);
    }
    void LetValue(const ValueGrid& values) override {
        tell("Range.LetValue");
        m_Range->LetValue(values);
    }
    void Clear() override {
        tell("Range.Clear");
        m_Range->Clear();
    }
    void LetNumberFormat(std::string_view format) override {
        tell("Range.LetNumberFormat", '"' + std::string(format) + '"');
        m_Range->LetNumberFormat(format);
    }
    void LetHorizontalAlignment(HorizontalAlignment alignment) override {
        tell("Range.LetHorizontalAlignment", std::to_string(alignment));
        m_Range->LetHorizontalAlignment(alignment);
    }
    void LetInteriorColorIndex(Integer index) override {
        tell("Range.LetInteriorColorIndex", std::to_string(index.value()));
        m_Range->LetInteriorColorIndex(index);
    }
    void LetFontBold(bool bold) override {
        tell("Range.LetFontBold", bold ? "True" : "False");
        m_Range->LetFontBold(bold);
    }
    void LetBorder(BorderEdge edge, BorderLine line) override {
        tell("Range.LetBorder",
             std::to_string(static_cast<int>(edge)) + ' ' + std::to_string(static_cast<int>(line)));
        m_Range->LetBorder(edge, line);
    }
    void LetCharactersFontSubscript(Long start, Long length, bool subscript) override {
        tell("Range.LetCharactersFontSubscript", std::to_string(start.value()) + ' ' +
                                                     std::to_string(length.value()) + ' ' +
                                                     (subscript ? "True" : "False"));
        m_Range->LetCharactersFontSubscript(start, length, subscript);
    }
    void Copy() override {
        tell("Range.Copy");
        m_Range->Copy();
    }
    void PasteSpecial(PasteKind kind) override {
        tell("Range.PasteSpecial", std::to_string(static_cast<int>(kind)));
        m_Range->PasteSpecial(kind);
    }
    void Select() override {
        tell("Range.Select");
        m_Range->Select();
    }

 private:
    void tell(std::string_view operation, std::string details = {}) const {
        (*m_Watch)({operation, m_Range, std::move(details)});
    }

    RangeRef m_Range;
    SharedWatch m_Watch;
};

class WatchedWorksheet : public Worksheet {
 public:
    WatchedWorksheet(WorksheetRef sheet, SharedWatch watch)
        : m_Sheet(std::move(sheet)), m_Watch(std::move(watch)) {}
    [[nodiscard]] const WorksheetRef& behind() const { return m_Sheet; }
    [[nodiscard]] std::string GetName() const override {
        tell("Worksheet.GetName");
        return m_Sheet->GetName();
    }
    [[nodiscard]] WorkbookRef GetParent() const override {
        tell("Worksheet.GetParent");
        return watched(m_Sheet->GetParent(), m_Watch);
    }
    [[nodiscard]] RangeRef GetCells() const override {
        tell("Worksheet.GetCells");
        return watched(m_Sheet->GetCells(), m_Watch);
    }
    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override {
        tell("Worksheet.GetCells");
        return watched(m_Sheet->GetCells(row, column), m_Watch);
    }
    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        tell("Worksheet.GetRange");
        return watched(m_Sheet->GetRange(address), m_Watch);
    }
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        tell("Worksheet.GetRange");
        return watched(m_Sheet->GetRange(unwatched(first), unwatched(last)), m_Watch);
    }
    void Move(const WorksheetRef& after) override {
        tell("Worksheet.Move");
        m_Sheet->Move(unwatched(after));
    }
    void Activate() override {
        tell("Worksheet.Activate");
        m_Sheet->Activate();
    }
    void LetName(std::string_view name) override {
        tell("Worksheet.LetName");
        m_Sheet->LetName(name);
    }
    void Delete() override {
        tell("Worksheet.Delete");
        m_Sheet->Delete();
    }

 private:
    void tell(std::string_view operation) const { (*m_Watch)({operation, {}, {}}); }

    WorksheetRef m_Sheet;
    SharedWatch m_Watch;
};

class WatchedWorkbook : public Workbook {
 public:
    WatchedWorkbook(WorkbookRef book, SharedWatch watch)
        : m_Book(std::move(book)), m_Watch(std::move(watch)) {}

    [[nodiscard]] Long GetWorksheetsCount() const override {
        tell("Workbook.GetWorksheetsCount");
        return m_Book->GetWorksheetsCount();
    }
    [[nodiscard]] WorksheetRef GetWorksheets(Long position) const override {
        tell("Workbook.GetWorksheets");
        return watched(m_Book->GetWorksheets(position), m_Watch);
    }
    [[nodiscard]] WorksheetRef GetWorksheets(std::string_view name) const override {
        tell("Workbook.GetWorksheets");
        return watched(m_Book->GetWorksheets(name), m_Watch);
    }
    void Activate() override {
        tell("Workbook.Activate");
        m_Book->Activate();
    }

 private:
    void tell(std::string_view operation) const { (*m_Watch)({operation, {}, {}}); }

    WorkbookRef m_Book;
    SharedWatch m_Watch;
};

class WatchedFunctions : public WorksheetFunction {
 public:
    WatchedFunctions(ObjectRef<Application> host, SharedWatch watch)
        : m_Host(std::move(host)), m_Watch(std::move(watch)) {}

    [[nodiscard]] double NORMSDIST(double z) const override {
        tell("WorksheetFunction.NORMSDIST");
        return functions().NORMSDIST(z);
    }
    [[nodiscard]] double ChiDist(double x, Long df) const override {
        tell("WorksheetFunction.ChiDist");
        return functions().ChiDist(x, df);
    }
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override {
        tell("WorksheetFunction.FDist");
        return functions().FDist(x, df1, df2);
    }
    [[nodiscard]] double CountIf(const RangeRef& range, std::string_view criterion) const override {
        tell("WorksheetFunction.CountIf");
        return functions().CountIf(unwatched(range), criterion);
    }

 private:
    [[nodiscard]] const WorksheetFunction& functions() const { return m_Host->GetWorksheetFunction(); }
    void tell(std::string_view operation) const { (*m_Watch)({operation, {}, {}}); }

    ObjectRef<Application> m_Host;
    SharedWatch m_Watch;
};

class WatchedApplication : public Application {
 public:
    WatchedApplication(ObjectRef<Application> host, SharedWatch watch)
        : m_Host(std::move(host)), m_Watch(std::move(watch)), m_Functions(m_Host, m_Watch) {}

    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        tell("Application.GetRange");
        return watched(m_Host->GetRange(address), m_Watch);
    }
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        tell("Application.GetRange");
        return watched(m_Host->GetRange(unwatched(first), unwatched(last)), m_Watch);
    }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override {
        tell("Application.GetWorkbooks");
        return watched(m_Host->GetWorkbooks(name), m_Watch);
    }
    [[nodiscard]] WorksheetRef AddWorksheets() override {
        tell("Application.AddWorksheets");
        return watched(m_Host->AddWorksheets(), m_Watch);
    }
    void LetScreenUpdating(bool updating) override {
        tell("Application.LetScreenUpdating");
        m_Host->LetScreenUpdating(updating);
    }
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override {
        tell("Application.GetWorksheetFunction");
        return m_Functions;
    }

 private:
    void tell(std::string_view operation) const { (*m_Watch)({operation, {}, {}}); }

    ObjectRef<Application> m_Host;
    SharedWatch m_Watch;
    WatchedFunctions m_Functions;
};

RangeRef watched(const RangeRef& range, const SharedWatch& watch) {
    return range.isSet() ? RangeRef(std::make_shared<WatchedRange>(range, watch)) : RangeRef();
}

WorksheetRef watched(const WorksheetRef& sheet, const SharedWatch& watch) {
    return sheet.isSet() ? WorksheetRef(std::make_shared<WatchedWorksheet>(sheet, watch)) : WorksheetRef();
}

WorkbookRef watched(const WorkbookRef& book, const SharedWatch& watch) {
    return book.isSet() ? WorkbookRef(std::make_shared<WatchedWorkbook>(book, watch)) : WorkbookRef();
}

RangeRef unwatched(const RangeRef& range) {
    const auto* watchedRange = dynamic_cast<const WatchedRange*>(range.shared().get());
    return watchedRange == nullptr ? range : watchedRange->behind();
}

WorksheetRef unwatched(const WorksheetRef& sheet) {
    const auto* watchedSheet = dynamic_cast<const WatchedWorksheet*>(sheet.shared().get());
    return watchedSheet == nullptr ? sheet : watchedSheet->behind();
}

}  // namespace

std::string HostCall::address() const {
    std::string text = range->GetAddress();
    std::erase(text, '$');
    return text;
}

ObjectRef<Application> watchHost(ObjectRef<Application> host, Watch watch) {
    return makeObject<WatchedApplication>(std::move(host), std::make_shared<const Watch>(std::move(watch)));
}

}  // namespace TBVNonPara::Support
