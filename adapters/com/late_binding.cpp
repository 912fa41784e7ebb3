#include "adapters/com/late_binding.hpp"

#include <algorithm>
#include <string>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

const Member* memberOf(Members members, DISPID id) noexcept {
    return id >= 1 && static_cast<std::size_t>(id) <= members.size()
               ? &members[static_cast<std::size_t>(id) - 1]
               : nullptr;
}

bool sameName(const wchar_t* a, const wchar_t* b) noexcept {
    return CompareStringOrdinal(a, -1, b, -1, TRUE) == CSTR_EQUAL;
}

/// Undoes the references that scripts put around a value.
const VARIANT& dereferenced(const VARIANT& value) noexcept {
    return value.vt == (VT_BYREF | VT_VARIANT) ? dereferenced(*value.pvarVal) : value;
}

bool isLeftOut(const VARIANT& value) noexcept {
    const bool isError = value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
    const bool isReferenceToError =
        value.vt == (VT_ERROR | VT_BYREF) && *value.pscode == DISP_E_PARAMNOTFOUND;
    return isError || isReferenceToError;
}

ComPtr<IDispatch> objectIn(const VARIANT& value) noexcept {
    switch (value.vt) {
        case VT_DISPATCH:
            return ComPtr<IDispatch>::share(value.pdispVal);
        case VT_DISPATCH | VT_BYREF:
            return ComPtr<IDispatch>::share(*value.ppdispVal);
        case VT_UNKNOWN:
            return ComPtr<IUnknown>::share(value.punkVal).as<IDispatch>();
        default:
            return {};
    }
}

/// Whether a value is a range, which has an address, or the values that a language makes of one. (Other
/// objects, such as the fields of a form, may stand for their text.)
bool isRange(const VARIANT& value) noexcept {
    if ((value.vt & VT_ARRAY) != 0) {
        return true;
    }
    const ComPtr<IDispatch> object = objectIn(value);
    wchar_t name[] = L"Address";
    LPOLESTR names[] = {name};
    DISPID id = DISPID_UNKNOWN;
    return object && SUCCEEDED(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id));
}

HRESULT refuseRange(const Member& member) noexcept {
    try {
        const std::string name = toUtf8(std::wstring_view(member.name));
        throw Error(static_cast<std::int32_t>(RuntimeError::TypeMismatch),
                    name + " takes an address as a text, not a range or its values. Write ." + name +
                        (member.kind == DISPATCH_METHOD ? " " : " = ") + "range.Address(External:=True).");
    } catch (...) {
        return toErrorInfo();
    }
}

constexpr UINT notGiven = ~UINT{0};

/// Where the argument of each parameter stands among those of a call.
using Places = std::array<UINT, mostParameters>;

/// Arguments travel in reverse: those with names in front, then the last of those without.
HRESULT findArguments(const Member& member, const DISPPARAMS& given, Places& places) noexcept {
    places.fill(notGiven);
    const auto count = static_cast<UINT>(member.parameterCount());
    if (given.cArgs > count) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (given.cNamedArgs > given.cArgs) {
        return DISP_E_PARAMNOTFOUND;
    }
    for (UINT position = 0; position < given.cArgs - given.cNamedArgs; ++position) {
        places[position] = given.cArgs - 1 - position;
    }
    for (UINT k = 0; k < given.cNamedArgs; ++k) {
        const DISPID name = given.rgdispidNamedArgs[k];
        // The new value of a property arrives under this name; some clients leave it out.
        const bool isValue = member.kind == DISPATCH_PROPERTYPUT && name == DISPID_PROPERTYPUT;
        const bool isParameter =
            member.kind != DISPATCH_PROPERTYPUT && name >= 0 && static_cast<UINT>(name) < count;
        if (!isValue && !isParameter) {
            return DISP_E_PARAMNOTFOUND;
        }
        UINT& place = places[isValue ? 0 : static_cast<UINT>(name)];
        if (place != notGiven) {
            return DISP_E_BADPARAMCOUNT;
        }
        place = k;
    }
    return S_OK;
}

