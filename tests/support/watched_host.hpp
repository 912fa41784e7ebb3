#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara::Support {

/// One call on a host, told to a watch before it is made: "Range.LetValue", "Worksheet.GetName". `range` is
/// the range it is made on, empty for other objects; `details` are the settings of a formatting call.
struct HostCall {
    std::string_view operation;
    RangeRef range;
    std::string details;

    /// The range's address without the signs of absolute references: A6:D6.
    [[nodiscard]] std::string address() const;
};

/// Sees every call; what it throws, the caller sees as the host's error and the call is not made.
using Watch = std::function<void(const HostCall&)>;

/// The same host with a watch on it and on everything it leads to.
[[nodiscard]] ObjectRef<Application> watchHost(ObjectRef<Application> host, Watch watch);

}  // namespace TBVNonPara::Support
