#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/recording_formatter.hpp"
#include "tests/support/sheet_text.hpp"
#include "tests/support/test_host.hpp"

namespace TBVNonPara {

/// A report writer on an empty sheet, with what it formats on record.
struct ReportDesk {
    std::shared_ptr<Support::FormattingRecord> record = std::make_shared<Support::FormattingRecord>();
    ObjectRef<Application> host = Support::testHost();
    CompanionLibrary companions = Support::recordFormatting(ownCompanions(host), record);
    clsNonParaOutput writer{companions};

    [[nodiscard]] RangeRef sheet(std::string_view address) const {
        return host->GetWorkbooks("tbv2007.xlam")->GetWorksheets("Results")->GetRange(address);
    }
    [[nodiscard]] Support::SheetText cells(std::string_view address) const {
        return Support::sheetText(sheet(address));
    }
};

/// A section that is written from row `row` on. `block` is the report's block afterwards: its last row is the
/// cursor, its last column the widest column so far.
struct SectionCase {
    std::string name;
    std::function<void(clsNonParaOutput&)> write;
    Support::SheetText lines;
    std::vector<std::string> formatting;
    std::string block;
    std::int16_t row = 5;

    friend std::ostream& operator<<(std::ostream& out, const SectionCase& section) {
        return out << section.name;
    }
};

inline void expectSection(const SectionCase& section) {
    ReportDesk desk;
    desk.writer.InsertBlankLines(section.row - 1);
    section.write(desk.writer);
    EXPECT_EQ(desk.cells("A" + std::to_string(section.row) + ":J40"), section.lines);
    EXPECT_EQ(desk.record->calls, section.formatting);
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), section.block);
    if (section.row > 1) {
        EXPECT_EQ(desk.cells("A1:J" + std::to_string(section.row - 1)), Support::SheetText());
    }
}

inline std::string caseName(const auto& info) {
    return info.param.name;
}

}  // namespace TBVNonPara
