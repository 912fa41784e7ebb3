#include "tbvnonpara/files/reading/spreadsheet_file.hpp"

#include <sstream>
#include <unistd.h>

#include "tbvnonpara/workbook/sheet_functions.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

using namespace std::string_literals;

class SpreadsheetFile : public testing::Test {
 protected:
    SpreadsheetFile() { std::filesystem::create_directories(m_Folder); }
    ~SpreadsheetFile() override { std::filesystem::remove_all(m_Folder); }

    std::filesystem::path write(const std::string& name, std::string_view bytes) {
        std::ofstream(m_Folder / name, std::ios::binary) << bytes;
        return m_Folder / name;
    }

    void expectOpenRefused(const std::filesystem::path& path, const std::string& words) {
        expectRefused([&] { (void)openDataFile(*m_Application, path); }, words);
        EXPECT_TRUE(m_Application->activeBook()->sheets().empty());
    }

    const std::filesystem::path m_Folder = std::filesystem::temp_directory_path() /
                                           ("files_tests_" + std::to_string(getpid()) + '_' +
                                            testing::UnitTest::GetInstance()->current_test_info()->name());
    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
};

TEST_F(SpreadsheetFile, GivesItsSheetsToTheWorkbook) {
    const auto sheet = openSpreadsheet(*m_Application, madeFile("libreoffice.ods"));
    EXPECT_EQ(sheet->name(), "It's <2020> & Größe");
    EXPECT_EQ(m_Application->activeSheet(), sheet);
    EXPECT_EQ(m_Application->activeBook()->sheets().size(), 3U);
    EXPECT_EQ(m_Application->GetRange("'It''s <2020> & Größe'!A1:A3")->GetValue(),
              (ValueGrid{{"number"}, {1.0}, {-2.5}}));
    EXPECT_EQ(m_Application->GetRange("hidden!B3")->GetValue(), (ValueGrid{{42.0}}));
}

TEST_F(SpreadsheetFile, ListsItsSheetsWhenOneIsUnknown) {
    openSpreadsheet(*m_Application, madeFile("openpyxl.xlsx"));
    expectRefused([&] { (void)m_Application->activeBook()->sheet("Third"); },
                  "the sheets are: \"It's <2020> & Größe\", \"Second\", \"Hidden\".");
}

TEST_F(SpreadsheetFile, IsRecognisedByWhatItHoldsNotByItsName) {
    EXPECT_EQ(openDataFile(*m_Application, write("odd.csv", bytesOf(madeFile("xlsxwriter.xlsx"))))->name(),
              "It's <2020> & Größe");
    EXPECT_EQ(openDataFile(*m_Application, write("text.dat", "a,b\n1,2\n"))->name(), "text");
}

TEST_F(SpreadsheetFile, MayComeFromStandardInput) {
    const auto sheet = openData(*m_Application, "stdin", bytesOf(madeFile("gnumeric.ods")));
    EXPECT_EQ(sheet->name(), "It's <2020> & Größe");
    EXPECT_EQ(openData(*m_Application, "stdin", "a,b\n1,2\n")->name(), "stdin");
    expectRefused([&] { (void)openData(*m_Application, "stdin", "PK\x03\x04"); },
                  "The file \"stdin\" cannot be read");
}

TEST_F(SpreadsheetFile, KeepsNamesThatNoSheetMadeHereMayHave) {
    PartTexts parts = odsParts("");
    std::string& content = parts["content.xml"];
    content.replace(content.find("'Data'"), 6, "'2020/21: a name of more than 31 characters'");
    const auto sheet = openDataFile(*m_Application, write("a.ods", zipped(parts)));
    EXPECT_EQ(sheet->name(), "2020/21: a name of more than 31 characters");
    EXPECT_EQ(m_Application->activeBook()->sheet("2020/21: A name of more than 31 characters"), sheet);
}

TEST_F(SpreadsheetFile, WithTwoSheetsOfOneNameIsRefused) {
    expectOpenRefused(write("a.ods", zipped(odsParts("</table:table><table:table table:name='DATA'>"))),
                      "two sheets have the name \"DATA\"");
}

TEST_F(SpreadsheetFile, WithoutSheetsIsRefused) {
    PartTexts parts = xlsxParts("");
    std::string& workbook = parts["xl/workbook.xml"];
    workbook.erase(workbook.find("<sheet "), workbook.find("</sheets>") - workbook.find("<sheet "));
    expectOpenRefused(write("a.xlsx", zipped(parts)), "it holds no sheet with cells");
}

// The results of formulas that were never calculated.

TEST_F(SpreadsheetFile, RefusesARangeThatTouchesAnUncalculatedFormula) {
    openSpreadsheet(*m_Application, madeFile("formulas_without_results.xlsx"));
    EXPECT_EQ(m_Application->GetRange("A1:A4")->GetValue(), (ValueGrid{{"before"}, {1.0}, {2.0}, {3.0}}));
    for (const char* const address : {"B3", "A1:B9", "B:B"}) {
        expectRefused([&] { (void)m_Application->GetRange(address)->GetValue(); },
                      "Formulas!$B$3 holds a formula whose result is not in the file; open the file in a "
                      "spreadsheet, let it calculate and save it.");
    }
    expectRefused(
        [&] { (void)m_Application->GetWorksheetFunction().CountIf(m_Application->GetRange("B1:B9"), "1"); },
        "Formulas!$B$3 holds a formula");
}

