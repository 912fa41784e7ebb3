#include <fstream>
#include <sstream>
#include <unistd.h>

#include "tbvnonpara/files/csv/file.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

class CsvFile : public testing::Test {
 protected:
    CsvFile() { std::filesystem::create_directories(m_Folder); }
    ~CsvFile() override { std::filesystem::remove_all(m_Folder); }

    std::filesystem::path write(const std::string& name, std::string_view text) {
        std::ofstream(m_Folder / name, std::ios::binary) << text;
        return m_Folder / name;
    }

    const std::filesystem::path m_Folder = std::filesystem::temp_directory_path() /
                                           ("workbook_tests_" + std::to_string(getpid()) + '_' +
                                            testing::UnitTest::GetInstance()->current_test_info()->name());
    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
};

TEST_F(CsvFile, BecomesASheetNamedLikeIt) {
    const auto sheet = openCsv(*m_Application, write("My data.v2.csv", "a,b\n1,2\n"));
    EXPECT_EQ(sheet->name(), "My data.v2");
    EXPECT_EQ(m_Application->GetRange("'My data.v2'!A:B")->GetValue(), (ValueGrid{{"a", "b"}, {1.0, 2.0}}));
    EXPECT_EQ(m_Application->activeSheet(), sheet);
}

TEST_F(CsvFile, ANameThatNoSheetMayHaveIsMadeToFit) {
    EXPECT_EQ(openCsv(*m_Application, write("[a]b?.csv", "1"))->name(), "_a_b_");
    EXPECT_EQ(openCsv(*m_Application, write("\xFF.csv", "1"))->name(), "_");
    EXPECT_EQ(openCsv(*m_Application, write("A name that is much longer than 31 letters.csv", "1"))->name(),
              "A name that is much longer than");
}

TEST_F(CsvFile, OfTheSameNameGetsANumber) {
    EXPECT_EQ(openCsv(*m_Application, write("Data.csv", "1"))->name(), "Data");
    EXPECT_EQ(openCsv(*m_Application, write("data.tsv", "1"))->name(), "data (2)");
}

TEST_F(CsvFile, EndingInTsvIsDividedByTabs) {
    const auto sheet = openCsv(*m_Application, write("data.TSV", "a,b;c\n1,5\n"));
    EXPECT_EQ(sheet->value(1, 1), CellValue("a,b;c"));
    EXPECT_EQ(sheet->value(2, 1), CellValue(1.5));
    const auto other = openCsv(*m_Application, write("other.tsv", "a;b"), {.delimiter = ';'});
    EXPECT_EQ(other->value(1, 2), CellValue("b"));
    EXPECT_EQ(openCsv(*m_Application, write("own.tsv", "sep=;\na;b"))->value(1, 2), CellValue("b"));
}

TEST_F(CsvFile, WhoseHeaderIsMovedSaysSo) {
    std::string remark;
    openCsv(*m_Application, write("plain.csv", "a,b\n1,2\n"), {}, &remark);
    EXPECT_EQ(remark, "");
    openCsv(*m_Application, write("r.csv", "a,b\n1,2,3\n"), {}, &remark);
    EXPECT_THAT(remark, testing::HasSubstr("was moved by one column"));
}

TEST_F(CsvFile, ThatIsEmptyIsAnEmptySheet) {
    EXPECT_EQ(openCsv(*m_Application, write("empty.csv", ""))->usedArea(), std::nullopt);
}

TEST_F(CsvFile, ThatCannotBeReadIsNamedWithTheReason) {
    expectRefused([&] { (void)openCsv(*m_Application, m_Folder / "missing.csv"); },
                  "missing.csv\" cannot be read: No such file or directory.");
    expectRefused([&] { (void)openCsv(*m_Application, m_Folder); }, "cannot be read: it is a folder.");
    EXPECT_EQ(m_Application->activeSheet(), nullptr);
}

TEST_F(CsvFile, ThatIsBrokenAddsNoSheet) {
    const auto path = write("broken.csv", "1\n\"2");
    expectRefused([&] { (void)openCsv(*m_Application, path); }, "broken.csv, line 2, byte 1");
    EXPECT_EQ(m_Application->activeSheet(), nullptr);
}

TEST_F(CsvFile, FromAStreamIsReadUnderANameOfItsOwn) {
    std::string text(3'000'000, '7');
    text += "\n1";
    std::istringstream stream(text);
    EXPECT_EQ(readStream(stream), text);
    const auto sheet = openCsvText(*m_Application, "stdin", "1;2");
    EXPECT_EQ(sheet->name(), "stdin");
    EXPECT_EQ(sheet->value(1, 2), CellValue(2.0));
    expectRefused([&] { (void)openCsvText(*m_Application, "stdin", "\xFF"); }, "stdin, line 1, byte 1");
}

TEST_F(CsvFile, WithoutASizeIsReadToItsEnd) {
    EXPECT_EQ(readFile("/dev/null"), "");
    EXPECT_THAT(readFile("/proc/self/status"), testing::HasSubstr("Name:"));
}

}  // namespace
}  // namespace TBVNonPara::workbook
