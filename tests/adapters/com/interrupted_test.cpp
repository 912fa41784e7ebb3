#include <optional>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"

namespace TBVNonPara::com {

namespace {

/// A client whose application calls it back, once, when a member of its objects is used.
class InterruptedClient : public Desk, public testing::WithParamInterface<const wchar_t*> {
 protected:
    InterruptedClient() {
        set(*m_Object.get());
        Peer::interruptCalls([this](const Peer::PeerObject&, const std::wstring& member) {
            if (member == GetParam() && m_Client) {
                std::exchange(m_Client, nullptr)();
            }
        });
    }
    ~InterruptedClient() override { Peer::interruptCalls(nullptr); }

    static void set(_clsNonPara& object) {
        object.put_Headers(VARIANT_TRUE);
        object.put_Tails(::tbvNPVar1LTVar2);
        object.put_YRange(Address("Data!A1:A4"));
        object.put_XRange(Address("Data!B1:B4"));
        object.put_OutputRange(Address("Data!E1"));
    }

    void expectReport() const {
        EXPECT_FALSE(m_Client) << "the run makes no such call";
        EXPECT_EQ(cell("Data!E1"), CellValue("Mann-Whitney Test Results for:"));
        EXPECT_EQ(cell("Data!E7"), CellValue(9.0));
        EXPECT_EQ(cell("Data!H7"), CellValue(0.05));
    }

    std::function<void()> m_Client;
};

TEST_P(InterruptedClient, MayLetItsLastReferenceGo) {
    std::optional<ULONG> left;
    m_Client = [&] { left = m_Object.release()->Release(); };
    _clsNonPara& object = *m_Object.get();
    EXPECT_EQ(object.Results(nullptr), S_OK);
    // The run holds one of its own, and the last.
    EXPECT_EQ(left, 1U);
    expectReport();
}

TEST_P(InterruptedClient, ChangesTheSettingsOfTheNextRun) {
    m_Client = [this] {
        m_Object->put_Method(::tbvNPKWallis);
        m_Object->put_YRange(Address("Data!A1:B4"));
        m_Object->put_OutputRange(Address("Data!J1"));
    };
    EXPECT_EQ(m_Object->Results(nullptr), S_OK);
    expectReport();
    EXPECT_EQ(cell("Data!J1"), CellValue(Empty{}));
    EXPECT_EQ(m_Object->Results(nullptr), S_OK);
    EXPECT_EQ(cell("Data!J1"), CellValue("Kruskal-Wallis Test Results for:"));
}

TEST_P(InterruptedClient, CannotRunAnotherObjectInside) {
    Seen refusal;
    m_Client = [&] {
        const ComPtr<_clsNonPara> other = m_Server.create();
        set(*other.get());
        other->put_OutputRange(Address("Data!J1"));
        refusal = seen(other->Results(nullptr));
    };
    EXPECT_EQ(m_Object->Results(nullptr), S_OK);
    EXPECT_EQ(refusal.status, tbvNPRunInProgress);
    EXPECT_EQ(refusal.source, "Line 0 in TBVNonPara.clsNonPara.Results");
    EXPECT_NE(refusal.description.find("has not ended"), std::string::npos) << refusal.description;
    EXPECT_EQ(cell("Data!J1"), CellValue(Empty{}));
    expectReport();
}

INSTANTIATE_TEST_SUITE_P(Com, InterruptedClient,
                         testing::Values(L"Value", L"Clear", L"LineStyle", L"Activate", L"Copy",
                                         L"PasteSpecial", L"ScreenUpdating", L"Select"),
                         [](const auto& tested) { return toUtf8(std::wstring_view(tested.param)); });

using InterruptedSetting = Desk;

TEST_F(InterruptedSetting, OutlivesTheClientsLastReference) {
    std::optional<ULONG> left;
    Peer::interruptCalls([&](const Peer::PeerObject&, const std::wstring& member) {
        if (member == L"Columns" && m_Object) {
            left = m_Object.release()->Release();
        }
    });
    _clsNonPara& object = *m_Object.get();
    EXPECT_EQ(object.put_YRange(Address("Data!A1:A4")), S_OK);
    Peer::interruptCalls(nullptr);
    EXPECT_EQ(left, 1U);
}

}  // namespace

}  // namespace TBVNonPara::com
