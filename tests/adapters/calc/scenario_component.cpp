#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <cppuhelper/factory.hxx>
#include <cppuhelper/implbase1.hxx>
#include <gtest/gtest.h>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/writing.hpp"
#include "tests/adapters/calc/lost_formats.hpp"
#include "tests/adapters/calc/office_document.hpp"
#include "tests/whole/scenarios/library_host.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// A request as the add-in makes it: within a run of its session.
class CalcRequest : public Request {
 public:
    CalcRequest(std::shared_ptr<Session> session, std::unique_ptr<Request> request)
        : m_Session(std::move(session)), m_Request(std::move(request)) {}

    void LetMethod(TBVNPMethod method) override { m_Request->LetMethod(method); }
    void LetHeaders(bool headers) override { m_Request->LetHeaders(headers); }
    void LetOutputDescriptives(bool wanted) override { m_Request->LetOutputDescriptives(wanted); }
    void LetIgnoreTies(bool ignoreTies) override { m_Request->LetIgnoreTies(ignoreTies); }
    void LetTails(TBVNPTails tails) override { m_Request->LetTails(tails); }
    void LetYRange(std::string_view address) override { m_Request->LetYRange(address); }
    void LetXRange(std::string_view address) override { m_Request->LetXRange(address); }
    void LetOutputRange(std::string_view address) override { m_Request->LetOutputRange(address); }
    void Results(bool OverWrite) override {
        const Run run(*m_Session);
        m_Request->Results(OverWrite);
    }

 private:
    std::shared_ptr<Session> m_Session;
    std::unique_ptr<Request> m_Request;
};

/// The spreadsheet that this is loaded into, with a document of its own for each scenario.
class CalcHost : public LibraryHost {
 public:
    CalcHost() : CalcHost(std::make_shared<OpenDocument>()) {}

    void addSheet(std::string_view name, const ValueGrid& cells) override {
        const auto sheets = document()->getSheets();
        if (m_Sheets == 0) {
            query<css::container::XNamed>(sheetAt(document(), 0))->setName(fromUtf8(name));
        } else {
            sheets->insertNewByName(fromUtf8(name), m_Sheets);
        }
        m_Sheets = static_cast<std::int16_t>(m_Sheets + 1);
        const SheetRef sheet = sheetNamed(document(), fromUtf8(name));
        if (cells.allocated() && cells.rows() > 0 && cells.columns() > 0) {
            writeCells(document(), sheet, {0, 0, cells.columns().value() - 1, cells.rows().value() - 1},
                       cells);
            writeEmptyTexts(sheet, cells);
        }
    }

    [[nodiscard]] std::unique_ptr<Request> createRequest() override {
        return std::make_unique<CalcRequest>(m_Session, LibraryHost::createRequest());
    }

    [[nodiscard]] bool keepsEmptyTexts() const override { return false; }

    /// What was asked for on the scratch sheet, and whatever of it did not arrive in the user's document.
    [[nodiscard]] std::vector<std::string> formatting() const override {
        std::vector<std::string> calls = LibraryHost::formatting();
        if (!reportAddress().empty()) {
            const SheetAreas placed = resolve(document(), activeSheet(document()), reportAddress());
            const DocumentRef scratch = documentNamed(officeContext(), scratchWorkbookName);
            std::ranges::copy(lostFormats(scratch, placed), std::back_inserter(calls));
        }
        return calls;
    }

 private:
    explicit CalcHost(const std::shared_ptr<OpenDocument>& open)
        : CalcHost(open, std::make_shared<Session>(officeContext(), open->document())) {}
    CalcHost(std::shared_ptr<OpenDocument> open, const std::shared_ptr<Session>& session)
        : LibraryHost(makeObject<CalcApplication>(session)), m_Open(std::move(open)), m_Session(session) {}

    /// An empty text is not kept as a value; only a formula gives one.
    static void writeEmptyTexts(const SheetRef& sheet, const ValueGrid& cells) {
        for (Index column = 1; column <= toIndex(cells.columns()); ++column) {
            for (Index row = 1; row <= toIndex(cells.rows()); ++row) {
                if (cells(row, column) == CellValue(Text())) {
                    sheet
                        ->getCellByPosition(static_cast<sal_Int32>(column - 1),
                                            static_cast<sal_Int32>(row - 1))
                        ->setFormula("=\"\"");
                }
            }
        }
    }

    [[nodiscard]] const DocumentRef& document() const { return m_Open->document(); }

    std::shared_ptr<OpenDocument> m_Open;
    std::shared_ptr<Session> m_Session;
    std::int16_t m_Sheets = 0;
};

/// Runs every test of this component; the arguments are the test runner's own.
class TestJob : public cppu::WeakImplHelper1<css::task::XJob> {
 public:
    explicit TestJob(const Context& context) { officeContext() = context; }

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) override {
        std::vector<std::string> texts{"calc_scenarios"};
        for (const css::beans::NamedValue& argument : arguments) {
            OUString value;
            argument.Value >>= value;
            texts.push_back("--gtest_" + toUtf8(argument.Name) + '=' + toUtf8(value));
        }
        std::vector<char*> pointers;
        for (std::string& text : texts) {
            pointers.push_back(text.data());
        }
        int count = static_cast<int>(pointers.size());
        testing::InitGoogleTest(&count, pointers.data());
        return css::uno::Any(static_cast<sal_Int32>(RUN_ALL_TESTS()));
    }
};

Reference<css::uno::XInterface> createJob(const Context& context) {
    return static_cast<cppu::OWeakObject*>(new TestJob(context));
}

}  // namespace

std::unique_ptr<ScenarioHost> createScenarioHost() {
    return std::make_unique<CalcHost>();
}

}  // namespace TBVNonPara::Scenarios

extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char*, void*, void*) {
    using namespace TBVNonPara::calc;
    const Reference<css::lang::XSingleComponentFactory> factory =
        cppu::createSingleComponentFactory(TBVNonPara::Scenarios::createJob, "TBVNonPara.Scenarios",
                                           sequenceOf(OUString("TBVNonPara.Scenarios")));
    factory->acquire();
    return factory.get();
}
