#include "adapters/calc/detail_settings.hpp"

#include <algorithm>
#include <charconv>

namespace TBVNonPara::calc {

namespace {

std::string_view withoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

std::optional<double> levelIn(std::string_view percent) {
    constexpr double lowest = 50;
    constexpr double highest = 99.9;
    std::string text(withoutBlanks(percent));
    if (text.ends_with('%')) {
        text = withoutBlanks(std::string_view(text).substr(0, text.size() - 1));
    }
    std::ranges::replace(text, ',', '.');
    double level = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), level, std::chars_format::fixed);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(level >= lowest && level <= highest)) {
        return std::nullopt;
    }
    // Divided, 99.9 is a little above the highest level that intervals have.
    return std::min(level / 100, 0.999);
}

}  // namespace TBVNonPara::calc