HRESULT refuseArgument(const LateCall& call, UINT place, HRESULT status) noexcept {
    if (call.wrongArgument != nullptr) {
        *call.wrongArgument = place;
    }
    return status;
}

HRESULT convert(const Member& member, const LateCall& call, const Places& places,
                Arguments& arguments) noexcept {
    for (std::size_t k = 0; k < member.parameterCount(); ++k) {
        const Parameter& parameter = member.parameters[k];
        const bool isOptional = parameter.given == Given::Optionally;
        if (places[k] == notGiven) {
            if (isOptional) {
                continue;
            }
            return member.kind == DISPATCH_PROPERTYPUT ? DISP_E_BADPARAMCOUNT : DISP_E_PARAMNOTOPTIONAL;
        }
        VARIANT given = dereferenced(call.parameters.rgvarg[places[k]]);
        if (isOptional && isLeftOut(given)) {
            continue;
        }
        if (parameter.content == Content::Address && isRange(given)) {
            return refuseRange(member);
        }
        const HRESULT status =
            VariantChangeTypeEx(arguments[k].out(), &given, call.locale, 0, parameter.type);
        if (FAILED(status)) {
            return refuseArgument(call, places[k], status);
        }
    }
    return S_OK;
}

/// A range may be set as an object is: there is no such property, but the words say what to write.
bool setsAddressAsObject(const Member& member, const LateCall& call) noexcept {
    return member.kind == DISPATCH_PROPERTYPUT && (call.flags & DISPATCH_PROPERTYPUTREF) != 0 &&
           member.parameters[0].content == Content::Address && call.parameters.cArgs == 1 &&
           isRange(dereferenced(call.parameters.rgvarg[0]));
}

HRESULT use(const Member& member, IDispatch& object, const LateCall& call) noexcept {
    if (setsAddressAsObject(member, call)) {
        return refuseRange(member);
    }
    if ((call.flags & member.kind) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    Places places;
    HRESULT status = findArguments(member, call.parameters, places);
    Arguments arguments;
    if (SUCCEEDED(status)) {
        status = convert(member, call, places, arguments);
    }
    if (FAILED(status)) {
        return status;
    }
    Variant result;
    status = member.call(object, arguments, result.out());
    if (SUCCEEDED(status) && call.result != nullptr) {
        *call.result = result.release();
    }
    return status;
}

}  // namespace

HRESULT findMembers(Members members, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0) {
        return E_INVALIDARG;
    }
    // The first name is the member's, the others those of its arguments; all are answered even when one is
    // unknown.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto member =
        std::ranges::find_if(members, [&](const Member& one) { return sameName(one.name, names[0]); });
    if (member == members.end()) {
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(member - members.begin()) + 1;
    const std::span parameters(member->parameters.data(), member->parameterCount());
    HRESULT status = S_OK;
    for (UINT k = 1; k < count; ++k) {
        const auto parameter = std::ranges::find_if(
            parameters, [&](const Parameter& one) { return sameName(one.name, names[k]); });
        if (parameter == parameters.end()) {
            status = DISP_E_UNKNOWNNAME;
        } else {
            ids[k] = static_cast<DISPID>(parameter - parameters.begin());
        }
    }
    return status;
}

HRESULT invokeMember(Members members, IDispatch& object, const LateCall& call) noexcept {
    const Member* member = memberOf(members, call.member);
    if (member == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    // The thread keeps one error object. An older one must not be taken for this call's.
    SetErrorInfo(0, nullptr);
    const HRESULT status = use(*member, object, call);
    ComPtr<IErrorInfo> error;
    if (SUCCEEDED(status) || GetErrorInfo(0, error.out()) != S_OK) {
        return status;
    }
    if (call.information != nullptr) {
        toExcepInfo(status, *error.get(), *call.information);
    }
    return DISP_E_EXCEPTION;
}

}  // namespace TBVNonPara::com
