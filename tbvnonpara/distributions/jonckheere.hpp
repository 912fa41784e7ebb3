#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// Pooled values in ascending order, as far as their order goes: for each different value, how many of each
/// group are equal to it.
using ValueCounts = std::vector<std::vector<std::size_t>>;

/// Twice the sum over pairs of groups of how often a value of the later group is larger, equal ones half,
/// when the values are dealt to groups of these sizes in any way; `observed` is such a sum. Without ties the
/// counts of the groups one after the other are folded (Jonckheere 1954), with ties each different value is
/// dealt to the groups in turn. None where that takes more than `steps` additions or
/// more than 256 MB, which is known before it begins, or where the count of two
/// groups without ties would lose digits (beyond 350 + 350).
[[nodiscard]] std::optional<ExactTails> jonckheereTails(const ValueCounts& values, Score observed,
                                                        double steps);

}  // namespace TBVNonPara
