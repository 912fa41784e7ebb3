#pragma once

#include <atomic>
#include <bit>
#include <utility>

#include "TBVNonPara_h.h"
#include "adapters/com/errors.hpp"
#include "adapters/com/late_binding.hpp"
#include "adapters/com/module.hpp"
#include "adapters/com/text.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"

namespace TBVNonPara::com {

[[nodiscard]] inline bool isTrue(VARIANT_BOOL truth) noexcept {
    return truth != VARIANT_FALSE;
}

/// An object that clients create: `Interface` of the class `Coclass`, early and late bound, with error
/// information, around an object of the library. It has the settings that all of them share. No exception
/// leaves it.
template <typename Interface, typename Coclass, typename Wrapped>
class AutomationObject : public Interface, public ISupportErrorInfo, public IProvideClassInfo {
 public:
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(Interface)) {
            *object = static_cast<Interface*>(this);
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

    STDMETHODIMP_(ULONG) AddRef() override { return ++m_References; }

    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_References;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT which, LCID /*locale*/, ITypeInfo** information) override {
        if (information != nullptr && which != 0) {
            *information = nullptr;
            return DISP_E_BADINDEX;
        }
        return describe(__uuidof(Interface), information);
    }

    STDMETHODIMP GetClassInfo(ITypeInfo** information) override {
        return describe(__uuidof(Coclass), information);
    }

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                               DISPID* ids) override {
        if (reserved != IID_NULL) {
            return DISP_E_UNKNOWNINTERFACE;
        }
        return findMembers(members(), names, count, ids);
    }

    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* information, UINT* wrongArgument) override {
        if (reserved != IID_NULL) {
            return DISP_E_UNKNOWNINTERFACE;
        }
        if (parameters == nullptr) {
            return E_INVALIDARG;
        }
        if (result != nullptr) {
            VariantInit(result);
        }
        return invokeMember(members(), *this,
                            LateCall{member, locale, flags, *parameters, result, information, wrongArgument});
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) override {
        return interfaceId == __uuidof(Interface) || interfaceId == IID_IDispatch ? S_OK : S_FALSE;
    }

    STDMETHODIMP put_Method(::TBVNPMethod method) override {
        return guarded([&] { m_Wrapped.LetMethod(std::bit_cast<TBVNPMethod>(method)); });
    }
    STDMETHODIMP put_Headers(VARIANT_BOOL headers) override {
        return guarded([&] { m_Wrapped.LetHeaders(isTrue(headers)); });
    }
    STDMETHODIMP put_OutputDescriptives(VARIANT_BOOL outputDescriptives) override {
        return guarded([&] { m_Wrapped.LetOutputDescriptives(isTrue(outputDescriptives)); });
    }
    STDMETHODIMP put_IgnoreTies(VARIANT_BOOL ignoreTies) override {
        return guarded([&] { m_Wrapped.LetIgnoreTies(isTrue(ignoreTies)); });
    }
    STDMETHODIMP put_Tails(::TBVNPTails tails) override {
        return guarded([&] { m_Wrapped.LetTails(std::bit_cast<TBVNPTails>(tails)); });
    }
    STDMETHODIMP put_YRange(BSTR address) override {
        return guarded([&] { m_Wrapped.LetYRange(toUtf8(address)); });
    }
    STDMETHODIMP put_XRange(BSTR address) override {
        return guarded([&] { m_Wrapped.LetXRange(toUtf8(address)); });
    }
    STDMETHODIMP put_OutputRange(BSTR address) override {
        return guarded([&] { m_Wrapped.LetOutputRange(toUtf8(address)); });
    }

 protected:
    explicit AutomationObject(CompanionLibrary companions) : m_Wrapped(std::move(companions)) {}
    virtual ~AutomationObject() = default;

    [[nodiscard]] Wrapped& wrapped() noexcept { return m_Wrapped; }

    /// Runs a member; what it raises becomes error information. The application may let the client's last
    /// reference go while it answers, so the member holds one of its own.
    HRESULT guarded(auto body) noexcept {
        const auto hold = ComPtr<Interface>::share(this);
        try {
            body();
            return S_OK;
        } catch (...) {
            return toErrorInfo();
        }
    }

 private:
    /// For late-bound clients.
    [[nodiscard]] virtual Members members() const noexcept = 0;

    HRESULT describe(const GUID& type, ITypeInfo** information) noexcept {
        if (information == nullptr) {
            return E_POINTER;
        }
        *information = nullptr;
        return guarded([&] { *information = typeInformation(type).release(); });
    }

    ModuleHold m_Hold;
    std::atomic<ULONG> m_References = 1;
    Wrapped m_Wrapped;
};

/// The members of the shared settings, as every class has them at its beginning.
template <typename Interface>
constexpr std::array<Member, 8> settingMembers = {
    property<&Interface::put_Method>(L"Method", L"method"),
    property<&Interface::put_Headers>(L"Headers", L"headers"),
    property<&Interface::put_OutputDescriptives>(L"OutputDescriptives", L"outputDescriptives"),
    property<&Interface::put_IgnoreTies>(L"IgnoreTies", L"ignoreTies"),
    property<&Interface::put_Tails>(L"Tails", L"tails"),
    property<&Interface::put_YRange>(L"YRange", L"address", Content::Address),
    property<&Interface::put_XRange>(L"XRange", L"address", Content::Address),
    property<&Interface::put_OutputRange>(L"OutputRange", L"address", Content::Address),
};

/// Those and the class's own behind them.
template <typename Interface, std::size_t Count>
constexpr std::array<Member, 8 + Count> membersBehindSettings(const std::array<Member, Count>& own) {
    std::array<Member, 8 + Count> all{};
    std::size_t position = 0;
    for (const Member& member : settingMembers<Interface>) {
        all[position] = member;
        position += 1;
    }
    for (const Member& member : own) {
        all[position] = member;
        position += 1;
    }
    return all;
}

/// What a client gave for OverWrite; left out it is False.
[[nodiscard]] inline VARIANT_BOOL overWriteIn(const Variant& argument) noexcept {
    return argument.get().vt == VT_EMPTY ? VARIANT_FALSE : argument.get().boolVal;
}

}  // namespace TBVNonPara::com
