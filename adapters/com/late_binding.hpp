#pragma once

#include "TBVNonPara_h.h"
#include "adapters/com/windows.hpp"

namespace TBVNonPara::com {

/// A call as a late-bound client sends it.
struct LateCall {
    DISPID member;
    LCID locale;
    WORD flags;
    const DISPPARAMS& parameters;
    EXCEPINFO* information;
    UINT* wrongArgument;
};

/// The ids of a member and of its parameters, in any spelling of capitals.
[[nodiscard]] HRESULT findMembers(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// Makes the call: converts its argument, and turns a failure of the object into an exception's information.
[[nodiscard]] HRESULT invokeMember(_clsNonPara& object, const LateCall& call) noexcept;

}  // namespace TBVNonPara::com
