#pragma once

#include <cstddef>
#include <functional>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// Runs work(part) for the parts from 0 on, each on a thread of its own, the first on the caller's, and
/// returns when all have ended. Raises what the lowest part raised that raised anything.
TBVNONPARA_API void inParallel(std::size_t parts, const std::function<void(std::size_t)>& work);

/// Where the piece of so many elements begins when they are dealt to parts as evenly as possible.
[[nodiscard]] constexpr std::size_t beginOfPart(std::size_t part, std::size_t parts,
                                                std::size_t elements) noexcept {
    return elements / parts * part + elements % parts * part / parts;
}

/// How many parts are worth a thread of their own.
[[nodiscard]] constexpr std::size_t partsWorthwhile(std::size_t threads, std::size_t elements) noexcept {
    constexpr std::size_t fewest =
        100'000;  // What starting a thread takes is a hundredth of the work on them.
    const std::size_t most = elements / fewest + 1;
    return threads == 0 ? 1 : threads < most ? threads : most;
}

}  // namespace TBVNonPara
