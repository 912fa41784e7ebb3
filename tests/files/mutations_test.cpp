// Whatever happened to a workbook, it is read or refused; and a copy with a report in it is refused, or keeps
// every cell and holds the report. The workbooks of made/featured: generators/make_featured.py.

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tbvnonpara/files/saving/placing.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"
#include "tests/files/workbooks.hpp"

namespace TBVNonPara::workbook {
namespace {

// The sanitizers see what a run without them survives; there the full number is played.
#if defined(__SANITIZE_ADDRESS__)
constexpr int runs = 3000;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr int runs = 3000;
#else
constexpr int runs = 300;
#endif
#else
constexpr int runs = 300;
#endif

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t limit) {
    return limit == 0 ? 0 : random() % limit;
}

/// Those that a copy can be made of.
std::vector<std::string> featuredWorkbooks() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(madeFile("featured"))) {
        files.push_back(entry.path());
    }
    std::ranges::sort(files);
    std::vector<std::string> workbooks;
    std::ranges::transform(files, std::back_inserter(workbooks), bytesOf);
    return workbooks;
}

std::vector<std::string> openDocuments() {
    std::vector<std::string> documents;
    for (const char* const name :
         {"gnumeric.ods", "gnumeric_1904.ods", "libreoffice.ods", "libreoffice_1904.ods"}) {
        documents.push_back(bytesOf(madeFile(name)));
    }
    return documents;
}

/// The parts that tell what the cells hold; a change in them mostly ends the reading.
bool isRead(const std::string& part) {
    return part.starts_with("xl/worksheets/sheet") || part.starts_with("xl/workbook") ||
           part.starts_with("xl/sharedStrings") || part.ends_with("workbook.xml.rels") ||
           part == "_rels/.rels" || part == "content.xml" || part == "settings.xml" ||
           part == "META-INF/manifest.xml";
}

std::string randomPart(Random& random, const PartTexts& parts, bool read) {
    std::vector<std::string> names;
    for (const auto& [name, text] : parts) {
        if (isRead(name) == read) {
            names.push_back(name);
        }
    }
    return names.empty() ? parts.begin()->first : names[below(random, names.size())];
}

void flip(Random& random, std::string& text) {
    if (!text.empty()) {
        char& byte = text[below(random, text.size())];
        byte = static_cast<char>(static_cast<unsigned char>(byte) ^ (1U << below(random, 8)));
    }
}

/// Changes the text of a part: bits, a piece lost or written twice, bytes of any kind, or nothing left.
void change(Random& random, std::string& text) {
    const std::size_t at = below(random, text.size());
    const std::size_t size = below(random, std::min<std::size_t>(text.size() - at, 64));
    switch (below(random, 6)) {
        case 0:
            text.erase(at, size);
            break;
        case 1:
            text.insert(at, text.substr(at, size));
            break;
        case 2:
            text.insert(at, 1 + size, static_cast<char>(random()));
            break;
        case 3:
            text.resize(at);
            break;
        default:
            flip(random, text);
            flip(random, text);
            break;
    }
}

/// A mutation: of the container's bytes, or of a part that is packed again; mostly one that is not read.
std::string mutated(Random& random, const std::string& workbook) {
    const std::size_t kind = below(random, 10);
    if (kind == 0) {
        std::string bytes = workbook;
        flip(random, bytes);
        return bytes;
    }
    PartTexts parts = unzipped(workbook);
    const std::string part = randomPart(random, parts, kind < 3);
    if (kind == 3) {
        parts.erase(part);
    } else if (kind == 4) {
        parts[part + std::string(1 + below(random, 3), 'x')] = parts.extract(part).mapped();
    } else {
        change(random, parts[part]);
    }
    return zipped(parts);
}

/// True when the action is done, false when it was refused with words; anything else is a failure.
template <typename Action>
bool isDone(const Action& action) {
    try {
        action();
        return true;
    } catch (const Error& error) {
        EXPECT_FALSE(error.description().empty()) << error.number();
        return false;
    }
}

