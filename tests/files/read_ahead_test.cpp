#include "tbvnonpara/files/read_ahead.hpp"

#include <atomic>
#include <gtest/gtest.h>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::workbook {
namespace {

/// So many bytes that tell where they stand, and then perhaps an error.
class CountingBytes final : public PartStream {
 public:
    CountingBytes(std::size_t size, bool failing, std::atomic<std::size_t>* given = nullptr)
        : m_Size(size), m_Failing(failing), m_Given(given) {}
    std::size_t read(char* buffer, std::size_t size) override {
        if (m_At == m_Size && m_Failing) {
            refuse("damaged");
        }
        const std::size_t count = std::min({size, m_Size - m_At, std::size_t(10'007)});
        for (std::size_t i = 0; i < count; ++i) {
            buffer[i] = byteAt(m_At + i);
        }
        m_At += count;
        if (m_Given != nullptr) {
            *m_Given = m_At;
        }
        return count;
    }
    static char byteAt(std::size_t place) { return static_cast<char>(place * 7 + place / 251); }

 private:
    std::size_t m_Size;
    bool m_Failing;
    std::atomic<std::size_t>* m_Given;
    std::size_t m_At = 0;
};

/// How many bytes come that are the right ones, read in pieces of this size.
std::size_t rightBytes(PartStream& part, std::size_t pieceSize) {
    std::string buffer(pieceSize, '\0');
    std::size_t at = 0;
    while (const std::size_t count = part.read(buffer.data(), pieceSize)) {
        for (std::size_t i = 0; i < count; ++i, ++at) {
            if (buffer[i] != CountingBytes::byteAt(at)) {
                return at;
            }
        }
    }
    EXPECT_EQ(part.read(buffer.data(), pieceSize), 0U) << "the end stays the end";
    return at;
}

constexpr std::size_t sizes[] = {0, 1, 262'143, 262'144, 262'145, 524'288, 3'000'000};

TEST(ReadAhead, GivesThePartAsItIs) {
    for (const std::size_t size : sizes) {
        for (const std::size_t pieceSize : {std::size_t(999), std::size_t(1) << 16U, std::size_t(1) << 20U}) {
            EXPECT_EQ(rightBytes(*readAhead(std::make_unique<CountingBytes>(size, false)), pieceSize), size);
        }
    }
}

TEST(ReadAhead, RaisesAnErrorBehindWhatIsGood) {
    for (const std::size_t size : sizes) {
        const auto part = readAhead(std::make_unique<CountingBytes>(size, true));
        std::string buffer(50'000, '\0');
        std::size_t good = 0;
        const Support::Raised raised = Support::raisedBy([&] {
            while (const std::size_t count = part->read(buffer.data(), buffer.size())) {
                good += count;
            }
        });
        EXPECT_EQ(raised.description, "damaged") << size;
        EXPECT_EQ(good, size - size % 262'144) << "pieces that are whole come first";
    }
}

TEST(ReadAhead, EndsWithItsReaderAndWaitsForIt) {
    std::atomic<std::size_t> given = 0;
    {
        const auto part = readAhead(std::make_unique<CountingBytes>(std::size_t(1) << 28U, false, &given));
        std::string buffer(1000, '\0');
        static_cast<void>(part->read(buffer.data(), buffer.size()));
    }
    EXPECT_LE(given, std::size_t(10) << 18U) << "no more than some pieces wait";
}

TEST(ReadAhead, LeavesAWorkbookAsItIs) {
    std::string rows;
    for (int row = 1; row <= 20'000; ++row) {
        rows += "<row><c><v>" + std::to_string(row) + ".25</v></c><c t=\"inlineStr\"><is><t>text " +
                std::to_string(row) + "</t></is></c></row>";
    }
    const std::string bytes = zipped(xlsxParts(rows));
    EXPECT_EQ(shownCells(readSpreadsheetBytes(bytes, 2).sheets.at(0).cells),
              shownCells(readSpreadsheetBytes(bytes).sheets.at(0).cells));
    const std::string damaged = zipped(xlsxParts(rows + "<row><c t=\"n\"><v>x</v></c></row></wrong>"));
    const Support::Raised expected = Support::raisedBy([&] { (void)readSpreadsheetBytes(damaged); });
    const Support::Raised raised = Support::raisedBy([&] { (void)readSpreadsheetBytes(damaged, 2); });
    EXPECT_EQ(raised.number, 1004);
    EXPECT_EQ(raised.description, expected.description);
}

}  // namespace
}  // namespace TBVNonPara::workbook
