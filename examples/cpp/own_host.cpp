// A host of one's own: sheets of cells and nothing else, on which the eight tests work all the same.

#include <cmath>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <tbvnonpara/companion/CompanionLibrary.hpp>
#include <tbvnonpara/core/a1.hpp>
#include <tbvnonpara/core/rectangle.hpp>
#include <tbvnonpara/request/clsNonPara.hpp>
#include <utility>
#include <vector>

using namespace TBVNonPara;

namespace {

/// What this host cannot do it says by a number and words of its own.
[[noreturn]] void refuse(const std::string& why) {
    throw Error(1004, why);
}

class Host;
class Book;

class Sheet final : public Worksheet, public std::enable_shared_from_this<Sheet> {
 public:
    Sheet(Host& host, std::weak_ptr<Book> book, std::string name)
        : host(host), book(std::move(book)), name(std::move(name)) {}

    std::string GetName() const override { return name; }
    WorkbookRef GetParent() const override;
    RangeRef GetCells() const override { return cells(wholeSheet); }
    RangeRef GetCells(Long row, Long column) const override {
        return cells({row.value(), column.value(), row.value(), column.value()});
    }
    RangeRef GetRange(std::string_view address) const override;
    RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override;
    void LetName(std::string_view text) override { name = text; }
    void Move(const WorksheetRef& after) override;
    void Activate() override;
    void Delete() override;

    RangeRef cells(const Rectangle& area) const;

    Host& host;
    std::weak_ptr<Book> book;
    std::string name;
    std::map<std::pair<Index, Index>, CellValue> values;
};

class Book final : public Workbook, public std::enable_shared_from_this<Book> {
 public:
    Long GetWorksheetsCount() const override { return Long(sheets.size()); }
    WorksheetRef GetWorksheets(Long position) const override {
        return sheets.at(static_cast<std::size_t>(position.value()) - 1);
    }
    WorksheetRef GetWorksheets(std::string_view name) const override {
        for (const auto& sheet : sheets) {
            if (sheet->name == name) {
                return sheet;
            }
        }
        refuse("There is no sheet " + std::string(name) + ".");
    }
    void Activate() override {}

    std::shared_ptr<Sheet> add(Host& host, std::string name) {
        return sheets.emplace_back(std::make_shared<Sheet>(host, weak_from_this(), std::move(name)));
    }

    std::vector<std::shared_ptr<Sheet>> sheets;
};

/// One rectangle of a sheet.
class Cells final : public Range {
 public:
    Cells(std::shared_ptr<Sheet> sheet, const Rectangle& area) : sheet(std::move(sheet)), area(area) {}

    RangeRef GetCells(Long row, Long column) const override {
        return sheet->GetCells(row + area.top - 1, column + area.left - 1);
    }
    Long GetRowsCount() const override { return Long(area.rows()); }
    Long GetColumnsCount() const override { return Long(area.columns()); }
    Long GetAreasCount() const override { return 1; }
    RangeRef GetAreas(Long) const override { return sheet->cells(area); }
    WorksheetRef GetWorksheet() const override { return sheet; }
    std::string GetAddress() const override { return absoluteAddress(area); }
    std::string GetAddressLocal() const override { return GetAddress(); }

    ValueGrid GetValue() const override {
        ValueGrid grid(GetRowsCount(), GetColumnsCount());
        each([&](Index row, Index column, const auto& place) {
            const auto cell = sheet->values.find(place);
            grid(row, column) = cell == sheet->values.end() ? CellValue(Empty()) : cell->second;
        });
        return grid;
    }
    void LetValue(const CellValue& value) override {
        each([&](Index, Index, const auto& place) { sheet->values[place] = value; });
    }
    void LetValue(std::span<const CellValue> list) override {
        each([&](Index, Index column, const auto& place) {
            sheet->values[place] = list[static_cast<std::size_t>(column) - 1];
        });
    }
    void LetValue(const ValueGrid& grid) override {
        each([&](Index row, Index column, const auto& place) { sheet->values[place] = grid(row, column); });
    }
    void Clear() override {
        std::erase_if(sheet->values, [&](const auto& cell) {
            const auto [row, column] = cell.first;
            return overlap(area, {row, column, row, column});
        });
    }

    // These cells have no looks.
    void LetNumberFormat(std::string_view) override {}
    void LetHorizontalAlignment(HorizontalAlignment) override {}
    void LetInteriorColorIndex(Integer) override {}
    void LetFontBold(bool) override {}
    void LetBorder(BorderEdge, BorderLine) override {}
    void LetCharactersFontSubscript(Long, Long, bool) override {}

    void Copy() override;
    void PasteSpecial(PasteKind kind) override;
    void Select() override {}

