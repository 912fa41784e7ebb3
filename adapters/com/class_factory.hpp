#pragma once

#include <atomic>

#include "adapters/com/module.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"

namespace TBVNonPara::com {

/// What makes an object on an application.
using MakeObject = ComPtr<IDispatch> (*)(CompanionLibrary companions);

/// Creates the objects of one class on the application that the process runs in.
class ClassFactory final : public IClassFactory {
 public:
    explicit ClassFactory(MakeObject make) : m_Make(make) {}

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

 private:
    ~ClassFactory() = default;

    MakeObject m_Make;
    ModuleHold m_Hold;
    std::atomic<ULONG> m_References = 1;
};

/// The factory of one of the library's classes; none for any other.
[[nodiscard]] ComPtr<ClassFactory> factoryOf(REFCLSID wanted);

}  // namespace TBVNonPara::com
