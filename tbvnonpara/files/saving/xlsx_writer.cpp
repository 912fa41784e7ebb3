#include "tbvnonpara/files/saving/xlsx_writer.hpp"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>
#include <xlsxwriter.h>

#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/files/saving/column_widths.hpp"
#include "tbvnonpara/files/saving/package.hpp"
#include "tbvnonpara/files/saving/sheet_part.hpp"
#include "tbvnonpara/files/saving/workbook_part.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

namespace fs = std::filesystem;

/// A folder for the writer's file, gone at the end.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        std::string pattern = (fs::temp_directory_path() / "tbvnonpara-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            refuse("No temporary folder can be made in \"" + fs::temp_directory_path().string() + "\".");
        }
        m_Path = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(m_Path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const fs::path& path() const noexcept { return m_Path; }

 private:
    fs::path m_Path;
};

/// The writer takes the decimal mark of the process; here it is a point, whatever the user's language.
class PlainNumbers {
 public:
    PlainNumbers()
        : m_Plain(::newlocale(LC_ALL_MASK, "C", nullptr)),
          m_Before(m_Plain == nullptr ? nullptr : ::uselocale(m_Plain)) {}
    ~PlainNumbers() {
        if (m_Plain != nullptr) {
            ::uselocale(m_Before);
            ::freelocale(m_Plain);
        }
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
    locale_t m_Plain;
    locale_t m_Before;
};

void widenColumns(lxw_worksheet* worksheet, const WrittenSheet& written) {
    Index column = written.area.left - 1;
    for (const double width : columnWidths(*written.sheet, written.area)) {
        const auto position = static_cast<lxw_col_t>(column);
        worksheet_set_column(worksheet, position, position, width, nullptr);
        column += 1;
    }
}

/// A workbook with empty sheets.
std::string frame(const std::vector<WrittenSheet>& sheets) {
    const PlainNumbers plainNumbers;
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "frame.xlsx").string();
    lxw_workbook* const workbook = workbook_new(file.c_str());
    if (workbook == nullptr) {
        raise(RuntimeError::OutOfMemory);
    }
    const Sheet* unnamed = nullptr;
    for (const WrittenSheet& written : sheets) {
        lxw_worksheet* const worksheet = workbook_add_worksheet(workbook, written.sheet->name().c_str());
        if (worksheet == nullptr) {
            unnamed = written.sheet;
            break;
        }
        widenColumns(worksheet, written);
    }
    const lxw_error error = workbook_close(workbook);
    if (unnamed != nullptr) {
        refuse("The sheet \"" + unnamed->name() +
               "\" cannot be saved in an .xlsx workbook: names there have at most 31 characters and none of "
               "[ ] : * ? / \\.");
    }
    if (error != LXW_NO_ERROR) {
        refuse(std::string("The new workbook could not be made: ") + lxw_strerror(error) + '.');
    }
    return readFile(file);
}

/// The part of a sheet, some rows at a time. Made once without being kept, it is known to be savable, and
/// which styles it needs.
class SheetMaker final : public PartMaker {
 public:
    SheetMaker(const WrittenSheet& written, StylePart& styles, const SheetPart& part)
        : m_Rows(*written.sheet, written.area, styles, part.prefix()), m_Around(part.aroundRows()) {
        std::string piece;
        for (next(piece); !piece.empty(); next(piece)) {
            m_Size += piece.size();
        }
    }

    [[nodiscard]] std::size_t size() const override { return m_Size; }

    void next(std::string& piece) override {
        constexpr Index rowsAtATime = 256;
        const Rectangle& area = m_Rows.area();
        piece.clear();
        if (m_Row == 0) {
            piece = m_Around.first;
            m_Row = area.top;
            return;
        }
        while (piece.empty() && m_Row <= area.bottom) {
            const Index last = std::min(m_Row + rowsAtATime - 1, area.bottom);
            m_Rows.appendRows(m_Row, last, piece);
            m_Row = last + 1;
        }
        if (piece.empty()) {
            const bool isEnd = m_Row > area.bottom + 1;
            piece = isEnd ? "" : m_Around.second;
            m_Row = isEnd ? 0 : m_Row + 1;
        }
    }

 private:
    SheetRows m_Rows;
    std::pair<std::string, std::string> m_Around;
    std::size_t m_Size = 0;
    Index m_Row = 0;  ///< 0 in front of the first
};

}  // namespace

std::string newWorkbook(const std::vector<WrittenSheet>& sheets) {
    Package package(frame(sheets), "the new workbook");
    WorkbookPart workbook(package);
    const std::string stylePart = workbook.stylePart();
    StylePart styles(package.read(stylePart), stylePart);
    for (const WrittenSheet& written : sheets) {
        const std::string& name = workbook.sheet(written.sheet->name()).part;
        const SheetPart part(package.read(name), name, written.area);
        package.put(name, std::make_unique<SheetMaker>(written, styles, part));
    }
    package.put(stylePart, styles.finish());
    return package.finish();
}

}  // namespace TBVNonPara::workbook
