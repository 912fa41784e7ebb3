#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/com/com_ptr.hpp"
#include "adapters/com/variant.hpp"
#include "tbvnonpara/host/Range.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara::Peer {

/// How many calls have crossed into the peer application, questions for dispatch ids included.
std::atomic<long>& callsReceived() noexcept;
/// How many of its objects are alive.
std::atomic<long>& objectsAlive() noexcept;

class PeerObject;

/// Told of each member that is used, before it answers: a client that the application calls back. None to
/// stop.
using Interruption = std::function<void(const PeerObject& object, const std::wstring& member)>;
void interruptCalls(Interruption client);

/// The arguments of a call, in the order in which they are written.
class Arguments {
 public:
    explicit Arguments(const DISPPARAMS& parameters) : m_Parameters(parameters) {}

    [[nodiscard]] std::size_t count() const noexcept { return m_Parameters.cArgs; }
    /// Without the references that scripts put around a value. A missing one is an empty value.
    [[nodiscard]] const VARIANT& operator[](std::size_t position) const noexcept;
    [[nodiscard]] bool has(std::size_t position) const noexcept;

    [[nodiscard]] Long number(std::size_t position) const;
    [[nodiscard]] double real(std::size_t position) const;
    [[nodiscard]] std::string text(std::size_t position) const;
    [[nodiscard]] bool truth(std::size_t position) const;
    [[nodiscard]] bool isText(std::size_t position) const noexcept { return (*this)[position].vt == VT_BSTR; }
    [[nodiscard]] RangeRef range(std::size_t position) const;
    [[nodiscard]] WorksheetRef worksheet(std::size_t position) const;

 private:
    const DISPPARAMS& m_Parameters;
};

using Read = std::function<com::Variant(const Arguments&)>;
using Write = std::function<void(const Arguments&)>;

struct Member {
    const wchar_t* name;
    /// Null when it cannot be read or called.
    Read read;
    /// Null when it cannot be set.
    Write write = nullptr;
    std::size_t mostArguments = 3;
};

/// A member that has no parameters: a subscript belongs to the collection that it returns.
[[nodiscard]] inline Member plain(const wchar_t* name, std::function<com::Variant()> read,
                                  Write write = nullptr) {
    return {name, [read = std::move(read)](const Arguments&) { return read(); }, std::move(write), 0};
}

/// An object of the peer application: late-bound members, and the object of the embedded workbook behind it.
class PeerObject final : public IDispatch {
 public:
    explicit PeerObject(std::vector<Member> members) : m_Members(std::move(members)) { objectsAlive() += 1; }

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_References; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** information) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* information, UINT* wrongArgument) override;

    /// Tells the peer's objects apart.
    [[nodiscard]] long serial() const noexcept { return m_Serial; }

    void add(Member member) { m_Members.push_back(std::move(member)); }

    /// What the object stands for, for calls that take it as an argument.
    RangeRef range;
    WorksheetRef worksheet;

 private:
    ~PeerObject() { objectsAlive() -= 1; }

    std::vector<Member> m_Members;
    std::atomic<ULONG> m_References = 1;
    long m_Serial = nextSerial();

    static long nextSerial() noexcept;
};

/// The number of a peer's object; 0 for another's.
[[nodiscard]] long serialOf(IDispatch* object);

using PeerRef = com::ComPtr<PeerObject>;

[[nodiscard]] inline PeerRef makePeer(std::vector<Member> members) {
    return PeerRef::adopt(new PeerObject(std::move(members)));
}

[[nodiscard]] inline com::Variant asValue(const PeerRef& object) {
    return com::Variant(object.as<IDispatch>());
}

}  // namespace TBVNonPara::Peer
