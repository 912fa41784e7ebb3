#pragma once

#include "adapters/calc/session.hpp"
#include "tests/adapters/calc/office_document.hpp"
#include "tests/whole/scenarios/library_host.hpp"

namespace TBVNonPara::Scenarios {

/// The spreadsheet that the tests run in, with a document of its own for each scenario. Requests are made
/// with the library linked into the tests.
class CalcHost : public LibraryHost {
 public:
    CalcHost() : CalcHost(std::make_shared<OpenDocument>()) {}

    void addSheet(std::string_view name, const ValueGrid& cells) override;
    [[nodiscard]] std::unique_ptr<Request> createRequest() override;
    [[nodiscard]] bool keepsEmptyTexts() const override { return false; }
    /// What was asked for on the scratch sheet, and whatever of it did not arrive in the user's document.
    [[nodiscard]] std::vector<std::string> formatting() const override;

 protected:
    [[nodiscard]] const calc::DocumentRef& document() const { return m_Open->document(); }
    [[nodiscard]] calc::SheetAreas cellsAt(std::string_view address) const;
    [[nodiscard]] std::vector<std::string> formatsLostAt(std::string_view address) const;

 private:
    explicit CalcHost(const std::shared_ptr<OpenDocument>& open)
        : CalcHost(open, std::make_shared<calc::Session>(officeContext(), open->document())) {}
    CalcHost(std::shared_ptr<OpenDocument> open, const std::shared_ptr<calc::Session>& session);

    std::shared_ptr<OpenDocument> m_Open;
    std::shared_ptr<calc::Session> m_Session;
    std::int16_t m_Sheets = 0;
};

}  // namespace TBVNonPara::Scenarios
