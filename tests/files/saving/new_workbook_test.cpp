#include <clocale>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/saving/package.hpp"
#include "tbvnonpara/files/saving/xlsx_writer.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::workbook {

namespace {

using testing::HasSubstr;

/// A process with a decimal comma, until the end of a test.
class GermanLocale {
 public:
    GermanLocale()
        : m_IsSet(::setenv("LOCPATH", TBVNONPARA_LOCALES, 1) == 0 &&
                  std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) {}
    ~GermanLocale() { std::setlocale(LC_ALL, "C"); }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

    [[nodiscard]] bool isSet() const {
        return m_IsSet && std::string(std::localeconv()->decimal_point) == ",";
    }

 private:
    bool m_IsSet;
};

class NewWorkbooks : public testing::Test {
 protected:
    [[nodiscard]] std::string sheetOf(const Rectangle& area) const {
        return Package(newWorkbook({{sheet.get(), area}}), "new.xlsx").read("xl/worksheets/sheet1.xml");
    }

    static std::string refusal(const Sheet& written, const Rectangle& area) {
        try {
            static_cast<void>(newWorkbook({{&written, area}}));
        } catch (const Error& error) {
            return error.description();
        }
        return "";
    }

    ObjectRef<EmbeddedApplication> application = makeApplication();
    std::shared_ptr<Sheet> sheet = application->addSheet("Data");
};

TEST_F(NewWorkbooks, AreTheSameWithADecimalComma) {
    sheet->values().set(1, 1, 1234.5);
    sheet->values().set(2, 1, Text("a heading of some width"));
    const std::string plain = sheetOf({1, 1, 2, 2});
    const GermanLocale german;
    ASSERT_TRUE(german.isSet()) << "no German locale in " << TBVNONPARA_LOCALES;
    EXPECT_EQ(sheetOf({1, 1, 2, 2}), plain);
    EXPECT_THAT(plain, HasSubstr("<v>1234.5</v>"));
    EXPECT_THAT(plain, HasSubstr("width=\"9.7109375\""));
}

TEST_F(NewWorkbooks, HoldManyRowsInOrderWithGapsBetweenThem) {
    std::string expected;
    for (const Index row : {1, 256, 257, 2000, 2001}) {
        sheet->values().set(row, 2, static_cast<double>(row));
        const std::string number = std::to_string(row);
        expected += "<row r=\"" + number + "\"><c r=\"B" + number + "\"><v>" + number + "</v></c></row>";
    }
    EXPECT_THAT(sheetOf({1, 2, 3000, 2}), HasSubstr("<sheetData>" + expected + "</sheetData>"));
    EXPECT_THAT(sheetOf({300, 2, 400, 2}), HasSubstr("<sheetData></sheetData>"));
}

TEST_F(NewWorkbooks, NameTheCellThatCannotBeSavedWhereverItStands) {
    sheet->values().set(70000, 1, Text("a\x01"));
    EXPECT_THAT(refusal(*sheet, {1, 1, 70000, 1}), HasSubstr("Data!A70000 cannot be saved"));
}

TEST_F(NewWorkbooks, NameTheSheetThatCannotBeSavedUnderItsName) {
    const Sheet named("What is this?", {});
    EXPECT_THAT(refusal(named, {1, 1, 1, 1}), HasSubstr("The sheet \"What is this?\" cannot be saved"));
}

}  // namespace

}  // namespace TBVNonPara::workbook
