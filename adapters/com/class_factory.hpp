#pragma once

#include <atomic>

#include "adapters/com/module.hpp"

namespace TBVNonPara::com {

/// Creates request objects on the application that the process runs in.
class ClassFactory final : public IClassFactory {
 public:
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

 private:
    ~ClassFactory() = default;

    ModuleHold m_Hold;
    std::atomic<ULONG> m_References = 1;
};

}  // namespace TBVNonPara::com
