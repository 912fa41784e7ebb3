#pragma once

#include <span>
#include <string_view>

namespace TBVNonPara::calc {

/// A text that the function wizard shows.
struct WizardText {
    std::string_view english;
    std::string_view german;

    [[nodiscard]] std::string_view in(bool isGerman) const { return isGerman ? german : english; }
};

struct ArgumentTexts {
    WizardText name;
    WizardText description;
};

/// A cell function. Files keep the method's name for ever; what is shown is the same in every language.
struct FunctionTexts {
    std::string_view method;
    std::string_view shown;
    WizardText description;
    std::span<const ArgumentTexts> arguments;  ///< the last of a list stands for all that follow
};

/// The function of a method's name, or of the name that is shown; null where there is none.
[[nodiscard]] const FunctionTexts* functionOf(std::string_view method);
[[nodiscard]] const FunctionTexts* functionShownAs(std::string_view name);

}  // namespace TBVNonPara::calc
