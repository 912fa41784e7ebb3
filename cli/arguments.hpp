#pragma once

#include <optional>
#include <string>
#include <variant>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::cli {

enum class OutputFormat { Text, Json, Csv, Html, Xlsx };

/// What the command line asks for.
struct Arguments : analysis::Choices {
    OutputFormat format = OutputFormat::Text;
    std::string save;  ///< the file that the report is saved in; empty for standard output
    bool withData = false;
    std::string command;    ///< what was typed, as a shell reads it
    bool plan = false;      ///< only say what would be tested
    bool describe = false;  ///< say what the file holds; there is no test
    std::string names;      ///< "columns" or "sheets": of a description only these, a line each
    bool safeCsv = false;   ///< a text that reads as a formula gets a mark in front
    std::optional<DetailChoices> details;  ///< where they were asked for
};

/// The program's answer when no test is to be run: help and version with status 0, a usage error with 2.
struct Answer {
    std::string text;
    int status = 0;
};

constexpr int failureStatus = 1;
constexpr int usageStatus = 2;

[[nodiscard]] std::variant<Arguments, Answer> parseArguments(int count, const char* const* words);

}  // namespace TBVNonPara::cli
