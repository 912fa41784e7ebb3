#include "tests/adapters/com/registered_request.hpp"

#include <bit>
#include <stdexcept>
#include <utility>

#include "adapters/com/errors.hpp"
#include "adapters/com/host_object.hpp"
#include "tests/adapters/com/desk.hpp"

namespace TBVNonPara::com {

namespace {

template <typename Interface>
ComPtr<Interface> created() {
    CLSID id;
    check(CLSIDFromProgID(L"TBVNonPara.clsNonPara", &id));
    ComPtr<Interface> object;
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                           reinterpret_cast<void**>(object.out())));
    return object;
}

VARIANT_BOOL asBoolean(bool truth) {
    return truth ? VARIANT_TRUE : VARIANT_FALSE;
}

class EarlyBoundRequest : public Scenarios::Request {
 public:
    explicit EarlyBoundRequest(ComPtr<_clsNonPara> object) : m_Object(std::move(object)) {}

    void LetMethod(TBVNPMethod method) override {
        expect(m_Object->put_Method(std::bit_cast<::TBVNPMethod>(method)));
    }
    void LetHeaders(bool headers) override { expect(m_Object->put_Headers(asBoolean(headers))); }
    void LetOutputDescriptives(bool wanted) override {
        expect(m_Object->put_OutputDescriptives(asBoolean(wanted)));
    }
    void LetIgnoreTies(bool ignoreTies) override { expect(m_Object->put_IgnoreTies(asBoolean(ignoreTies))); }
    void LetTails(TBVNPTails tails) override {
        expect(m_Object->put_Tails(std::bit_cast<::TBVNPTails>(tails)));
    }
    void LetYRange(std::string_view address) override { expect(m_Object->put_YRange(Address(address))); }
    void LetXRange(std::string_view address) override { expect(m_Object->put_XRange(Address(address))); }
    void LetOutputRange(std::string_view address) override {
        expect(m_Object->put_OutputRange(Address(address)));
    }
    void Results(bool OverWrite) override {
        VARIANT_BOOL overWrite = asBoolean(OverWrite);
        expect(m_Object->Results(&overWrite));
    }

 private:
    static void expect(HRESULT status) {
        if (FAILED(status)) {
            const Seen told = seen(status);
            throw Error(numberOf(status), told.description, told.source);
        }
    }

    ComPtr<_clsNonPara> m_Object;
};

class LateBoundRequest : public Scenarios::Request {
 public:
    explicit LateBoundRequest(ComPtr<IDispatch> object)
        : m_Object(std::move(object), Kind::Application, std::make_shared<ObjectModel>()) {}

    void LetMethod(TBVNPMethod method) override { m_Object.put(L"Method", std::int32_t(method)); }
    void LetHeaders(bool headers) override { m_Object.put(L"Headers", headers); }
    void LetOutputDescriptives(bool wanted) override { m_Object.put(L"OutputDescriptives", wanted); }
    void LetIgnoreTies(bool ignoreTies) override { m_Object.put(L"IgnoreTies", ignoreTies); }
    void LetTails(TBVNPTails tails) override { m_Object.put(L"Tails", std::int32_t(tails)); }
    void LetYRange(std::string_view address) override { m_Object.put(L"YRange", address); }
    void LetXRange(std::string_view address) override { m_Object.put(L"XRange", address); }
    void LetOutputRange(std::string_view address) override { m_Object.put(L"OutputRange", address); }
    void Results(bool OverWrite) override { m_Object.call(L"Results", OverWrite); }

 private:
    HostObject m_Object;
};

}  // namespace

std::unique_ptr<Scenarios::Request> earlyBoundRequest(ComPtr<_clsNonPara> object) {
    return std::make_unique<EarlyBoundRequest>(std::move(object));
}

std::unique_ptr<Scenarios::Request> lateBoundRequest(ComPtr<IDispatch> object) {
    return std::make_unique<LateBoundRequest>(std::move(object));
}

std::unique_ptr<Scenarios::Request> registeredRequest(std::string_view binding) {
    if (binding == "early") {
        return earlyBoundRequest(created<_clsNonPara>());
    }
    if (binding == "late") {
        return lateBoundRequest(created<IDispatch>());
    }
    throw std::invalid_argument("TBVNONPARA_BINDING is neither early nor late: " + std::string(binding));
}

}  // namespace TBVNonPara::com
