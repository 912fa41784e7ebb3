#include <cstdlib>

#include "adapters/com/errors.hpp"
#include "adapters/com/host_object.hpp"
#include "adapters/com/text.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/adapters/com/registered_request.hpp"
#include "tests/whole/scenarios/embedded_host.hpp"

// The scenarios through the registered class, in the process of a peer application. The environment variable
// TBVNONPARA_BINDING says how the object is used: early or late, which is what it means when it is not set.

namespace TBVNonPara::Scenarios {

namespace {

using Embedded = EmbeddedHost::Embedded;

/// Carries a request out by the registered class, and again by the twin, whose errors are nobody's.
class TwofoldRequest : public Request {
 public:
    TwofoldRequest(std::unique_ptr<Request> registered, std::unique_ptr<Request> twin)
        : m_Registered(std::move(registered)), m_Twin(std::move(twin)) {}

    void LetMethod(TBVNPMethod method) override { both(&Request::LetMethod, method); }
    void LetHeaders(bool headers) override { both(&Request::LetHeaders, headers); }
    void LetOutputDescriptives(bool wanted) override { both(&Request::LetOutputDescriptives, wanted); }
    void LetIgnoreTies(bool ignoreTies) override { both(&Request::LetIgnoreTies, ignoreTies); }
    void LetTails(TBVNPTails tails) override { both(&Request::LetTails, tails); }
    void LetYRange(std::string_view address) override { both(&Request::LetYRange, address); }
    void LetXRange(std::string_view address) override { both(&Request::LetXRange, address); }
    void LetOutputRange(std::string_view address) override { both(&Request::LetOutputRange, address); }
    void Results(bool OverWrite) override { both(&Request::Results, OverWrite); }

 private:
    template <typename Value>
    void both(void (Request::*member)(Value), Value value) {
        try {
            ((*m_Twin).*member)(value);
        } catch (const Error&) {
            // The registered class is asked to raise it, too.
        }
        ((*m_Registered).*member)(value);
    }

    std::unique_ptr<Request> m_Registered;
    std::unique_ptr<Request> m_Twin;
};

std::string withoutDollars(std::string address) {
    std::erase(address, '$');
    return address;
}

class RegisteredHost : public ScenarioHost {
 public:
    RegisteredHost() {
        // What creates objects of a class; once more does no harm.
        com::check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        Peer::interruptCalls([this](const Peer::PeerObject& object, const std::wstring& member) {
            if (member == L"Copy") {
                m_Copied = object.range;
            } else if (member == L"PasteSpecial") {
                m_Report =
                    LibraryHost::blockAt(object.range, m_Copied->GetRowsCount(), m_Copied->GetColumnsCount());
            }
        });
        (void)m_Peer.get(L"Hook");
    }
    RegisteredHost(const RegisteredHost&) = delete;
    RegisteredHost& operator=(const RegisteredHost&) = delete;
    ~RegisteredHost() override {
        (void)m_Peer.get(L"Unhook");
        Peer::interruptCalls(nullptr);
    }

    void addSheet(std::string_view name, const ValueGrid& cells) override {
        m_Workbook->addSheet(name, cells);
        m_Twin.addSheet(name, cells);
    }
    [[nodiscard]] std::unique_ptr<Request> createRequest() override {
        const char* binding = std::getenv("TBVNONPARA_BINDING");
        return std::make_unique<TwofoldRequest>(com::registeredRequest(binding == nullptr ? "late" : binding),
                                                m_Twin.createRequest());
    }
    [[nodiscard]] const Application& application() const override { return *m_Workbook; }
    [[nodiscard]] std::string reportAddress() const override { return m_Report; }

    [[nodiscard]] std::vector<std::string> formatting() const override {
        const std::string difference = differentFormat();
        return difference.empty() ? m_Twin.formatting()
                                  : std::vector<std::string>{"another format in " + difference};
    }

 private:
    /// The first cell of the report whose format is not that of the twin's.
    [[nodiscard]] std::string differentFormat() const {
        const RangeRef ours = m_Workbook->GetRange(m_Report);
        const RangeRef twins = m_Twin.workbook().GetRange(m_Report);
        const auto sheet = std::dynamic_pointer_cast<workbook::Sheet>(ours->GetWorksheet().shared());
        const auto twin = std::dynamic_pointer_cast<workbook::Sheet>(twins->GetWorksheet().shared());
        for (Long row = 1; row <= ours->GetRowsCount(); ++row) {
            for (Long column = 1; column <= ours->GetColumnsCount(); ++column) {
                const Rectangle cell =
                    workbook::parseAddress(ours->GetCells(row, column)->GetAddress()).front().cells;
                if (sheet->format(cell.top, cell.left) != twin->format(cell.top, cell.left)) {
                    return withoutDollars(absoluteAddress(cell));
                }
            }
        }
        return {};
    }

    Embedded m_Workbook = workbook::makeApplication();
    com::HostObject m_Peer{Peer::peerApplication(m_Workbook).as<IDispatch>(), com::Kind::Application,
                           std::make_shared<com::ObjectModel>()};
    // What the library itself does on a workbook of its own: the formats that a report must have are those
    // that it has there, for nobody sees what the registered class asks of its formatter.
    EmbeddedHost m_Twin{workbook::makeApplication()};
    RangeRef m_Copied;
    std::string m_Report;
};

}  // namespace

std::unique_ptr<ScenarioHost> createScenarioHost() {
    return std::make_unique<RegisteredHost>();
}

}  // namespace TBVNonPara::Scenarios
