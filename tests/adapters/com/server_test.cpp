#include <windows.h>
// It needs what stands before it.
#include <algorithm>
#include <psapi.h>
#include <vector>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"

namespace TBVNonPara::com {

namespace {

TEST(Server, AnotherClassIsNotAvailable) {
    const LoadedServer server;
    void* object = &object;
    EXPECT_EQ(server.function<decltype(DllGetClassObject)>("DllGetClassObject")(IID_IUnknown,
                                                                                IID_IClassFactory, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
}

TEST(Server, AggregationIsRefused) {
    const LoadedServer server;
    const ComPtr<IClassFactory> factory = server.factory();
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST(Server, AnInterfaceThatItHasNotLeavesNothing) {
    const LoadedServer server;
    void* object = &object;
    EXPECT_EQ(server.factory()->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_TRUE(server.canUnload());
}

TEST(Server, StaysWhileAnObjectAFactoryALockOrAHookNeedsIt) {
    const LoadedServer server;
    EXPECT_TRUE(server.canUnload());
    {
        const ComPtr<IClassFactory> factory = server.factory();
        EXPECT_FALSE(server.canUnload());
        factory->LockServer(TRUE);
    }
    EXPECT_FALSE(server.canUnload());
    server.factory()->LockServer(FALSE);
    EXPECT_TRUE(server.canUnload());
    {
        const ComPtr<_clsNonPara> object = server.create();
        EXPECT_FALSE(server.canUnload());
    }
    EXPECT_TRUE(server.canUnload());
    const Peer::PeerRef application = Peer::peerApplication(workbook::makeApplication());
    server.setApplication(application.as<IDispatch>().get());
    EXPECT_FALSE(server.canUnload());
    server.setApplication(nullptr);
    EXPECT_TRUE(server.canUnload());
}

TEST(Server, AnObjectKeepsItsFileLoadedToTheEndOfTheProcess) {
    {
        const LoadedServer server;
        (void)server.factory();
        EXPECT_TRUE(server.canUnload());
    }
    EXPECT_NE(GetModuleHandleW(L"TBVNonPara.dll"), nullptr);
}

/// One client's life: load, create, run into an error, run to a report, unload.
void live() {
    const LoadedServer server;
    const auto host = workbook::makeApplication();
    host->addSheet("Data", ValueGrid{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}});
    const Peer::PeerRef application = Peer::peerApplication(host);
    server.setApplication(application.as<IDispatch>().get());
    {
        const ComPtr<_clsNonPara> object = server.create();
        EXPECT_EQ(seen(object->Results(nullptr)).status, tbvNPNoYRange);
        object->put_YRange(Address("Data!A1:A3"));
        object->put_XRange(Address("Data!B1:B3"));
        object->put_OutputRange(Address("Data!E1"));
        EXPECT_EQ(object->Results(nullptr), S_OK);
        EXPECT_EQ(seen(object->Results(nullptr)).status, tbvNPOutputOccupied);
        const ComPtr<_clsNonParaDetails> details = server.createDetails();
        details->put_YRange(Address("Data!A1:A3"));
        EXPECT_EQ(seen(details->Calculate()).status, tbvNPNoXRange);
        details->put_XRange(Address("Data!B1:B3"));
        EXPECT_EQ(details->Calculate(), S_OK);
        Variant value;
        EXPECT_EQ(details->get_Value(Address("labels.1"), value.out()), S_OK);
        BSTR text = nullptr;
        EXPECT_EQ(details->get_Text(&text), S_OK);
        SysFreeString(text);
    }
    server.setApplication(nullptr);
    EXPECT_TRUE(server.canUnload());
}

SIZE_T privateBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                            sizeof counters);
    return counters.PrivateUsage;
}

/// An activation context in force.
class ActivationContext {
 public:
    explicit ActivationContext(const std::wstring& manifest) {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.lpSource = manifest.c_str();
        m_Context = CreateActCtxW(&request);
        m_InForce = m_Context != INVALID_HANDLE_VALUE && ActivateActCtx(m_Context, &m_Cookie) != FALSE;
    }
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;
    ~ActivationContext() {
        if (m_InForce) {
            DeactivateActCtx(0, m_Cookie);
        }
    }

    [[nodiscard]] bool isInForce() const { return m_InForce; }

 private:
    HANDLE m_Context;
    ULONG_PTR m_Cookie = 0;
    bool m_InForce = false;
};

/// Creates an object by the name of its class and lets it go.
template <typename Interface>
HRESULT createNamed(const wchar_t* programId) {
    CLSID id;
    ComPtr<Interface> object;
    const HRESULT known = CLSIDFromProgID(programId, &id);
    return FAILED(known) ? known
                         : CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                                            reinterpret_cast<void**>(object.out()));
}

TEST(Server, IsCreatedByItsManifestWhereNothingIsRegistered) {
    const std::wstring library = serverPath();
    EXPECT_EQ(createNamed<_clsNonPara>(L"TBVNonPara.clsNonPara"), CO_E_CLASSSTRING);
    const ActivationContext context(library.substr(0, library.find_last_of(L'.')) + L".manifest");
    ASSERT_TRUE(context.isInForce()) << GetLastError();
    EXPECT_EQ(createNamed<_clsNonPara>(L"TBVNonPara.clsNonPara"), S_OK);
    EXPECT_EQ(createNamed<_clsNonParaDetails>(L"TBVNonPara.clsNonParaDetails"), S_OK);
}

/// How many more thread-local indices the process can have.
std::size_t freeThreadLocals() {
    std::vector<DWORD> taken;
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) {
        taken.push_back(index);
    }
    std::ranges::for_each(taken, TlsFree);
    return taken.size();
}

TEST(Server, TwoHundredLivesLeakNothing) {
    constexpr int lives = 200;
    for (int k = 0; k < 20; ++k) {
        live();
    }
    const long objects = Peer::objectsAlive();
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    const std::size_t threadLocals = freeThreadLocals();
    const SIZE_T bytes = privateBytes();
    for (int k = 0; k < lives; ++k) {
        live();
    }
    DWORD handlesAfter = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesAfter);
    EXPECT_EQ(Peer::objectsAlive(), objects);
    EXPECT_EQ(handlesAfter, handles);
    EXPECT_EQ(freeThreadLocals(), threadLocals);
    // A megabyte in two hundred lives is less than one object each.
    const SIZE_T growth = privateBytes() - std::min(privateBytes(), bytes);
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, SIZE_T{1} << 20);
}

