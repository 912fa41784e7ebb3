#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <string>

#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara::Support {

/// All that is told of the groups, as one text with every digit.
inline std::string told(const clsNonParaBO& engine) {
    std::string text;
    const auto add = [&](const auto& values) {
        text += values.allocated() ? ";" : "none;";
        if constexpr (requires { values.rows(); }) {
            for (Long c = 1; values.allocated() && c <= values.columns(); ++c) {
                for (const double value : values.column(c)) {
                    text += std::to_string(std::bit_cast<std::uint64_t>(value)) + ' ';
                }
            }
        } else {
            for (const auto value : values.elements()) {
                if constexpr (std::same_as<decltype(value), const double>) {
                    text += std::to_string(std::bit_cast<std::uint64_t>(value)) + ' ';
                } else {
                    text += std::to_string(value.value()) + ' ';
                }
            }
        }
    };
    add(engine.GetMediansRank());  // first what comes last: any of them may be the first that is asked for
    add(engine.GetData());
    add(engine.GetRanks());
    add(engine.GetMediansRaw());
    add(engine.GetSumsRaw());
    add(engine.GetNsRaw());
    add(engine.GetSumsRank());
    add(engine.GetNsRank());
    return text;
}

}  // namespace TBVNonPara::Support
