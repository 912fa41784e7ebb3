#pragma once

#include <string>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// The language of the office's own menus, for example "en-US" or "de".
[[nodiscard]] std::string languageOfTheOffice(const Context& context);

}  // namespace TBVNonPara::calc
