// Any bytes as delimited text, under each delimiter that a user may name.

#include <cstdint>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/csv/reader.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace TBVNonPara;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    workbook::CsvOptions options;
    if (text.starts_with("\x01")) {
        options.delimiter = '\t';
        options.decimalMark = ',';
        text.remove_prefix(1);
    }
    try {
        (void)workbook::readCsv(text, options);
    } catch (const Error&) {
        // A message is as good as cells.
    }
    return 0;
}
