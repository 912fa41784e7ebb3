#include "tbvnonpara/companion/own/contingency_statistics.hpp"

#include <algorithm>
#include <cmath>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

namespace {

double readCount(const CellValue& cell) {
    const double count = toDouble(cell);
    if (!(count >= 0)) {
        raise(RuntimeError::InvalidProcedureCall);
    }
    return count;
}

Grid<double> readCounts(const ValueGrid& table, bool labels) {
    const Long skipped = labels ? 1 : 0;
    const Long rows = table.rows() - skipped;
    const Long columns = table.columns() - skipped;
    if (rows < Long(2) || columns < Long(2)) {
        throw Error(tbvNPNoContingencyTable,
                    "The contingency table has no degrees of freedom: it needs at least two rows and two "
                    "columns of counts.");
    }
    Grid<double> counts(rows, columns);
    for (Long j = 1; j <= columns; ++j) {
        for (Long i = 1; i <= rows; ++i) {
            counts(i, j) = readCount(table(i + skipped, j + skipped));
        }
    }
    return counts;
}

void addMargins(ContingencyTable& table) {
    const Long rows = table.observed.rows();
    const Long columns = table.observed.columns();
    table.rowSums = Array<double>(rows);
    table.columnSums = Array<double>(columns);
    for (Long j = 1; j <= columns; ++j) {
        for (Long i = 1; i <= rows; ++i) {
            table.rowSums(i) += table.observed(i, j);
            table.columnSums(j) += table.observed(i, j);
        }
        table.n += table.columnSums(j);
    }
}

void addExpected(ContingencyTable& table) {
    const Long rows = table.observed.rows();
    const Long columns = table.observed.columns();
    table.expected = Grid<double>(rows, columns);
    for (Long j = 1; j <= columns; ++j) {
        for (Long i = 1; i <= rows; ++i) {
            table.expected(i, j) = table.rowSums(i) * table.columnSums(j) / table.n;
        }
    }
}

// O - E from whole products, so that it is exactly 0 or rounded once; subtracting the rounded E would leave
// noise when a large table is nearly proportional.
double residual(const ContingencyTable& table, Long i, Long j) {
    return (table.observed(i, j) * table.n - table.rowSums(i) * table.columnSums(j)) / table.n;
}

// O ln(O / E) - (O - E) by Loader's series near O = E. The differences add up to 0 over a table, so the sum
// is that of O ln(O / E); but no term is negative and none cancels another, where the plain sum of a large,
// nearly proportional table is noise that may fall below 0, which hosts refuse.
double devianceTerm(double O, double E, double difference) {
    if (O == 0) {
        return E;
    }
    const double v = difference / (O + E);
    if (std::abs(v) > 0.1) {
        return O * std::log(O / E) - difference;
    }
    double sum = difference * v;
    double power = 2 * O * v;
    for (int odd = 3; odd <= 19; odd += 2) {
        power *= v * v;
        sum += power / odd;
    }
    return sum;
}

double marginProduct(const ContingencyTable& table) {
    return table.rowSums(1) * table.rowSums(2) * table.columnSums(1) * table.columnSums(2);
}

/// |ad - bc|, which is n |O - E| for each of the four cells.
double crossDifference(const ContingencyTable& table) {
    const Grid<double>& counts = table.observed;
    return std::abs(counts(1, 1) * counts(2, 2) - counts(1, 2) * counts(2, 1));
}

/// A statistic over the product of the margins. An empty row or column leaves nothing to compare.
double overMargins(double numerator, const ContingencyTable& table) {
    const double product = marginProduct(table);
    return product == 0 ? 0 : numerator / product;
}

/// Haber's D. When two cells share the smallest expected frequency, either gives the same.
double haberDifference(const ContingencyTable& table) {
    const Long row = table.rowSums(1) <= table.rowSums(2) ? 1 : 2;
    const Long column = table.columnSums(1) <= table.columnSums(2) ? 1 : 2;
    const double d = crossDifference(table) / table.n;
    // Compared without the division, which could round the two sides apart.
    const bool withinTwice =
        table.observed(row, column) * table.n <= 2 * table.rowSums(row) * table.columnSums(column);
    const double D = withinTwice ? (std::ceil(2 * d) - 1) / 2 : d - 0.5;
    return std::max(D, 0.0);
}

}  // namespace

ContingencyTable contingencyTable(const ValueGrid& table, bool labels) {
    ContingencyTable result;
    result.observed = readCounts(table, labels);
    addMargins(result);
    if (result.n == 0) {
        throw Error(tbvNPNoContingencyTable, "The contingency table holds no observation: every count is 0.");
    }
    addExpected(result);
    return result;
}

std::string warningOn(const Grid<double>& expected) {
    Long cells;
    Long belowFive;
    Long belowOne;
    for (Long j = 1; j <= expected.columns(); ++j) {
        for (const double frequency : expected.column(j)) {
            cells += 1;
            belowFive += frequency < 5 ? 1 : 0;
            belowOne += frequency < 1 ? 1 : 0;
        }
    }
    if (5 * toDouble(belowFive) <= toDouble(cells) && belowOne == Long(0)) {
        return {};
    }
    return "Of " + toText(cells) + " expected frequencies " + toText(belowFive) + " are below 5 and " +
           toText(belowOne) + " are below 1; the probabilities may be inaccurate.";
}

double pearsonChiSquare(const ContingencyTable& table) {
    double chiSquare = 0;
    for (Long j = 1; j <= table.observed.columns(); ++j) {
        for (Long i = 1; i <= table.observed.rows(); ++i) {
            if (table.expected(i, j) > 0) {
                const double difference = residual(table, i, j);
                chiSquare += difference * difference / table.expected(i, j);
            }
        }
    }
    return chiSquare;
}

double logLikelihoodG(const ContingencyTable& table) {
    double sum = 0;
    for (Long j = 1; j <= table.observed.columns(); ++j) {
        for (Long i = 1; i <= table.observed.rows(); ++i) {
            sum += devianceTerm(table.observed(i, j), table.expected(i, j), residual(table, i, j));
        }
    }
    return 2 * sum;
}

double yatesChiSquare(const ContingencyTable& table) {
    const double difference = std::max(crossDifference(table) - table.n / 2, 0.0);
    return overMargins(table.n * difference * difference, table);
}

double cochranChiSquare(const ContingencyTable& table) {
    const double D = haberDifference(table);
    return overMargins(table.n * table.n * table.n * D * D, table);
}

}  // namespace TBVNonPara
