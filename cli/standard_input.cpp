#include "cli/standard_input.hpp"

#include <cstdio>

#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::cli {

std::string readStandardInput() try {
    constexpr std::size_t pieceSize = 1U << 16U;
    std::string all;
    std::size_t count = pieceSize;
    while (count == pieceSize) {
        const std::size_t before = all.size();
        all.resize(before + pieceSize);
        count = std::fread(all.data() + before, 1, pieceSize, stdin);
        all.resize(before + count);
    }
    if (std::ferror(stdin) != 0) {
        workbook::refuse("Standard input could not be read to its end.");
    }
    return all;
} catch (...) {
    analysis::refuseAsOwn();
}

}  // namespace TBVNonPara::cli
