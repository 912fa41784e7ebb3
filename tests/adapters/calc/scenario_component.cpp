#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <cppuhelper/factory.hxx>
#include <cppuhelper/implbase1.hxx>
#include <gtest/gtest.h>

#include "tests/adapters/calc/service_host.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// Whether scenarios are played with the service that is installed.
bool& throughService() {
    static bool wanted = false;
    return wanted;
}

/// Runs every test of this component. The argument "through" is "service" for scenarios that are played with
/// the installed service; all others are the test runner's own.
class TestJob : public cppu::WeakImplHelper1<css::task::XJob> {
 public:
    explicit TestJob(const Context& context) { officeContext() = context; }

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) override {
        std::vector<std::string> texts{"calc_scenarios"};
        for (const css::beans::NamedValue& argument : arguments) {
            OUString value;
            argument.Value >>= value;
            if (argument.Name == "through") {
                throughService() = value == "service";
                continue;
            }
            texts.push_back("--gtest_" + toUtf8(argument.Name) + '=' + toUtf8(value));
        }
        std::vector<char*> pointers;
        for (std::string& text : texts) {
            pointers.push_back(text.data());
        }
        int count = static_cast<int>(pointers.size());
        testing::InitGoogleTest(&count, pointers.data());
        return css::uno::Any(static_cast<sal_Int32>(RUN_ALL_TESTS()));
    }
};

Reference<css::uno::XInterface> createJob(const Context& context) {
    return static_cast<cppu::OWeakObject*>(new TestJob(context));
}

}  // namespace

std::unique_ptr<ScenarioHost> createScenarioHost() {
    if (throughService()) {
        return std::make_unique<ServiceHost>();
    }
    return std::make_unique<CalcHost>();
}

}  // namespace TBVNonPara::Scenarios

extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char*, void*, void*) {
    using namespace TBVNonPara::calc;
    const Reference<css::lang::XSingleComponentFactory> factory =
        cppu::createSingleComponentFactory(TBVNonPara::Scenarios::createJob, "TBVNonPara.Scenarios",
                                           sequenceOf(OUString("TBVNonPara.Scenarios")));
    factory->acquire();
    return factory.get();
}
