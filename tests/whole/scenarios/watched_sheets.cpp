#include "tests/whole/scenarios/watched_sheets.hpp"

#include <algorithm>

#include "tests/whole/scenarios/cells.hpp"
#include "tests/whole/scenarios/first_lines.hpp"

namespace TBVNonPara::Scenarios {

namespace {

/// Watched however little a scenario uses, and beyond what a large one uses.
constexpr Rectangle leastWatched{1, 1, 200, 40};
constexpr Rectangle margin{1, 1, 50, 10};

Rectangle usedBy(const Block& block) {
    Rectangle used;
    if (block.keyword == "sheet" && !block.lines.empty()) {
        const ValueGrid cells = readData(block.lines);
        used = {1, 1, toIndex(cells.rows()), toIndex(cells.columns())};
    } else if (block.keyword == "report") {
        used = areaOf(block.argument).cells;
    }
    return used;
}

/// All that the scenario uses, but not a million rows for the sake of a report at the foot of a sheet.
Rectangle watchedBy(const Scenario& scenario) {
    constexpr Index mostRows = 100'000;
    Rectangle watched = leastWatched;
    for (const Block& block : scenario.blocks) {
        const Rectangle used = usedBy(block);
        watched = around(watched, {1, 1, used.bottom + margin.bottom, used.right + margin.right});
    }
    watched.bottom = std::min(watched.bottom, mostRows);
    watched.right = std::min(watched.right, sheetColumns);
    return watched;
}

bool holdsCell(const std::optional<AddressArea>& area, const std::string& sheet, Index row, Index column) {
    return area && area->sheet == sheet && holds(area->cells, row, column);
}

void addChanges(FirstLines& lines, const std::string& sheet, const ValueGrid& before, const ValueGrid& after,
                const std::optional<AddressArea>& report) {
    for (Index row = 1; row <= toIndex(after.rows()); ++row) {
        for (Index column = 1; column <= toIndex(after.columns()); ++column) {
            const CellValue& value = after(row, column);
            if (value != before(row, column) && !holdsCell(report, sheet, row, column)) {
                lines.add([&] {
                    return "  changed " + sheet + " row " + std::to_string(row) + " column " +
                           std::to_string(column) + " to " + writeCell(value);
                });
            }
        }
    }
}

}  // namespace

WatchedSheets::WatchedSheets(const ScenarioHost& host, const Scenario& scenario)
    : m_Host(host), m_Watched(watchedBy(scenario)) {
}

std::vector<WorksheetRef> WatchedSheets::sheets() const {
    const WorkbookRef book = activeSheet()->GetParent();
    std::vector<WorksheetRef> sheets;
    for (Long i = 1; i <= book->GetWorksheetsCount(); ++i) {
        sheets.push_back(book->GetWorksheets(i));
    }
    return sheets;
}

std::vector<std::string> WatchedSheets::names() const {
    std::vector<std::string> names;
    for (const WorksheetRef& sheet : sheets()) {
        names.push_back(sheet->GetName());
    }
    return names;
}

WatchedSheets::Sheets WatchedSheets::read() const {
    Sheets all;
    for (const WorksheetRef& sheet : sheets()) {
        all[sheet->GetName()] = sheet->GetRange(plainAddress(m_Watched))->GetValue();
    }
    return all;
}

std::vector<std::string> WatchedSheets::changes(const std::optional<AddressArea>& report) const {
    FirstLines lines;
    for (const auto& sheet : read()) {
        const auto before = m_Before.find(sheet.first);
        if (before != m_Before.end()) {
            addChanges(lines, sheet.first, before->second, sheet.second, report);
        } else if (!report) {
            lines.add([&] { return "  the sheet " + sheet.first + " is new"; });
        }
    }
    return std::move(lines).take();
}

}  // namespace TBVNonPara::Scenarios
