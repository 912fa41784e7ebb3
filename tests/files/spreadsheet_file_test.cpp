#include "tbvnonpara/files/reading/spreadsheet_file.hpp"

#include <sstream>
#include <sys/stat.h>
#include <thread>
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

TEST_F(SpreadsheetFile, WithTwoSheetsOfOneNameNumbersTheSecond) {
    openDataFile(*m_Application,
                 write("a.ods", zipped(odsParts("</table:table><table:table table:name='DATA'>"
                                                "</table:table><table:table table:name='DATA (2)'>"
                                                "</table:table><table:table table:name='data'>"))));
    std::string names;
    for (const auto& sheet : m_Application->activeBook()->sheets()) {
        names += sheet->name() + '|';
    }
    // The sheet that is called so already keeps its name.
    EXPECT_EQ(names, "Data|DATA (3)|DATA (2)|data (4)|");
}

TEST_F(SpreadsheetFile, RefusesARangeThatTouchesACellThatCannotBeRead) {
    const std::string cell = "<table:table-cell office:value-type='";
    openDataFile(
        *m_Application,
        write("a.ods", zipped(odsParts("<table:table-row>" + cell + "float' office:value='1'/>" + cell +
                                       "date' office:date-value='1900-02-29'/></table:table-row>"))));
    EXPECT_EQ(m_Application->GetRange("A1")->GetValue(), (ValueGrid{{1.0}}));
    for (const char* const address : {"B1", "A1:B1", "B:B"}) {
        expectRefused(
            [&] { (void)m_Application->GetRange(address)->GetValue(); },
            "Data!$B$1 cannot be read: \"1900-02-29\" is no value of the type date; correct the cell "
            "in a spreadsheet and save the file.");
    }
    m_Application->GetRange("B1")->LetValue(7.0);
    EXPECT_EQ(m_Application->GetRange("B1")->GetValue(), (ValueGrid{{7.0}}));
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
        {"m.xlsx", R"(<?xml version="1.0"?><Workbook/>)"s, "it is an XML document; save it as .xlsx"},
        {"n.csv", "<?xml version=\"1.0\"?>\n<x xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\"/>"s,
         "it is a workbook in the XML of 2003 (SpreadsheetML); save it as .xlsx"},
        {"n.xml", "<?xml version='1.0'?><gnm:Workbook xmlns:gnm='http://www.gnumeric.org/v10.dtd'/>"s,
         "it is a Gnumeric workbook"},
        {"n.htm", "\n<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\">\n<HTML>"s, "it is a web page"},
        {"n.txt", "\xEF\xBB\xBF<table border=\"1\"><tr><td>1</td></tr></table>"s, "it is a web page"},
        {"n.svg", "<svg\n  width=\"5\"></svg>"s, "it is an XML document"},
        {"n.rtf", R"({\rtf1\ansi 1,2})"s, "it is an RTF document"},
        {"n.json", "{\"a\": [1, 2],\n\"b\": [3, 4]}"s, "it is JSON"},
        {"o.json", "[\n  1, -2.5e3,\n  3\n]\n"s, "it is JSON"},
        {"p.json", "[ [1, 2], [3, 4]]"s, "it is JSON"},
        {"q.ndjson", "{\"a\":1,\"b\":2}\n{\"a\":3,\"b\":4}\n"s, "it is JSON"},
        {"n.slk", "ID;PWXL;N;E\r\nP;PGeneral\r\nC;Y1;X1;K1\r\nE\r\n"s, "it is a symbolic link file (SYLK)"},
        {"o.slk", "ID;PCALCOOO32\nC;X1;Y1;K\"a\"\nE\n"s, "it is a symbolic link file (SYLK)"},
        {"n.dif", "TABLE\r\n0,1\r\n\"EXCEL\"\r\nVECTORS\r\n0,2\r\n"s, "it is a data interchange file (DIF)"},
        {"n.arff", "@RELATION iris\n@ATTRIBUTE a REAL\n@DATA\n1\n"s, "it is a Weka data file (ARFF)"},
        {"n.xlsx", "a,b\n1,2\n"s, "it is text, no workbook; give it the ending .csv or .tsv"},
        {"o.ods", ""s, "it is empty"},
        {"p.xlsx", "\x00\x01\x02\xFF"s, "it is no workbook and nothing else that is known"},
    };
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.file);
        expectOpenRefused(write(kind.file, kind.bytes), kind.words);
    }
}

