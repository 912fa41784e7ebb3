#include "tbvnonpara/files/xlsx/reader.hpp"
#include "tests/fuzz/fuzzed_parts.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace TBVNonPara::workbook;
    return readFuzzed(data, size, [](const Parts& parts) { return readXlsx(parts); });
}
