#include "tbvnonpara/workbook/address.hpp"

#include <utility>

#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

std::vector<AddressArea> parseAddress(std::string_view address) {
    WrittenAddress written = readAddress(address);
    if (!written.problem.empty()) {
        refuse("The address " + inQuotes(address) + " cannot be read: " + written.problem +
               ". An address looks like A1:A9, Data!$A$1:$B$9, 'My sheet'!A:A or A1:A9,C1:C9.");
    }
    return std::move(written.areas);
}

}  // namespace TBVNonPara::workbook
