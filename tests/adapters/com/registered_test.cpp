#include <gtest/gtest.h>

#include "adapters/com/errors.hpp"
#include "adapters/com/host_object.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/client_cases.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/peer_factory.hpp"

// An early-bound client of the registered class: it needs the registration, of the peers, too.

namespace TBVNonPara::com {

namespace {

struct Place {
    const char* name;
    GUID application;
    DWORD context;
    /// Wine carries error information between processes for late-bound calls only.
    const char* source;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.name;
}

/// The application and the object, in the client's process or in another one.
class EarlyBoundClient : public testing::TestWithParam<Place> {
 protected:
    EarlyBoundClient() {
        SetErrorInfo(0, nullptr);
        (void)m_Application.get(L"AddSheet", std::string_view("Data"));
        const HostObject cells = range("Data!A1:B3");
        cells.put(L"Value", toVariant(ValueGrid{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}}, Texts::AsEntered));
        (void)m_Application.get(L"Hook");
        m_Object = create();
    }
    ~EarlyBoundClient() override {
        m_Object = {};
        (void)m_Application.get(L"Unhook");
    }

    static HostObject application() {
        const ComPtr<IDispatch> created = Peer::startPeer(GetParam().application, GetParam().context);
        return HostObject(created, Kind::Application, std::make_shared<ObjectModel>());
    }

    /// Another object, where the application is.
    [[nodiscard]] ComPtr<IDispatch> createNamed(std::string_view name) const {
        return m_Application.object(Kind::Application, L"CreateObject", name).dispatch();
    }
    [[nodiscard]] ComPtr<_clsNonPara> create() const {
        return createNamed("TBVNonPara.clsNonPara").as<_clsNonPara>();
    }

    [[nodiscard]] HostObject range(std::string_view address) const {
        return m_Application.object(Kind::Range, L"Range", address);
    }

