#include "tbvnonpara/workbook/embedded_application.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/address.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::workbook {

RangeRef EmbeddedApplication::GetRange(std::string_view address) const {
    const std::vector<AddressArea> areas = parseAddress(address);
    const std::optional<std::string>& named = areas.front().sheet;
    const std::shared_ptr<Sheet> sheet = named ? activeBook()->sheet(*named) : activeSheet();
    if (sheet == nullptr) {
        refuse("The address \"" + std::string(address) +
               "\" names no sheet and there is no active one; open a file or add a sheet first.");
    }
    for (const AddressArea& area : areas) {
        if (area.sheet && activeBook()->sheet(*area.sheet) != sheet) {
            refuse("The areas of \"" + std::string(address) + "\" lie on different sheets (\"" +
                   sheet->name() + "\" and \"" + *area.sheet + "\"); name areas of one sheet.");
        }
    }
    return sheet->range(areas);
}

RangeRef EmbeddedApplication::GetRange(const RangeRef& first, const RangeRef& last) const {
    return rangeBetween(first, last);
}

std::shared_ptr<Book> EmbeddedApplication::find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        m_Books, [=](const auto& book) { return equalIgnoringCase(book->name(), name); });
    return found == m_Books.end() ? nullptr : *found;
}

std::shared_ptr<Book> EmbeddedApplication::book(std::string_view name) const {
    std::shared_ptr<Book> book = find(name);
    if (book == nullptr) {
        refuse("There is no open workbook \"" + std::string(name) + "\"; open it first.");
    }
    return book;
}

WorkbookRef EmbeddedApplication::GetWorkbooks(std::string_view name) const {
    return book(name);
}

WorksheetRef EmbeddedApplication::AddWorksheets() {
    return activeBook()->insertSheet();
}

std::vector<std::shared_ptr<Book>> EmbeddedApplication::books() const {
    std::vector<std::shared_ptr<Book>> visible;
    std::ranges::copy_if(m_Books, std::back_inserter(visible),
                         [](const auto& book) { return !book->hidden(); });
    return visible;
}

std::shared_ptr<Book> EmbeddedApplication::addBook(std::string_view name, Visibility visibility) {
    if (find(name) != nullptr) {
        refuse("A workbook \"" + std::string(name) + "\" is open already; close it first.");
    }
    m_Books.push_back(std::make_shared<Book>(std::string(name), visibility, weak_from_this()));
    if (visibility == Visibility::Visible) {
        m_ActiveBook = m_Books.back();
    }
    return m_Books.back();
}

void EmbeddedApplication::closeBook(std::string_view name) {
    const std::shared_ptr<Book> closed = book(name);
    std::erase(m_Books, closed);
    if (m_ActiveBook == closed) {
        const std::vector<std::shared_ptr<Book>> open = books();
        m_ActiveBook = open.empty() ? nullptr : open.back();
    }
    if (m_Selection.isSet() && !holds(*ownRange(m_Selection).sheet()->book())) {
        m_Selection.release();
    }
}

// It changes the workbook, though not this object. NOLINTNEXTLINE(readability-make-member-function-const)
std::shared_ptr<Sheet> EmbeddedApplication::addSheet(std::string_view name) {
    return activeBook()->addSheet(name);
}

std::shared_ptr<Sheet> EmbeddedApplication::addSheet(std::string_view name, const ValueGrid& values) {
    std::shared_ptr<Sheet> sheet = addSheet(name);
    if (values.allocated() && values.rows() > Long(0) && values.columns() > Long(0)) {
        const RangeRef corner = sheet->GetCells(1, 1);
        rangeBetween(corner, sheet->GetCells(values.rows(), values.columns()))->LetValue(values);
    }
    return sheet;
}

std::shared_ptr<Sheet> EmbeddedApplication::addSheet(std::string_view name, CellStore values) {
    std::shared_ptr<Sheet> sheet = addSheet(name);
    sheet->values() = std::move(values);
    return sheet;
}

std::shared_ptr<Sheet> EmbeddedApplication::addSheet(std::string_view name,
                                                     std::initializer_list<NumberColumn> columns) {
    return addSheet(name, std::span(columns.begin(), columns.size()));
}

std::shared_ptr<Sheet> EmbeddedApplication::addSheet(std::string_view name,
                                                     std::span<const NumberColumn> columns) {
    std::size_t longest = 0;
    for (const NumberColumn& column : columns) {
        longest = std::max(longest, column.numbers.size());
    }
    ValueGrid grid(Long(longest + 1), Long(columns.size()));
    for (std::size_t place = 0; place < columns.size(); ++place) {
        const std::span<CellValue> cells = grid.column(place + 1);
        cells.front() = columns[place].label;
        std::ranges::transform(columns[place].numbers, cells.begin() + 1, [](double number) {
            return std::isnan(number) ? CellValue(Empty()) : CellValue(number);
        });
    }
    return addSheet(name, grid);
}

std::shared_ptr<Book> EmbeddedApplication::activeBook() const {
    if (m_ActiveBook == nullptr) {
        refuse("No workbook is open; open one first.");
    }
    return m_ActiveBook;
}

std::shared_ptr<Sheet> EmbeddedApplication::activeSheet() const {
    return activeBook()->activeSheet();
}

bool EmbeddedApplication::holds(const Book& book) const noexcept {
    return std::ranges::any_of(m_Books, [&](const auto& own) { return own.get() == &book; });
}

void EmbeddedApplication::activateBook(const Book& book) {
    if (book.hidden()) {
        refuse("The workbook \"" + book.name() + "\" is hidden and cannot be activated.");
    }
    const auto own = std::ranges::find(m_Books, &book, [](const auto& open) { return open.get(); });
    if (own != m_Books.end()) {
        m_ActiveBook = *own;
    }
}

ObjectRef<EmbeddedApplication> makeApplication() {
    auto application = std::make_shared<EmbeddedApplication>();
    application->addBook(scratchWorkbookName, Visibility::Hidden)->addSheet(scratchSheetName);
    application->addBook("Book1");
    return application;
}

}  // namespace TBVNonPara::workbook
