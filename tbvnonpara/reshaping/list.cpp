#include "tbvnonpara/reshaping/list.hpp"

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::reshaping {

std::string withoutQuotes(std::string_view text) {
    const std::string_view word = trimmed(text);
    const bool quoted =
        word.size() > 1 && (word.front() == '"' || word.front() == '\'') && word.back() == word.front();
    return std::string(quoted ? word.substr(1, word.size() - 2) : word);
}

std::vector<std::string> listed(std::string_view text) {
    std::vector<std::string> parts;
    char quote = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const char c = i < text.size() ? text[i] : ',';
        if (quote != 0) {
            quote = c == quote ? '\0' : quote;
        } else if ((c == '"' || c == '\'') && trimmed(text.substr(begin, i - begin)).empty()) {
            quote = c;
        }
        if (i == text.size() || (c == ',' && quote == 0)) {
            parts.push_back(withoutQuotes(text.substr(begin, i - begin)));
            begin = i + 1;
        }
    }
    return parts;
}

}  // namespace TBVNonPara::reshaping
