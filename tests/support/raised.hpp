#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::Support {

/// The number and the source of an error, or number 0.
struct Raised {
    std::int32_t number = 0;
    std::string source;
    std::string description;

    friend bool operator==(const Raised& a, const Raised& b) {
        return a.number == b.number && a.source == b.source;
    }
    friend std::ostream& operator<<(std::ostream& out, const Raised& raised) {
        return out << raised.number << " from \"" << raised.source << "\": " << raised.description;
    }
};

/// An error that a host may raise: a number of its own, a text, no source.
inline Error hostError() {
    return Error(1004, "The worksheet function failed");
}

/// The error that an action raises, if it raises one.
inline std::optional<Error> errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

inline Raised raisedBy(const std::function<void()>& action) {
    const std::optional<Error> error = errorOf(action);
    return error ? Raised{error->number(), error->source(), error->description()} : Raised();
}

/// What a client sees of an error that arose in a procedure: "clsNonPara.Results".
inline Raised in(const std::string& procedure, std::int32_t number) {
    return {number, "Line 0 in TBVNonPara." + procedure, {}};
}

}  // namespace TBVNonPara::Support
