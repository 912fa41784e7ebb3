#include "tbvnonpara/workbook/format_store.hpp"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace TBVNonPara::workbook {

const CellFormat& FormatStore::at(Index row, Index column) const {
    const auto runs = m_Columns.find(column);
    if (runs == m_Columns.end()) {
        return m_Formats[m_Everywhere];
    }
    return m_Formats[std::prev(runs->second.upper_bound(row))->second];
}

FormatStore::FormatId FormatStore::intern(const CellFormat& format) {
    const auto [known, isNew] = m_Ids.try_emplace(format, static_cast<FormatId>(m_Formats.size()));
    if (isNew) {
        m_Formats.push_back(format);
        m_AnySubscripts = m_AnySubscripts || !format.subscripts.empty();
    }
    return known->second;
}

void FormatStore::change(const Rectangle& area, const Change& change) {
    std::unordered_map<FormatId, FormatId> changed;
    replace(area, [&](FormatId id) {
        const auto [known, isNew] = changed.try_emplace(id, id);
        if (isNew) {
            CellFormat format = m_Formats[id];
            change(format);
            known->second = intern(format);
        }
        return known->second;
    });
}

void FormatStore::clear(const Rectangle& area) {
    if (area == wholeSheet) {
        *this = FormatStore();
        return;
    }
    replace(area, [](FormatId) { return FormatId(0); });
}

void FormatStore::dropSubscripts(const Rectangle& area) {
    if (m_AnySubscripts) {
        change(area, [](CellFormat& format) { format.subscripts.clear(); });
    }
}

void FormatStore::replace(const Rectangle& area, const Replace& replacement) {
    if (area == wholeSheet) {
        m_Everywhere = replacement(m_Everywhere);
        for (auto& [column, runs] : m_Columns) {
            replaceRows(runs, area.top, area.bottom, replacement);
        }
        return;
    }
    const bool keepsTheRest = replacement(m_Everywhere) == m_Everywhere;
    for (Index column = area.left; column <= area.right; ++column) {
        const auto known = m_Columns.lower_bound(column);
        if (known == m_Columns.end() || known->first != column) {
            if (keepsTheRest) {
                continue;
            }
            m_Columns.emplace_hint(known, column, Runs{{1, m_Everywhere}});
        }
        replaceRows(m_Columns[column], area.top, area.bottom, replacement);
    }
}

void FormatStore::replaceRows(Runs& runs, Index top, Index bottom, const Replace& replacement) {
    splitAt(runs, top);
    splitAt(runs, bottom + 1);
    for (auto run = runs.find(top); run != runs.end() && run->first <= bottom; ++run) {
        run->second = replacement(run->second);
    }
    joinEqual(runs, top, bottom);
}

void FormatStore::splitAt(Runs& runs, Index row) {
    if (row <= sheetRows) {
        runs.try_emplace(row, std::prev(runs.upper_bound(row))->second);
    }
}

void FormatStore::joinEqual(Runs& runs, Index top, Index bottom) {
    auto run = runs.find(top);
    while (run != runs.end() && run->first <= bottom + 1) {
        const bool likeTheOneAbove = run != runs.begin() && std::prev(run)->second == run->second;
        run = likeTheOneAbove ? runs.erase(run) : std::next(run);
    }
}

void FormatStore::copy(const FormatStore& from, const Rectangle& area, Index row, Index column) {
    std::unordered_map<FormatId, FormatId> ids;
    const auto translate = [&](FormatId id) {
        const auto [known, isNew] = ids.try_emplace(id, 0);
        if (isNew) {
            known->second = intern(from.m_Formats[id]);
        }
        return known->second;
    };
    for (Index source = area.left; source <= area.right; ++source) {
        const Index target = column + source - area.left;
        const auto paint = [&](Index top, Index bottom, FormatId id) {
            replace({top - area.top + row, target, bottom - area.top + row, target},
                    [&](FormatId) { return translate(id); });
        };
        const auto runs = from.m_Columns.find(source);
        if (runs == from.m_Columns.end()) {
            paint(area.top, area.bottom, from.m_Everywhere);
            continue;
        }
        auto run = std::prev(runs->second.upper_bound(area.top));
        for (; run != runs->second.end() && run->first <= area.bottom; ++run) {
            const auto next = std::next(run);
            const Index last = next == runs->second.end() ? sheetRows : next->first - 1;
            paint(std::max(run->first, area.top), std::min(last, area.bottom), run->second);
        }
    }
}

std::size_t FormatStore::entries() const noexcept {
    std::size_t entries = 1;
    for (const auto& [column, runs] : m_Columns) {
        entries += runs.size();
    }
    return entries;
}

}  // namespace TBVNonPara::workbook
