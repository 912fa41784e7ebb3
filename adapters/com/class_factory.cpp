#include "adapters/com/class_factory.hpp"

#include <algorithm>

#include "adapters/com/automation_application.hpp"
#include "adapters/com/details_object.hpp"
#include "adapters/com/errors.hpp"
#include "adapters/com/find_application.hpp"
#include "adapters/com/request_object.hpp"

namespace TBVNonPara::com {

namespace {

/// All objects of a process build their reports on one scratch sheet.
CompanionLibrary companionsOfProcess() {
    static const auto running = std::make_shared<std::atomic<bool>>(false);
    CompanionLibrary companions = ownCompanions(automationApplication(findApplication));
    companions.running = running;
    return companions;
}

template <typename Object>
ComPtr<IDispatch> make(CompanionLibrary companions) {
    return ComPtr<IDispatch>::adopt(new Object(std::move(companions)));
}

}  // namespace

STDMETHODIMP ClassFactory::QueryInterface(REFIID wanted, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (wanted != IID_IUnknown && wanted != IID_IClassFactory) {
        return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
    return ++m_References;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
    const ULONG left = --m_References;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID wanted, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    // No object of ours can be part of another's.
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    try {
        return m_Make(companionsOfProcess())->QueryInterface(wanted, object);
    } catch (...) {
        return toErrorInfo();
    }
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock != FALSE) {
        holdModule();
    } else {
        letModuleGo();
    }
    return S_OK;
}

ComPtr<ClassFactory> factoryOf(REFCLSID wanted) {
    struct Offered {
        const CLSID& id;
        MakeObject make;
    };
    const Offered classes[] = {
        {__uuidof(::clsNonPara), make<RequestObject>},
        {__uuidof(::clsNonParaDetails), make<DetailsObject>},
    };
    const auto* const found =
        std::ranges::find_if(classes, [&](const Offered& one) { return one.id == wanted; });
    return found == std::end(classes) ? ComPtr<ClassFactory>()
                                      : ComPtr<ClassFactory>::adopt(new ClassFactory(found->make));
}

}  // namespace TBVNonPara::com
