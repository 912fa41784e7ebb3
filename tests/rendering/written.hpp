#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tbvnonpara/rendering/output.hpp"

namespace TBVNonPara::rendering {

/// Everything that a writer puts out.
template <typename Writer>
std::string writtenBy(Writer&& writer) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const file = open_memstream(&text, &size);
    {
        Output output(file);
        writer(output);
        output.finish();
    }
    std::fclose(file);
    std::string written(text, size);
    std::free(text);
    return written;
}

}  // namespace TBVNonPara::rendering
