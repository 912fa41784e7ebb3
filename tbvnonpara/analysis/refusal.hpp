#pragma once

#include <string>
#include <utility>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::analysis {

/// The source of the errors that arise before a test runs, or around it.
constexpr const char* ownSource = "tbvnonpara";

[[noreturn]] inline void refuse(std::int32_t number, std::string description) {
    throw Error(number, std::move(description), ownSource);
}

/// Ends a handler: the error being handled with the analysis as its source.
[[noreturn]] inline void refuseAsOwn() {
    const Error error = currentError();
    refuse(error.number(), error.description());
}

}  // namespace TBVNonPara::analysis
