#include "cli/shell_words.hpp"

namespace TBVNonPara::cli {

std::string shellWord(std::string_view word) {
    constexpr std::string_view plain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./,:=+@%";
    if (!word.empty() && word.find_first_not_of(plain) == std::string_view::npos) {
        return std::string(word);
    }
    std::string quoted = "'";
    for (const char c : word) {
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    }
    return quoted + '\'';
}

std::string asTyped(const std::vector<std::string_view>& words) {
    std::string command = "tbvnonpara";
    for (const std::string_view word : words) {
        command += ' ' + shellWord(word);
    }
    return command;
}

}  // namespace TBVNonPara::cli
