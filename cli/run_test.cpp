#include "cli/run_test.hpp"

#include <cstdio>
#include <utility>

#include "adapters/workbook/address.hpp"
#include "adapters/workbook/csv_file.hpp"
#include "adapters/workbook/host_error.hpp"

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

}  // namespace

ObjectRef<workbook::EmbeddedApplication> openFile(const Arguments& arguments) try {
    const workbook::CsvOptions options{arguments.delimiter, arguments.decimal};
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    if (arguments.file == "-") {
        workbook::openCsvText(*application, "stdin", readStandardInput(), options);
    } else {
        workbook::openCsv(*application, arguments.file, options);
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
                           std::unique_ptr<clsNonPara> request, std::shared_ptr<workbook::Sheet> sheet)
    : m_Application(std::move(application)), m_Request(std::move(request)), m_Sheet(std::move(sheet)) {
    // The report is what was copied last.
    const workbook::Clipping& copied = *m_Application->clipboard();
    m_Block = {1, 1, copied.rows, copied.columns};
}

std::string FinishedTest::address() const {
    return workbook::quotedSheetName(m_Sheet->name()) + '!' + workbook::absoluteAddress(m_Block);
}

FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application, const Arguments& arguments,
                     const ChosenRanges& ranges) {
    auto request = std::make_unique<clsNonPara>(ownCompanions(application));
    request->LetMethod(arguments.test->method);
    request->LetTails(arguments.tails);
    request->LetHeaders(ranges.headers);
    request->LetOutputDescriptives(arguments.descriptives);
    request->LetIgnoreTies(arguments.ignoreTies);
    request->LetYRange(ranges.y);
    request->LetXRange(ranges.x);

    const std::shared_ptr<workbook::Sheet> sheet =
        application->addSheet(application->activeBook()->freeSheetName(reportSheet));
    request->LetOutputRange(workbook::quotedSheetName(sheet->name()) + "!A1");
    request->Results();
    return {application, std::move(request), sheet};
}

}  // namespace TBVNonPara::cli
