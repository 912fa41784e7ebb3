#pragma once

#include <gtest/gtest.h>
#include <string>

#include "adapters/com/text.hpp"
#include "adapters/com/variant.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/adapters/com/tested_server.hpp"

namespace TBVNonPara::com {

/// A text for one call.
class Address {
 public:
    explicit Address(std::string_view text) : m_Text(toBstr(text)) {}
    Address(const Address&) = delete;
    Address& operator=(const Address&) = delete;
    ~Address() { SysFreeString(m_Text); }

    operator BSTR() const noexcept { return m_Text; }

 private:
    BSTR m_Text;
};

/// What a client sees of a failed call: the status and the error information left on the thread.
struct Seen {
    HRESULT status = S_OK;
    std::string source;
    std::string description;

    friend bool operator==(const Seen&, const Seen&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Seen& seen) {
        return out << std::hex << seen.status << " from \"" << seen.source << "\": " << seen.description;
    }
};

[[nodiscard]] Seen seen(HRESULT status);

/// A client in the process of a peer application that the server is hooked to: a sheet "Data" with two
/// columns of samples, and an object.
class Desk : public testing::Test {
 protected:
    Desk();
    ~Desk() override;

    void fill(std::string_view address, const ValueGrid& values) {
        m_Workbook->GetRange(address)->LetValue(values);
    }
    [[nodiscard]] CellValue cell(std::string_view address) const {
        return m_Workbook->GetRange(address)->GetValue()(1, 1);
    }

    /// Whether one of the cells holds exactly this.
    [[nodiscard]] bool holds(std::string_view address, const CellValue& value) const;

    LoadedServer m_Server;
    ObjectRef<workbook::EmbeddedApplication> m_Workbook = workbook::makeApplication();
    Peer::PeerRef m_Application = Peer::peerApplication(m_Workbook);
    ComPtr<_clsNonPara> m_Object;
};

}  // namespace TBVNonPara::com
