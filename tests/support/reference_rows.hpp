#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::Support {

/// The fields of a text between separators.
inline std::vector<std::string> fieldsOf(const std::string& text, char separator) {
    std::vector<std::string> fields;
    std::istringstream stream(text);
    for (std::string field; std::getline(stream, field, separator);) {
        fields.push_back(field);
    }
    return fields;
}

/// The rows of a table of tests/reference below its heading; no field holds a comma.
inline std::vector<std::vector<std::string>> referenceRows(const std::string& file) {
    std::ifstream stream(std::string(TBVNONPARA_TESTS) + "/reference/" + file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(stream, line);
    while (std::getline(stream, line)) {
        rows.push_back(fieldsOf(line, ','));
    }
    if (rows.empty()) {
        throw std::runtime_error("no rows in " + file);
    }
    return rows;
}

/// Numbers separated by blanks, the lists they form separated by bars: "1 2 3|4 5".
inline std::vector<std::vector<double>> numberLists(const std::string& text) {
    std::vector<std::vector<double>> lists;
    for (const std::string& list : fieldsOf(text, '|')) {
        lists.emplace_back();
        for (const std::string& number : fieldsOf(list, ' ')) {
            lists.back().push_back(std::stod(number));
        }
    }
    return lists;
}

/// The lists as columns of a grid, the shorter ones with empty cells below.
inline ValueGrid asColumns(const std::vector<std::vector<double>>& lists) {
    std::size_t longest = 0;
    for (const auto& list : lists) {
        longest = std::max(longest, list.size());
    }
    ValueGrid grid(longest, lists.size());
    for (std::size_t j = 1; j <= lists.size(); ++j) {
        for (std::size_t i = 1; i <= lists[j - 1].size(); ++i) {
            grid(i, j) = lists[j - 1][i - 1];
        }
    }
    return grid;
}

/// The lists as rows of a grid; all of one length.
inline ValueGrid asRows(const std::vector<std::vector<double>>& lists) {
    ValueGrid grid(lists.size(), lists.at(0).size());
    for (std::size_t i = 1; i <= lists.size(); ++i) {
        for (std::size_t j = 1; j <= lists[i - 1].size(); ++j) {
            grid(i, j) = lists[i - 1][j - 1];
        }
    }
    return grid;
}

}  // namespace TBVNonPara::Support
