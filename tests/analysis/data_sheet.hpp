#pragma once

#include <string>

#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// A workbook with one sheet "Data" that holds the lines of a CSV text.
inline ObjectRef<workbook::EmbeddedApplication> workbookOf(const std::string& csv) {
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openCsvText(*application, "Data", csv);
    return application;
}

inline const OfferedTest& testNamed(std::string_view name) {
    for (const OfferedTest& test : offeredTests()) {
        if (test.name == name) {
            return test;
        }
    }
    raise(RuntimeError::SubscriptOutOfRange);
}

/// A test on the columns named; empty ones are left open.
inline Choices choicesFor(std::string_view test, const std::string& y = {}, const std::string& x = {}) {
    Choices choices;
    choices.test = &testNamed(test);
    choices.y = y;
    choices.x = x;
    return choices;
}

/// The analysis of a CSV text.
inline FinishedTest finished(const std::string& csv, const Choices& choices) {
    const auto application = workbookOf(csv);
    return runTest(application, choices, chooseRanges(*application, choices));
}

}  // namespace TBVNonPara::analysis
