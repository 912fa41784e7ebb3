#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "cli/arguments.hpp"
#include "cli/output.hpp"
#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::cli {

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

/// The command line of a test on the columns named; empty ones are not given.
inline Arguments argumentsFor(std::string_view test, const std::string& y = {}, const std::string& x = {}) {
    Arguments arguments;
    arguments.test = &testNamed(test);
    arguments.y = y;
    arguments.x = x;
    return arguments;
}

/// Everything that a writer puts out.
template <typename Writer>
std::string writtenBy(Writer&& writer) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const file = open_memstream(&text, &size);
    {
        Output output(file);
        writer(output);
        output.finish();
    }
    std::fclose(file);
    std::string written(text, size);
    std::free(text);
    return written;
}

}  // namespace TBVNonPara::cli
