#include "adapters/com/errors.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/peer_factory.hpp"
#include "tests/adapters/com/peer_tests.hpp"

namespace TBVNonPara::com {

namespace {

/// The system's own way to hand out an object behind a window.
LRESULT objectOfWindow(WPARAM parameter, IUnknown* object) {
    using LresultFromObject = LRESULT(WINAPI*)(REFIID, WPARAM, IUnknown*);
    const HMODULE library = LoadLibraryW(L"oleacc.dll");
    const auto wrap = reinterpret_cast<LresultFromObject>(
        reinterpret_cast<void*>(GetProcAddress(library, "LresultFromObject")));
    return wrap(IID_IDispatch, parameter, object);
}

IDispatch* windowObject = nullptr;

LRESULT CALLBACK answer(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    constexpr auto nativeObjectModel = static_cast<DWORD>(-16);
    if (message == WM_GETOBJECT && static_cast<DWORD>(parameter) == nativeObjectModel) {
        return objectOfWindow(wide, windowObject);
    }
    return DefWindowProcW(window, message, wide, parameter);
}

/// A window of the class that spreadsheet applications show cells in.
class WorkbookWindow {
 public:
    explicit WorkbookWindow(const ComPtr<IDispatch>& object) {
        windowObject = object.get();
        WNDCLASSW kind{};
        kind.lpfnWndProc = answer;
        kind.lpszClassName = L"EXCEL7";
        RegisterClassW(&kind);
        m_Window =
            CreateWindowExW(0, L"EXCEL7", L"", WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    }
    WorkbookWindow(const WorkbookWindow&) = delete;
    WorkbookWindow& operator=(const WorkbookWindow&) = delete;
    ~WorkbookWindow() {
        DestroyWindow(m_Window);
        UnregisterClassW(L"EXCEL7", nullptr);
    }

    [[nodiscard]] HWND handle() const { return m_Window; }

 private:
    HWND m_Window;
};

/// A client in a process without a hook.
class FindingTheApplication : public testing::Test {
 protected:
    FindingTheApplication() {
        SetErrorInfo(0, nullptr);
        m_Workbook->addSheet("Data", ValueGrid{{1.0}, {2.0}});
        m_Object = m_Server.create();
    }
    ~FindingTheApplication() override {
        m_Object = {};
        Peer::setWindow(nullptr);
    }

    [[nodiscard]] Seen setRange() const { return seen(m_Object->put_YRange(Address("Data!A1:A2"))); }
    [[nodiscard]] ComPtr<IDispatch> peer() const { return m_Peer.as<IDispatch>(); }

    void call(IDispatch& object, const wchar_t* name) const {
        std::wstring asked(name);
        LPOLESTR names[] = {asked.data()};
        DISPID id = 0;
        DISPPARAMS none{};
        ASSERT_EQ(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        ASSERT_EQ(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                                nullptr),
                  S_OK);
    }

    static ComPtr<IDispatch> applicationElsewhereRunning() {
        return Peer::startPeer(Peer::outOfProcessClass, CLSCTX_LOCAL_SERVER);
    }

    LoadedServer m_Server;
    ObjectRef<workbook::EmbeddedApplication> m_Workbook = workbook::makeApplication();
    Peer::PeerRef m_Peer = Peer::peerApplication(m_Workbook);
    ComPtr<_clsNonPara> m_Object;
};

TEST_F(FindingTheApplication, NoneIsAnErrorThatSaysWhatToDo) {
    const Seen refusal = setRange();
    EXPECT_EQ(refusal.status, tbvNPNoApplication);
    EXPECT_NE(refusal.description.find("macro"), std::string::npos) << refusal.description;
}

TEST_F(FindingTheApplication, SettingsNeedNone) {
    EXPECT_EQ(m_Object->put_Method(::tbvNPSign), S_OK);
    EXPECT_EQ(m_Object->put_XRange(Address("")), S_OK);
    EXPECT_EQ(seen(m_Object->Results(nullptr)).status, tbvNPNoYRange);
}

TEST_F(FindingTheApplication, TheHookedOneComesFirst) {
    const auto emptyBook = Peer::peerApplication(workbook::makeApplication());
    const WorkbookWindow window(emptyBook.as<IDispatch>());
    m_Server.setApplication(peer().get());
    EXPECT_EQ(setRange().status, S_OK);
    m_Server.setApplication(nullptr);
}

TEST_F(FindingTheApplication, ThenTheOneBehindAWindowOfTheProcess) {
    const WorkbookWindow window(peer());
    ASSERT_NE(window.handle(), nullptr) << GetLastError();
    EXPECT_EQ(setRange(), (Seen{S_OK, "", ""}));
}

TEST_F(FindingTheApplication, ThenTheActiveOneOfTheProcess) {
    const ComPtr<IDispatch> application = peer();
    call(*application.get(), L"Publish");
    EXPECT_EQ(setRange(), (Seen{S_OK, "", ""}));
    call(*application.get(), L"Withdraw");
}

TEST_F(FindingTheApplication, AnActiveOneOfAnotherProcessIsRefused) {
    const ComPtr<IDispatch> elsewhere = applicationElsewhereRunning();
    call(*elsewhere.get(), L"Publish");
    const Seen refusal = setRange();
    call(*elsewhere.get(), L"Withdraw");
    EXPECT_EQ(refusal.status, tbvNPApplicationElsewhere);
    EXPECT_NE(refusal.description.find("another process"), std::string::npos) << refusal.description;
}

TEST_F(FindingTheApplication, AHookedOneOfAnotherProcessIsRefused) {
    const ComPtr<IDispatch> elsewhere = applicationElsewhereRunning();
    EXPECT_EQ(seen(m_Server.setApplication(elsewhere.get())).status, tbvNPApplicationElsewhere);
    EXPECT_EQ(setRange().status, tbvNPNoApplication);
}

}  // namespace

}  // namespace TBVNonPara::com