 private:
    void each(const auto& action) const {
        for (Index row = 1; row <= area.rows(); ++row) {
            for (Index column = 1; column <= area.columns(); ++column) {
                action(row, column, std::pair(area.top + row - 1, area.left + column - 1));
            }
        }
    }

    std::shared_ptr<Sheet> sheet;
    Rectangle area;
};

class Functions final : public WorksheetFunction {
 public:
    double NORMSDIST(double z) const override { return std::erfc(-z / std::sqrt(2.0)) / 2; }
    double ChiDist(double, Long) const override { refuse("This host has no ChiDist."); }
    double FDist(double, Long, Long) const override { refuse("This host has no FDist."); }
    double CountIf(const RangeRef& range, std::string_view criterion) const override {
        const ValueGrid values = range->GetValue();
        double count = 0;
        for (const CellValue& value : values.column(1)) {
            count += toText(value) == criterion ? 1 : 0;
        }
        return count;
    }
};

class Host final : public Application {
 public:
    RangeRef GetRange(std::string_view address) const override {
        const WrittenAddress written = readAddress(address);
        if (!written.problem.empty() || written.areas.size() != 1) {
            refuse("This host has no range " + std::string(address) + ".");
        }
        const auto& [sheet, area, wholeColumns, wholeRows] = written.areas.front();
        return sheet ? user->GetWorksheets(*sheet)->GetRange(plainAddress(area)) : active->cells(area);
    }
    RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        return first->GetWorksheet()->GetRange(first, last);
    }
    WorkbookRef GetWorkbooks(std::string_view name) const override {
        if (name != scratchWorkbookName || !scratch) {
            refuse("No workbook " + std::string(name) + " is open.");
        }
        return scratch;
    }
    WorksheetRef AddWorksheets() override {
        active = user->add(*this, "Sheet" + std::to_string(user->sheets.size() + 1));
        return active;
    }
    void LetScreenUpdating(bool) override {}
    const WorksheetFunction& GetWorksheetFunction() const override { return functions; }

    /// Without it no report can be built.
    void openScratchWorkbook() {
        scratch = std::make_shared<Book>();
        scratch->add(*this, std::string(scratchSheetName));
    }

    std::shared_ptr<Book> user = std::make_shared<Book>();
    std::shared_ptr<Book> scratch;
    std::shared_ptr<Sheet> active;
    ValueGrid clipboard;
    Functions functions;
};

WorkbookRef Sheet::GetParent() const {
    return book.lock();
}
RangeRef Sheet::cells(const Rectangle& area) const {
    if (!area.onSheet()) {
        refuse("These cells lie outside the sheet.");
    }
    return std::make_shared<Cells>(std::const_pointer_cast<Sheet>(shared_from_this()), area);
}
RangeRef Sheet::GetRange(std::string_view address) const {
    const WrittenAddress written = readAddress(address);
    if (!written.problem.empty() || written.areas.size() != 1 || written.areas.front().sheet) {
        refuse("This sheet has no range " + std::string(address) + ".");
    }
    return cells(written.areas.front().cells);
}
RangeRef Sheet::GetRange(const RangeRef& first, const RangeRef& last) const {
    return GetRange(first->GetAddress() + ":" + last->GetAddress());
}
void Sheet::Move(const WorksheetRef& after) {
    if (after.shared().get() != this) {
        refuse("New sheets stand behind all others here.");
    }
}
void Sheet::Activate() {
    host.active = shared_from_this();
}
void Sheet::Delete() {
    std::erase(book.lock()->sheets, shared_from_this());
}
void Cells::Copy() {
    sheet->host.clipboard = GetValue();
}
void Cells::PasteSpecial(PasteKind) {
    const ValueGrid& grid = sheet->host.clipboard;
    sheet->GetRange(GetCells(1, 1), GetCells(grid.rows(), grid.columns()))->LetValue(grid);
}

}  // namespace

int main() {
    const auto host = std::make_shared<Host>();
    host->active = host->user->add(*host, "Data");
    host->GetRange("Data!A1:B4")
        ->LetValue(ValueGrid{{"before", "after"}, {1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}});

    clsNonPara request(ownCompanions(host));
    request.LetHeaders(true);
    request.LetYRange("Data!A1:A4");
    request.LetXRange("Data!B1:B4");
    request.LetOutputRange("Data!D1");
    try {
        request.Results();
    } catch (const Error& error) {
        std::cout << error.number() << ", " << error.description() << "\n" << error.source() << "\n\n";
    }

    host->openScratchWorkbook();
    request.Results();
    const ValueGrid report = host->GetRange("Data!D1:G7")->GetValue();
    for (int row = 1; row <= 7; ++row) {
        for (int column = 1; column <= 4; ++column) {
            std::cout << toText(report(row, column)) << (column < 4 ? "  " : "\n");
        }
    }
}
