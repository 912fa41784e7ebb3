#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/com/host_object.hpp"

namespace TBVNonPara::com {

/// The address with the sheet of the area before it in front of each area of cells that names none, so that
/// the active sheet does not decide: "Data!A1:A4,C1:C4" is "Data!A1:A4,Data!C1:C4". A name stands as it is.
[[nodiscard]] std::string withSheets(std::string_view address);

/// How far the cells of a sheet are used, counted from 1.
struct UsedArea {
    std::int32_t lastRow;
    std::int32_t lastColumn;
};

/// "$A:$A,$B$1:$B$9" with its whole columns and rows ending where the used area ends: "A1:A57,$B$1:$B$9".
/// None when the address names no whole column or row. `used` is asked at most once.
[[nodiscard]] std::optional<std::string> endingWith(std::string_view address,
                                                    const std::function<UsedArea()>& used);

/// The range that an address names in the application.
[[nodiscard]] HostObject rangeAt(const HostObject& application, std::string_view address);

}  // namespace TBVNonPara::com
