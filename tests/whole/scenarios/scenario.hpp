#pragma once

#include <string>
#include <vector>

#include "tests/whole/scenarios/scenario_host.hpp"

namespace TBVNonPara::Scenarios {

/// A block of a scenario: a line at the margin and the indented lines below it.
struct Block {
    std::string keyword;
    std::string argument;
    std::vector<std::string> lines;

    friend bool operator==(const Block&, const Block&) = default;
};

/// A scenario: a paragraph that says what it is about and where its figures come from, then blocks. The
/// grammar is described in CONTRIBUTING.md.
struct Scenario {
    std::vector<std::string> about;
    std::vector<Block> blocks;
};

[[nodiscard]] Scenario readScenario(const std::string& text);
[[nodiscard]] std::string writeScenario(const Scenario& scenario);

/// What came of a scenario.
struct Outcome {
    Scenario received;  ///< the scenario as it would have to be written to hold
    std::vector<std::string>
        differences;  ///< where that departs from the one that was played; none when it holds
};

/// Plays a scenario on a host.
[[nodiscard]] Outcome play(const Scenario& scenario, ScenarioHost& host);

}  // namespace TBVNonPara::Scenarios
