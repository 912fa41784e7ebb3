#pragma once

#include <cstdlib>
#include <string_view>

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::Bench {

/// A test as the program calls it, and how many columns its first range has.
struct Method {
    std::string_view name;
    TBVNPMethod method;
    int columns;
    bool takesPairs;
};

constexpr Method methods[] = {
    {"mann-whitney", tbvNPMannU, 1, true},      {"wilcoxon", tbvNPWilcoxon, 1, true},
    {"spearman", tbvNPSpearman, 1, true},       {"sign", tbvNPSign, 1, true},
    {"median", tbvNPMedian, 3, false},          {"friedman", tbvNPFriedman, 5, false},
    {"kruskal-wallis", tbvNPKWallis, 3, false}, {"runs", tbvNPWWRuns, 1, false},
};

inline const Method& methodNamed(std::string_view name) {
    for (const Method& method : methods) {
        if (method.name == name) {
            return method;
        }
    }
    std::abort();
}

}  // namespace TBVNonPara::Bench
