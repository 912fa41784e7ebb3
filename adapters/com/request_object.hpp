#pragma once

#include <atomic>

#include "TBVNonPara_h.h"
#include "adapters/com/module.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara::com {

/// The object that clients create: `_clsNonPara` early and late bound, with error information. No exception
/// leaves it.
class RequestObject final : public _clsNonPara, public ISupportErrorInfo, public IProvideClassInfo {
 public:
    explicit RequestObject(CompanionLibrary companions) : m_Request(std::move(companions)) {}

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** information) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* information, UINT* wrongArgument) override;

    STDMETHODIMP put_Method(::TBVNPMethod method) override;
    STDMETHODIMP put_Headers(VARIANT_BOOL headers) override;
    STDMETHODIMP put_OutputDescriptives(VARIANT_BOOL outputDescriptives) override;
    STDMETHODIMP put_IgnoreTies(VARIANT_BOOL ignoreTies) override;
    STDMETHODIMP put_Tails(::TBVNPTails tails) override;
    STDMETHODIMP put_YRange(BSTR address) override;
    STDMETHODIMP put_XRange(BSTR address) override;
    STDMETHODIMP put_OutputRange(BSTR address) override;
    /// A null pointer is an argument that was left out.
    STDMETHODIMP Results(VARIANT_BOOL* OverWrite) override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** information) override;

 private:
    ~RequestObject() = default;

    ModuleHold m_Hold;
    std::atomic<ULONG> m_References = 1;
    clsNonPara m_Request;
};

}  // namespace TBVNonPara::com
