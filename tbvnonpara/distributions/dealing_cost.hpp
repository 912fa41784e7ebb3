#pragma once

#include <cstddef>
#include <span>

namespace TBVNonPara {

/// Whether values can be dealt to groups of these sizes, `equal` of them at a time, within so many steps and
/// 256 MB, where each state, what the groups hold, has the chances of twice Jonckheere's sum. Takes a small
/// part of the time that the dealing itself would.
[[nodiscard]] bool canBeDealt(std::span<const std::size_t> sizes, std::span<const std::size_t> equal,
                              double steps);

}  // namespace TBVNonPara
