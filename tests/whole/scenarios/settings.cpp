#include "tests/whole/scenarios/settings.hpp"

#include <functional>
#include <map>
#include <stdexcept>
#include <string_view>

namespace TBVNonPara::Scenarios {

namespace {

/// The value of a list that bears the name, or the number that is written.
std::int32_t named(const std::vector<std::string_view>& names, const std::string& text) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == text) {
            return static_cast<std::int32_t>(i);
        }
    }
    return std::stoi(text);
}

TBVNPMethod method(const std::string& text) {
    return static_cast<TBVNPMethod>(
        named({"MannWhitney", "Wilcoxon", "Spearman", "Sign", "Median", "Friedman", "KruskalWallis", "Runs"},
              text));
}

TBVNPTails tails(const std::string& text) {
    return static_cast<TBVNPTails>(named({"TwoTailed", "Var1GTVar2", "Var1LTVar2"}, text));
}

bool truth(const std::string& text) {
    if (text != "True" && text != "False") {
        throw std::runtime_error("neither True nor False: " + text);
    }
    return text == "True";
}

std::string address(const std::string& text) {
    return text == "\"\"" ? std::string() : text;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// A sheet's name in quotes may hold what separates settings; a quote inside a name opens none.
std::size_t endOfSetting(std::string_view line, std::size_t begin) {
    bool quoted = false;
    for (std::size_t i = begin; i < line.size(); ++i) {
        const char before = i == begin ? ' ' : line[i - 1];
        if (line[i] == '\'') {
            quoted = !quoted && (before == ' ' || before == ',' || before == '\'');
        } else if (!quoted && line.substr(i).starts_with(", ")) {
            return i;
        }
    }
    return line.size();
}

}  // namespace

std::vector<std::string> splitList(const std::vector<std::string>& lines) {
    std::vector<std::string> parts;
    for (const std::string& line : lines) {
        for (std::size_t begin = 0; begin < line.size();) {
            const std::size_t end = endOfSetting(line, begin);
            if (const std::string part = trimmed(line.substr(begin, end - begin)); !part.empty()) {
                parts.push_back(part);
            }
            begin = end + 1;
        }
    }
    return parts;
}

void carryOut(Request& request, const std::vector<std::string>& settings) {
    bool overWrite = false;
    const std::map<std::string, std::function<void(const std::string&)>> properties = {
        {"Method", [&](const std::string& value) { request.LetMethod(method(value)); }},
        {"Tails", [&](const std::string& value) { request.LetTails(tails(value)); }},
        {"Headers", [&](const std::string& value) { request.LetHeaders(truth(value)); }},
        {"OutputDescriptives",
         [&](const std::string& value) { request.LetOutputDescriptives(truth(value)); }},
        {"IgnoreTies", [&](const std::string& value) { request.LetIgnoreTies(truth(value)); }},
        {"YRange", [&](const std::string& value) { request.LetYRange(address(value)); }},
        {"XRange", [&](const std::string& value) { request.LetXRange(address(value)); }},
        {"OutputRange", [&](const std::string& value) { request.LetOutputRange(address(value)); }},
        {"OverWrite", [&](const std::string& value) { overWrite = truth(value); }},
    };
    for (const std::string& setting : splitList(settings)) {
        const std::size_t blank = setting.find(' ');
        const auto property = properties.find(setting.substr(0, blank));
        if (property == properties.end() || blank == std::string::npos) {
            throw std::runtime_error("no such setting: " + setting);
        }
        property->second(setting.substr(blank + 1));
    }
    request.Results(overWrite);
}

}  // namespace TBVNonPara::Scenarios
