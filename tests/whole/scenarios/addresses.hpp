#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tbvnonpara/workbook/address.hpp"

namespace TBVNonPara::Scenarios {

[[nodiscard]] inline bool holds(const Rectangle& area, Index row, Index column) noexcept {
    return area.top <= row && row <= area.bottom && area.left <= column && column <= area.right;
}

/// The one area of an address that a host or a scenario gives: 'Data (2)'!A1:D9.
[[nodiscard]] inline AddressArea areaOf(const std::string& address) {
    const std::vector<AddressArea> areas = workbook::parseAddress(address);
    if (areas.size() != 1 || !areas.front().sheet) {
        throw std::runtime_error("not the address of one block with its sheet: " + address);
    }
    return areas.front();
}

}  // namespace TBVNonPara::Scenarios
