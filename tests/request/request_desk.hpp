#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/recording_formatter.hpp"
#include "tests/support/sheet_text.hpp"
#include "tests/support/test_host.hpp"

namespace TBVNonPara {

/// A request on a host with an empty sheet "Data". Every call on the host is on record; the first call whose
/// operation is `failing` fails as often as `failures` says, with `failure`; so does the call `failingCall`,
/// counted from 1 since `calls` was cleared.
struct RequestDesk {
    ObjectRef<Application> host = Support::testHost();
    std::vector<std::string> calls;
    std::string failing;
    int failures = 0;
    std::size_t failingCall = 0;
    Error failure{1004, "the host refuses", "Host"};
    CompanionLibrary companions = ownCompanions(Support::watchHost(host, [this](const auto& call) {
        calls.emplace_back(call.operation);
        if (call.operation == failing && failures > 0) {
            failures -= 1;
            throw failure;
        }
        if (calls.size() == failingCall) {
            throw failure;
        }
    }));
    clsNonPara request{companions};

    explicit RequestDesk(const ValueGrid& data = {}) { put("Data!A1", data); }

    void put(std::string_view address, const ValueGrid& values) const {
        if (values.allocated()) {
            const RangeRef first = host->GetRange(address);
            host->GetRange(first, first->GetCells(values.rows(), values.columns()))->LetValue(values);
        }
    }
    [[nodiscard]] Support::SheetText cells(std::string_view address) const {
        return Support::sheetText(host->GetRange(address));
    }
    [[nodiscard]] std::vector<std::string> sheets() const {
        const WorkbookRef book = host->GetRange("Data!A1")->GetWorksheet()->GetParent();
        std::vector<std::string> names;
        for (Long i = 1; i <= book->GetWorksheetsCount(); ++i) {
            names.push_back(book->GetWorksheets(i)->GetName());
        }
        return names;
    }
    /// The last sheet of the user's workbook: where a report goes that was given no place.
    [[nodiscard]] Support::SheetText lastSheet() const {
        const WorkbookRef book = host->GetRange("Data!A1")->GetWorksheet()->GetParent();
        return Support::sheetText(book->GetWorksheets(book->GetWorksheetsCount())->GetRange("A1:L60"));
    }
    /// How often an operation was asked for.
    [[nodiscard]] auto count(std::string_view operation) const {
        return std::ranges::count(calls, operation);
    }

    [[nodiscard]] Support::Raised run(bool overWrite = false) {
        return Support::raisedBy([&] { request.Results(overWrite); });
    }
};

/// The source of an error that Results raises or passes on.
inline const std::string inResults = "Line 0 in TBVNonPara.clsNonPara.Results";

inline const ValueGrid threeAndThree = {{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}};
inline const CellValue blank = Empty();

}  // namespace TBVNonPara