TEST_F(SpreadsheetFile, OfFieldsThatOnlyBeginLikeAnotherKindIsReadAsFields) {
    const std::string texts[] = {
        "<LOD,<0.5\n1,2\n",          "<LOD\n0.5\n<LOD\n",   "<0.5,b\n1,2\n", "[1,2)\n[2,3)\n[1,2)\n",
        "[1] 2.5 3.5\n[3] 4.5\n",    "[mV],[s]\n1,2\n",     "{a},b\n1,2\n",  "ID;Pressure;K\nB;3;4\n",
        "ID;Pressure\nC;12\nF3;2\n", "TABLE,b\n0,1\n2,3\n", "TABLE\n0\n1\n",
    };
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        EXPECT_NE(openDataFile(*m_Application, write("a.csv", text))->usedArea(), std::nullopt);
        EXPECT_NE(openData(*m_Application, "stdin", text)->usedArea(), std::nullopt);
    }
}

TEST_F(SpreadsheetFile, OfAnotherKindIsNamedFromStandardInputToo) {
    expectRefused([&] { (void)openData(*m_Application, "stdin", "{\"a\": 1}"); },
                  "The file \"stdin\" cannot be read: it is JSON");
    expectRefused([&] { (void)openData(*m_Application, "stdin", "SQLite format 3\0\x10\x00"s); },
                  "it is an SQLite database");
}

TEST_F(SpreadsheetFile, InOnePieceOfXmlIsAWorkbook) {
    const std::filesystem::path flat = madeFile("libreoffice.fods");
    const FileContents contents = readSpreadsheet(flat);
    const FileContents packed = readSpreadsheet(madeFile("libreoffice.ods"));
    ASSERT_EQ(contents.sheets.size(), packed.sheets.size());
    for (std::size_t i = 0; i < packed.sheets.size(); ++i) {
        EXPECT_EQ(contents.sheets[i].name, packed.sheets[i].name);
        EXPECT_EQ(contents.sheets[i].hidden, packed.sheets[i].hidden);
        EXPECT_EQ(shownCells(contents.sheets[i].cells), shownCells(packed.sheets[i].cells));
    }
    const std::string text = bytesOf(flat);
    const std::string title = "It's <2020> & Größe";
    EXPECT_EQ(openDataFile(*m_Application, write("odd.csv", text))->name(), title);
    EXPECT_EQ(openData(*m_Application, "stdin", "\xEF\xBB\xBF" + text)->name(), title + " (2)");
}

TEST_F(SpreadsheetFile, InOnePieceShowsTheSheetThatWasOnTop) {
    std::string text = bytesOf(madeFile("libreoffice.fods"));
    const std::string settings = "<office:settings>";
    text.insert(text.find(settings) + settings.size(),
                "<config:config-item config:name='ActiveTable'>Second</config:config-item>");
    EXPECT_EQ(openDataFile(*m_Application, write("a.fods", text))->name(), "Second");
}

TEST_F(SpreadsheetFile, InOnePieceIsRefusedWithTheLineWhenItIsDamaged) {
    const std::string text = bytesOf(madeFile("libreoffice.fods"));
    expectOpenRefused(write("a.fods", text.substr(0, text.size() / 2)), "a.fods\" cannot be read: line ");
    expectOpenRefused(write("a.fods", replaced(text, "opendocument.spreadsheet\"", "opendocument.text\"")),
                      "this is a document of the type application/vnd.oasis.opendocument.text, no workbook");
}

TEST_F(SpreadsheetFile, MayComeOutOfAPipe) {
    for (const char* const name : {"xlsxwriter.xlsx", "libreoffice.fods"}) {
        const std::filesystem::path pipe = m_Folder / "pipe";
        ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        std::thread writer([&] { std::ofstream(pipe, std::ios::binary) << bytesOf(madeFile(name)); });
        const auto sheet = openDataFile(*m_Application, pipe);
        writer.join();
        EXPECT_EQ(sheet->value(1, 1), CellValue("number"));
        std::filesystem::remove(pipe);
    }
}

TEST_F(SpreadsheetFile, ThatIsMissingIsNamed) {
    expectOpenRefused(m_Folder / "missing.xlsx", "missing.xlsx\" cannot be read");
}

}  // namespace
}  // namespace TBVNonPara::workbook
