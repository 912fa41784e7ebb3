#include "adapters/calc/group_ticks.hpp"

#include <algorithm>
#include <utility>

namespace TBVNonPara::calc {

using reshaping::Group;

GroupTicks::GroupTicks(const std::vector<std::string>& names) : m_Touched(!names.empty()) {
    for (const std::string& name : names) {
        m_Groups.push_back({{name, 0}, true});
    }
}

/// Those that the user saw, in their order, then what is new.
void GroupTicks::keepTouched(const std::vector<Group>& groups) {
    std::vector<Tick> kept;
    for (const Tick& tick : m_Groups) {
        const auto found = std::ranges::find(groups, tick.group.name, &Group::name);
        if (found != groups.end()) {
            kept.push_back({*found, tick.ticked});
        }
    }
    m_Touched = !kept.empty();
    m_Groups = std::move(kept);
    for (const Group& group : groups) {
        const auto name = [](const Tick& tick) { return tick.group.name; };
        if (std::ranges::find(m_Groups, group.name, name) == m_Groups.end()) {
            m_Groups.push_back({group, false});
        }
    }
}

bool GroupTicks::show(const std::vector<Group>& groups, bool compareTwo) {
    const std::vector<std::string> before = lines();
    if (m_Touched) {
        keepTouched(groups);
    }
    if (!m_Touched) {
        m_Groups.clear();
        for (const Group& group : groups) {
            m_Groups.push_back({group, !compareTwo || groups.size() <= 2});
        }
    }
    return lines() != before;
}

void GroupTicks::toggle(std::size_t place) {
    if (place < m_Groups.size()) {
        m_Groups[place].ticked = !m_Groups[place].ticked;
        m_Touched = true;
    }
}

std::size_t GroupTicks::move(std::size_t place, int by) {
    const std::size_t target = place + static_cast<std::size_t>(by);
    if (place >= m_Groups.size() || target >= m_Groups.size()) {
        return place;
    }
    std::swap(m_Groups[place], m_Groups[target]);
    m_Touched = true;
    return target;
}

std::vector<std::string> GroupTicks::lines() const {
    std::vector<std::string> lines;
    for (const auto& [group, ticked] : m_Groups) {
        lines.push_back((ticked ? "\u2611 " : "\u2610 ") + group.name + " (" + std::to_string(group.size) +
                        ')');
    }
    return lines;
}

std::vector<std::string> GroupTicks::ticked() const {
    std::vector<std::string> names;
    for (const auto& [group, ticked] : m_Groups) {
        if (ticked) {
            names.push_back(group.name);
        }
    }
    return names;
}

}  // namespace TBVNonPara::calc
