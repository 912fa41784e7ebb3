#include "tests/whole/scenarios/comparison.hpp"

#include <algorithm>
#include <cmath>

#include "tests/whole/scenarios/addresses.hpp"
#include "tests/whole/scenarios/cells.hpp"
#include "tests/whole/scenarios/first_lines.hpp"

namespace TBVNonPara::Scenarios {

namespace {

struct GridSize {
    Index rows = 0;
    Index columns = 0;

    friend bool operator==(const GridSize&, const GridSize&) = default;
};

GridSize sizeOf(const ValueGrid& cells) {
    return cells.allocated() ? GridSize{toIndex(cells.rows()), toIndex(cells.columns())} : GridSize{};
}

/// Beyond its last row and column a report is empty.
CellValue cellAt(const ValueGrid& cells, Index row, Index column) {
    const GridSize size = sizeOf(cells);
    return row <= size.rows && column <= size.columns ? cells(row, column) : CellValue(Empty());
}

std::string inWords(const GridSize& size) {
    return std::to_string(size.rows) + " rows and " + std::to_string(size.columns) + " columns";
}

/// The heading of a block and its lines from `first` on.
std::vector<std::string> excerpt(const std::string& title, const Block& block, std::size_t first) {
    FirstLines lines;
    lines.add([&] { return title + ": " + block.keyword + ' ' + block.argument; });
    for (std::size_t i = first; i < block.lines.size(); ++i) {
        lines.add([&] { return "  " + block.lines[i]; });
    }
    return std::move(lines).take();
}

}  // namespace

bool agree(const CellValue& expected, const CellValue& received, EmptyTexts emptyTexts) {
    const double* x = std::get_if<double>(&expected);
    const double* y = std::get_if<double>(&received);
    if (x != nullptr && y != nullptr) {
        return std::abs(*x - *y) <= 1e-12 * std::max(std::abs(*x), std::abs(*y));
    }
    const bool mayBeBlank = emptyTexts == EmptyTexts::Blank && expected == CellValue(Text());
    return expected == received || (mayBeBlank && isEmpty(received));
}

ComparedReport compareReports(const ValueGrid& expected, const ValueGrid& received, const Rectangle& place,
                              EmptyTexts emptyTexts) {
    ComparedReport report{received, {}};
    const GridSize wanted = sizeOf(expected);
    const GridSize found = sizeOf(received);
    FirstLines lines;
    if (wanted != found) {
        lines.add([&] { return "  " + inWords(found) + "; expected " + inWords(wanted); });
    }
    for (Index row = 1; row <= std::max(wanted.rows, found.rows); ++row) {
        for (Index column = 1; column <= std::max(wanted.columns, found.columns); ++column) {
            const CellValue value = cellAt(expected, row, column);
            const CellValue instead = cellAt(received, row, column);
            if (!agree(value, instead, emptyTexts)) {
                lines.add([&] {
                    return "  " + plainAddress(place.top + row - 1, place.left + column - 1) + " holds " +
                           writeCell(instead) + "; expected " + writeCell(value);
                });
            } else if (row <= found.rows && column <= found.columns) {
                report.asWritten(row, column) = value;
            }
        }
    }
    report.differences = std::move(lines).take();
    return report;
}

std::vector<std::string> blockDifferences(const Block& expected, const Block& received) {
    const auto [here, there] = std::ranges::mismatch(expected.lines, received.lines);
    const auto first = static_cast<std::size_t>(here - expected.lines.begin());
    std::vector<std::string> lines = excerpt("expected", expected, first);
    std::ranges::move(excerpt("received", received, first), std::back_inserter(lines));
    return lines;
}

}  // namespace TBVNonPara::Scenarios
