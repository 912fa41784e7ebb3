#include "tests/adapters/com/peer_object.hpp"

#include <algorithm>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"
#include "tests/adapters/com/recording.hpp"

namespace TBVNonPara::Peer {

namespace {

/// Tells a peer's own objects from others, within its process.
// {69C90C3F-14EA-459C-AA33-8D5A85F58825}
constexpr GUID peerIdentity = {0x69c90c3f, 0x14ea, 0x459c, {0xaa, 0x33, 0x8d, 0x5a, 0x85, 0xf5, 0x88, 0x25}};

const VARIANT emptyValue{};

const VARIANT& dereferenced(const VARIANT& value) noexcept {
    return value.vt == (VT_BYREF | VT_VARIANT) ? dereferenced(*value.pvarVal) : value;
}

com::Variant converted(const VARIANT& value, VARTYPE type) {
    com::Variant result;
    VARIANT source = value;
    com::check(VariantChangeType(result.out(), &source, 0, type));
    return result;
}

PeerRef peerOf(const VARIANT& value) {
    PeerRef peer;
    if (value.vt != VT_DISPATCH || value.pdispVal == nullptr ||
        FAILED(value.pdispVal->QueryInterface(peerIdentity, reinterpret_cast<void**>(peer.out())))) {
        raise(RuntimeError::TypeMismatch);
    }
    return peer;
}

bool sameName(const wchar_t* a, const wchar_t* b) {
    return CompareStringOrdinal(a, -1, b, -1, TRUE) == CSTR_EQUAL;
}

Interruption& interruption() {
    static Interruption client;
    return client;
}

}  // namespace

void interruptCalls(Interruption client) {
    interruption() = std::move(client);
}

std::atomic<long>& callsReceived() noexcept {
    static std::atomic<long> calls = 0;
    return calls;
}

std::atomic<long>& objectsAlive() noexcept {
    static std::atomic<long> objects = 0;
    return objects;
}

const VARIANT& Arguments::operator[](std::size_t position) const noexcept {
    return position < count() ? dereferenced(m_Parameters.rgvarg[count() - 1 - position]) : emptyValue;
}

bool Arguments::has(std::size_t position) const noexcept {
    const VARIANT& value = (*this)[position];
    return value.vt != VT_EMPTY && !(value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND);
}

Long Arguments::number(std::size_t position) const {
    return converted((*this)[position], VT_I4).get().lVal;
}

double Arguments::real(std::size_t position) const {
    return converted((*this)[position], VT_R8).get().dblVal;
}

std::string Arguments::text(std::size_t position) const {
    return com::toUtf8(converted((*this)[position], VT_BSTR).get().bstrVal);
}

bool Arguments::truth(std::size_t position) const {
    return converted((*this)[position], VT_BOOL).get().boolVal != VARIANT_FALSE;
}

RangeRef Arguments::range(std::size_t position) const {
    return peerOf((*this)[position])->range;
}

WorksheetRef Arguments::worksheet(std::size_t position) const {
    return peerOf((*this)[position])->worksheet;
}

long PeerObject::nextSerial() noexcept {
    static std::atomic<long> last = 0;
    return ++last;
}

long serialOf(IDispatch* object) {
    PeerRef peer;
    if (object != nullptr) {
        object->QueryInterface(peerIdentity, reinterpret_cast<void**>(peer.out()));
    }
    return peer ? peer->serial() : 0;
}

STDMETHODIMP PeerObject::QueryInterface(REFIID wanted, void** object) {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == peerIdentity;
    *object = known ? this : nullptr;
    if (!known) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) PeerObject::Release() {
    const ULONG left = --m_References;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP PeerObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP PeerObject::GetTypeInfo(UINT /*which*/, LCID /*locale*/, ITypeInfo** /*information*/) {
    return E_NOTIMPL;
}

STDMETHODIMP PeerObject::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/, LCID /*locale*/,
                                       DISPID* ids) {
    callsReceived() += 1;
    const auto member =
        std::ranges::find_if(m_Members, [&](const Member& one) { return sameName(one.name, names[0]); });
    ids[0] = member == m_Members.end() ? DISPID_UNKNOWN : static_cast<DISPID>(member - m_Members.begin()) + 1;
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP PeerObject::Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                                DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* information,
                                UINT* /*wrongArgument*/) {
    callsReceived() += 1;
    if (member < 1 || static_cast<std::size_t>(member) > m_Members.size()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const Member& called = m_Members[static_cast<std::size_t>(member) - 1];
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isPut ? called.write == nullptr : called.read == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!isPut && parameters->cArgs > called.mostArguments) {
        return DISP_E_BADPARAMCOUNT;
    }
    try {
        if (interruption()) {
            interruption()(*this, called.name);
        }
        if (isPut) {
            called.write(Arguments(*parameters));
            recordCall(m_Serial, called.name, isPut, *parameters, nullptr);
            return S_OK;
        }
        com::Variant value = called.read(Arguments(*parameters));
        recordCall(m_Serial, called.name, isPut, *parameters, &value.get());
        if (result != nullptr) {
            *result = value.release();
        }
        return S_OK;
    } catch (...) {
        const HRESULT status = com::toErrorInfo();
        com::ComPtr<IErrorInfo> error;
        if (information != nullptr && GetErrorInfo(0, error.out()) == S_OK) {
            com::toExcepInfo(status, *error.get(), *information);
        }
        return DISP_E_EXCEPTION;
    }
}

}  // namespace TBVNonPara::Peer
