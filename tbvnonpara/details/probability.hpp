#pragma once

#include <optional>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara {

/// The one of three probabilities that the tails ask for; `first` is that of the first alternative, "greater"
/// for most tests, fewer runs.
[[nodiscard]] TBVNONPARA_API const statistics::Probability& inDirection(const statistics::Probability& two,
                                                                        const statistics::Probability& first,
                                                                        const statistics::Probability& second,
                                                                        TBVNPTails tails);

/// The probability that counts, in the direction that was asked for; none where there is nothing to test.
[[nodiscard]] TBVNONPARA_API std::optional<statistics::Probability> probabilityOf(const Details& details);
[[nodiscard]] TBVNONPARA_API std::optional<statistics::Probability> probabilityOf(const TestInFull& result,
                                                                                  TBVNPTails tails);

}  // namespace TBVNonPara
