#include "tbvnonpara/details/clsNonParaDetails.hpp"

#include <algorithm>
#include <stdexcept>

#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/details/host_columns.hpp"
#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/details/text.hpp"
#include "tbvnonpara/report/details_sheet.hpp"
#include "tbvnonpara/request/labels.hpp"
#include "tbvnonpara/request/run_mark.hpp"

namespace TBVNonPara {

namespace {

using statistics::Figure;
using statistics::FigureBlock;
using statistics::FigureList;

[[noreturn]] void refuseArgument(const std::string& description) {
    throw Error(static_cast<std::int32_t>(RuntimeError::InvalidProcedureCall), description);
}

const OfferedTest& offeredTest(TBVNPMethod method) {
    const auto tests = offeredTests();
    const auto found = std::ranges::find(tests, method, &OfferedTest::method);
    if (found == tests.end()) {
        refuseArgument("Method is none of the eight tests.");
    }
    return *found;
}

/// What stands at a place that the name of a figure does not lead to.
std::string namesWithin(const Figure& figure) {
    if (const auto* list = std::get_if<FigureList>(&figure.value)) {
        return "1 to " + std::to_string(list->size());
    }
    std::string names;
    if (const auto* block = std::get_if<FigureBlock>(&figure.value)) {
        for (const auto& [name, ignored] : *block) {
            names += (names.empty() ? "" : ", ") + name;
        }
    }
    return names;
}

/// The longest beginning of a path that leads somewhere decides: behind what does not exist there is nothing,
/// elsewhere it is a mistake.
void refuseUnlessEmpty(const Figure& all, std::string_view path) {
    const Figure* reached = &all;
    std::string_view before;
    for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.', dot + 1)) {
        const Figure* const further = statistics::find(all, path.substr(0, dot));
        if (further == nullptr) {
            break;
        }
        reached = further;
        before = path.substr(0, dot);
    }
    if (std::holds_alternative<std::monostate>(reached->value)) {
        return;
    }
    const std::string names = namesWithin(*reached);
    refuseArgument("There is no figure " + inQuotes(path) + "; " +
                   (before.empty() ? "there are " : inQuotes(before) + " has ") +
                   (names.empty() ? "none below it" : names) + '.');
}

CellValue valueOf(const Figure& figure, std::string_view path) {
    if (const auto* number = std::get_if<double>(&figure.value)) {
        return *number;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&figure.value)) {
        return static_cast<double>(*whole);
    }
    if (const auto* text = std::get_if<std::string>(&figure.value)) {
        return TBVNonPara::Text(*text);
    }
    if (std::holds_alternative<std::monostate>(figure.value)) {
        return Empty();
    }
    if (const Figure* const value = statistics::find(figure, "value")) {
        return valueOf(*value, path);
    }
    refuseArgument(inQuotes(path) + " is several figures: " + namesWithin(figure) + '.');
}

}  // namespace

clsNonParaDetails::clsNonParaDetails(CompanionLibrary companions) try
    : m_Companions(companions), m_Request(std::move(companions)) {
} catch (...) {
    passOn("clsNonParaDetails.Class_Initialize");
}

void clsNonParaDetails::LetMethod(TBVNPMethod method) {
    m_Request.LetMethod(method);
}

void clsNonParaDetails::LetHeaders(bool headers) {
    m_Request.LetHeaders(headers);
}

void clsNonParaDetails::LetOutputDescriptives(bool outputDescriptives) {
    m_Request.LetOutputDescriptives(outputDescriptives);
}

void clsNonParaDetails::LetIgnoreTies(bool ignoreTies) {
    m_Request.LetIgnoreTies(ignoreTies);
}

void clsNonParaDetails::LetTails(TBVNPTails tails) {
    m_Request.LetTails(tails);
}

void clsNonParaDetails::LetYRange(std::string_view address) {
    m_Request.LetYRange(address);
}

void clsNonParaDetails::LetXRange(std::string_view address) {
    m_Request.LetXRange(address);
}

void clsNonParaDetails::LetOutputRange(std::string_view address) {
    m_Request.LetOutputRange(address);
    m_OutputRange = address;
}

