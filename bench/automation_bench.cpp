// automation_bench.exe
//
// What a client in the application's process pays: a property put late and early bound, a whole Mann-Whitney
// run, and the calls that a report makes across the boundary. The server stands beside the program.

#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

#include "adapters/com/text.hpp"
#include "adapters/com/variant.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/adapters/com/tested_server.hpp"

namespace TBVNonPara::com {

namespace {

double microseconds(int times, const auto& action) {
    LARGE_INTEGER frequency;
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    for (int k = 0; k < times; ++k) {
        action();
    }
    QueryPerformanceCounter(&end);
    return 1e6 * static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart) / times;
}

void require(HRESULT status) {
    if (FAILED(status)) {
        throw std::runtime_error("a call failed with status " + std::to_string(status));
    }
}

double latePut(_clsNonPara& object) {
    std::wstring name = L"Headers";
    LPOLESTR names[] = {name.data()};
    return microseconds(100000, [&] {
        DISPID id = 0;
        require(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
        VARIANT truth = Variant(true).release();
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&truth, &named, 1, 1};
        require(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                              nullptr, nullptr));
    });
}

double wholeRun(_clsNonPara& object) {
    BSTR y = toBstr("Data!A1:A3");
    BSTR x = toBstr("Data!B1:B3");
    BSTR output = toBstr("Data!E1");
    const double time = microseconds(200, [&] {
        VARIANT_BOOL overWrite = VARIANT_TRUE;
        require(object.put_YRange(y));
        require(object.put_XRange(x));
        require(object.put_OutputRange(output));
        require(object.Results(&overWrite));
    });
    for (BSTR address : {y, x, output}) {
        SysFreeString(address);
    }
    return time;
}

void measure() {
    const LoadedServer server;
    const auto host = workbook::makeApplication();
    host->addSheet("Data", ValueGrid{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}});
    const Peer::PeerRef application = Peer::peerApplication(host);
    require(server.setApplication(application.as<IDispatch>().get()));
    {
        const ComPtr<_clsNonPara> object = server.create();
        const double late = latePut(*object.get());
        const double early = microseconds(100000, [&] { require(object->put_Headers(VARIANT_FALSE)); });
        std::cout << "microseconds: a property put late " << late << ", early " << early;
        const double run = wholeRun(*object.get());
        const long before = Peer::callsReceived();
        VARIANT_BOOL overWrite = VARIANT_TRUE;
        require(object->Results(&overWrite));
        std::cout << ", a whole Mann-Whitney run " << run << " (" << Peer::callsReceived() - before
                  << " calls)\n";
    }
    server.setApplication(nullptr);
}

}  // namespace

}  // namespace TBVNonPara::com

int main() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return 1;
    }
    try {
        TBVNonPara::com::measure();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    CoUninitialize();
    return 0;
}
