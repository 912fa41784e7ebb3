#pragma once

#include <stdexcept>
#include <string_view>

#include "tbvnonpara/c/tbvnonpara.h"

namespace TBVNonPara::c {

/// A pointer or an option that a caller should not have passed.
class BadArgument : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Thrown where a caller's watch ends a test.
struct Interrupted {};

/// The text as far as there is room for it.
void say(tbv_error* error, std::string_view text) noexcept;

/// The status of what is being thrown, its text told.
[[nodiscard]] tbv_status statusOfException(tbv_error* error) noexcept;

/// Calls, and lets nothing be thrown across.
template <typename Call>
[[nodiscard]] tbv_status guarded(tbv_error* error, const Call& call) noexcept {
    try {
        say(error, "");
        call();
        return TBV_OK;
    } catch (...) {
        return statusOfException(error);
    }
}

/// Throws BadArgument where there is no place for what is to be passed.
void requirePointer(const void* pointer, const char* name);

}  // namespace TBVNonPara::c
