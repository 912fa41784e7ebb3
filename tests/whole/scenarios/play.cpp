#include <algorithm>
#include <optional>
#include <stdexcept>

#include "tbvnonpara/core/error.hpp"
#include "tests/whole/scenarios/cells.hpp"
#include "tests/whole/scenarios/comparison.hpp"
#include "tests/whole/scenarios/scenario.hpp"
#include "tests/whole/scenarios/settings.hpp"
#include "tests/whole/scenarios/watched_sheets.hpp"

namespace TBVNonPara::Scenarios {

namespace {

void append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

bool sameBlock(const AddressArea& a, const AddressArea& b) {
    return a.sheet == b.sheet && a.cells == b.cells;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

std::vector<std::string> filledLines(const std::vector<std::string>& calls) {
    std::vector<std::string> lines;
    for (const std::string& call : calls) {
        if (lines.empty() || lines.back().size() + call.size() > 96) {
            lines.push_back("  " + call);
        } else {
            lines.back() += ", " + call;
        }
    }
    return lines;
}

struct PlayedBlock {
    Block received;
    std::vector<std::string> differences;
};

PlayedBlock compared(const Block& expected, Block received) {
    if (received == expected) {
        return {std::move(received), {}};
    }
    std::vector<std::string> differences = blockDifferences(expected, received);
    return {std::move(received), std::move(differences)};
}

class Player {
 public:
    Player(ScenarioHost& host, const Scenario& scenario) : m_Host(host), m_Sheets(host, scenario) {}

    PlayedBlock play(const Block& block) {
        if (block.keyword == "sheet") {
            m_Host.addSheet(block.argument, readData(block.lines));
        } else if (block.keyword == "request" || block.keyword == "request again") {
            request(block);
        } else if (block.keyword == "report" || block.keyword == "error") {
            return outcome(block);
        } else if (block.keyword == "unchanged") {
            return unchanged(block);
        } else if (block.keyword == "sheets") {
            return compared(block, {block.keyword, joined(m_Sheets.names()), {}});
        } else if (block.keyword == "formatting") {
            return formatting(block);
        } else {
            throw std::runtime_error("no such block: " + block.keyword);
        }
        return {block, {}};
    }

 private:
    void request(const Block& block) {
        if (block.keyword == "request" || m_Request == nullptr) {
            m_Request = m_Host.createRequest();
        }
        m_Sheets.remember();
        m_Error.reset();
        try {
            carryOut(*m_Request, block.lines);
        } catch (const Error& error) {
            m_Error = error;
        }
    }

    /// What came of the request, be it what the scenario says or not.
    PlayedBlock outcome(const Block& expected) {
        if (m_Error) {
            Block received = error(expected);
            append(received.lines, m_Sheets.changes(std::nullopt));
            return compared(expected, std::move(received));
        }
        const AddressArea area = areaOf(m_Host.reportAddress());
        std::vector<std::string> elsewhere = m_Sheets.changes(area);
        if (m_Sheets.active() != area.sheet) {
            elsewhere.emplace_back("  (on a sheet that is not the active one)");
        }
        return report(expected, area, elsewhere);
    }

    [[nodiscard]] Block error(const Block& expected) const {
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

    [[nodiscard]] PlayedBlock report(const Block& expected, const AddressArea& area,
                                     const std::vector<std::string>& elsewhere) const {
        const std::string address = m_Host.reportAddress();
        const bool there = expected.keyword == "report" && sameBlock(areaOf(expected.argument), area);
        ComparedReport cells =
            compareReports(there ? readReport(expected.lines) : ValueGrid(),
                           m_Host.application().GetRange(address)->GetValue(), area.cells,
                           m_Host.keepsEmptyTexts() ? EmptyTexts::Kept : EmptyTexts::Blank);
        append(cells.differences, elsewhere);
        if (there && cells.differences.empty()) {
            return {expected, {}};
        }
        Block received{"report", address, writeReport(cells.asWritten, area.cells.top, area.cells.left)};
        append(received.lines, elsewhere);
        if (!there) {
            return compared(expected, std::move(received));
        }
        cells.differences.insert(cells.differences.begin(), "report " + address);
        return {std::move(received), std::move(cells.differences)};
    }

    [[nodiscard]] PlayedBlock unchanged(const Block& expected) const {
        const std::vector<std::string> changes = m_Sheets.changes(std::nullopt);
        return compared(expected, {changes.empty() ? "unchanged" : "changed", {}, changes});
    }

    [[nodiscard]] PlayedBlock formatting(const Block& expected) const {
        const std::vector<std::string> calls = m_Host.formatting();
        if (splitList(expected.lines) == calls) {
            return {expected, {}};
        }
        return compared(expected, {"formatting", {}, filledLines(calls)});
    }

    ScenarioHost& m_Host;
    WatchedSheets m_Sheets;
    std::unique_ptr<Request> m_Request;
    std::optional<Error> m_Error;
};

}  // namespace

Outcome play(const Scenario& scenario, ScenarioHost& host) {
    Outcome outcome{{scenario.about, {}}, {}};
    Player player(host, scenario);
    for (const Block& block : scenario.blocks) {
        PlayedBlock played = player.play(block);
        outcome.received.blocks.push_back(std::move(played.received));
        append(outcome.differences, played.differences);
    }
    return outcome;
}

}  // namespace TBVNonPara::Scenarios
