#pragma once

#include <string>
#include <utility>
#include <vector>

namespace TBVNonPara::Scenarios {

/// The first lines of a list that may be very long, and how many more there are: as much as a person reads.
class FirstLines {
 public:
    static constexpr std::size_t most = 20;

    /// `makeLine` is called for a line that is kept; others are counted.
    void add(const auto& makeLine) {
        m_Count += 1;
        if (m_Count <= most) {
            m_Lines.push_back(makeLine());
        }
    }

    [[nodiscard]] std::vector<std::string> take() && {
        if (m_Count > most) {
            m_Lines.push_back("  and " + std::to_string(m_Count - most) + " more");
        }
        return std::move(m_Lines);
    }

 private:
    std::size_t m_Count = 0;
    std::vector<std::string> m_Lines;
};

}  // namespace TBVNonPara::Scenarios