/// The cells of all sheets, without those of an area on the sheet "Data".
std::string cellsBeside(const std::string& workbook, const Rectangle& area) {
    FileContents contents = readSpreadsheetBytes(workbook);
    std::string all;
    for (FileSheet& sheet : contents.sheets) {
        if (sheet.name == "Data") {
            sheet.cells.clear(area);
        }
        all += sheet.name + ": " + shownCells(sheet.cells) + '\n';
    }
    return all;
}

/// A report on the two columns at Data!H20, and where it ends.
struct MadeReport {
    explicit MadeReport(const std::string& workbook) {
        openData(*application, "mutated", workbook);
        request.LetMethod(tbvNPMannU);
        request.LetHeaders(true);
        request.LetYRange("Data!A1:A6");
        request.LetXRange("Data!B1:B6");
        request.LetOutputRange("Data!H20");
        request.Results(false);
        const Clipping& copied = *application->clipboard();
        block = {20, 8, 19 + copied.rows, 7 + copied.columns};
    }

    ObjectRef<EmbeddedApplication> application = makeApplication();
    clsNonPara request{ownCompanions(application)};
    Rectangle block;
};

/// A copy with a report in it, none when one of both was refused.
std::optional<std::string> copyOf(const std::string& workbook, Rectangle& block) {
    std::string copy;
    const bool done = isDone([&] {
        const MadeReport report(workbook);
        const std::shared_ptr<Sheet> sheet = report.application->activeBook()->sheet("Data");
        block = report.block;
        copy = placeIntoCopy(workbook, "mutated.xlsx", {{sheet.get(), block, TargetSheet::Named, false}});
    });
    return done ? std::optional(copy) : std::nullopt;
}

/// Whether there is a copy; then it keeps all other cells and holds the report.
bool copies(const std::string& workbook) {
    Rectangle block;
    const std::optional<std::string> copy = copyOf(workbook, block);
    if (copy) {
        EXPECT_EQ(cellsBeside(*copy, block), cellsBeside(workbook, block));
        const auto again = makeApplication();
        openData(*again, "copy", *copy);
        EXPECT_EQ(again->activeBook()->sheet("Data")->value(20, 8),
                  CellValue("Mann-Whitney Test Results for:"));
    }
    return copy.has_value();
}

/// Reads that many mutations; most of them, and not all, are no reason to refuse a workbook.
void readMutations(const std::vector<std::string>& workbooks, Random random, int count) {
    int read = 0;
    for (int run = 0; run < count; ++run) {
        const std::string bytes =
            mutated(random, workbooks[static_cast<std::size_t>(run) % workbooks.size()]);
        SCOPED_TRACE(run);
        read += isDone([&] { (void)readSpreadsheetBytes(bytes); }) ? 1 : 0;
    }
    EXPECT_GT(read, count / 2);
    EXPECT_LT(read, count);
}

TEST(MutatedWorkbooks, AreReadOrRefused) {
    const std::vector<std::string> workbooks = featuredWorkbooks();
    ASSERT_EQ(workbooks.size(), 20U);
    readMutations(workbooks, Random(20260301), runs);
}

TEST(MutatedWorkbooks, AsOpenDocumentsAreReadOrRefused) {
    readMutations(openDocuments(), Random(20260303), runs / 3);
}

TEST(MutatedWorkbooks, AreCopiedWithAReportThatLosesNoCellOrRefused) {
    const std::vector<std::string> workbooks = featuredWorkbooks();
    for (const std::string& workbook : workbooks) {
        ASSERT_TRUE(copies(workbook));
    }
    Random random(20260302);
    int copied = 0;
    for (int run = 0; run < runs; ++run) {
        const std::string bytes =
            mutated(random, workbooks[static_cast<std::size_t>(run) % workbooks.size()]);
        SCOPED_TRACE(run);
        copied += copies(bytes) ? 1 : 0;
    }
    RecordProperty("copied", copied);
    EXPECT_GT(copied, runs / 2) << "most runs have to reach the report";
    EXPECT_LT(copied, runs);
}

}  // namespace
}  // namespace TBVNonPara::workbook
