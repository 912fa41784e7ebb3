#pragma once

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/support/recording_formatter.hpp"
#include "tests/whole/scenarios/addresses.hpp"
#include "tests/whole/scenarios/scenario_host.hpp"

namespace TBVNonPara::Scenarios {

/// A host whose clients use the library in their own process: any application object with the project's own
/// companions. Adding sheets is left to the host.
class LibraryHost : public ScenarioHost {
 public:
    explicit LibraryHost(const ObjectRef<Application>& application)
        : m_Companions(watchReports(Support::recordFormatting(ownCompanions(application), m_Record))) {}

    [[nodiscard]] std::unique_ptr<Request> createRequest() override {
        m_Record->calls.clear();
        return std::make_unique<LibraryRequest>(m_Companions, m_Record);
    }
    [[nodiscard]] const Application& application() const override { return *m_Companions.application; }
    [[nodiscard]] std::string reportAddress() const override { return m_Report->address; }
    [[nodiscard]] std::vector<std::string> formatting() const override { return m_Record->calls; }

    /// The address of so many cells from the first one of a range on.
    [[nodiscard]] static std::string blockAt(const RangeRef& topLeft, Long rows, Long columns) {
        const WorksheetRef sheet = topLeft->GetWorksheet();
        const RangeRef block = sheet->GetRange(topLeft->GetCells(1, 1), topLeft->GetCells(rows, columns));
        std::string address = quotedSheetName(sheet->GetName()) + '!' + block->GetAddress();
        std::erase(address, '$');
        return address;
    }

 private:
    struct Report {
        Long rows;
        Long columns;
        std::string address;
    };

    class LibraryRequest : public Request {
     public:
        LibraryRequest(const CompanionLibrary& companions, std::shared_ptr<Support::FormattingRecord> record)
            : m_Request(companions), m_Record(std::move(record)) {}

        void LetMethod(TBVNPMethod method) override { m_Request.LetMethod(method); }
        void LetHeaders(bool headers) override { m_Request.LetHeaders(headers); }
        void LetOutputDescriptives(bool wanted) override { m_Request.LetOutputDescriptives(wanted); }
        void LetIgnoreTies(bool ignoreTies) override { m_Request.LetIgnoreTies(ignoreTies); }
        void LetTails(TBVNPTails tails) override { m_Request.LetTails(tails); }
        void LetYRange(std::string_view address) override { m_Request.LetYRange(address); }
        void LetXRange(std::string_view address) override { m_Request.LetXRange(address); }
        void LetOutputRange(std::string_view address) override { m_Request.LetOutputRange(address); }
        void Results(bool OverWrite) override {
            m_Record->calls.clear();
            m_Request.Results(OverWrite);
        }

     private:
        clsNonPara m_Request;
        std::shared_ptr<Support::FormattingRecord> m_Record;
    };

    CompanionLibrary watchReports(CompanionLibrary companions) {
        companions.application =
            Support::watchHost(companions.application, [report = m_Report](const Support::HostCall& call) {
                if (call.operation == "Range.Copy") {
                    report->rows = call.range->GetRowsCount();
                    report->columns = call.range->GetColumnsCount();
                } else if (call.operation == "Range.PasteSpecial") {
                    report->address = blockAt(call.range, report->rows, report->columns);
                }
            });
        return companions;
    }

    std::shared_ptr<Support::FormattingRecord> m_Record = std::make_shared<Support::FormattingRecord>();
    std::shared_ptr<Report> m_Report = std::make_shared<Report>();
    CompanionLibrary m_Companions;
};

}  // namespace TBVNonPara::Scenarios
