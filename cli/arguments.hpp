#pragma once

#include <optional>
#include <string>
#include <variant>

#include "cli/tests_offered.hpp"

namespace TBVNonPara::cli {

enum class OutputFormat { Text, Json, Csv, Html, Xlsx };

/// What the command line asks for. Empty addresses leave the choice of columns to the program.
struct Arguments {
    const OfferedTest* test = nullptr;
    std::string file;
    std::string y;
    std::string x;
    std::string sheet;
    std::optional<bool> headers;
    bool descriptives = false;
    bool ignoreTies = false;
    TBVNPTails tails = tbvNPTwoTailed;
    OutputFormat format = OutputFormat::Text;
    std::string save;    ///< the file that the report is saved in; empty for standard output
    std::string output;  ///< the cell that the report begins at; empty for a new sheet
    bool overwrite = false;
    bool withData = false;
    std::optional<char> delimiter;
    std::optional<char> decimal;
};

/// The program's answer when no test is to be run: help and version with status 0, a usage error with 2.
struct Answer {
    std::string text;
    int status = 0;
};

constexpr int usageStatus = 2;

[[nodiscard]] std::variant<Arguments, Answer> parseArguments(int count, const char* const* words);

}  // namespace TBVNonPara::cli
