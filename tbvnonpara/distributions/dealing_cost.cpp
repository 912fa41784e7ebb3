#include "tbvnonpara/distributions/dealing_cost.hpp"

#include <algorithm>
#include <vector>

namespace TBVNonPara {

namespace {

constexpr double bytesAllowed = 128 << 20;  // as much again for the states before

/// What dealing values to groups takes, looked at before it begins: the states that hold a number of values,
/// and the ways to deal the next ones to each.
class CostOfDealing {
 public:
    CostOfDealing(std::span<const std::size_t> sizes, double steps)
        : m_Sizes(sizes.begin(), sizes.end()), m_RoomFrom(m_Sizes), m_Steps(steps), m_Room(sizes.size()) {
        for (std::size_t group = sizes.size() - 1; group > 0; --group) {
            m_RoomFrom[group - 1] += m_RoomFrom[group];
        }
    }

    /// Whether there are steps and memory for dealing `equal` values where `held` are dealt, and for what was
    /// asked before.
    bool allows(std::size_t held, std::size_t equal) {
        m_Equal = equal;
        m_Bytes = 0;
        visit(0, held, 0, 0);
        return isWithin();
    }

 private:
    [[nodiscard]] bool isWithin() const { return m_Steps >= 0 && m_Bytes <= bytesAllowed; }

    /// All states that differ from this group on, of which the groups before hold so many values in so many
    /// pairs.
    void visit(std::size_t group, std::size_t left, std::size_t before, std::size_t pairs) {
        if (group == m_Sizes.size()) {
            addState(static_cast<double>(2 * pairs + 1));
            return;
        }
        const std::size_t behind = group + 1 < m_Sizes.size() ? m_RoomFrom[group + 1] : 0;
        for (std::size_t here = left - std::min(left, behind); here <= std::min(left, m_Sizes[group]);
             ++here) {
            m_Room[group] = m_Sizes[group] - here;
            visit(group + 1, left - here, before + here, pairs + before * here);
            if (!isWithin()) {
                return;
            }
        }
    }

    void addState(double chances) {
        constexpr double ofNode = 128;  // of a map, with the heads of two vectors
        const auto groups = static_cast<double>(m_Sizes.size());
        m_Bytes += ofNode + groups * sizeof(std::size_t) + chances * sizeof(double);
        m_Steps -= m_Equal > 0 ? waysToDeal() * (chances + groups) : 0;
    }

    /// A group more takes 0, 1, ... of the values, as many as it has room for.
    [[nodiscard]] double waysToDeal() {
        m_Ways.assign(m_Equal + 1, 0);
        m_Ways[0] = 1;
        for (const std::size_t room : m_Room) {
            m_Sums.resize(m_Equal + 1);
            double sum = 0;
            for (std::size_t dealt = 0; dealt <= m_Equal; ++dealt) {
                sum += m_Ways[dealt] - (dealt > room ? m_Ways[dealt - room - 1] : 0);
                m_Sums[dealt] = sum;
            }
            m_Ways.swap(m_Sums);
        }
        return m_Ways[m_Equal];
    }

    std::vector<std::size_t> m_Sizes;
    std::vector<std::size_t> m_RoomFrom;  ///< of a group and all after it
    double m_Steps;
    double m_Bytes = 0;
    std::size_t m_Equal = 0;
    std::vector<std::size_t> m_Room;
    std::vector<double> m_Ways;
    std::vector<double> m_Sums;
};

}  // namespace

bool canBeDealt(std::span<const std::size_t> sizes, std::span<const std::size_t> equal, double steps) {
    struct Level {
        std::size_t held = 0;
        std::size_t equal = 0;
    };
    std::vector<Level> levels;
    std::size_t held = 0;
    for (const std::size_t next : equal) {
        levels.push_back({held, next});
        held += next;
    }
    levels.push_back({held, 0});
    // The states are the most where half the values are dealt.
    std::ranges::sort(levels, {}, [held](const Level& level) {
        return std::max(2 * level.held, held) - std::min(2 * level.held, held);
    });
    CostOfDealing cost(sizes, steps);
    return std::ranges::all_of(levels,
                               [&](const Level& level) { return cost.allows(level.held, level.equal); });
}

}  // namespace TBVNonPara
