#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

#include "tbvnonpara/core/error.hpp"
#include "tests/whole/scenarios/cells.hpp"
#include "tests/whole/scenarios/scenario.hpp"
#include "tests/whole/scenarios/settings.hpp"

namespace TBVNonPara::Scenarios {

namespace {

/// As much of each sheet as any scenario uses.
constexpr const char* watchedCells = "A1:AN200";

using Sheets = std::map<std::string, ValueGrid>;

class Player {
 public:
    explicit Player(ScenarioHost& host) : m_Host(host) {}

    Block play(const Block& block) {
        if (block.keyword == "sheet") {
            m_Host.addSheet(block.argument, readData(block.lines));
        } else if (block.keyword == "request" || block.keyword == "request again") {
            return request(block);
        } else if (block.keyword == "report" || block.keyword == "error") {
            return outcome(block);
        } else if (block.keyword == "unchanged") {
            return unchanged();
        } else if (block.keyword == "sheets") {
            return {block.keyword, sheetNames(), {}};
        } else if (block.keyword == "formatting") {
            return formatting(block);
        } else {
            throw std::runtime_error("no such block: " + block.keyword);
        }
        return block;
    }

 private:
    Block request(const Block& block) {
        if (block.keyword == "request" || m_Request == nullptr) {
            m_Request = m_Host.createRequest();
        }
        m_Before = sheets();
        m_Error.reset();
        try {
            carryOut(*m_Request, block.lines);
        } catch (const Error& error) {
            m_Error = error;
        }
        return block;
    }

    /// What came of the request, be it what the scenario says or not.
    Block outcome(const Block& expected) {
        Block received = m_Error ? error(expected) : report(expected);
        const std::vector<std::string> elsewhere = changes(m_Error ? "" : m_Host.reportAddress());
        received.lines.insert(received.lines.end(), elsewhere.begin(), elsewhere.end());
        return received;
    }

    Block error(const Block& expected) {
        Block received{"error", std::to_string(m_Error->number()) + " \"" + m_Error->source() + '"', {}};
        // Without a description in the scenario it may be any: hosts word their own errors.
        if (expected.keyword != "error" || expected.argument != received.argument ||
            !expected.lines.empty()) {
            received.lines.push_back("  " + m_Error->description());
            if (m_Error->description().empty()) {
                received.lines.back() = "  -";
            }
        }
        return received;
    }

    Block report(const Block& expected) {
        const std::string address = m_Host.reportAddress();
        const RangeRef block = m_Host.application().GetRange(address);
        const ValueGrid cells = block->GetValue();
        if (expected.keyword == "report" && expected.argument == address &&
            sameCells(readReport(expected.lines), cells) && isActive(block)) {
            return expected;
        }
        Block received{"report", address, writeReport(cells, rowOf(block), columnOf(block))};
        if (!isActive(block)) {
            received.lines.emplace_back("  (on a sheet that is not the active one)");
        }
        return received;
    }

    Block unchanged() {
        const std::vector<std::string> differences = changes("");
        return {differences.empty() ? "unchanged" : "changed", {}, differences};
    }

    Block formatting(const Block& expected) {
        const std::vector<std::string> calls = m_Host.formatting();
        if (splitList(expected.lines) == calls) {
            return expected;
        }
        Block received{"formatting", {}, {}};
        for (const std::string& call : calls) {
            if (received.lines.empty() || received.lines.back().size() + call.size() > 96) {
                received.lines.push_back("  " + call);
            } else {
                received.lines.back() += ", " + call;
            }
        }
        return received;
    }

    [[nodiscard]] std::vector<WorksheetRef> userSheets() const {
        const WorkbookRef book = m_Host.application().GetRange("A1")->GetWorksheet()->GetParent();
        std::vector<WorksheetRef> sheets;
        for (Long i = 1; i <= book->GetWorksheetsCount(); ++i) {
            sheets.push_back(book->GetWorksheets(i));
        }
        return sheets;
    }

    [[nodiscard]] Sheets sheets() const {
        Sheets all;
        for (const WorksheetRef& sheet : userSheets()) {
            all[sheet->GetName()] = sheet->GetRange(watchedCells)->GetValue();
        }
        return all;
    }

    [[nodiscard]] std::string sheetNames() const {
        std::string names;
        for (const WorksheetRef& sheet : userSheets()) {
            names += (names.empty() ? "" : ", ") + sheet->GetName();
        }
        return names;
    }

    /// The cells outside a block that are not as they were before the request; with no block, the sheets that
    /// are new as well.
    [[nodiscard]] std::vector<std::string> changes(const std::string& block) const {
        std::vector<std::string> lines;
        for (auto& [name, after] : sheets()) {
            const auto before = m_Before.find(name);
            if (before == m_Before.end()) {
                if (block.empty()) {
                    lines.push_back("  the sheet " + name + " is new");
                }
                continue;
            }
            for (Long row = 1; row <= after.rows(); ++row) {
                for (Long column = 1; column <= after.columns(); ++column) {
                    if (after(row, column) != before->second(row, column) &&
                        !lies(name, row, column, block)) {
                        lines.push_back("  changed " + name + " row " + std::to_string(row.value()) +
                                        " column " + std::to_string(column.value()) + " to " +
                                        writeCell(after(row, column)));
                    }
                }
            }
        }
        return lines;
    }

    [[nodiscard]] bool lies(const std::string& name, Long row, Long column, const std::string& block) const {
        if (block.empty()) {
            return false;
        }
        const RangeRef range = m_Host.application().GetRange(block);
        return range->GetWorksheet()->GetName() == name && row >= rowOf(range) && column >= columnOf(range) &&
               row < rowOf(range) + range->GetRowsCount().value() &&
               column < columnOf(range) + range->GetColumnsCount().value();
    }

    [[nodiscard]] bool isActive(const RangeRef& range) const {
        return m_Host.application().GetRange("A1")->GetWorksheet()->GetName() ==
               range->GetWorksheet()->GetName();
    }

    static std::string firstCell(const RangeRef& range) { return range->GetCells(1, 1)->GetAddress(); }

    static int rowOf(const RangeRef& range) {
        const std::string address = firstCell(range);
        return std::stoi(address.substr(address.rfind('$') + 1));
    }

    static int columnOf(const RangeRef& range) {
        const std::string address = firstCell(range);
        int column = 0;
        for (std::size_t i = 1; address[i] != '$'; ++i) {
            column = column * 26 + (address[i] - 'A' + 1);
        }
        return column;
    }

    ScenarioHost& m_Host;
    std::unique_ptr<Request> m_Request;
    std::optional<Error> m_Error;
    Sheets m_Before;
};

}  // namespace

Scenario play(const Scenario& scenario, ScenarioHost& host) {
    Scenario received{scenario.about, {}};
    Player player(host);
    for (const Block& block : scenario.blocks) {
        received.blocks.push_back(player.play(block));
    }
    return received;
}

}  // namespace TBVNonPara::Scenarios
