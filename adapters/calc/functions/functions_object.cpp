#include "adapters/calc/functions/functions_object.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cppuhelper/supportsservice.hxx>
#include <stdexcept>

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;
using css::uno::Sequence;
using Ranges = Sequence<Any>;

/// A number that the spreadsheet shows as an error: not a number, with its code for the error in the lower
/// half.
Any errorInCell(CellError error) {
    constexpr std::uint64_t notANumber = 0x7ff8000000000000;
    constexpr std::uint64_t divisionByZero = 532;
    constexpr std::uint64_t noValue = 519;
    constexpr std::uint64_t notAvailable = 32767;
    const std::uint64_t code = error == CellError::DivisionByZero ? divisionByZero
                               : error == CellError::NotAvailable ? notAvailable
                                                                  : noValue;
    return Any(std::bit_cast<double>(notANumber | code));
}

/// What a cell is to show: a result, or the error value that says why there is none.
Any shown(const auto& work) {
    try {
        return work();
    } catch (const NotComputable& reason) {
        return errorInCell(reason.shown);
    } catch (const std::exception&) {
        return errorInCell(CellError::Value);
    }
}

OUString textOf(const Any& argument) {
    OUString text;
    argument >>= text;
    return text;
}

bool isText(const Any& argument) {
    return argument.getValueTypeClass() == css::uno::TypeClass_STRING;
}

struct AlternativeWord {
    const char* word;
    TBVNPTails tails;
};

/// The signs, and the words that the program has.
TBVNPTails tailsOf(const Any& alternative) {
    constexpr std::array words{
        AlternativeWord{"", tbvNPTwoTailed},         AlternativeWord{"<>", tbvNPTwoTailed},
        AlternativeWord{"two", tbvNPTwoTailed},      AlternativeWord{">", tbvNPVar1GTVar2},
        AlternativeWord{"greater", tbvNPVar1GTVar2}, AlternativeWord{"positive", tbvNPVar1GTVar2},
        AlternativeWord{"fewer", tbvNPVar1GTVar2},   AlternativeWord{"<", tbvNPVar1LTVar2},
        AlternativeWord{"less", tbvNPVar1LTVar2},    AlternativeWord{"negative", tbvNPVar1LTVar2},
        AlternativeWord{"more", tbvNPVar1LTVar2},
    };
    if (alternative.hasValue() && !isText(alternative)) {
        throw NotComputable{CellError::Value};
    }
    const OUString word = textOf(alternative);
    const auto* const found = std::ranges::find_if(
        words, [&](const auto& each) { return word.equalsIgnoreAsciiCaseAscii(each.word); });
    if (found == words.end()) {
        throw NotComputable{CellError::Value};
    }
    return found->tails;
}

DataShape shapeOf(TBVNPMethod method) {
    return std::ranges::find(offeredTests(), method, &OfferedTest::method)->shape;
}

/// The variables of a test: each range is one, and the second may be left out where a test takes codes.
CellColumns variables(TBVNPMethod method, const Any& range1, const Any& range2) {
    CellColumns columns{cellsInOrder(range1)};
    if (range2.hasValue()) {
        columns.push_back(cellsInOrder(range2));
    }
    return usedCells(shapeOf(method), std::move(columns));
}

/// The groups of a test: each column of each range.
CellColumns groups(TBVNPMethod method, const Ranges& ranges) {
    CellColumns columns;
    for (const Any& range : ranges) {
        std::ranges::move(columnsOf(range), std::back_inserter(columns));
    }
    return usedCells(shapeOf(method), std::move(columns));
}

Any probability(TBVNPMethod method, const Any& range1, const Any& range2, const Any& alternative) {
    return shown([&] {
        return Any(reportedProbability(method, tailsOf(alternative), variables(method, range1, range2)));
    });
}

Any probabilityOfGroups(TBVNPMethod method, const Ranges& ranges) {
    return shown([&] { return Any(reportedProbability(method, tbvNPTwoTailed, groups(method, ranges))); });
}

Any anyOf(const CellValue& value) {
    const auto* number = std::get_if<double>(&value);
    return number != nullptr ? Any(*number) : Any(fromUtf8(toText(value)));
}

Any tableOf(const TestFigures& figures) {
    const std::vector<FigureRow> table = figureTable(figures);
    Sequence<Sequence<Any>> rows(static_cast<sal_Int32>(table.size()));
    std::ranges::transform(table, rows.getArray(), [](const FigureRow& row) {
        return sequenceOf(Any(fromUtf8(row.name)), anyOf(row.value));
    });
    return Any(rows);
}

}  // namespace

