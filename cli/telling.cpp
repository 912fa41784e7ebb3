#include "cli/telling.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

#include "tbvnonpara/core/display_width.hpp"

namespace TBVNonPara::cli {

void tell(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void tellLines(std::string_view text) {
    for (bool more = true; more;) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        tell(escaped(text.substr(0, end)) + '\n');
        more = end < text.size();
        text.remove_prefix(more ? end + 1 : end);
    }
}

}  // namespace TBVNonPara::cli
