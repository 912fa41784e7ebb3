#pragma once

#include <optional>
#include <vector>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara::Support {

/// A normal distribution that keeps what it was asked for; `failure`, when set, is what each call raises.
class AskedNormal {
 public:
    [[nodiscard]] NormalTail tail() {
        return [this](double z) {
            asked.push_back(z);
            return failure ? throw *failure : normalLowerTail(z);
        };
    }

    std::vector<double> asked;
    std::optional<Error> failure;
};

/// No normal distribution: calling it would throw.
inline const NormalTail noNormal;

}  // namespace TBVNonPara::Support
