#pragma once

#include <string>
#include <vector>

#include "adapters/com/variant.hpp"

namespace TBVNonPara::com {

/// What a late-bound call came to.
struct LateAnswer {
    HRESULT status = S_OK;
    /// The error of an exception.
    SCODE error = S_OK;
    std::string source;
    std::string description;
    /// As the client set it before the call, where nothing was wrong.
    UINT wrongArgument = 99;
    Variant result;
};

/// Arguments in reverse, as they travel, those with names in front.
[[nodiscard]] LateAnswer invoke(IDispatch& object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
                                std::vector<DISPID> named = {});

/// The ids of a member and of parameters of it; DISPID_UNKNOWN for those that it has not got.
[[nodiscard]] std::vector<DISPID> idsOf(IDispatch& object, std::vector<std::wstring> names);

/// A variable of this type, passed by reference.
[[nodiscard]] VARIANT reference(VARTYPE type, void* value);

}  // namespace TBVNonPara::com
