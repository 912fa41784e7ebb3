#include "tests/request/request_desk.hpp"
#include "tests/support/release_order.hpp"

namespace TBVNonPara {
namespace {

const std::string firstReport = "9|3|3|0.1";

/// A Mann-Whitney request whose report was built but not pasted; the data have changed since.
struct UnpastedDesk : RequestDesk {
    UnpastedDesk() : RequestDesk(threeAndThree) {
        request.LetYRange("Data!A1:A3");
        request.LetXRange("Data!B1:B3");
        request.LetOutputRange("Out!A1");
        failing = "Range.PasteSpecial";
        failures = 1;
        EXPECT_EQ(run(), Support::in("clsNonPara.Results", 1004));
        put("Data!A1", {{10.0}});
    }

    /// Whether the next run pastes the report that was built before.
    [[nodiscard]] bool pastesTheEarlierReport() {
        EXPECT_EQ(run(), Support::Raised());
        const Support::SheetText lines = cells("Out!A1:H30");
        return lines.size() == 7 && lines[6] == firstReport;
    }
};

struct SettingCase {
    std::string name;
    std::function<void(clsNonPara&)> set;
    bool keepsTheReport;

    friend std::ostream& operator<<(std::ostream& out, const SettingCase& setting) {
        return out << setting.name;
    }
};

// clang-format off
const SettingCase settingsCases[] = {
    {"Nothing",                  [](clsNonPara&) {}, true},
    {"TheSameMethod",            [](clsNonPara& r) { r.LetMethod(tbvNPMannU); }, true},
    {"AnotherMethod",            [](clsNonPara& r) { r.LetMethod(tbvNPWilcoxon); }, false},
    {"TheSameHeaders",           [](clsNonPara& r) { r.LetHeaders(false); }, true},
    {"OtherHeaders",             [](clsNonPara& r) { r.LetHeaders(true); }, false},
    {"TheSameDescriptives",      [](clsNonPara& r) { r.LetOutputDescriptives(false); }, true},
    {"OtherDescriptives",        [](clsNonPara& r) { r.LetOutputDescriptives(true); }, false},
    {"TheSameIgnoreTies",        [](clsNonPara& r) { r.LetIgnoreTies(false); }, true},
    {"OtherIgnoreTies",          [](clsNonPara& r) { r.LetIgnoreTies(true); }, false},
    {"TheSameTails",             [](clsNonPara& r) { r.LetTails(tbvNPTwoTailed); }, true},
    {"OtherTails",               [](clsNonPara& r) { r.LetTails(tbvNPVar1GTVar2); }, false},
    {"TailsThereAndBack",        [](clsNonPara& r) { r.LetTails(tbvNPVar1GTVar2); r.LetTails(tbvNPTwoTailed); }, false},
    {"TheSameXRange",            [](clsNonPara& r) { r.LetXRange("Data!B1:B3"); }, true},
    {"AnotherXRange",            [](clsNonPara& r) { r.LetXRange("Data!B1:B2"); }, false},
    {"TheSameYRange_CountsAsNew", [](clsNonPara& r) { r.LetYRange("Data!A1:A3"); }, false},
    {"TheSameOutputRange",       [](clsNonPara& r) { r.LetOutputRange("Out!A1"); }, true},
};
// clang-format on

class Setting : public ::testing::TestWithParam<SettingCase> {};

TEST_P(Setting, KeepsTheUnpastedReportOnlyWhenNothingChanges) {
    UnpastedDesk desk;
    GetParam().set(desk.request);
    EXPECT_EQ(desk.pastesTheEarlierReport(), GetParam().keepsTheReport);
}

INSTANTIATE_TEST_SUITE_P(Request, Setting, ::testing::ValuesIn(settingsCases),
                         [](const auto& test) { return test.param.name; });

TEST(UnpastedReport, GoesToAnotherPlaceThatIsNamedMeanwhile) {
    UnpastedDesk desk;
    desk.request.LetOutputRange("Out!D9");
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.cells("Out!D9:H30").back(), firstReport);
}

TEST(UnpastedReport, IsPastedOnce) {
    UnpastedDesk desk;
    EXPECT_TRUE(desk.pastesTheEarlierReport());
    EXPECT_EQ(desk.run(true), Support::Raised());
    EXPECT_NE(desk.cells("Out!A1:H30").back(), firstReport);
}

TEST(UnpastedReport, SurvivesARefusedSecondRange) {
    UnpastedDesk desk;
    EXPECT_EQ(Support::raisedBy([&] { desk.request.LetXRange("Data!A1:B3"); }).number, tbvNPXRangeColumns);
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.cells("Out!A1:H30").back(), firstReport);
}

TEST(Method, OutsideTheListIsStoredAndHasNoReportToMeasure) {
    for (const std::int32_t method : {8, -1}) {
        RequestDesk desk(threeAndThree);
        EXPECT_EQ(Support::raisedBy([&] { desk.request.LetMethod(TBVNPMethod(method)); }), Support::Raised());
        desk.request.LetYRange("Data!A1:A3");
        EXPECT_EQ(desk.run(), Support::in("clsNonPara.Results", 91));
        EXPECT_EQ(desk.sheets().size(), 3U);
        EXPECT_EQ(desk.lastSheet(), Support::SheetText());
    }
}

TEST(Tails, OutsideTheListAreStored) {
    RequestDesk desk(threeAndThree);
    desk.request.LetTails(TBVNPTails(7));
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetXRange("Data!B1:B3");
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.lastSheet()[4], "2-tailed Test");
}

/// A host that notices when a range it gave by its address is released.
class RangesNoticed : public Application {
 public:
    RangesNoticed(ObjectRef<Application> host, std::vector<std::string>& released)
        : m_Host(std::move(host)), m_Released(released) {}

    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        return Support::noticed(m_Host->GetRange(address), std::string(address), m_Released);
    }
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        return m_Host->GetRange(first, last);
    }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override {
        return m_Host->GetWorkbooks(name);
    }
    [[nodiscard]] WorksheetRef AddWorksheets() override { return m_Host->AddWorksheets(); }
    void LetScreenUpdating(bool updating) override { m_Host->LetScreenUpdating(updating); }
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override {
        return m_Host->GetWorksheetFunction();
    }

 private:
    ObjectRef<Application> m_Host;
    std::vector<std::string>& m_Released;
};

TEST(Request, ReleasesItsRangesInOrderAndThenItsEngine) {
    const RequestDesk desk(threeAndThree);
    std::vector<std::string> released;
    CompanionLibrary companions = ownCompanions(makeObject<RangesNoticed>(desk.host, released));
    companions.createArrayUtility = [&, create = companions.createArrayUtility] {
        return Support::noticed(create(), "engine", released);
    };
    {
        clsNonPara request(companions);
        request.LetOutputRange("Data!D1");
        request.LetXRange("Data!B1:B3");
        request.LetYRange("Data!A1:A3");
        released.clear();
    }
    EXPECT_EQ(released, (std::vector<std::string>{"Data!A1:A3", "Data!B1:B3", "Data!D1", "engine"}));
}

}  // namespace
}  // namespace TBVNonPara
