#include "tests/whole/scenarios/scenario.hpp"

#include <sstream>
#include <stdexcept>

namespace TBVNonPara::Scenarios {

namespace {

bool isBlank(const std::string& line) {
    return line.find_first_not_of(" \t") == std::string::npos;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        // Anyone's editor may have written it.
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

/// "request again" is one keyword; otherwise the first word is, and the rest its argument.
Block heading(const std::string& line) {
    if (line == "request again") {
        return {line, {}, {}};
    }
    const std::size_t blank = line.find(' ');
    return {line.substr(0, blank), blank == std::string::npos ? "" : line.substr(blank + 1), {}};
}

}  // namespace

Scenario readScenario(const std::string& text) {
    Scenario scenario;
    const std::vector<std::string> lines = linesOf(text);
    std::size_t i = 0;
    for (; i < lines.size() && !isBlank(lines[i]); ++i) {
        scenario.about.push_back(lines[i]);
    }
    for (; i < lines.size(); ++i) {
        if (isBlank(lines[i])) {
            continue;
        }
        if (lines[i].front() != ' ' && lines[i].front() != '\t') {
            scenario.blocks.push_back(heading(lines[i]));
        } else if (scenario.blocks.empty()) {
            throw std::runtime_error("an indented line belongs to no block: " + lines[i]);
        } else {
            scenario.blocks.back().lines.push_back(lines[i]);
        }
    }
    return scenario;
}

std::string writeScenario(const Scenario& scenario) {
    std::string text;
    for (const std::string& line : scenario.about) {
        text += line + '\n';
    }
    text += '\n';
    for (const Block& block : scenario.blocks) {
        text += block.keyword + (block.argument.empty() ? "" : ' ' + block.argument) + '\n';
        for (const std::string& line : block.lines) {
            text += line + '\n';
        }
    }
    return text;
}

}  // namespace TBVNonPara::Scenarios
