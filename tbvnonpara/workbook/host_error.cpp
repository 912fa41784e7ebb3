#include "tbvnonpara/workbook/host_error.hpp"

#include <utility>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::workbook {

void refuse(std::string description) {
    throw Error(hostErrorNumber, std::move(description));
}

}  // namespace TBVNonPara::workbook