TEST_F(SpreadsheetFile, CountsAnUncalculatedFormulaToTheDataOfAColumn) {
    const auto sheet = openSpreadsheet(*m_Application, madeFile("formulas_without_results.xlsx"));
    EXPECT_EQ(sheet->values().lastUsedRow(2, 2), 5);
    EXPECT_EQ(m_Application->GetRange("B:B")->GetRowsCount(), Long(5));
}

TEST_F(SpreadsheetFile, ForgetsAnUncalculatedFormulaThatIsWrittenOver) {
    openSpreadsheet(*m_Application, madeFile("formulas_without_results.xlsx"));
    m_Application->GetRange("B3")->LetValue(7.0);
    m_Application->GetRange("B5")->Clear();
    EXPECT_EQ(m_Application->GetRange("B2:B5")->GetValue(), (ValueGrid{{4.0}, {7.0}, {6.0}, {Empty()}}));
}

TEST_F(SpreadsheetFile, CopiesAnUncalculatedFormulaAsOne) {
    openSpreadsheet(*m_Application, madeFile("formulas_without_results.xlsx"));
    m_Application->GetRange("B3")->Copy();
    m_Application->GetRange("D1")->PasteSpecial(PasteKind::All);
    expectRefused([&] { (void)m_Application->GetRange("D1")->GetValue(); }, "Formulas!$D$1 holds a formula");
}

// Files of other kinds, named as what they are.

TEST_F(SpreadsheetFile, ThatIsEncryptedIsNamedAsThat) {
    for (const char* const name : {"encrypted.xlsx", "encrypted.ods"}) {
        expectOpenRefused(
            madeFile(name),
            name + "\" cannot be read: it is encrypted; save the workbook without a password."s);
    }
}

TEST_F(SpreadsheetFile, OfAnotherKindIsNamedAsThat) {
    expectOpenRefused(madeFile("old_binary.xls"),
                      "it is a workbook in the old binary format (.xls); save it as .xlsx");
    expectOpenRefused(madeFile("gnumeric.gnumeric"),
                      "it is compressed by gzip (a Gnumeric workbook is, too)");
}

struct Kind {
    const char* file;
    std::string bytes;
    const char* words;
};

TEST_F(SpreadsheetFile, OfAnyOtherKindIsNamedAsThatToo) {
    const std::string compound = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"s;
    const Kind kinds[] = {
        {"a.xlsb", zipped({{"xl/workbook.bin", "x"}}), "it is a binary workbook (.xlsb)"},
        {"b.docx", zipped({{"word/document.xml", "<d/>"}}), "it is a text document (.docx)"},
        {"c.pptx", zipped({{"ppt/presentation.xml", "<p/>"}}), "it is a presentation (.pptx)"},
        {"d.numbers", zipped({{"Index/Document.iwa", "x"}}), "it is a document of Numbers, Pages or Keynote"},
        {"e.odt", zipped({{"mimetype", "application/vnd.oasis.opendocument.text"}, {"content.xml", "<d/>"}}),
         "it is a document of the type application/vnd.oasis.opendocument.text, no workbook"},
        {"f.sxc", zipped({{"mimetype", "application/vnd.sun.xml.calc"}}),
         "a workbook of OpenOffice.org 1 (.sxc)"},
        {"g.zip", zipped({{"data.csv", "1,2"}}), "it is a zip archive without a workbook in it"},
        {"h.msg", compound + std::string(600, '\0'), "it is a compound document without a workbook"},
        {"i.xls", "\x09\x08\x10\x00\x00\x06"s, "the old binary format (.xls)"},
        {"j.pdf", "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n"s, "it is a PDF document"},
        {"k.parquet", "PAR1\x15\x04\x00"s, "it is a Parquet file"},
        {"l.xls", "<html><table><tr><td>1</td></tr></table></html>"s, "it is a web page"},
        {"m.xlsx", "<?xml version=\"1.0\"?><Workbook/>"s, "it is an XML document; save it as .xlsx"},
        {"n.xlsx", "a,b\n1,2\n"s, "it is text, no workbook; give it the ending .csv or .tsv"},
        {"o.ods", ""s, "it is empty"},
        {"p.xlsx", "\x00\x01\x02\xFF"s, "it is no workbook and nothing else that is known"},
    };
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        expectOpenRefused(write(kind.file, kind.bytes), kind.words);
    }
}

TEST_F(SpreadsheetFile, ThatIsMissingIsNamed) {
    expectOpenRefused(m_Folder / "missing.xlsx", "missing.xlsx\" cannot be read");
}

}  // namespace
}  // namespace TBVNonPara::workbook