    HostObject m_Application = application();
    ComPtr<_clsNonPara> m_Object;
};

TEST_P(EarlyBoundClient, RunsATestToItsReport) {
    ASSERT_TRUE(m_Object);
    ASSERT_EQ(m_Object->put_Method(::tbvNPMannU), S_OK);
    ASSERT_EQ(m_Object->put_Tails(::tbvNPVar1LTVar2), S_OK);
    ASSERT_EQ(m_Object->put_Headers(VARIANT_FALSE), S_OK);
    ASSERT_EQ(m_Object->put_OutputDescriptives(VARIANT_FALSE), S_OK);
    ASSERT_EQ(m_Object->put_IgnoreTies(VARIANT_TRUE), S_OK);
    ASSERT_EQ(seen(m_Object->put_YRange(Address("Data!A1:A3"))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(m_Object->put_XRange(Address("Data!B1:B3")), S_OK);
    ASSERT_EQ(m_Object->put_OutputRange(Address("Data!E1")), S_OK);
    VARIANT_BOOL overWrite = VARIANT_FALSE;
    ASSERT_EQ(seen(m_Object->Results(&overWrite)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(range("Data!E1").getText(L"Value"), "Mann-Whitney Test Results for:");
    EXPECT_EQ(range("Data!H7").getNumber(L"Value"), 0.05);
}

TEST_P(EarlyBoundClient, RunsEachTestToAReportUnderItsTitle) {
    ASSERT_TRUE(m_Object);
    range("Data!A1:D6").put(L"Value", toVariant(testedCells(), Texts::AsEntered));
    m_Object->put_Headers(VARIANT_TRUE);
    m_Object->put_OutputDescriptives(VARIANT_TRUE);
    m_Object->put_OutputRange(Address("Data!J1"));
    for (const ClientTest& test : clientTests()) {
        SCOPED_TRACE(test.name);
        m_Object->put_Method(test.method);
        EXPECT_EQ(seen(m_Object->put_YRange(Address(test.y))), (Seen{S_OK, "", ""}));
        EXPECT_EQ(seen(m_Object->put_XRange(Address(test.x))), (Seen{S_OK, "", ""}));
        VARIANT_BOOL overWrite = VARIANT_TRUE;
        EXPECT_EQ(seen(m_Object->Results(&overWrite)), (Seen{S_OK, "", ""}));
        EXPECT_EQ(range("Data!J1").getText(L"Value"), test.title);
    }
}

TEST_P(EarlyBoundClient, SeesEachRefusal) {
    ASSERT_TRUE(m_Object);
    range("Data!A1:C4").put(L"Value", toVariant(refusedCells(), Texts::AsEntered));
    for (const Refusal& refusal : refusals()) {
        SCOPED_TRACE(refusal.name);
        const ComPtr<_clsNonPara> object = create();
        object->put_Method(refusal.method);
        object->put_Headers(refusal.headers);
        EXPECT_EQ(seen(object->put_YRange(Address(refusal.y))), (Seen{refusal.yNumber, "", ""}));
        EXPECT_EQ(seen(object->put_XRange(Address(refusal.x))), (Seen{refusal.xNumber, "", ""}));
        if (refusal.number != 0) {
            VARIANT_BOOL overWrite = VARIANT_FALSE;
            EXPECT_EQ(seen(object->Results(&overWrite)), (Seen{refusal.number, GetParam().source, ""}));
        }
    }
}

TEST_P(EarlyBoundClient, SeesTheNumberAndTheSourceOfAnError) {
    ASSERT_TRUE(m_Object);
    VARIANT_BOOL overWrite = VARIANT_FALSE;
    EXPECT_EQ(seen(m_Object->Results(&overWrite)), (Seen{tbvNPNoYRange, GetParam().source, ""}));
    EXPECT_EQ(m_Object->put_YRange(Address("Nowhere!A1")), tbvNPBadYRange);
}

TEST_P(EarlyBoundClient, HasDetailsByNameAndOnASheet) {
    const auto details = createNamed("TBVNonPara.clsNonParaDetails").as<_clsNonParaDetails>();
    ASSERT_TRUE(details);
    ASSERT_EQ(details->put_Method(::tbvNPMannU), S_OK);
    ASSERT_EQ(details->put_Confidence(90), S_OK);
    ASSERT_EQ(details->put_Adjust(Address("holm")), S_OK);
    ASSERT_EQ(seen(details->put_YRange(Address("Data!A1:A3"))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(details->put_XRange(Address("Data!B1:B3")), S_OK);
    ASSERT_EQ(seen(details->Calculate()), (Seen{S_OK, "", ""}));
    Variant value;
    ASSERT_EQ(details->get_Value(Address("p.exact.two"), value.out()), S_OK);
    EXPECT_NEAR(value.get().dblVal, 0.1, 1e-15);
    ASSERT_EQ(details->get_Value(Address("robust.t"), value.out()), S_OK);
    EXPECT_EQ(value.get().vt, VT_EMPTY);
    BSTR text = nullptr;
    ASSERT_EQ(details->get_Text(&text), S_OK);
    EXPECT_EQ(std::wstring_view(text).substr(0, 7), L"Details");
    SysFreeString(text);
    VARIANT_BOOL overWrite = VARIANT_FALSE;
    ASSERT_EQ(seen(details->WriteTo(Address("Data!E1"), &overWrite)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(range("Data!E1").getText(L"Value"), "Details");
    EXPECT_EQ(details->WriteTo(Address("Data!E1"), &overWrite), tbvNPOutputOccupied);
    const double sheets = m_Application.object(Kind::Worksheets, L"Worksheets").getNumber(L"Count");
    EXPECT_EQ(sheets, 1) << "the one that they were built on has gone";
}

const Place places[] = {
    {"InItsProcess", Peer::inProcessClass, CLSCTX_INPROC_SERVER, "Line 0 in TBVNonPara.clsNonPara.Results"},
    {"InAnotherProcess", Peer::outOfProcessClass, CLSCTX_LOCAL_SERVER, ""},
};

INSTANTIATE_TEST_SUITE_P(Com, EarlyBoundClient, testing::ValuesIn(places),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace

}  // namespace TBVNonPara::com
