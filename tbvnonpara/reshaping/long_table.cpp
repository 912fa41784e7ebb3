#include "tbvnonpara/reshaping/long_table.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/blocks.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

/// Rows that name nothing are refused, or left out when that is asked for.
void requireNames(const Column& column, const Groups& groups, bool omit, std::string_view what) {
    if (groups.missing == 0 || omit) {
        return;
    }
    const auto found = std::ranges::find(groups.ofCell, Groups::none) - groups.ofCell.begin();
    const std::string first = nameOfCell(column, static_cast<std::size_t>(found));
    throw Refusal(tbvNPBlankInData,
                  nameOf(column) + " names no " + std::string(what) + " in " +
                      counted(groups.missing, "row", "rows") + "; the first is " + first + '.',
                  Remedy::OmitMissing)
        .about(Reason::NamesMissing, {nameOf(column), std::to_string(groups.missing), first});
}

std::vector<std::string> firstNames(const std::vector<Group>& groups, std::size_t most) {
    std::vector<std::string> names;
    for (const Group& group : groups) {
        if (names.size() < most) {
            names.push_back(group.name);
        }
    }
    return names;
}

void requireNumberOfGroups(const Column& column, const Groups& groups, const Wishes& wishes) {
    const std::size_t count = groups.groups.size();
    if (count < 2) {
        throw Refusal(tbvNPTooFewGroups,
                      nameOf(column) +
                          (count == 0 ? " names no group" : " has one group, " + sizesOf(groups.groups)) +
                          "; the test compares " + (wishes.mostGroups == 2 ? "two." : "two or more."))
            .about(count == 0 ? Reason::NoGroup : Reason::OneGroup, {nameOf(column), sizesOf(groups.groups)});
    }
    if (count > wishes.mostGroups) {
        throw Refusal(tbvNPTooFewGroups,
                      nameOf(column) + " has " + std::to_string(count) + " groups, " +
                          sizesOf(groups.groups) + "; the test compares two.",
                      Remedy::PickGroups, firstNames(groups.groups, 2))
            .about(Reason::TooManyGroups, {nameOf(column), std::to_string(count), sizesOf(groups.groups)});
    }
}

void keepRows(LongTable& table, const std::vector<bool>& keep) {
    keepCells(table.values, keep);
    keepCells(table.groups, keep);
    if (table.blocks) {
        keepCells(*table.blocks, keep);
    }
}

/// The rows that belong to a group that counts, and to a block.
std::vector<bool> rowsThatCount(const Groups& groups, const std::optional<Groups>& blocks) {
    std::vector<bool> keep(groups.ofCell.size());
    for (std::size_t row = 0; row < keep.size(); ++row) {
        keep[row] = groups.ofCell[row] != Groups::none && (!blocks || blocks->ofCell[row] != Groups::none);
    }
    return keep;
}

/// The long table's rows of the groups that are asked for, and their groups.
Groups settleGroups(LongTable& table, const Wishes& wishes, Account& account) {
    Groups groups = pickGroups(groupsIn(table.groups, wishes.missing), wishes.groups, table.groups);
    requireNames(table.groups, groups, wishes.omitMissing, "group");
    if (!table.blocks && groups.missing == 0 && groups.others == 0) {
        return groups;
    }
    std::optional<Groups> blocks;
    if (table.blocks) {
        blocks = groupsIn(*table.blocks, wishes.missing);
        requireNames(*table.blocks, *blocks, wishes.omitMissing, "block");
    }
    const std::vector<bool> keep = rowsThatCount(groups, blocks);
    const auto dropped = static_cast<std::size_t>(std::ranges::count(keep, false));
    account.otherGroups = groups.others;
    account.unnamed = dropped - groups.others;
    if (dropped == 0) {
        return groups;
    }
    keepRows(table, keep);
    return pickGroups(groupsIn(table.groups, wishes.missing), wishes.groups, table.groups);
}

/// The first block with a gap, and how many there are. Where all have one nothing would be left.
[[noreturn]] void refuseGaps(const MatchedBlocks& matched, const Gap& gap, const Column& blockColumn,
                             const Groups& blocks) {
    const bool all = gap.rows == matched.blocks.size();
    const auto block = static_cast<std::size_t>(matched.blocks[gap.row]);
    throw Refusal(tbvNPBlankInData,
                  (all ? "No block of " + nameOf(blockColumn) + " has a value of every group"
                       : counted(gap.rows, "block", "blocks") + " of " + nameOf(blockColumn) +
                             (gap.rows == 1 ? " lacks" : " lack") + " a value") +
                      "; the first is " + inQuotes(blocks.groups[block].name) + ", without one of " +
                      inQuotes(matched.columns[gap.column].header) + '.',
                  all ? Remedy::CorrectData : Remedy::OmitMissing)
        .about(Reason::BlocksIncomplete, {nameOf(blockColumn), std::to_string(gap.rows),
                                          blocks.groups[block].name, matched.columns[gap.column].header});
}

void match(const LongTable& table, const Groups& groups, const Wishes& wishes, Reshaped& result) {
    const Groups blocks = groupsIn(*table.blocks, wishes.missing);
    MatchedBlocks matched = matchBlocks(table.values, groups, *table.blocks, blocks);
    const Gap gap = firstGap(matched.columns);
    if (gap.rows > 0 && (!wishes.omitMissing || gap.rows == matched.blocks.size())) {
        refuseGaps(matched, gap, *table.blocks, blocks);
    }
    result.account.units = matched.blocks.size();
    result.account.missing = dropGaps(matched.columns);
    result.columns = std::move(matched.columns);
}

void split(LongTable& table, Groups groups, std::size_t missing, const Wishes& wishes, Reshaped& result) {
    result.account.units = table.values.cells.size();
    result.account.missing = missing;
    if (missing > 0) {
        keepRows(table, filledCells(table.values));
        groups = pickGroups(groupsIn(table.groups, wishes.missing), wishes.groups, table.groups);
        requireNumberOfGroups(table.groups, groups, wishes);
    }
    result.columns = splitByGroup(table.values, groups);
}

}  // namespace

Reshaped fromLong(LongTable table, const Wishes& wishes) {
    requireEqualRows(table.values, table.groups);
    if (table.blocks) {
        requireEqualRows(table.values, *table.blocks);
    }
    Reshaped result;
    result.account.unit = wishes.unit;
    result.account.rows = table.values.cells.size();
    emptyMissingCodes(table.groups, wishes.missing);
    if (table.blocks) {
        emptyMissingCodes(*table.blocks, wishes.missing);
    }
    Groups groups = settleGroups(table, wishes, result.account);
    requireNumberOfGroups(table.groups, groups, wishes);
    const MissingCells missing = makeNumbers(table.values, wishes.missing);
    settleMissing(table.values, missing, wishes);
    if (table.blocks) {
        match(table, groups, wishes, result);
    } else {
        split(table, std::move(groups), missing.count, wishes, result);
    }
    describeGroups(result);
    return result;
}

}  // namespace TBVNonPara::reshaping
