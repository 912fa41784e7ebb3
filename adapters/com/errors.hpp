#pragma once

#include <string_view>

#include "adapters/com/windows.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::com {

/// How the application object is refused. The numbers lie in the library's band, so that the range properties
/// pass them on; both carry a description that says what to do.
enum HostAccessErrors : std::int32_t {
    tbvNPNoApplication = objectErrorBase + 5060,
    tbvNPApplicationElsewhere = objectErrorBase + 5061,
};

/// Error 438 of the runtime: the application has no such member.
constexpr std::int32_t noSuchMember = 438;

/// An error's number as a client receives it: the library's numbers as they are, runtime error n as
/// 0x800A0000 + n.
[[nodiscard]] HRESULT toHresult(std::int32_t number) noexcept;

/// The way back, for errors that the application raises.
[[nodiscard]] std::int32_t numberOf(HRESULT status) noexcept;

/// What a failed call without error information says: the runtime error that it stands for, or the status
/// with the system's text.
[[nodiscard]] Error errorOf(HRESULT status);

/// What the application says about an error of its own. Frees the texts of the information.
[[nodiscard]] Error errorOf(EXCEPINFO& information);

/// Leaves the error being handled with the thread, as number, source and description, and returns its number
/// for the client. Call it in a handler only.
[[nodiscard]] HRESULT toErrorInfo() noexcept;

/// Error information in the form that a late-bound client reads.
void toExcepInfo(HRESULT status, IErrorInfo& error, EXCEPINFO& information) noexcept;

/// Raises the error of a status that is a failure.
inline void check(HRESULT status) {
    if (FAILED(status)) {
        throw errorOf(status);
    }
}

}  // namespace TBVNonPara::com
