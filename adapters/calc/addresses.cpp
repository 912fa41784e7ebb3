#include "adapters/calc/addresses.hpp"

#include <algorithm>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XDatabaseRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <optional>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr auto lastRow = static_cast<std::int32_t>(sheetRows) - 1;

using css::table::CellRangeAddress;

[[noreturn]] void refuse(std::string_view area) {
    raiseHostError(inQuotes(area) +
                   " is no range of this document; write for example A1:A9, Data!A1:A9 or A1:A9,C1:C9.");
}

class AddressReader {
 public:
    AddressReader(const DocumentRef& document, const SheetRef& sheet)
        : m_Document(document),
          m_Conversion(query<css::lang::XMultiServiceFactory>(document)->createInstance(
              "com.sun.star.table.CellRangeAddressConversion")),
          m_Sheet(positionOf(sheet)) {}

    [[nodiscard]] CellRangeAddress read(const std::string& area) {
        std::optional<CellRangeAddress> address = convert(area);
        if (!address) {
            address = rangeNamed(area);
        }
        if (!address) {
            address = databaseRange(area);
        }
        // An unknown sheet comes back as a sheet of its own, not as a failure.
        if (!address || address->Sheet < 0) {
            refuse(area);
        }
        m_Sheet = address->Sheet;
        return *address;
    }

 private:
    [[nodiscard]] std::optional<CellRangeAddress> convert(const std::string& area) const {
        const OUString notation =
            hasExclamationMark(area) ? OUString("XLA1Representation") : OUString("PersistentRepresentation");
        try {
            setProperty(m_Conversion, "ReferenceSheet", static_cast<sal_Int32>(m_Sheet));
            setProperty(m_Conversion, notation, fromUtf8(area));
        } catch (const css::uno::Exception&) {
            return std::nullopt;
        }
        CellRangeAddress address;
        property(m_Conversion, "Address") >>= address;
        return address;
    }

    /// The names of the sheet come before those of the document.
    [[nodiscard]] std::optional<CellRangeAddress> rangeNamed(const std::string& area) const {
        const std::optional<CellRangeAddress> ofSheet = rangeNamed(sheetAt(m_Document, m_Sheet), area);
        return ofSheet ? ofSheet : rangeNamed(m_Document, area);
    }

    [[nodiscard]] static std::optional<CellRangeAddress> rangeNamed(const auto& holder,
                                                                    const std::string& area) {
        Reference<css::sheet::XNamedRanges> names;
        property(holder, "NamedRanges") >>= names;
        if (!names.is() || !names->hasByName(fromUtf8(area))) {
            return std::nullopt;
        }
        const Reference<css::sheet::XCellRangeReferrer> name(names->getByName(fromUtf8(area)),
                                                             css::uno::UNO_QUERY_THROW);
        const auto cells = queryIfAny<css::sheet::XCellRangeAddressable>(name->getReferredCells());
        return cells.is() ? std::optional(cells->getRangeAddress()) : std::nullopt;
    }

    /// What Data > Define Range gave a name.
    [[nodiscard]] std::optional<CellRangeAddress> databaseRange(const std::string& area) const {
        Reference<css::container::XNameAccess> ranges;
        property(m_Document, "DatabaseRanges") >>= ranges;
        if (!ranges.is() || !ranges->hasByName(fromUtf8(area))) {
            return std::nullopt;
        }
        const Reference<css::sheet::XDatabaseRange> range(ranges->getByName(fromUtf8(area)),
                                                          css::uno::UNO_QUERY_THROW);
        return range->getDataArea();
    }

    DocumentRef m_Document;
    Reference<css::uno::XInterface> m_Conversion;
    std::int16_t m_Sheet;
};

CellArea usedArea(const SheetRef& sheet) {
    const auto cursor = given(sheet->createCursor());
    const auto used = query<css::sheet::XUsedAreaCursor>(cursor);
    used->gotoStartOfUsedArea(false);
    used->gotoEndOfUsedArea(true);
    return normalised(query<css::sheet::XCellRangeAddressable>(cursor)->getRangeAddress());
}

}  // namespace

CellArea endingWithTheUsedArea(const CellArea& area, const SheetRef& sheet) {
    const bool wholeColumns = area.top == 0 && area.bottom == lastRow;
    const bool wholeRows = area.left == 0 && area.columns() > 1000;
    if (!wholeColumns && !wholeRows) {
        return area;
    }
    const CellArea used = usedArea(sheet);
    CellArea result = area;
    if (wholeColumns) {
        result.bottom = used.bottom;
    }
    if (wholeRows) {
        result.right = used.right;
    }
    return result;
}

std::vector<std::string> splitAreas(std::string_view address) {
    std::vector<std::string> areas;
    for (const std::string_view area : splitUnquoted(address, ",;")) {
        areas.emplace_back(trimmed(area));
    }
    return areas;
}

bool hasExclamationMark(std::string_view area) noexcept {
    bool quoted = false;
    return std::ranges::any_of(area, [&](char c) {
        quoted = quoted != (c == '\'');
        return c == '!' && !quoted;
    });
}

SheetAreas resolve(const DocumentRef& document, const SheetRef& sheet, std::string_view address) {
    SheetAreas result = resolveWhole(document, sheet, address);
    for (CellArea& area : result.areas) {
        area = endingWithTheUsedArea(area, result.sheet);
    }
    return result;
}

SheetAreas resolveWhole(const DocumentRef& document, const SheetRef& sheet, std::string_view address) {
    SheetAreas result{document, {}, {}};
    AddressReader reader(document, sheet);
    std::optional<std::int16_t> position;
    for (const std::string& area : splitAreas(address)) {
        const CellRangeAddress cells = reader.read(area);
        if (position && *position != cells.Sheet) {
            raiseHostError("The areas of a range must lie on one sheet: " + std::string(address));
        }
        if (!position) {
            position = cells.Sheet;
            result.sheet = sheetAt(document, cells.Sheet);
        }
        result.areas.push_back(normalised(cells));
    }
    return result;
}

}  // namespace TBVNonPara::calc
