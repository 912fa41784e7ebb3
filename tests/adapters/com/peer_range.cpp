#include "tests/adapters/com/peer_range.hpp"

#include <span>

#include "adapters/com/errors.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tests/adapters/com/peer_addresses.hpp"
#include "tests/adapters/com/peer_application.hpp"

namespace TBVNonPara::Peer {

namespace {

using com::check;
using com::Texts;
using com::Variant;

/// What a cell holds after a value was entered.
CellValue entered(const CellValue& value) {
    const Text* text = std::get_if<Text>(&value);
    if (text == nullptr) {
        return value;
    }
    const std::string& typed = text->string();
    if (typed.empty()) {
        return Empty{};
    }
    if (typed.front() == '\'') {
        return Text(typed.substr(1));
    }
    if (typed == "TRUE" || typed == "FALSE") {
        return typed == "TRUE";
    }
    const auto number = readAsNumber(typed);
    return number ? CellValue(*number) : value;
}

ValueGrid entered(ValueGrid grid) {
    for (Long column = 1; column <= grid.columns(); ++column) {
        for (CellValue& cell : grid.column(column)) {
            cell = entered(cell);
        }
    }
    return grid;
}

std::vector<CellValue> listOf(SAFEARRAY& array) {
    LONG first = 0;
    LONG last = 0;
    SafeArrayGetLBound(&array, 1, &first);
    SafeArrayGetUBound(&array, 1, &last);
    std::vector<CellValue> list;
    for (LONG k = first; k <= last; ++k) {
        Variant element;
        SafeArrayGetElement(&array, &k, element.out());
        list.push_back(entered(com::fromVariant(element.get())));
    }
    return list;
}

void putValue(Range& range, const VARIANT& value) {
    if ((value.vt & VT_ARRAY) == 0) {
        range.LetValue(entered(com::fromVariant(value)));
        return;
    }
    SAFEARRAY* array = (value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray;
    if (SafeArrayGetDim(array) == 1) {
        range.LetValue(std::span<const CellValue>(listOf(*array)));
    } else {
        range.LetValue(entered(com::gridFromVariant(value)));
    }
}

bool amountsAreShown = false;
bool alertsAreDisplayed = true;

Variant asAmount(double number) {
    Variant value;
    check(VariantChangeType(value.out(), const_cast<VARIANT*>(&Variant(number).get()), 0, VT_CY));
    return value;
}

/// As cells with a currency format give their values.
Variant withAmounts(Variant value) {
    if (value.get().vt == VT_R8) {
        return asAmount(value.get().dblVal);
    }
    if ((value.get().vt & VT_ARRAY) == 0) {
        return value;
    }
    VARIANT* elements = nullptr;
    check(SafeArrayAccessData(value.get().parray, reinterpret_cast<void**>(&elements)));
    const ULONG count =
        value.get().parray->rgsabound[0].cElements * value.get().parray->rgsabound[1].cElements;
    for (VARIANT& element : std::span(elements, count)) {
        if (element.vt == VT_R8) {
            element = asAmount(element.dblVal).release();
        }
    }
    SafeArrayUnaccessData(value.get().parray);
    return value;
}

Variant getValue(const Range& range) {
    const ValueGrid values = range.GetValue();
    const bool isCell = values.rows() == Long(1) && values.columns() == Long(1);
    return isCell ? com::toVariant(values(1, 1), Texts::AsHeld) : com::toVariant(values, Texts::AsHeld);
}

PeerRef counted(Long count) {
    return makePeer({plain(L"Count", [count] { return Variant(count.value()); })});
}

PeerRef areas(const RangeRef& range) {
    return makePeer({
        plain(L"Count", [range] { return Variant(range->GetAreasCount().value()); }),
        {L"Item", [range](const Arguments& a) { return asValue(peerRange(range->GetAreas(a.number(0)))); }},
    });
}

PeerRef interior(const RangeRef& range) {
    return makePeer({{L"ColorIndex", nullptr, [range](const Arguments& a) {
                          range->LetInteriorColorIndex(Integer(a.number(0).value()));
                      }}});
}

PeerRef font(const RangeRef& range) {
    return makePeer({{L"Bold", nullptr, [range](const Arguments& a) { range->LetFontBold(a.truth(0)); }}});
}

PeerRef characters(const RangeRef& range, Long start, Long length) {
    const PeerRef someFont = makePeer({{L"Subscript", nullptr, [=](const Arguments& a) {
                                            range->LetCharactersFontSubscript(start, length, a.truth(0));
                                        }}});
    return makePeer({plain(L"Font", [someFont] { return asValue(someFont); })});
}

PeerRef border(const RangeRef& range, BorderEdge edge) {
    const auto draw = [range, edge](BorderLine line) { range->LetBorder(edge, line); };
    return makePeer({
        {L"LineStyle", nullptr,
         [draw](const Arguments& a) { draw(a.number(0) == Long(1) ? BorderLine::Thin : BorderLine::None); }},
        {L"Weight", nullptr, [draw](const Arguments& a) { draw(BorderLine(a.number(0).value())); }},
    });
}

PeerRef borders(const RangeRef& range) {
    return makePeer({{L"Item", [range](const Arguments& a) {
                          return asValue(border(range, BorderEdge(a.number(0).value())));
                      }}});
}

void append(std::vector<Member>& members, std::vector<Member> more) {
    members.insert(members.end(), more.begin(), more.end());
}

std::vector<Member> placeMembers(const RangeRef& range) {
    return {
        {L"Cells",
         [range](const Arguments& a) {
             return asValue(peerRange(a.count() == 0 ? range : range->GetCells(a.number(0), a.number(1))));
         }},
        plain(L"Rows", [range] { return asValue(counted(range->GetRowsCount())); }),
        plain(L"Columns", [range] { return asValue(counted(range->GetColumnsCount())); }),
        plain(L"Areas", [range] { return asValue(areas(range)); }),
        plain(L"Worksheet", [range] { return asValue(peerWorksheet(range->GetWorksheet())); }),
        plain(L"Parent", [range] { return asValue(peerWorksheet(range->GetWorksheet())); }),
        plain(L"Row", [range] { return Variant(static_cast<std::int32_t>(placeOf(*range).top)); }),
        plain(L"Column", [range] { return Variant(static_cast<std::int32_t>(placeOf(*range).left)); }),
        plain(L"Address", [range] { return Variant(addressOf(*range)); }),
        plain(L"AddressLocal", [range] { return Variant(range->GetAddressLocal()); }),
        plain(
            L"Value", [range] { return amountsAreShown ? withAmounts(getValue(*range)) : getValue(*range); },
            [range](const Arguments& a) { putValue(*range, a[0]); }),
        plain(L"Value2", [range] { return getValue(*range); }),
    };
}

Read method(const RangeRef& range, void (Range::*act)()) {
    return [range, act](const Arguments&) {
        ((*range).*act)();
        return Variant();
    };
}

std::vector<Member> lookMembers(const RangeRef& range) {
    return {
        {L"NumberFormat", nullptr, [range](const Arguments& a) { range->LetNumberFormat(a.text(0)); }},
        {L"HorizontalAlignment", nullptr,
         [range](const Arguments& a) {
             range->LetHorizontalAlignment(HorizontalAlignment(a.number(0).value()));
         }},
        plain(L"Interior", [range] { return asValue(interior(range)); }),
        plain(L"Font", [range] { return asValue(font(range)); }),
        plain(L"Borders", [range] { return asValue(borders(range)); }),
        {L"Characters",
         [range](const Arguments& a) { return asValue(characters(range, a.number(0), a.number(1))); }},
        {L"Clear", method(range, &Range::Clear)},
        {L"Copy", method(range, &Range::Copy)},
        {L"Select", method(range, &Range::Select)},
        {L"PasteSpecial",
         [range](const Arguments& a) {
             range->PasteSpecial(a.has(0) ? PasteKind(a.number(0).value()) : PasteKind::All);
             return Variant();
         }},
    };
}

PeerRef worksheets(const WorkbookRef& workbook) {
    return makePeer({
        plain(L"Count", [workbook] { return Variant(workbook->GetWorksheetsCount().value()); }),
        {L"Item", [workbook](const Arguments& a) { return asValue(worksheetOf(*workbook, a)); }},
    });
}

Variant cellsOf(const Worksheet& sheet, const Arguments& a) {
    return asValue(peerRange(a.count() == 0 ? sheet.GetCells() : sheet.GetCells(a.number(0), a.number(1))));
}

Variant rangeOf(const Worksheet& sheet, const Arguments& a) {
    return asValue(peerRange(a.isText(0) ? sheet.GetRange(asApplicationsReadIt(a.text(0)))
                                         : sheet.GetRange(a.range(0), a.range(1))));
}

PeerRef applicationOf(const Worksheet& sheet) {
    return peerApplication(
        std::dynamic_pointer_cast<workbook::Book>(sheet.GetParent().shared())->application());
}

/// A user who is asked whether a sheet may go says no.
void deleteUnasked(Worksheet& sheet) {
    if (!alertsAreDisplayed) {
        sheet.Delete();
    }
}

}  // namespace

void showAmounts(bool amounts) noexcept {
    amountsAreShown = amounts;
}

bool& displayAlerts() noexcept {
    return alertsAreDisplayed;
}

PeerRef peerRange(const RangeRef& range) {
    std::vector<Member> members = placeMembers(range);
    append(members, lookMembers(range));
    PeerRef peer = makePeer(std::move(members));
    peer->range = range;
    return peer;
}

PeerRef peerWorksheet(const WorksheetRef& sheet) {
    PeerRef peer = makePeer({
        plain(
            L"Name", [sheet] { return Variant(sheet->GetName()); },
            [sheet](const Arguments& a) { sheet->LetName(a.text(0)); }),
        plain(L"Application", [sheet] { return asValue(applicationOf(*sheet)); }),
        plain(L"UsedRange", [sheet] { return asValue(peerRange(usedRange(*sheet))); }),
        plain(L"Parent", [sheet] { return asValue(peerWorkbook(sheet->GetParent())); }),
        {L"Cells", [sheet](const Arguments& a) { return cellsOf(*sheet, a); }},
        {L"Range", [sheet](const Arguments& a) { return rangeOf(*sheet, a); }},
        {L"Move",
         [sheet](const Arguments& a) {
             sheet->Move(a.worksheet(1));
             return Variant();
         }},
        {L"Activate",
         [sheet](const Arguments&) {
             sheet->Activate();
             return Variant();
         }},
        {L"Delete",
         [sheet](const Arguments&) {
             deleteUnasked(*sheet);
             return Variant();
         }},
    });
    peer->worksheet = sheet;
    return peer;
}

PeerRef peerWorkbook(const WorkbookRef& workbook) {
    return makePeer({
        plain(L"Worksheets", [workbook] { return asValue(worksheets(workbook)); }),
        {L"Activate",
         [workbook](const Arguments&) {
             workbook->Activate();
             return Variant();
         }},
    });
}

PeerRef worksheetOf(const Workbook& workbook, const Arguments& which) {
    return peerWorksheet(which.isText(0) ? workbook.GetWorksheets(which.text(0))
                                         : workbook.GetWorksheets(which.number(0)));
}

}  // namespace TBVNonPara::Peer
