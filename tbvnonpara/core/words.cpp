#include "tbvnonpara/core/words.hpp"

#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara {

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    return result.append(text).append("\"");
}

std::string capitalised(std::string_view text) {
    std::string result(text);
    if (!result.empty() && result.front() >= 'a' && result.front() <= 'z') {
        result.front() = static_cast<char>(result.front() - 'a' + 'A');
    }
    return result;
}

std::string shortened(std::string_view text, std::size_t mostBytes) {
    return text.size() <= mostBytes ? std::string(text) : std::string(firstBytes(text, mostBytes)) + "...";
}

}  // namespace TBVNonPara
