#include "adapters/calc/kept_requests.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeFormula.hpp>
#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>

#include "adapters/calc/request_text.hpp"
#include "adapters/calc/selection.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr std::string_view namePrefix = "TBVNonPara_report_";

Reference<css::sheet::XNamedRanges> namesOf(const DocumentRef& document) {
    Reference<css::sheet::XNamedRanges> names;
    property(document, "NamedRanges") >>= names;
    return given(names);
}

/// FNV-1a of Fowler, Noll and Vo: the same on every machine that the document comes to.
class Fingerprint {
 public:
    void add(std::string_view text) {
        for (const char c : text) {
            m_Hash = (m_Hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        }
        m_Hash = (m_Hash ^ 0xFFU) * 1099511628211ULL;
    }

    [[nodiscard]] std::string text() const {
        std::array<char, 16> digits{};
        const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), m_Hash, 16).ptr;
        return {digits.data(), static_cast<std::size_t>(end - digits.data())};
    }

 private:
    std::uint64_t m_Hash = 14695981039346656037ULL;
};

// A file may give a number back with fewer digits than it had.
std::string tenDigits(double number) {
    std::array<char, 32> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::scientific, 9)
            .ptr;
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

/// A formula of a live figure by its function: its value follows the data, and its ranges the cells.
std::string contentOf(const css::uno::Any& value, const OUString& formula) {
    if (formula.startsWith("=")) {
        return toUtf8(formula.copy(0, std::max<sal_Int32>(formula.indexOf('('), 1)).toAsciiUpperCase());
    }
    double number = 0;
    if (value >>= number) {
        return tenDigits(number);
    }
    OUString text;
    value >>= text;
    return toUtf8(text);
}

/// What a report's cells hold and in which columns; rows that are empty, inserted for example, do not count.
std::string fingerprintOf(const SheetAreas& report) {
    const CellArea& area = report.areas.front();
    const auto cells = report.sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom);
    const auto values = query<css::sheet::XCellRangeData>(cells)->getDataArray();
    const auto formulas = query<css::sheet::XCellRangeFormula>(cells)->getFormulaArray();
    Fingerprint fingerprint;
    for (sal_Int32 row = 0; row < std::min(values.getLength(), formulas.getLength()); ++row) {
        for (sal_Int32 column = 0; column < values[row].getLength(); ++column) {
            const std::string content = contentOf(values[row][column], formulas[row][column]);
            if (!content.empty()) {
                fingerprint.add(std::to_string(column));
                fingerprint.add(content);
            }
        }
    }
    return fingerprint.text();
}

struct NamedRequest {
    OUString name;
    RequestText text;
};

std::vector<NamedRequest> requestsIn(const DocumentRef& document) {
    std::vector<NamedRequest> requests;
    const auto names = namesOf(document);
    for (const OUString& name : names->getElementNames()) {
        if (!toUtf8(name).starts_with(namePrefix)) {
            continue;
        }
        const Reference<css::sheet::XNamedRange> named(names->getByName(name), css::uno::UNO_QUERY_THROW);
        if (const auto text = readRequest(toUtf8(named->getContent()))) {
            requests.push_back({name, *text});
        }
    }
    return requests;
}

/// Where a report stands now; nothing where its cells are gone.
std::optional<SheetAreas> cellsOfReport(const DocumentRef& document, const std::string& reference) {
    try {
        return isLost(reference) ? std::nullopt
                                 : std::optional(resolveWhole(document, sheetAt(document, 0), reference));
    } catch (...) {
        return std::nullopt;
    }
}

bool lieOver(const SheetAreas& cells, const SheetRef& sheet, const CellArea& area) {
    return isSameSheet(cells.sheet, sheet) && cells.areas.front().overlaps(area);
}

void forgetReportsUnder(const SheetAreas& report) {
    const auto names = namesOf(report.document);
    for (const NamedRequest& request : requestsIn(report.document)) {
        const auto cells = cellsOfReport(report.document, request.text.report);
        if (!cells || lieOver(*cells, report.sheet, report.areas.front())) {
            names->removeByName(request.name);
        }
    }
}

OUString freeName(const Reference<css::sheet::XNamedRanges>& names) {
    int number = 1;
    OUString name;
    do {
        name = fromUtf8(std::string(namePrefix) + std::to_string(number++));
    } while (names->hasByName(name));
    return name;
}

std::vector<std::string> referencesTo(const SheetAreas& cells) {
    std::vector<std::string> references;
    for (const CellArea& area : cells.areas) {
        references.push_back(userAddress(cells.sheet, area));
    }
    return references;
}

/// Other programs that read the file take formulas up to these sizes.
bool canBeSaved(const std::string& formula) {
    constexpr std::size_t mostCharacters = 8000;
    constexpr std::ptrdiff_t mostArguments = 250;
    return formula.size() <= mostCharacters && std::ranges::count(formula, ';') < mostArguments;
}

std::string joined(const std::vector<std::string>& references) {
    std::string list;
    for (const std::string& reference : references) {
        list += (list.empty() ? "" : ";") + reference;
    }
    return list;
}

bool areLost(const RequestText& text) {
    return std::ranges::any_of(std::array{text.first, text.second, text.groups, text.blocks},
                               [](const auto& areas) { return std::ranges::any_of(areas, isLost); });
}

KeptRequest kept(const RequestText& text, const SheetAreas& report) {
    KeptRequest request{report, text.settings, areLost(text), fingerprintOf(report) != text.fingerprint};
    const CellArea& area = report.areas.front();
    AnalysisSettings& settings = request.settings;
    settings.firstRange = joined(text.first);
    settings.secondRange = joined(text.second);
    settings.groupRange = joined(text.groups);
    settings.blockRange = joined(text.blocks);
    settings.replacedReport = userAddress(report.sheet, area);
    settings.outputCell = userAddress(report.sheet, {area.left, area.top, area.left, area.top});
    settings.overWrite = true;
    return request;
}

}  // namespace

RequestKeeper::RequestKeeper(const DocumentRef& document, const AnalysisSettings& settings)
    : m_Settings(settings) {
    const SheetRef sheet = activeSheet(document);
    for (const std::string& address :
         {settings.firstRange, settings.secondRange, settings.groupRange, settings.blockRange}) {
        m_Ranges.push_back(address.empty() ? SheetAreas{document, sheet, {}}
                                           : resolveWhole(document, sheet, address));
    }
}

void RequestKeeper::write(Session& session) const {
    const SheetAreas& report = session.placed();
    try {
        const std::string formula =
            formulaOf({m_Settings, fingerprintOf(report), userAddress(report.sheet, report.areas.front()),
                       referencesTo(m_Ranges[0]), referencesTo(m_Ranges[1]), referencesTo(m_Ranges[2]),
                       referencesTo(m_Ranges[3])});
        forgetReportsUnder(report);
        if (canBeSaved(formula)) {
            const auto names = namesOf(report.document);
            names->addNewByName(freeName(names), fromUtf8(formula), {}, 0);
        }
    } catch (...) {
        // The report stands, which is what was asked for.
        return;
    }
}

std::optional<KeptRequest> requestAt(const DocumentRef& document, const SheetRef& sheet,
                                     const CellArea& cell) {
    for (const NamedRequest& request : requestsIn(document)) {
        const auto report = cellsOfReport(document, request.text.report);
        if (report && lieOver(*report, sheet, cell)) {
            return kept(request.text, *report);
        }
    }
    return std::nullopt;
}

}  // namespace TBVNonPara::calc
