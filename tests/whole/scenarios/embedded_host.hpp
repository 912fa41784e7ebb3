#pragma once

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/whole/scenarios/library_host.hpp"

namespace TBVNonPara::Scenarios {

/// The embedded workbook, reached by itself or by an application that stands in front of it.
class EmbeddedHost : public LibraryHost {
 public:
    using Embedded = ObjectRef<workbook::EmbeddedApplication>;

    explicit EmbeddedHost(const Embedded& workbook) : EmbeddedHost(workbook, workbook) {}
    EmbeddedHost(Embedded workbook, const ObjectRef<Application>& application)
        : LibraryHost(application), m_Workbook(std::move(workbook)) {}

    void addSheet(std::string_view name, const ValueGrid& cells) override {
        m_Workbook->addSheet(name, cells);
    }
    [[nodiscard]] const workbook::EmbeddedApplication& workbook() const { return *m_Workbook; }

 private:
    Embedded m_Workbook;
};

}  // namespace TBVNonPara::Scenarios
