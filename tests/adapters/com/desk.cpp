#include "tests/adapters/com/desk.hpp"

#include <algorithm>

namespace TBVNonPara::com {

namespace {

std::string take(BSTR text) {
    std::string result = toUtf8(text);
    SysFreeString(text);
    return result;
}

}  // namespace

Seen seen(HRESULT status) {
    ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.out()) != S_OK) {
        return {status, {}, {}};
    }
    BSTR source = nullptr;
    BSTR description = nullptr;
    error->GetSource(&source);
    error->GetDescription(&description);
    return {status, take(source), take(description)};
}

bool Desk::holds(std::string_view address, const CellValue& value) const {
    const ValueGrid cells = m_Workbook->GetRange(address)->GetValue();
    for (Long column = 1; column <= cells.columns(); ++column) {
        if (std::ranges::count(cells.column(column), value) != 0) {
            return true;
        }
    }
    return false;
}

Desk::Desk() {
    SetErrorInfo(0, nullptr);
    m_Workbook->addSheet("Data", ValueGrid{{"Before", "After"}, {1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}});
    m_Server.setApplication(m_Application.as<IDispatch>().get());
    m_Object = m_Server.create();
}

Desk::~Desk() {
    m_Object = {};
    m_Server.setApplication(nullptr);
}

}  // namespace TBVNonPara::com