void clsNonParaDetails::LetConfidence(double percent) try {
    constexpr double lowest = 50;
    constexpr double highest = 99.9;
    if (!(percent >= lowest && percent <= highest)) {
        refuseArgument("Confidence is the level of the intervals in per cent, 50 to 99.9: 95, not 0.95.");
    }
    // Divided, 99.9 is a little above the highest level that intervals have.
    m_Choices.confidence = std::min(percent / 100, 0.999);
} catch (...) {
    passOnAs("clsNonParaDetails.LetConfidence");
}

void clsNonParaDetails::LetAdjust(std::string_view word) try {
    const std::optional<statistics::Adjustment> adjustment = adjustmentNamed(word);
    if (!adjustment) {
        refuseArgument("Adjust is holm, bonferroni, bh or none, not " + inQuotes(word) + '.');
    }
    m_Choices.adjustment = *adjustment;
} catch (...) {
    passOnAs("clsNonParaDetails.LetAdjust");
}

void clsNonParaDetails::LetControl(std::string_view label) {
    m_Choices.control = label;
}

void clsNonParaDetails::LetTrend(bool trend) {
    m_Choices.trend = trend;
}

void clsNonParaDetails::LetWatch(CountWatch watch) {
    m_Watch = std::move(watch);
}

void clsNonParaDetails::Calculate() try {
    const RunMark mark(m_Calculating, "Calculate");
    m_Details.reset();
    // Whoever watches may set what the next Calculate goes by.
    const DetailChoices choices = m_Choices;
    const CountWatch watch = m_Watch;
    const clsNonPara::Run run = m_Request.Compute();
    const OfferedTest& test = offeredTest(run.method);
    if (!choices.control.empty() && !takesManyColumns(test.shape)) {
        refuseArgument("Control is for the tests of several groups; leave it empty.");
    }
    std::vector<LabelledColumn> columns = columnsIn(*m_Companions.application, run.yRange, run.headers);
    std::string source = rangeText(run.yRange);
    if (run.xRange.isSet() && takesSecondRange(test.shape)) {
        std::ranges::move(columnsIn(*m_Companions.application, run.xRange, run.headers),
                          std::back_inserter(columns));
        source += ", " + rangeText(run.xRange);
    }
    m_Details = detailsOf(test, run.tails, choices, columns, m_Request.engine(), watch);
    m_Source = std::move(source);
    m_YRange = run.yRange;
} catch (const std::invalid_argument& wrong) {
    try {
        refuseArgument(wrong.what());
    } catch (...) {
        passOn("clsNonParaDetails.Calculate");
    }
} catch (...) {
    passOn("clsNonParaDetails.Calculate");
}

const Details& clsNonParaDetails::calculated() const {
    if (!m_Details) {
        throw Error(static_cast<std::int32_t>(RuntimeError::ObjectNotSet),
                    "Nothing has been calculated yet: call Calculate first.");
    }
    return *m_Details;
}

CellValue clsNonParaDetails::Value(std::string_view name) const try {
    const Figure all = detailFigures(calculated());
    const Figure* const figure = statistics::find(all, name);
    if (figure == nullptr) {
        refuseUnlessEmpty(all, name);
        return Empty();
    }
    return valueOf(*figure, name);
} catch (...) {
    passOn("clsNonParaDetails.GetValue");
}

std::string clsNonParaDetails::Text() const try {
    return detailsText(detailPage(calculated())).substr(1);
} catch (...) {
    passOn("clsNonParaDetails.GetText");
}

std::string clsNonParaDetails::Json() const try {
    return figureInJson(detailFigures(calculated()));
} catch (...) {
    passOn("clsNonParaDetails.GetJson");
}

RangeRef clsNonParaDetails::WriteTo(std::string_view address, bool OverWrite) try {
    const DetailPage page = detailPage(calculated());
    const RunMark mark(m_Companions.running, "WriteTo");
    const std::string source = "Data = " + m_Source;
    const std::string place(address.empty() ? std::string_view(m_OutputRange) : address);
    if (place.empty()) {
        return writeDetailsSheet(m_Companions, m_YRange->GetWorksheet(), source, page);
    }
    return placeDetails(m_Companions, m_Companions.application->GetRange(place), source, page, OverWrite);
} catch (...) {
    passOn("clsNonParaDetails.WriteTo");
}

}  // namespace TBVNonPara
