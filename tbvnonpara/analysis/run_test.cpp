#include "tbvnonpara/analysis/run_test.hpp"

#include <utility>

#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tbvnonpara/report/details_sheet.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

namespace {

constexpr std::string_view reportSheet = "Results";

/// A text in another encoding stays one, so that a caller can say how to name it.
[[noreturn]] void refuseFile() try { throw; } catch (const workbook::NotUtf8& error) {
    throw workbook::NotUtf8(error.number(), error.description(), ownSource);
} catch (...) {
    refuseAsOwn();
}

workbook::CsvOptions textOptions(const Choices& choices) {
    // Columns that are tested each by itself need no addresses.
    constexpr Index manyColumns = 1'000'000;
    return {choices.delimiter, choices.decimal, choices.thousands,
            choices.encoding,  choices.comment, choices.each ? manyColumns : sheetColumns,
            choices.threads};
}

/// Makes the sheet that the choices name the active one, and a table of it.
void activateSheet(const workbook::EmbeddedApplication& application, const Choices& choices) {
    if (!choices.sheet.empty()) {
        application.activeBook()->sheet(choices.sheet)->Activate();
    }
    if (!choices.transpose) {
        return;
    }
    const std::shared_ptr<workbook::Sheet> sheet = application.activeSheet();
    if (const auto used = sheet->usedArea(); used && used->bottom > sheetColumns && !choices.each) {
        refuse(tbvNPBadYRange,
               "The sheet \"" + sheet->name() + "\" has " + std::to_string(used->bottom) +
                   " rows, more than the 16384 columns that its table may have unless each is "
                   "tested by itself.");
    }
    sheet->turnOver();
}

}  // namespace

ObjectRef<workbook::EmbeddedApplication> openFile(const Choices& choices, std::string* remark) try {
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openDataFile(*application, choices.file, textOptions(choices), remark);
    activateSheet(*application, choices);
    return application;
} catch (...) {
    refuseFile();
}

ObjectRef<workbook::EmbeddedApplication> openContents(std::string_view name, std::string_view bytes,
                                                      const Choices& choices, std::string* remark) try {
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openData(*application, name, bytes, textOptions(choices), remark);
    activateSheet(*application, choices);
    return application;
} catch (...) {
    refuseFile();
}

void requireResultsOfFormulas(const workbook::EmbeddedApplication& application,
                              const ChosenRanges& ranges) try {
    for (const std::string& address : {ranges.y, ranges.x}) {
        if (!address.empty()) {
            const RangeRef range = application.GetRange(address);
            const workbook::SheetRange& cells = workbook::ownRange(range);
            workbook::requireCalculated(*cells.sheet(), cells.areas());
        }
    }
} catch (const Error&) {
    refuseAsOwn();
}

std::string PlacedBlock::address() const {
    return quotedSheetName(sheet->name()) + '!' + absoluteAddress(block);
}

FinishedTest::FinishedTest(ObjectRef<workbook::EmbeddedApplication> application,
                           std::unique_ptr<clsNonPara> request)
    : m_Application(std::move(application)), m_Request(std::move(request)) {
    // The report is what was copied last, and its first cell was selected.
    const workbook::Clipping& copied = *m_Application->clipboard();
    const workbook::SheetRange& selected = workbook::ownRange(m_Application->selection());
    const Rectangle first = selected.areas().front();
    m_Report = {selected.sheet(),
                {first.top, first.left, first.top + copied.rows - 1, first.left + copied.columns - 1}};
}

void FinishedTest::rename(const ShownAddress& address) {
    constexpr Index headerLines = 3;
    const Rectangle& block = m_Report.block;
    for (Index row = block.top; row < block.top + headerLines && row <= block.bottom; ++row) {
        std::string text = toText(m_Report.sheet->value(row, block.left));
        if (text.ends_with(" = " + address.written)) {
            text.replace(text.size() - address.written.size(), std::string::npos, address.shown);
            m_Report.sheet->values().set(row, block.left, Text(text));
        }
    }
}

void FinishedTest::placeDetails(const DetailPage& page) {
    const RangeRef report = m_Report.sheet->range(Areas{m_Report.block});
    const RangeRef placed = writeDetailsSheet(ownCompanions(m_Application), report, page);
    const workbook::SheetRange& cells = workbook::ownRange(placed);
    m_Details = {cells.sheet(), cells.areas().front()};
}

FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application, const Choices& choices,
                     const ChosenRanges& ranges) {
    return runTest(application, ownCompanions(application, choices.threads), choices, ranges);
}

FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                     const CompanionLibrary& companions, const Choices& choices, const ChosenRanges& ranges) {
    requireResultsOfFormulas(*application, ranges);
    auto request = std::make_unique<clsNonPara>(companions);
    request->LetMethod(choices.test->method);
    request->LetTails(choices.tails);
    request->LetHeaders(ranges.headers);
    request->LetOutputDescriptives(choices.descriptives);
    request->LetIgnoreTies(choices.ignoreTies);
    request->LetYRange(ranges.y);
    request->LetXRange(ranges.x);

    if (choices.output.empty()) {
        const std::shared_ptr<workbook::Sheet> sheet =
            application->addSheet(application->activeBook()->freeSheetName(reportSheet));
        request->LetOutputRange(quotedSheetName(sheet->name()) + "!A1");
    } else {
        request->LetOutputRange(choices.output);
    }
    request->Results(choices.overwrite);
    FinishedTest finished(application, std::move(request));
    for (const ShownAddress& address : ranges.shown) {
        finished.rename(address);
    }
    return finished;
}

}  // namespace TBVNonPara::analysis
