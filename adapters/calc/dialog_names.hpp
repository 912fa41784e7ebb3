#pragma once

#include "adapters/calc/dialog_view.hpp"

namespace TBVNonPara::calc {

[[nodiscard]] inline OUString ascii(const char* text) {
    return OUString::createFromAscii(text);
}

/// What belongs to a control bears its name with an ending.
[[nodiscard]] inline OUString labelOf(const OUString& name) {
    return name + "Label";
}

[[nodiscard]] inline OUString pickerOf(const OUString& name) {
    return name + "Picker";
}

[[nodiscard]] inline OUString messageOf(const OUString& name) {
    return name + "Message";
}

}  // namespace TBVNonPara::calc
