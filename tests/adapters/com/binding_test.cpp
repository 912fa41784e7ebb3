#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

#include "tests/adapters/com/registered_request.hpp"

namespace TBVNonPara::com {

namespace {

/// An object that does nothing but remember how it was used: by its table of functions, or by name.
class UsedObject final : public _clsNonPara {
 public:
    explicit UsedObject(std::vector<std::string>& calls) : m_Calls(calls) {}

    STDMETHODIMP QueryInterface(REFIID, void** object) override {
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        *ids = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return used("Invoke");
    }

    STDMETHODIMP put_Method(::TBVNPMethod) override { return used("Method"); }
    STDMETHODIMP put_Headers(VARIANT_BOOL) override { return used("Headers"); }
    STDMETHODIMP put_OutputDescriptives(VARIANT_BOOL) override { return used("OutputDescriptives"); }
    STDMETHODIMP put_IgnoreTies(VARIANT_BOOL) override { return used("IgnoreTies"); }
    STDMETHODIMP put_Tails(::TBVNPTails) override { return used("Tails"); }
    STDMETHODIMP put_YRange(BSTR) override { return used("YRange"); }
    STDMETHODIMP put_XRange(BSTR) override { return used("XRange"); }
    STDMETHODIMP put_OutputRange(BSTR) override { return used("OutputRange"); }
    STDMETHODIMP Results(VARIANT_BOOL*) override { return used("Results"); }

 private:
    HRESULT used(const char* member) {
        m_Calls.emplace_back(member);
        return S_OK;
    }

    std::vector<std::string>& m_Calls;
};

void useEveryMember(Scenarios::Request& request) {
    request.LetMethod(TBVNPMethod::tbvNPSign);
    request.LetHeaders(true);
    request.LetOutputDescriptives(true);
    request.LetIgnoreTies(true);
    request.LetTails(TBVNPTails::tbvNPTwoTailed);
    request.LetYRange("A1");
    request.LetXRange("B1");
    request.LetOutputRange("C1");
    request.Results(true);
}

TEST(Binding, EarlyUsesTheTableOfFunctionsAlone) {
    std::vector<std::string> calls;
    UsedObject object(calls);
    useEveryMember(*earlyBoundRequest(ComPtr<_clsNonPara>::share(&object)));
    EXPECT_EQ(calls, (std::vector<std::string>{"Method", "Headers", "OutputDescriptives", "IgnoreTies",
                                               "Tails", "YRange", "XRange", "OutputRange", "Results"}));
}

TEST(Binding, LateUsesNamesAlone) {
    std::vector<std::string> calls;
    UsedObject object(calls);
    useEveryMember(*lateBoundRequest(ComPtr<IDispatch>::share(&object)));
    EXPECT_EQ(calls, std::vector<std::string>(9, "Invoke"));
}

TEST(Binding, OfAnyOtherKindIsAnError) {
    EXPECT_THROW((void)registeredRequest("latest"), std::invalid_argument);
    EXPECT_THROW((void)registeredRequest(""), std::invalid_argument);
}

}  // namespace

}  // namespace TBVNonPara::com
