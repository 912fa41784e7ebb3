#pragma once

#include <charconv>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::Bench {

/// The numbers of a CSV file under one row of headers, row by row.
struct NumbersFile {
    Long columns = 1;
    std::vector<double> numbers;

    explicit NumbersFile(const char* path) {
        std::string text(std::filesystem::file_size(path), '\0');
        std::ifstream(path, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
        const char* at = text.data();
        const char* const end = at + text.size();
        for (; at != end && *at != '\n'; ++at) {
            columns += *at == ',' ? 1 : 0;
        }
        while (at != end && ++at != end) {
            double number = 0;
            at = std::from_chars(at, end, number).ptr;
            numbers.push_back(number);
        }
    }

    [[nodiscard]] Long rows() const { return Long(numbers.size()).value() / columns.value(); }

    /// Columns first..last as the values of a range.
    [[nodiscard]] ValueGrid grid(Long first, Long last) const {
        ValueGrid cells(rows(), last - first + 1);
        for (Long i = 1; i <= rows(); ++i) {
            for (Long c = first; c <= last; ++c) {
                cells(i, c - first + 1) =
                    numbers[static_cast<std::size_t>((toIndex(i) - 1) * toIndex(columns) + toIndex(c) - 1)];
            }
        }
        return cells;
    }
};

}  // namespace TBVNonPara::Bench
