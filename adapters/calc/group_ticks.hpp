#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/reshaping/groups.hpp"

namespace TBVNonPara::calc {

/// The groups of a column as a list to tick and to order.
class GroupTicks {
 public:
    GroupTicks() = default;
    /// Begins with these groups ticked, in this order, as far as the column has them.
    explicit GroupTicks(const std::vector<std::string>& names);

    /// Takes over the groups of the column. What the user ticked and ordered stays, until none of it is left;
    /// before that all are ticked, as far as the test does not compare two and there are more. Whether the
    /// list looks otherwise now.
    bool show(const std::vector<reshaping::Group>& groups, bool compareTwo);

    void toggle(std::size_t place);
    /// Moves a group one place up (-1) or down (1), as far as there is one; returns where it stands then.
    std::size_t move(std::size_t place, int by);

    /// "\u2611 casein (12)".
    [[nodiscard]] std::vector<std::string> lines() const;
    /// The names of those that are ticked, in their order.
    [[nodiscard]] std::vector<std::string> ticked() const;
    [[nodiscard]] std::size_t size() const noexcept { return m_Groups.size(); }

 private:
    struct Tick {
        reshaping::Group group;
        bool ticked = false;
    };

    void keepTouched(const std::vector<reshaping::Group>& groups);

    std::vector<Tick> m_Groups;
    bool m_Touched = false;
};

}  // namespace TBVNonPara::calc
