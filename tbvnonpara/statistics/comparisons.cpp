#include "tbvnonpara/statistics/comparisons.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace TBVNonPara::statistics {

namespace {

Probability times(const Probability& p, double factor) {
    return {std::min(p.value * factor, 1.0), std::min(p.log10 + std::log10(factor), 0.0)};
}

const Probability& larger(const Probability& a, const Probability& b) {
    return a.log10 < b.log10 ? b : a;
}

const Probability& smaller(const Probability& a, const Probability& b) {
    return b.log10 < a.log10 ? b : a;
}

/// Holm's factors descend from m; the result never falls below that of a smaller probability.
void adjustByHolm(const std::vector<Probability>& given, const std::vector<std::size_t>& ascending,
                  std::vector<Probability>& result) {
    Probability before{0, -std::numeric_limits<double>::infinity()};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        before = larger(before, times(given[ascending[i]], static_cast<double>(ascending.size() - i)));
        result[ascending[i]] = before;
    }
}

/// m over the rank, from the largest down; the result never exceeds that of a larger probability.
void adjustByRate(const std::vector<Probability>& given, const std::vector<std::size_t>& ascending,
                  std::vector<Probability>& result) {
    Probability after;
    const auto m = static_cast<double>(ascending.size());
    for (std::size_t i = ascending.size(); i-- > 0;) {
        after = smaller(after, times(given[ascending[i]], m / (static_cast<double>(i) + 1)));
        result[ascending[i]] = after;
    }
}

using Column = std::vector<bool>;  // the groups that share a letter

bool holds(const Column& larger, const Column& smaller) {
    for (std::size_t i = 0; i < larger.size(); ++i) {
        if (smaller[i] && !larger[i]) {
            return false;
        }
    }
    return true;
}

/// Leaves out columns that another one holds.
void absorb(std::vector<Column>& columns) {
    std::vector<Column> kept;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        bool absorbed = false;
        for (std::size_t j = 0; j < columns.size() && !absorbed; ++j) {
            absorbed = i != j && holds(columns[j], columns[i]) && (columns[i] != columns[j] || j < i);
        }
        if (!absorbed) {
            kept.push_back(columns[i]);
        }
    }
    columns = std::move(kept);
}

/// Each column with both groups of a differing pair becomes two, each without one of them.
void insert(std::vector<Column>& columns, const GroupPair& pair) {
    const std::size_t before = columns.size();
    for (std::size_t i = 0; i < before; ++i) {
        if (columns[i][pair.first] && columns[i][pair.second]) {
            Column second = columns[i];
            columns[i][pair.first] = false;
            second[pair.second] = false;
            columns.push_back(std::move(second));
        }
    }
    absorb(columns);
}

/// a ... z, then aa, ab, ... for columns beyond.
std::string letter(std::size_t column) {
    std::string text;
    for (std::size_t i = column + 1; i > 0; i = (i - 1) / 26) {
        text.insert(text.begin(), static_cast<char>('a' + (i - 1) % 26));
    }
    return text;
}

}  // namespace

std::vector<GroupPair> pairsOfGroups(std::size_t groups, std::optional<std::size_t> control) {
    std::vector<GroupPair> pairs;
    for (std::size_t i = 0; i < groups; ++i) {
        for (std::size_t j = i + 1; j < groups; ++j) {
            if (!control || i == *control || j == *control) {
                pairs.push_back({i, j});
            }
        }
    }
    return pairs;
}

std::vector<Probability> adjusted(const std::vector<Probability>& probabilities, Adjustment adjustment) {
    std::vector<std::size_t> ascending(probabilities.size());
    std::iota(ascending.begin(), ascending.end(), std::size_t(0));
    std::ranges::stable_sort(ascending, {}, [&](std::size_t i) { return probabilities[i].log10; });
    std::vector<Probability> result = probabilities;
    switch (adjustment) {
        case Adjustment::Holm:
            adjustByHolm(probabilities, ascending, result);
            break;
        case Adjustment::Bonferroni:
            std::ranges::transform(probabilities, result.begin(), [&](const Probability& p) {
                return times(p, static_cast<double>(probabilities.size()));
            });
            break;
        case Adjustment::BenjaminiHochberg:
            adjustByRate(probabilities, ascending, result);
            break;
        case Adjustment::None:
            break;
    }
    return result;
}

std::optional<std::vector<std::string>> lettersOf(const std::vector<double>& ranks,
                                                  const std::vector<GroupPair>& differ) {
    constexpr std::size_t mostGroups = 200;
    constexpr std::size_t mostLetters = 2000;
    if (ranks.size() > mostGroups) {
        return std::nullopt;
    }
    std::vector<Column> columns = {Column(ranks.size(), true)};
    const auto stepsFor = [](std::size_t letters) {
        return static_cast<double>(letters) * static_cast<double>(letters);
    };
    LongCount count(stepsFor(2 * mostLetters) * static_cast<double>(differ.size()));
    for (const GroupPair& pair : differ) {
        insert(columns, pair);
        count.add(stepsFor(columns.size()));
        if (columns.size() > mostLetters) {
            return std::nullopt;
        }
    }
    std::vector<std::size_t> descending(ranks.size());
    std::iota(descending.begin(), descending.end(), std::size_t(0));
    std::ranges::stable_sort(descending, std::greater<>(), [&](std::size_t i) { return ranks[i]; });
    // The first letter goes to the column with the largest group.
    std::ranges::stable_sort(columns, std::greater<>(), [&](const Column& column) {
        Column inOrder(ranks.size());
        std::transform(descending.begin(), descending.end(), inOrder.begin(),
                       [&](std::size_t i) { return column[i]; });
        return inOrder;
    });
    std::vector<std::string> letters(ranks.size());
    for (std::size_t column = 0; column < columns.size(); ++column) {
        for (std::size_t i = 0; i < ranks.size(); ++i) {
            letters[i] += columns[column][i] ? letter(column) : "";
        }
    }
    return letters;
}

}  // namespace TBVNonPara::statistics
