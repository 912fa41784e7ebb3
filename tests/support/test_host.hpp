#pragma once

#include "tbvnonpara/host/Application.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Support {

/// The spreadsheet in memory with two empty sheets, "Data" and "Out".
inline ObjectRef<Application> testHost() {
    const ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    application->addSheet("Data");
    application->addSheet("Out");
    return application;
}

}  // namespace TBVNonPara::Support
