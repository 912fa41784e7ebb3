#include "adapters/calc/functions/functions_object.hpp"

#include <algorithm>
#include <iterator>

#include "adapters/calc/functions/formula_failure.hpp"
#include "adapters/calc/functions/test_in_formula.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;
using AnyList = FunctionsObject::AnyList;
using FormulaRange = FunctionsObject::CellRange;

/// A function's value, or the error that its cell shows.
Any answer(const auto& work) {
    try {
        return work();
    } catch (...) {
        return Any(failureAsNumber(currentFailure()));
    }
}

const OfferedTest& testOf(TBVNPMethod method) {
    return *std::ranges::find(offeredTests(), method, &OfferedTest::method);
}

void append(DataColumns& columns, DataColumns more) {
    std::ranges::move(more, std::back_inserter(columns));
}

/// Each argument is a column of its own.
DataColumns twoColumns(const FormulaRange& first, const auto& second) {
    DataColumns columns = columnsOf(first);
    DataColumns others = columnsOf(second);
    if (columns.size() != 1 || others.size() != 1) {
        throw FormulaFailure{valueFailure};
    }
    append(columns, std::move(others));
    return columns;
}

DataColumns allColumns(const FormulaRange& groups, const AnyList& more) {
    DataColumns columns = columnsOf(groups);
    for (const Any& range : more) {
        append(columns, columnsOf(range));
    }
    return columns;
}

bool isText(const Any& value) {
    return value.getValueTypeClass() == css::uno::TypeClass_STRING;
}

/// The sign test takes codes, or pairs; without a second range the next argument moves up.
struct SignArguments {
    SignArguments(const Any& second, const Any& third)
        : range(isText(second) ? Any() : second), last(isText(second) ? second : third) {}

    [[nodiscard]] DataColumns columns(const FormulaRange& first) const {
        return range.hasValue() ? twoColumns(first, range) : columnsOf(first);
    }

    Any range;
    Any last;
};

/// Ranges of groups, and the name of a figure behind them.
struct GroupArguments {
    explicit GroupArguments(const AnyList& more) : ranges(more) {
        if (more.hasElements() && isText(more[more.getLength() - 1])) {
            name = more[more.getLength() - 1];
            ranges.realloc(more.getLength() - 1);
        }
    }

    AnyList ranges;
    Any name;
};

Any probability(TBVNPMethod method, const Any& alternative, const auto& readColumns) {
    return answer([&] {
        const OfferedTest& test = testOf(method);
        const TBVNPTails tails = tailsInFormula(method, alternative);
        return Any(probabilityInFormula(test, tails, usableColumns(test, readColumns())));
    });
}

Any cellOfFigure(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return Any(*number);
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return Any(fromUtf8(text->string()));
    }
    return Any(failureAsNumber({notAvailableFailure}));
}

Any tableOf(const FiguresInFormula& figures) {
    css::uno::Sequence<AnyList> rows(static_cast<sal_Int32>(figures.size()));
    std::ranges::transform(figures, rows.getArray(), [](const FigureInFormula& figure) {
        return sequenceOf(Any(fromUtf8(figure.name)), cellOfFigure(figure.value));
    });
    return Any(rows);
}

}  // namespace

Any FunctionsObject::figure(TBVNPMethod method, const Any& name, const auto& readColumns) {
    return answer([&] {
        const OfferedTest& test = testOf(method);
        DataColumns columns = usableColumns(test, readColumns());
        if (!name.hasValue()) {
            return tableOf(*m_Figures.of(test, std::move(columns)));
        }
        OUString wanted;
        name >>= wanted;
        return cellOfFigure(m_Figures.named(test, std::move(columns), toUtf8(wanted.trim())));
    });
}

Any FunctionsObject::mannWhitneyTest(const CellRange& first, const CellRange& second,
                                     const Any& alternative) {
    return probability(tbvNPMannU, alternative, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::wilcoxonTest(const CellRange& first, const CellRange& second, const Any& alternative) {
    return probability(tbvNPWilcoxon, alternative, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::spearmanTest(const CellRange& first, const CellRange& second, const Any& alternative) {
    return probability(tbvNPSpearman, alternative, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::signTest(const CellRange& first, const Any& second, const Any& alternative) {
    const SignArguments arguments(second, alternative);
    return probability(tbvNPSign, arguments.last, [&] { return arguments.columns(first); });
}

Any FunctionsObject::medianTest(const CellRange& groups, const AnyList& more) {
    return probability(tbvNPMedian, {}, [&] { return allColumns(groups, more); });
}

Any FunctionsObject::friedmanTest(const CellRange& groups, const AnyList& more) {
    return probability(tbvNPFriedman, {}, [&] { return allColumns(groups, more); });
}

Any FunctionsObject::kruskalWallisTest(const CellRange& groups, const AnyList& more) {
    return probability(tbvNPKWallis, {}, [&] { return allColumns(groups, more); });
}

Any FunctionsObject::runsTest(const CellRange& sequence, const Any& alternative) {
    return probability(tbvNPWWRuns, alternative, [&] { return columnsOf(sequence); });
}

Any FunctionsObject::mannWhitneyDetails(const CellRange& first, const CellRange& second, const Any& name) {
    return figure(tbvNPMannU, name, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::wilcoxonDetails(const CellRange& first, const CellRange& second, const Any& name) {
    return figure(tbvNPWilcoxon, name, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::spearmanDetails(const CellRange& first, const CellRange& second, const Any& name) {
    return figure(tbvNPSpearman, name, [&] { return twoColumns(first, second); });
}

Any FunctionsObject::signDetails(const CellRange& first, const Any& second, const Any& name) {
    const SignArguments arguments(second, name);
    return figure(tbvNPSign, arguments.last, [&] { return arguments.columns(first); });
}

Any FunctionsObject::medianDetails(const CellRange& groups, const AnyList& more) {
    const GroupArguments arguments(more);
    return figure(tbvNPMedian, arguments.name, [&] { return allColumns(groups, arguments.ranges); });
}

Any FunctionsObject::friedmanDetails(const CellRange& groups, const AnyList& more) {
    const GroupArguments arguments(more);
    return figure(tbvNPFriedman, arguments.name, [&] { return allColumns(groups, arguments.ranges); });
}

Any FunctionsObject::kruskalWallisDetails(const CellRange& groups, const AnyList& more) {
    const GroupArguments arguments(more);
    return figure(tbvNPKWallis, arguments.name, [&] { return allColumns(groups, arguments.ranges); });
}

Any FunctionsObject::runsDetails(const CellRange& sequence, const Any& name) {
    return figure(tbvNPWWRuns, name, [&] { return columnsOf(sequence); });
}

}  // namespace TBVNonPara::calc
