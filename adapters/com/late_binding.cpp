#include "adapters/com/late_binding.hpp"

#include <algorithm>
#include <bit>
#include <string>

#include "adapters/com/com_ptr.hpp"
#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"
#include "adapters/com/variant.hpp"

namespace TBVNonPara::com {

namespace {

constexpr DISPID resultsMember = 9;

using Put = HRESULT (*)(_clsNonPara& object, const VARIANT& value);

struct Member {
    const wchar_t* name;
    const wchar_t* parameter;
    VARTYPE type;
    Put put;
};

// In the order of the type library; a member's dispatch id is its place, counted from 1.
// clang-format off
constexpr Member members[] = {
    {L"Method", L"method", VT_I4,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_Method(std::bit_cast<::TBVNPMethod>(value.lVal)); }},
    {L"Headers", L"headers", VT_BOOL,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_Headers(value.boolVal); }},
    {L"OutputDescriptives", L"outputDescriptives", VT_BOOL,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_OutputDescriptives(value.boolVal); }},
    {L"IgnoreTies", L"ignoreTies", VT_BOOL,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_IgnoreTies(value.boolVal); }},
    {L"Tails", L"tails", VT_I4,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_Tails(std::bit_cast<::TBVNPTails>(value.lVal)); }},
    {L"YRange", L"address", VT_BSTR,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_YRange(value.bstrVal); }},
    {L"XRange", L"address", VT_BSTR,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_XRange(value.bstrVal); }},
    {L"OutputRange", L"address", VT_BSTR,
     [](_clsNonPara& object, const VARIANT& value) { return object.put_OutputRange(value.bstrVal); }},
    {L"Results", L"OverWrite", VT_BOOL, nullptr},
};
// clang-format on

const Member* memberOf(DISPID id) noexcept {
    const auto last = static_cast<DISPID>(std::size(members));
    return id >= 1 && id <= last ? &members[id - 1] : nullptr;
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

HRESULT convert(const LateCall& call, VARTYPE type, Variant& value) noexcept {
    VARIANT given = dereferenced(call.parameters.rgvarg[0]);
    const HRESULT status = VariantChangeTypeEx(value.out(), &given, call.locale, 0, type);
    if (FAILED(status) && call.wrongArgument != nullptr) {
        *call.wrongArgument = 0;
    }
    return status;
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
                        " = range.Address(External:=True).");
    } catch (...) {
        return toErrorInfo();
    }
}

HRESULT putProperty(_clsNonPara& object, const Member& member, const LateCall& call) noexcept {
    const DISPPARAMS& given = call.parameters;
    const bool isPut = (call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isPut && member.type == VT_BSTR && given.cArgs == 1 && isRange(dereferenced(given.rgvarg[0]))) {
        return refuseRange(member);
    }
    if ((call.flags & DISPATCH_PROPERTYPUT) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (given.cArgs != 1) {
        return DISP_E_BADPARAMCOUNT;
    }
    // The new value of a property arrives as its only argument, named DISPID_PROPERTYPUT; some clients leave
    // the name out.
    if (given.cNamedArgs > 1 || (given.cNamedArgs == 1 && given.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
        return DISP_E_PARAMNOTFOUND;
    }
    Variant value;
    const HRESULT status = convert(call, member.type, value);
    return FAILED(status) ? status : member.put(object, value.get());
}

HRESULT callResults(_clsNonPara& object, const LateCall& call) noexcept {
    if ((call.flags & DISPATCH_METHOD) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const DISPPARAMS& given = call.parameters;
    if (given.cArgs > 1) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (given.cNamedArgs > given.cArgs || (given.cNamedArgs == 1 && given.rgdispidNamedArgs[0] != 0)) {
        return DISP_E_PARAMNOTFOUND;
    }
    if (given.cArgs == 0 || isLeftOut(dereferenced(given.rgvarg[0]))) {
        return object.Results(nullptr);
    }
    Variant value;
    const HRESULT status = convert(call, VT_BOOL, value);
    if (FAILED(status)) {
        return status;
    }
    VARIANT_BOOL overWrite = value.get().boolVal;
    return object.Results(&overWrite);
}

}  // namespace

HRESULT findMembers(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0) {
        return E_INVALIDARG;
    }
    // The first name is the member's, the others those of its arguments; all are answered even when one is
    // unknown.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto* member =
        std::ranges::find_if(members, [&](const Member& one) { return sameName(one.name, names[0]); });
    if (member == std::end(members)) {
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(member - members) + 1;
    HRESULT status = S_OK;
    for (UINT k = 1; k < count; ++k) {
        if (sameName(member->parameter, names[k])) {
            ids[k] = 0;
        } else {
            status = DISP_E_UNKNOWNNAME;
        }
    }
    return status;
}

HRESULT invokeMember(_clsNonPara& object, const LateCall& call) noexcept {
    const Member* member = memberOf(call.member);
    if (member == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    // The thread keeps one error object. An older one must not be taken for this call's.
    SetErrorInfo(0, nullptr);
    const HRESULT status =
        call.member == resultsMember ? callResults(object, call) : putProperty(object, *member, call);
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