/// A report on so many rows, and the calls that it took.
long callsOfAReport(Long rows) {
    const LoadedServer server;
    const auto host = workbook::makeApplication();
    ValueGrid cells(rows, 2, 1.0);
    for (Long row = 1; row <= rows; ++row) {
        cells(row, 1) = row.value() * 7919 % 10007 * 1.0;
        cells(row, 2) = row.value() * 10473 % 10009 * 1.0;
    }
    host->addSheet("Data", cells);
    const Peer::PeerRef application = Peer::peerApplication(host);
    server.setApplication(application.as<IDispatch>().get());
    const std::string last = std::to_string(rows.value());
    long calls = 0;
    {
        const ComPtr<_clsNonPara> object = server.create();
        object->put_OutputDescriptives(VARIANT_TRUE);
        const long before = Peer::callsReceived();
        object->put_YRange(Address("Data!A1:A" + last));
        object->put_XRange(Address("Data!B1:B" + last));
        EXPECT_EQ(seen(object->Results(nullptr)), (Seen{S_OK, "", ""}));
        calls = Peer::callsReceived() - before;
    }
    server.setApplication(nullptr);
    return calls;
}

TEST(Server, AReportOfTenThousandRowsTakesAFewHundredCalls) {
    const long calls = callsOfAReport(10000);
    std::cout << "calls across the boundary: " << calls << '\n';
    EXPECT_LE(calls, 400);
    // A small sample spares a worksheet function or two.
    EXPECT_NEAR(calls, callsOfAReport(100), 10);
}

}  // namespace

}  // namespace TBVNonPara::com
