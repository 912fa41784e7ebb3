#include "adapters/com/request_object.hpp"

#include <bit>
#include <string>

#include "adapters/com/errors.hpp"
#include "adapters/com/late_binding.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

/// Runs a member of an object; what it raises becomes error information. The application may let the client's
/// last reference go while it answers, so the member holds one of its own.
HRESULT guarded(RequestObject& object, auto body) noexcept {
    const auto hold = ComPtr<RequestObject>::share(&object);
    try {
        body();
        return S_OK;
    } catch (...) {
        return toErrorInfo();
    }
}

bool isTrue(VARIANT_BOOL truth) noexcept {
    return truth != VARIANT_FALSE;
}

}  // namespace

STDMETHODIMP RequestObject::QueryInterface(REFIID wanted, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(_clsNonPara)) {
        *object = static_cast<_clsNonPara*>(this);
    } else if (wanted == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (wanted == IID_IProvideClassInfo) {
        *object = static_cast<IProvideClassInfo*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) RequestObject::AddRef() {
    return ++m_References;
}

STDMETHODIMP_(ULONG) RequestObject::Release() {
    const ULONG left = --m_References;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP RequestObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 1;
    return S_OK;
}

STDMETHODIMP RequestObject::GetTypeInfo(UINT which, LCID /*locale*/, ITypeInfo** information) {
    if (information == nullptr) {
        return E_POINTER;
    }
    *information = nullptr;
    if (which != 0) {
        return DISP_E_BADINDEX;
    }
    return guarded(*this, [&] { *information = typeInformation(__uuidof(_clsNonPara)).release(); });
}

STDMETHODIMP RequestObject::GetClassInfo(ITypeInfo** information) {
    if (information == nullptr) {
        return E_POINTER;
    }
    *information = nullptr;
    return guarded(*this, [&] { *information = typeInformation(__uuidof(::clsNonPara)).release(); });
}

STDMETHODIMP RequestObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) {
    if (reserved != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    return findMembers(names, count, ids);
}

STDMETHODIMP RequestObject::Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* information,
                                   UINT* wrongArgument) {
    if (reserved != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    if (parameters == nullptr) {
        return E_INVALIDARG;
    }
    if (result != nullptr) {
        VariantInit(result);
    }
    return invokeMember(*this, LateCall{member, locale, flags, *parameters, information, wrongArgument});
}

STDMETHODIMP RequestObject::put_Method(::TBVNPMethod method) {
    return guarded(*this, [&] { m_Request.LetMethod(std::bit_cast<TBVNPMethod>(method)); });
}

STDMETHODIMP RequestObject::put_Headers(VARIANT_BOOL headers) {
    return guarded(*this, [&] { m_Request.LetHeaders(isTrue(headers)); });
}

STDMETHODIMP RequestObject::put_OutputDescriptives(VARIANT_BOOL outputDescriptives) {
    return guarded(*this, [&] { m_Request.LetOutputDescriptives(isTrue(outputDescriptives)); });
}

STDMETHODIMP RequestObject::put_IgnoreTies(VARIANT_BOOL ignoreTies) {
    return guarded(*this, [&] { m_Request.LetIgnoreTies(isTrue(ignoreTies)); });
}

STDMETHODIMP RequestObject::put_Tails(::TBVNPTails tails) {
    return guarded(*this, [&] { m_Request.LetTails(std::bit_cast<TBVNPTails>(tails)); });
}

STDMETHODIMP RequestObject::put_YRange(BSTR address) {
    return guarded(*this, [&] { m_Request.LetYRange(toUtf8(address)); });
}

STDMETHODIMP RequestObject::put_XRange(BSTR address) {
    return guarded(*this, [&] { m_Request.LetXRange(toUtf8(address)); });
}

STDMETHODIMP RequestObject::put_OutputRange(BSTR address) {
    return guarded(*this, [&] { m_Request.LetOutputRange(toUtf8(address)); });
}

STDMETHODIMP RequestObject::Results(VARIANT_BOOL* OverWrite) {
    return guarded(*this, [&] { m_Request.Results(OverWrite != nullptr && isTrue(*OverWrite)); });
}

STDMETHODIMP RequestObject::InterfaceSupportsErrorInfo(REFIID interfaceId) {
    return interfaceId == __uuidof(_clsNonPara) || interfaceId == IID_IDispatch ? S_OK : S_FALSE;
}

}  // namespace TBVNonPara::com
