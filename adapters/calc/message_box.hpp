#pragma once

#include <com/sun/star/frame/XFrame.hpp>
#include <string_view>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Says something in a window of its own and waits until it is closed. On the main thread only.
void tell(const Context& context, const Reference<css::frame::XFrame>& frame, std::string_view words);
void warn(const Context& context, const Reference<css::frame::XFrame>& frame, std::string_view words);

/// Whether the user says yes; No is the answer of the Enter key.
[[nodiscard]] bool ask(const Context& context, const Reference<css::frame::XFrame>& frame,
                       std::string_view question);

}  // namespace TBVNonPara::calc