Any FunctionsObject::details(TBVNPMethod method, const CellColumns& columns, const Any& name) {
    if (name.hasValue() && !isText(name)) {
        throw NotComputable{CellError::Value};
    }
    const std::scoped_lock lock(m_Mutex);
    const auto figures = m_Cache.figures(method, columns);
    return name.hasValue() ? anyOf(figureNamed(*figures, toUtf8(textOf(name)))) : tableOf(*figures);
}

Any FunctionsObject::detailsOfGroups(TBVNPMethod method, const Ranges& rangesAndName) {
    return shown([&] {
        Ranges ranges = rangesAndName;
        Any name;
        if (ranges.hasElements() && isText(ranges[ranges.getLength() - 1])) {
            name = ranges[ranges.getLength() - 1];
            ranges.realloc(ranges.getLength() - 1);
        }
        return details(method, groups(method, ranges), name);
    });
}

Any FunctionsObject::mannWhitneyTest(const Any& range1, const Any& range2, const Any& alternative) {
    return probability(tbvNPMannU, range1, range2, alternative);
}

Any FunctionsObject::wilcoxonTest(const Any& range1, const Any& range2, const Any& alternative) {
    return probability(tbvNPWilcoxon, range1, range2, alternative);
}

Any FunctionsObject::spearmanTest(const Any& range1, const Any& range2, const Any& alternative) {
    return probability(tbvNPSpearman, range1, range2, alternative);
}

// One range holds the signs themselves: what follows it may be the alternative.
Any FunctionsObject::signTest(const Any& range1, const Any& range2, const Any& alternative) {
    return isText(range2) && !alternative.hasValue() ? probability(tbvNPSign, range1, {}, range2)
                                                     : probability(tbvNPSign, range1, range2, alternative);
}

Any FunctionsObject::medianTest(const Ranges& ranges) {
    return probabilityOfGroups(tbvNPMedian, ranges);
}

Any FunctionsObject::friedmanTest(const Ranges& ranges) {
    return probabilityOfGroups(tbvNPFriedman, ranges);
}

Any FunctionsObject::kruskalWallisTest(const Ranges& ranges) {
    return probabilityOfGroups(tbvNPKWallis, ranges);
}

Any FunctionsObject::runsTest(const Any& range, const Any& alternative) {
    return probability(tbvNPWWRuns, range, {}, alternative);
}

Any FunctionsObject::mannWhitneyDetails(const Any& range1, const Any& range2, const Any& name) {
    return shown([&] { return details(tbvNPMannU, variables(tbvNPMannU, range1, range2), name); });
}

Any FunctionsObject::wilcoxonDetails(const Any& range1, const Any& range2, const Any& name) {
    return shown([&] { return details(tbvNPWilcoxon, variables(tbvNPWilcoxon, range1, range2), name); });
}

Any FunctionsObject::spearmanDetails(const Any& range1, const Any& range2, const Any& name) {
    return shown([&] { return details(tbvNPSpearman, variables(tbvNPSpearman, range1, range2), name); });
}

Any FunctionsObject::signDetails(const Any& range1, const Any& range2, const Any& name) {
    const bool second = !isText(range2) || name.hasValue();
    return shown([&] {
        return details(tbvNPSign, variables(tbvNPSign, range1, second ? range2 : Any()),
                       second ? name : range2);
    });
}

Any FunctionsObject::medianDetails(const Ranges& rangesAndName) {
    return detailsOfGroups(tbvNPMedian, rangesAndName);
}

Any FunctionsObject::friedmanDetails(const Ranges& rangesAndName) {
    return detailsOfGroups(tbvNPFriedman, rangesAndName);
}

Any FunctionsObject::kruskalWallisDetails(const Ranges& rangesAndName) {
    return detailsOfGroups(tbvNPKWallis, rangesAndName);
}

Any FunctionsObject::runsDetails(const Any& range, const Any& name) {
    return shown([&] { return details(tbvNPWWRuns, variables(tbvNPWWRuns, range, {}), name); });
}

OUString FunctionsObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool FunctionsObject::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

Sequence<OUString> FunctionsObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName), OUString("com.sun.star.sheet.AddIn"));
}

}  // namespace TBVNonPara::calc
