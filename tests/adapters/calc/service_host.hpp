#pragma once

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/adapters/calc/calc_host.hpp"

namespace TBVNonPara::Scenarios {

/// The spreadsheet with the add-in that is installed in it: requests are made with its service, as macros and
/// scripts do. How large a report is and how it is formatted only the library itself can tell: that is asked
/// of the embedded workbook, on which the same requests are made.
class ServiceHost : public CalcHost {
 public:
    ServiceHost();

    void addSheet(std::string_view name, const ValueGrid& cells) override;
    [[nodiscard]] std::unique_ptr<Request> createRequest() override;
    /// The report begins where the spreadsheet's selection is.
    [[nodiscard]] std::string reportAddress() const override;
    [[nodiscard]] std::vector<std::string> formatting() const override;

 private:
    class Embedded : public LibraryHost {
     public:
        explicit Embedded(ObjectRef<workbook::EmbeddedApplication> application)
            : LibraryHost(application), m_Application(std::move(application)) {}
        void addSheet(std::string_view name, const ValueGrid& cells) override {
            m_Application->addSheet(name, cells);
        }

     private:
        ObjectRef<workbook::EmbeddedApplication> m_Application;
    };

    Embedded m_Embedded;
};

}  // namespace TBVNonPara::Scenarios
