#include "adapters/calc/sample_names.hpp"

#include "adapters/calc/addresses.hpp"
#include "adapters/calc/reading.hpp"

namespace TBVNonPara::calc {

namespace {

// The end of whole columns is of no concern, and takes long to find on a large sheet.
std::string labelAbove(const DocumentRef& document, const std::string& address) {
    const SheetAreas cells = resolveWhole(document, activeSheet(document), address);
    const CellArea& area = cells.areas.front();
    const CellValue label =
        readCells(document, cells.sheet, {area.left, area.top, area.left, area.top})(1, 1);
    return isEmpty(label) ? std::string() : toText(label);
}

}  // namespace

SampleNames sampleNames(const DocumentRef& document, const AnalysisSettings& settings) {
    SampleNames names;
    if (settings.groupsInOneColumn) {
        if (settings.groups.size() == 2) {
            names = {settings.groups.front(), settings.groups.back()};
        }
    } else if (settings.headers && !settings.firstRange.empty() && !settings.secondRange.empty()) {
        try {
            names = {labelAbove(document, settings.firstRange), labelAbove(document, settings.secondRange)};
        } catch (...) {
            // What is no range yet, while it is typed for example, has no label.
            return {};
        }
    }
    return names.first.empty() || names.second.empty() ? SampleNames() : names;
}

}  // namespace TBVNonPara::calc
