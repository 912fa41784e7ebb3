#include "tbvnonpara/reshaping/groups.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const noexcept {
        return std::hash<std::string_view>()(name);
    }
};

/// Finds the group of a cell, and begins one for a new name.
class Register {
 public:
    std::int32_t groupOf(const CellValue& cell) {
        if (const auto* const text = std::get_if<Text>(&cell)) {
            return named(trimmed(text->string(), " \t"));
        }
        if (const auto* const number = std::get_if<double>(&cell)) {
            const auto known = m_Numbers.find(*number);
            return known != m_Numbers.end() ? known->second
                                            : m_Numbers.emplace(*number, named(toText(cell))).first->second;
        }
        if (const auto* const truth = std::get_if<bool>(&cell)) {
            return named(*truth ? "TRUE" : "FALSE");
        }
        return named(toText(cell));
    }

    [[nodiscard]] std::vector<Group> names() && { return std::move(m_Groups); }

 private:
    std::int32_t named(std::string_view name) {
        const auto known = m_Names.find(name);
        if (known != m_Names.end()) {
            return known->second;
        }
        const auto number = static_cast<std::int32_t>(m_Groups.size());
        m_Groups.push_back({std::string(name), 0});
        m_Names.emplace(name, number);
        return number;
    }

    std::vector<Group> m_Groups;
    std::unordered_map<std::string, std::int32_t, NameHash, std::equal_to<>> m_Names;
    std::unordered_map<double, std::int32_t> m_Numbers;
};

/// What was found out about texts that cells share: most tables have few of them.
class SharedTexts {
 public:
    /// The group noted for the text, if it was the last one at its place.
    [[nodiscard]] const std::int32_t* groupOf(const std::string& text) const noexcept {
        const Entry& entry = m_Entries.at(placeOf(&text));
        return entry.text == &text ? &entry.group : nullptr;
    }

    void note(const std::string& text, std::int32_t group) noexcept {
        m_Entries.at(placeOf(&text)) = {&text, group};
    }

 private:
    struct Entry {
        const std::string* text = nullptr;
        std::int32_t group = Groups::none;
    };

    static constexpr std::size_t entries = 1024;

    /// By Knuth's multiplicative hashing: neighbours in memory come to stand far apart.
    static std::size_t placeOf(const std::string* text) noexcept {
        constexpr std::uint64_t golden = 0x9E3779B97F4A7C15U;
        const std::uint64_t address = std::hash<const void*>()(text);
        return static_cast<std::size_t>((address * golden) >> 54U) % entries;
    }

    std::array<Entry, entries> m_Entries;
};

std::int32_t numberOf(const std::vector<Group>& groups, std::string_view name) {
    const auto found = std::ranges::find(groups, name, &Group::name);
    return found == groups.end() ? Groups::none : static_cast<std::int32_t>(found - groups.begin());
}

[[noreturn]] void refuseName(const std::string& wrong, const Column& column, const Groups& groups) {
    throw Refusal(tbvNPTooFewGroups,
                  wrong + "; the groups of " + nameOf(column) + " are " + sizesOf(groups.groups) + '.');
}

}  // namespace

Groups groupsIn(const Column& column, const Missing& missing) {
    Groups result;
    result.ofCell.reserve(column.cells.size());
    Register found;
    SharedTexts shared;
    for (const CellValue& cell : column.cells) {
        const auto* const held = std::get_if<Text>(&cell);
        const std::string* const text = held == nullptr ? nullptr : &held->string();
        const std::int32_t* const known = text == nullptr ? nullptr : shared.groupOf(*text);
        const std::int32_t group = known != nullptr           ? *known
                                   : missing.amongNames(cell) ? Groups::none
                                                              : found.groupOf(cell);
        result.missing += group == Groups::none ? 1 : 0;
        result.ofCell.push_back(group);
        if (text != nullptr && known == nullptr) {
            shared.note(*text, group);
        }
    }
    result.groups = std::move(found).names();
    for (const std::int32_t group : result.ofCell) {
        if (group != Groups::none) {
            result.groups[static_cast<std::size_t>(group)].size += 1;
        }
    }
    return result;
}

Groups pickGroups(Groups groups, const std::vector<std::string>& names, const Column& column) {
    if (names.empty()) {
        return groups;
    }
    std::vector<std::int32_t> place(groups.groups.size(), Groups::none);
    std::vector<Group> picked;
    for (const std::string& name : names) {
        const std::int32_t number = numberOf(groups.groups, name);
        if (number == Groups::none) {
            refuseName("There is no group " + inQuotes(name), column, groups);
        }
        std::int32_t& taken = place[static_cast<std::size_t>(number)];
        if (taken != Groups::none) {
            refuseName("The group " + inQuotes(name) + " is picked twice", column, groups);
        }
        taken = static_cast<std::int32_t>(picked.size());
        picked.push_back(groups.groups[static_cast<std::size_t>(number)]);
    }
    for (std::int32_t& group : groups.ofCell) {
        if (group != Groups::none) {
            group = place[static_cast<std::size_t>(group)];
            groups.others += group == Groups::none ? 1 : 0;
        }
    }
    groups.groups = std::move(picked);
    return groups;
}

std::string sizesOf(const std::vector<Group>& groups) {
    constexpr std::size_t most = 24;
    std::string list;
    for (std::size_t i = 0; i < std::min(most, groups.size()); ++i) {
        list += (i == 0 ? "" : ", ") + shortened(groups[i].name, 40) + " (" + std::to_string(groups[i].size) +
                ')';
    }
    return groups.size() > most ? list + " and " + std::to_string(groups.size() - most) + " more" : list;
}

std::vector<Column> splitByGroup(const Column& values, const Groups& groups) {
    std::vector<Column> columns;
    for (const Group& group : groups.groups) {
        Column& column = columns.emplace_back();
        column.sheet = values.sheet;
        column.place = values.place;
        column.turned = values.turned;
        column.header = group.name;
    }
    std::vector<std::size_t> filled(columns.size());
    for (const std::int32_t group : groups.ofCell) {
        if (group != Groups::none) {
            filled[static_cast<std::size_t>(group)] += 1;
        }
    }
    for (std::size_t group = 0; group < columns.size(); ++group) {
        columns[group].rows.resize(filled[group]);
        columns[group].cells.resize(std::exchange(filled[group], 0));
    }
    for (std::size_t cell = 0; cell < values.cells.size(); ++cell) {
        if (groups.ofCell[cell] != Groups::none) {
            const auto group = static_cast<std::size_t>(groups.ofCell[cell]);
            const std::size_t place = filled[group]++;
            columns[group].rows[place] = values.rows[cell];
            if (const auto* const number = std::get_if<double>(&values.cells[cell])) {
                columns[group].cells[place] = *number;
            } else {
                columns[group].cells[place] = values.cells[cell];
            }
        }
    }
    return columns;
}

}  // namespace TBVNonPara::reshaping
