#include "cli/run_test.hpp"

#include <cstdio>
#include <utility>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tbvnonpara/workbook/address.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::cli {

namespace {

constexpr std::string_view reportSheet = "Results";

std::string readStandardInput() {
    constexpr std::size_t pieceSize = 1U << 16U;
    std::string all;
    std::size_t count = pieceSize;
    while (count == pieceSize) {
        const std::size_t before = all.size();
        all.resize(before + pieceSize);
        count = std::fread(all.data() + before, 1, pieceSize, stdin);
        all.resize(before + count);
    }
    if (std::ferror(stdin) != 0) {
        workbook::refuse("Standard input could not be read to its end.");
    }
    return all;
}

/// The range properties replace an error of the host by one of their own, which would not name the cell.
void requireResultsOfFormulas(const workbook::EmbeddedApplication& application,
                              const ChosenRanges& ranges) try {
    for (const std::string& address : {ranges.y, ranges.x}) {
        if (!address.empty()) {
            const RangeRef range = application.GetRange(address);
            const workbook::SheetRange& cells = workbook::ownRange(range);
            workbook::requireCalculated(*cells.sheet(), cells.areas());
        }
    }
} catch (const Error& error) {
    throw Error(error.number(), error.description(), "tbvnonpara");
}

}  // namespace

ObjectRef<workbook::EmbeddedApplication> openFile(const Arguments& arguments) try {
    const workbook::CsvOptions options{arguments.delimiter, arguments.decimal};
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    if (arguments.file == "-") {
        workbook::openData(*application, "stdin", readStandardInput(), options);
    } else {
        workbook::openDataFile(*application, arguments.file, options);
    }
    if (!arguments.sheet.empty()) {
        application->activeBook()->sheet(arguments.sheet)->Activate();
    }
    return application;
} catch (...) {
    const Error error = currentError();
    throw Error(error.number(), error.description(), "tbvnonpara");
}

FinishedTest::FinishedTest(ObjectRef<workbook::EmbeddedApplication> application,
                           std::unique_ptr<clsNonPara> request)
    : m_Application(std::move(application)), m_Request(std::move(request)) {
    // The report is what was copied last, and its first cell was selected.
    const workbook::Clipping& copied = *m_Application->clipboard();
    const workbook::SheetRange& selected = workbook::ownRange(m_Application->selection());
    const workbook::Rectangle first = selected.areas().front();
    m_Sheet = selected.sheet();
    m_Block = {first.top, first.left, first.top + copied.rows - 1, first.left + copied.columns - 1};
}

std::string FinishedTest::address() const {
    return workbook::quotedSheetName(m_Sheet->name()) + '!' + workbook::absoluteAddress(m_Block);
}

FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application, const Arguments& arguments,
                     const ChosenRanges& ranges) {
    requireResultsOfFormulas(*application, ranges);
    auto request = std::make_unique<clsNonPara>(ownCompanions(application));
    request->LetMethod(arguments.test->method);
    request->LetTails(arguments.tails);
    request->LetHeaders(ranges.headers);
    request->LetOutputDescriptives(arguments.descriptives);
    request->LetIgnoreTies(arguments.ignoreTies);
    request->LetYRange(ranges.y);
    request->LetXRange(ranges.x);

    if (arguments.output.empty()) {
        const std::shared_ptr<workbook::Sheet> sheet =
            application->addSheet(application->activeBook()->freeSheetName(reportSheet));
        request->LetOutputRange(workbook::quotedSheetName(sheet->name()) + "!A1");
    } else {
        request->LetOutputRange(arguments.output);
    }
    request->Results(arguments.overwrite);
    return {application, std::move(request)};
}

}  // namespace TBVNonPara::cli
