#pragma once

#include <functional>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Whether this is the office's own process. An extension that was just installed runs in a helper process
/// until the office is started again.
[[nodiscard]] bool isInsideOffice() noexcept;

/// Does something on the office's main thread and waits for it; what it throws, the caller sees. Views and
/// dialogs work there only, while calls from another process and long work come on threads of their own.
/// False, and nothing is done, where the main thread does not come to it: a macro that another process calls
/// keeps it waiting until the macro has ended.
[[nodiscard]] bool tryOnMainThread(const Context& context, const std::function<void()>& work);

/// Does something on the main thread as soon as that is idle, without waiting.
void whenIdle(const Context& context, std::function<void()> work);

}  // namespace TBVNonPara::calc
