#include "tbvnonpara/json/values.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <utility>

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/core/shortest.hpp"
#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara {

namespace {

std::string ofTruth(bool truth) {
    return truth ? "true" : "false";
}

std::string ofCount(Long count) {
    return std::to_string(count.value());
}

template <typename Element, typename Write>
std::string listInJson(std::span<const Element> elements, const Write& write) {
    std::string text = "[";
    for (const Element& element : elements) {
        text += (text.size() == 1 ? "" : ", ") + write(element);
    }
    return text + ']';
}

/// How each kind of result is written.
struct WriteResult {
    std::string operator()(bool truth) const { return ofTruth(truth); }
    std::string operator()(Long count) const { return ofCount(count); }
    std::string operator()(double number) const { return numberInJson(number); }
    std::string operator()(const std::string& text) const { return textInJson(text); }
    std::string operator()(const Array<Long>& counts) const { return listInJson(counts.elements(), ofCount); }
    std::string operator()(const std::vector<double>& numbers) const {
        return listInJson(std::span(numbers), [](double number) { return numberInJson(number); });
    }
    std::string operator()(const Array<CellValue>& values) const {
        return listInJson(values.elements(), [](const CellValue& value) { return cellInJson(value); });
    }
};

/// The parts of a name before and behind its dot; without a dot there is none before.
std::pair<std::string_view, std::string_view> partsOf(std::string_view name) {
    const std::size_t dot = name.find('.');
    return dot == std::string_view::npos ? std::pair(std::string_view(), name)
                                         : std::pair(name.substr(0, dot), name.substr(dot + 1));
}

/// The escape of a character, \u001b.
std::string jsonEscape(char32_t character) {
    constexpr std::size_t places = 4;
    constexpr int hexadecimal = 16;
    std::array<char, 2 * places> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   static_cast<std::uint32_t>(character), hexadecimal);
    const std::string number(digits.data(), end.ptr);
    return "\\u" + std::string(places - std::min(places, number.size()), '0') + number;
}

/// JSON that holds what acts on a terminal only as an escape, which reads as the same text.
std::string withoutEffect(const std::string& json) {
    std::string harmless;
    for (std::string_view rest = json; !rest.empty();) {
        const char32_t character = takeCharacter(rest);
        if (actsOnTerminal(character)) {
            harmless += jsonEscape(character);
        } else {
            appendCharacter(harmless, character);
        }
    }
    return harmless;
}

}  // namespace

std::string numberInJson(double number) {
    return std::isfinite(number) ? shortest(number) : "null";
}

std::string textInJson(std::string_view text) {
    using Json = nlohmann::json;
    return withoutEffect(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::string cellInJson(const CellValue& value) {
    if (isEmpty(value)) {
        return "null";
    }
    if (const auto* number = std::get_if<double>(&value)) {
        return numberInJson(*number);
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return ofTruth(*truth);
    }
    return textInJson(toText(value));
}

std::string resultsInJson(const std::vector<NamedResult>& results) {
    std::string text = "{";
    std::string_view object;  // the one that is open
    for (const auto& [name, value] : results) {
        const auto [within, member] = partsOf(name);
        text += !object.empty() && within != object ? "}" : "";
        text += text.size() == 1 ? "" : ", ";
        text += !within.empty() && within != object ? textInJson(within) + ": {" : "";
        text += textInJson(member) + ": " + std::visit(WriteResult(), value);
        object = within;
    }
    return text + (object.empty() ? "}" : "}}");
}

}  // namespace TBVNonPara
