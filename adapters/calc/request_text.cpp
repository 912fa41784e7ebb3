#include "adapters/calc/request_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

namespace TBVNonPara::calc {

namespace {

constexpr std::string_view opening = "CHOOSE(1;";
constexpr std::string_view version = "1";

using Choices = std::multimap<std::string, std::string, std::less<>>;

bool isPlain(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '-';
}

/// Letters and digits alone: neither a formula nor a file's format gives them another meaning.
std::string encoded(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        if (isPlain(c)) {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result += {'%', digits[byte / 16U], digits[byte % 16U]};
        }
    }
    return result;
}

std::string decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned int byte = 0;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(&text[i + 1], &text[i + 1] + 2, byte, 16).ec == std::errc()) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

/// A text constant of a formula may have 255 characters where other programs read the file.
std::string quotedPieces(std::string_view text) {
    constexpr std::size_t most = 240;
    std::string pieces;
    for (; !text.empty(); text.remove_prefix(std::min(most, text.size()))) {
        pieces += (pieces.empty() ? "\"" : ";\"") + std::string(text.substr(0, most)) + '"';
    }
    return pieces;
}

std::string textOf(const RequestText& request) {
    std::string text = "v=" + std::string(version);
    const auto add = [&](std::string_view name, std::string_view value) {
        text += '&' + std::string(name) + '=' + encoded(value);
    };
    const auto addNumber = [&](std::string_view name, auto number) {
        add(name, std::to_string(static_cast<std::size_t>(number)));
    };
    const AnalysisSettings& settings = request.settings;
    addNumber("method", settings.method);
    addNumber("tails", settings.tails);
    addNumber("headers", settings.headers);
    addNumber("descriptives", settings.descriptives);
    addNumber("ignoreTies", settings.ignoreTies);
    addNumber("live", settings.liveFigures);
    addNumber("long", settings.groupsInOneColumn);
    addNumber("omitMissing", settings.omitMissing);
    addNumber("visibleRows", settings.visibleRowsOnly);
    addNumber("details", settings.details.wanted);
    add("confidence", settings.details.confidence);
    addNumber("adjustment", settings.details.adjustment);
    addNumber("picture", settings.details.picture);
    for (const std::string& group : settings.groups) {
        add("group", group);
    }
    add("fingerprint", request.fingerprint);
    addNumber("areas1", request.first.size());
    addNumber("areas2", request.second.size());
    addNumber("areas3", request.groups.size());
    addNumber("areas4", request.blocks.size());
    return text;
}

Choices choicesIn(std::string_view text) {
    Choices choices;
    while (!text.empty()) {
        const std::string_view pair = text.substr(0, text.find('&'));
        text.remove_prefix(std::min(pair.size() + 1, text.size()));
        const std::size_t sign = std::min(pair.find('='), pair.size());
        choices.emplace(pair.substr(0, sign), decoded(pair.substr(std::min(sign + 1, pair.size()))));
    }
    return choices;
}

std::string valueOf(const Choices& choices, std::string_view name) {
    const auto found = choices.find(name);
    return found == choices.end() ? std::string() : found->second;
}

std::size_t numberOf(const Choices& choices, std::string_view name) {
    const std::string text = valueOf(choices, name);
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

AnalysisSettings settingsIn(const Choices& choices) {
    const auto isSet = [&](std::string_view name) { return numberOf(choices, name) != 0; };
    AnalysisSettings settings;
    settings.method = static_cast<TBVNPMethod>(numberOf(choices, "method"));
    settings.tails = static_cast<TBVNPTails>(numberOf(choices, "tails"));
    settings.headers = isSet("headers");
    settings.descriptives = isSet("descriptives");
    settings.ignoreTies = isSet("ignoreTies");
    settings.liveFigures = isSet("live");
    settings.groupsInOneColumn = isSet("long");
    settings.omitMissing = isSet("omitMissing");
    settings.visibleRowsOnly = isSet("visibleRows");
    settings.details = {isSet("details"), valueOf(choices, "confidence"),
                        static_cast<statistics::Adjustment>(numberOf(choices, "adjustment")),
                        isSet("picture")};
    const auto [begin, end] = choices.equal_range("group");
    std::transform(begin, end, std::back_inserter(settings.groups),
                   [](const auto& group) { return group.second; });
    return settings;
}

/// Numbers that no choice has come from somebody else, or from a version to come.
bool isKnown(const Choices& choices) {
    return valueOf(choices, "v") == version && numberOf(choices, "method") <= tbvNPWWRuns &&
           numberOf(choices, "tails") <= tbvNPVar1LTVar2 &&
           numberOf(choices, "adjustment") <= static_cast<std::size_t>(statistics::Adjustment::None);
}

/// The arguments of a formula: a semicolon in quotes, of a text or of a sheet's name, parts none.
std::vector<std::string> argumentsIn(std::string_view list) {
    std::vector<std::string> arguments(1);
    char open = 0;
    for (const char c : list) {
        if (open == 0 && c == ';') {
            arguments.emplace_back();
            continue;
        }
        if (open == 0 && (c == '"' || c == '\'')) {
            open = c;
        } else if (c == open) {
            open = 0;
        }
        arguments.back() += c;
    }
    return arguments;
}

bool isQuoted(const std::string& argument) {
    return argument.size() >= 2 && argument.front() == '"' && argument.back() == '"';
}

}  // namespace

std::string formulaOf(const RequestText& request) {
    std::string formula = std::string(opening) + quotedPieces(textOf(request)) + ';' + request.report;
    for (const auto* areas : {&request.first, &request.second, &request.groups, &request.blocks}) {
        for (const std::string& area : *areas) {
            formula += ';' + area;
        }
    }
    return formula + ')';
}

std::optional<RequestText> readRequest(std::string_view formula) {
    if (!formula.starts_with(opening) || !formula.ends_with(')')) {
        return std::nullopt;
    }
    formula.remove_prefix(opening.size());
    formula.remove_suffix(1);
    const std::vector<std::string> arguments = argumentsIn(formula);
    auto next = std::ranges::find_if_not(arguments, isQuoted);
    std::string text;
    std::for_each(arguments.begin(), next,
                  [&](const std::string& piece) { text += piece.substr(1, piece.size() - 2); });
    const Choices choices = choicesIn(text);
    RequestText request;
    const std::array parts{&request.first, &request.second, &request.groups, &request.blocks};
    const std::array counts{numberOf(choices, "areas1"), numberOf(choices, "areas2"),
                            numberOf(choices, "areas3"), numberOf(choices, "areas4")};
    auto left = static_cast<std::size_t>(arguments.end() - next);
    if (!isKnown(choices) || left == 0) {
        return std::nullopt;
    }
    request.settings = settingsIn(choices);
    request.fingerprint = valueOf(choices, "fingerprint");
    request.report = *next++;
    left -= 1;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (counts.at(part) > left) {
            return std::nullopt;
        }
        left -= counts.at(part);
        for (std::size_t area = 0; area < counts.at(part); ++area) {
            parts.at(part)->push_back(*next++);
        }
    }
    return request;
}

bool isLost(std::string_view reference) noexcept {
    return reference.find("#REF!") != std::string_view::npos;
}

}  // namespace TBVNonPara::calc
