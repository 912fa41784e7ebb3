#include "tbvnonpara/details/page.hpp"

#include <fmt/format.h>

#include "tbvnonpara/details/k_samples.hpp"
#include "tbvnonpara/details/two_samples.hpp"
#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara {

std::string shownDetail(const DetailCell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell.value)) {
        return *text;
    }
    const auto* number = std::get_if<double>(&cell.value);
    if (number == nullptr) {
        return "";
    }
    switch (cell.form) {
        case DetailForm::Probability:
            return probabilityText({*number, cell.log10});
        case DetailForm::Whole:
            return fmt::format("{:.0f}", *number);
        case DetailForm::Percent:
            return percentage(*number) + " %";
        case DetailForm::Share:
            return fmt::format("{:.0f} of {:.0f}", *number, cell.whole);
        case DetailForm::Number:
            break;
    }
    return fourDecimals(*number);
}

DetailPage detailPage(const Details& details) {
    return std::visit([&](const auto& test) { return pageOf(test, details); }, details.result);
}

}  // namespace TBVNonPara
