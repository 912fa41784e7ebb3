#include "adapters/com/host_object.hpp"

#include <algorithm>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

// Addresses, number formats and numbers in texts are English, whatever the user's language.
const LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

constexpr std::size_t mostArguments = 3;

bool takesNoSubscript(HRESULT status) {
    return status == DISP_E_BADPARAMCOUNT || status == DISP_E_MEMBERNOTFOUND ||
           status == DISP_E_PARAMNOTOPTIONAL;
}

double toNumber(const Variant& value) {
    return toDouble(fromVariant(value.get()));
}

}  // namespace

DISPID DispatchIds::find(IDispatch& object, const wchar_t* name) {
    const auto known = std::ranges::find(m_Known, name, &std::pair<const wchar_t*, DISPID>::first);
    if (known != m_Known.end()) {
        return known->second;
    }
    DISPID id = DISPID_UNKNOWN;
    auto* asked = const_cast<wchar_t*>(name);
    check(object.GetIDsOfNames(IID_NULL, &asked, 1, english, &id));
    m_Known.emplace_back(name, id);
    return id;
}

double HostObject::getNumber(const wchar_t* name) const {
    return toNumber(get(name));
}

std::string HostObject::getText(const wchar_t* name) const {
    return toText(fromVariant(get(name).get()));
}

HRESULT HostObject::tryInvoke(const wchar_t* name, WORD flags, Arguments arguments, Variant& result) const {
    const DISPID id = (*m_Model)[static_cast<std::size_t>(m_Kind)].find(*m_Object.get(), name);
    // Arguments travel in reverse, the last one first, and are only lent to the call.
    std::array<VARIANTARG, mostArguments> lent{};
    std::ranges::transform(arguments, lent.rend() - static_cast<std::ptrdiff_t>(arguments.size()),
                           &Variant::get);
    // The value of a property travels under this name.
    DISPID value = DISPID_PROPERTYPUT;
    const bool isPut = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{lent.data(), isPut ? &value : nullptr, static_cast<UINT>(arguments.size()),
                          isPut ? 1U : 0U};
    EXCEPINFO information{};
    UINT wrongArgument = 0;
    const HRESULT status = m_Object->Invoke(id, IID_NULL, english, flags, &parameters,
                                            isPut ? nullptr : result.out(), &information, &wrongArgument);
    if (status == DISP_E_EXCEPTION) {
        throw errorOf(information);
    }
    return status;
}

Variant HostObject::invoke(const wchar_t* name, WORD flags, Arguments arguments) const {
    Variant result;
    check(tryInvoke(name, flags, arguments, result));
    return result;
}

Variant HostObject::itemOf(Kind collection, const wchar_t* name, Arguments arguments) const {
    // Whether name(subscript) is a property, a method or a collection with an Item is the host's choice.
    constexpr WORD flags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
    Variant result;
    const HRESULT status = tryInvoke(name, flags, arguments, result);
    if (takesNoSubscript(status)) {
        return object(collection, name).invoke(L"Item", flags, arguments);
    }
    check(status);
    return result;
}

ComPtr<IDispatch> HostObject::toObject(const Variant& value) {
    const VARIANT& raw = value.get();
    // Some hosts declare their results as the most general interface.
    if (raw.vt == VT_UNKNOWN) {
        return ComPtr<IUnknown>::share(raw.punkVal).as<IDispatch>();
    }
    if (raw.vt != VT_DISPATCH) {
        raise(RuntimeError::TypeMismatch);
    }
    if (raw.pdispVal == nullptr) {
        raise(RuntimeError::ObjectNotSet);
    }
    return ComPtr<IDispatch>::share(raw.pdispVal);
}

}  // namespace TBVNonPara::com
