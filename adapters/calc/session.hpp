#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "adapters/calc/addresses.hpp"
#include "adapters/calc/data_rows.hpp"
#include "adapters/calc/macro_modules.hpp"
#include "adapters/calc/remembered_cells.hpp"
#include "adapters/calc/undo_step.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::calc {

/// What the objects of one request share: where it works, what was copied last, and what is held back while a
/// report is built.
class Session {
 public:
    /// Works on the document given, or else on whichever is active when it is asked for.
    explicit Session(const Context& context, const DocumentRef& document = {});

    [[nodiscard]] const Context& context() const noexcept { return m_Context; }
    [[nodiscard]] DocumentRef document() const;
    void workOn(const DocumentRef& document) { m_Document = document; }

    /// What a new sheet is called, as far as the name is free; without one it gets the spreadsheet's own.
    void nameNewSheets(std::string_view name) { m_NewSheetName = fromUtf8(name); }
    [[nodiscard]] const OUString& newSheetName() const noexcept { return m_NewSheetName; }

    void copy(SheetAreas cells) { m_Copied = std::move(cells); }
    [[nodiscard]] const SheetAreas& copied() const;

    /// The values read last from cells that hold these: nothing changes on the user's sheets until the report
    /// is placed, and the same columns are checked first and computed with later.
    [[nodiscard]] const RememberedCells* remembered(const SheetRef& sheet, const CellArea& area) const;
    void remember(const SheetRef& sheet, const CellArea& area, const ValueGrid& values);

    [[nodiscard]] bool isRunning() const noexcept { return m_Running; }
    void beginRun(const RowRules& rules);
    void endRun() noexcept;

    /// Holds the document's views still until the run ends or updating is switched on.
    void holdViews(const DocumentRef& document);
    void releaseViews() noexcept;

    /// Called before the user's document is changed: refuses a read-only one, and makes one undo step of all
    /// changes of a run, named after the report.
    void beforeChange(const DocumentRef& document);

    /// Called in a run before anything of the user's document is changed, when all is checked and computed.
    void onFirstChange(std::function<void()> work) { m_OnFirstChange = std::move(work); }

    /// Where the report of the run was placed.
    void rememberPlaced(SheetAreas cells) { m_Placed = std::move(cells); }
    [[nodiscard]] const SheetAreas& placed() const noexcept { return m_Placed; }

    /// The report of this run takes the place of one before it, and of free cells where it is larger.
    void replaceReport(SheetAreas cells) { m_Replaced = std::move(cells); }
    [[nodiscard]] const SheetAreas& replacedReport() const noexcept { return m_Replaced; }

    /// What the undo step of a run is called that places no report.
    void titleSteps(std::string_view title) { m_StepTitle = fromUtf8(title); }

    /// Whether all changes of the run can be taken back, and does so.
    [[nodiscard]] bool canTakeBack() const { return m_Step.canTakeBack(); }
    void takeBack() { m_Step.takeBack(); }

    /// A sheet that was added for the report of this run, and its end where the report does not arrive.
    /// (Without undo steps, and where the document's macros are in the VBA mode, nothing else takes it away.)
    void rememberAddedSheet(const DocumentRef& document, const OUString& name, const MacroModules& before) {
        m_AddedSheet = {document, name, before};
    }
    void removeAddedSheet();
    [[nodiscard]] bool isAddedSheet(const DocumentRef& document, const OUString& name) const {
        return m_AddedSheet.document == document && m_AddedSheet.name == name;
    }
    void renameAddedSheet(const DocumentRef& document, const OUString& before, const OUString& name) {
        if (isAddedSheet(document, before)) {
            m_AddedSheet.name = name;
        }
    }

    /// Only visible rows of the data ranges take part from now on.
    void leaveOutHiddenRows() { m_DataRows = std::make_unique<DataRows>(); }
    /// Where only visible rows take part, and nothing otherwise.
    [[nodiscard]] DataRows* dataRows() const noexcept { return m_DataRows.get(); }
    /// The ranges resolved next are data of this range, or none's.
    void resolveFor(std::optional<DataRange> range) { m_ResolvingFor = range; }
    [[nodiscard]] std::optional<DataRange> resolvingFor() const noexcept { return m_ResolvingFor; }
    /// The rows by which a range that was just resolved is read; empty where all of them are.
    [[nodiscard]] std::vector<KeptRowsRef> rowsOf(const SheetAreas& cells) const;

    /// What was done to the data, to stand beside the report in a comment.
    void noteOnReport(std::string note) { m_Note = std::move(note); }
    [[nodiscard]] std::string note() const;

    /// Cells that a Boolean was written to: their format tells it from a number, and other formats must not
    /// take it away.
    void rememberBoolean(const SheetRef& sheet, const CellArea& cell) { m_Booleans.push_back({sheet, cell}); }
    void forgetBooleans(const SheetRef& sheet, const CellArea& area);
    [[nodiscard]] std::vector<CellArea> booleansIn(const SheetRef& sheet, const CellArea& area) const;

    /// Called at every step that a long run takes; what it throws ends the run.
    void onStep(std::function<void()> step) { m_OnStep = std::move(step); }
    void step() const;

 private:
    struct BooleanCell {
        SheetRef sheet;
        CellArea cell;
    };

    struct AddedSheet {
        DocumentRef document;
        OUString name;
        MacroModules before;
    };

    [[nodiscard]] OUString reportTitle() const;

    Context m_Context;
    DocumentRef m_Document;
    OUString m_NewSheetName;
    OUString m_StepTitle;
    SheetAreas m_Copied;
    bool m_Running = false;
    std::deque<RememberedCells> m_Readings;
    std::vector<BooleanCell> m_Booleans;
    DocumentRef m_Held;
    UndoStep m_Step;
    std::function<void()> m_OnFirstChange;
    SheetAreas m_Placed;
    SheetAreas m_Replaced;
    AddedSheet m_AddedSheet;
    std::unique_ptr<DataRows> m_DataRows;
    std::optional<DataRange> m_ResolvingFor;
    std::string m_Note;
    std::function<void()> m_OnStep;
};

/// What is resolved while this lives is one of the data ranges.
class DataRangeScope {
 public:
    DataRangeScope(Session& session, DataRange range, std::string_view address) : m_Session(session) {
        if (address.empty() && session.dataRows() != nullptr) {
            session.dataRows()->forget(range);
        }
        session.resolveFor(range);
    }
    ~DataRangeScope() { m_Session.resolveFor(std::nullopt); }
    DataRangeScope(const DataRangeScope&) = delete;
    DataRangeScope& operator=(const DataRangeScope&) = delete;

 private:
    Session& m_Session;
};

/// One run: whatever happens in it, the views are released and the undo step is closed at its end. Another
/// one within it, which the request refuses, leaves them as they are.
class Run {
 public:
    explicit Run(Session& session, const RowRules& rules = {})
        : m_Session(session), m_IsOutermost(!session.isRunning()) {
        if (m_IsOutermost) {
            m_Session.beginRun(rules);
        }
    }
    ~Run() {
        if (m_IsOutermost) {
            m_Session.endRun();
        }
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

 private:
    Session& m_Session;
    bool m_IsOutermost;
};

}  // namespace TBVNonPara::calc
