#include "tbvnonpara/analysis/each_column.hpp"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tbvnonpara/analysis/columns.hpp"
#include "tbvnonpara/analysis/cut_sequence.hpp"
#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/analysis/reshaped_ranges.hpp"
#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/analysis/table_form.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/details/probability.hpp"
#include "tbvnonpara/distributions/mann_whitney.hpp"
#include "tbvnonpara/statistics/comparisons.hpp"
#include "tbvnonpara/workbook/book.hpp"

namespace TBVNonPara::analysis {

namespace {

using workbook::EmbeddedApplication;
using workbook::Sheet;
using Report = std::function<void(const ColumnTest&, const FinishedTest&)>;

void requireOneColumnTest(const Choices& choices) {
    if (takesManyColumns(choices.test->shape) && choices.by.empty()) {
        refuse(tbvNPTooFewGroups, "The " + std::string(choices.test->title) +
                                      " test takes all its columns at once; to test each by itself, name the "
                                      "column that holds the groups.");
    }
}

std::vector<Index> columnsOf(const NamedCells& cells) {
    std::vector<Index> numbers;
    for (const Piece& piece : cells.pieces) {
        for (Index number = piece.cells.left; number <= piece.cells.right; ++number) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

/// The column of the sheet where one part of the data stands; none where there is no such part.
std::vector<Index> placeOf(const EmbeddedApplication& application, const Choices& choices,
                           const std::string& name) {
    if (name.empty()) {
        return {};
    }
    return columnsOf(findCells(application, name, lookupFor(choices.headers), tbvNPBadYRange));
}

/// All columns that hold numbers and are nothing else.
std::vector<Index> columnsOfNumbers(const EmbeddedApplication& application, const Choices& choices) {
    const std::shared_ptr<Sheet> sheet = application.activeSheet();
    std::vector<Index> taken;
    for (const std::string& name : {choices.by, choices.block, choices.x}) {
        std::ranges::copy(placeOf(application, choices, name), std::back_inserter(taken));
    }
    const reshaping::Missing missing(choices.missingWords);
    const Rectangle used = sheet->usedArea().value_or(Rectangle());
    std::vector<Index> found;
    for (const Piece& piece : columnsWithData(*sheet)) {
        const Index number = piece.cells.left;
        const auto column = wholeColumn(*sheet, used, number, choices.headers.value_or(true));
        const bool rowNames = number == used.left && column.header.empty();
        if (std::ranges::find(taken, number) == taken.end() && !rowNames &&
            reshaping::holdsNumbers(column, missing)) {
            found.push_back(number);
        }
    }
    if (found.empty()) {
        refuse(tbvNPNoYRange, "The table holds no column of numbers to test.");
    }
    return found;
}

/// The cells of each column: the rows of a long table are the same for all, other columns end with their own
/// last value, or with that of the second variable where both end together.
std::vector<Rectangle> cellsOf(const EmbeddedApplication& application, const Choices& choices,
                               const ChosenRanges& chosen, const std::vector<Index>& numbers) {
    const UserRange first(application, chosen.y);
    const Rectangle& rows = first->areas().front();
    Index least = 0;
    if (choices.test->shape == DataShape::CodesOrPairs && !chosen.x.empty()) {
        least = UserRange(application, chosen.x)->areas().front().bottom;
    }
    std::vector<Rectangle> cells;
    for (const Index number : numbers) {
        const Index own = first->sheet()->values().lastUsedRow(number, number);
        const Index last = chosen.by.empty() ? std::max({own, least, rows.top}) : rows.bottom;
        cells.push_back({rows.top, number, last, number});
    }
    return cells;
}

/// Takes away the sheets that come behind those that are there now.
class LaterSheets {
 public:
    explicit LaterSheets(std::shared_ptr<workbook::Book> book)
        : m_Book(std::move(book)), m_Before(m_Book->sheets().size()) {}
    LaterSheets(const LaterSheets&) = delete;
    LaterSheets& operator=(const LaterSheets&) = delete;
    ~LaterSheets() {
        while (m_Book->sheets().size() > m_Before) {
            m_Book->removeSheet(*m_Book->sheets().back());
        }
    }

 private:
    std::shared_ptr<workbook::Book> m_Book;
    std::size_t m_Before;
};

/// A workbook in memory for one thread.
class Workplace {
 public:
    Workplace(Choices choices, const std::optional<DetailChoices>& details, const TableForm& form,
              const std::string& shownX)
        : m_Choices(std::move(choices)),
          m_Details(details),
          m_Form(form),
          m_ShownX(shownX),
          m_Application(workbook::makeApplication()),
          m_Companions(ownCompanions(m_Application)) {
        m_Companions.mannWhitneyCounts = std::make_shared<MannWhitneyCounts>();
        m_Choices.output.clear();
    }

    void test(reshaping::Column column, ColumnTest& result, const Report& report) const {
        std::vector<reshaping::Column> values;
        values.push_back(std::move(column));
        const reshaping::Reshaped reshaped = m_Form.bring(std::move(values));
        result.account = reshaped.account;
        const ReshapedRanges ranges(*m_Application, m_Form.headed(), m_Form.secondColumns(), reshaped,
                                    {result.address, m_ShownX.empty() ? result.address : m_ShownX});
        if (!m_Choices.cut) {
            run(ranges.ranges(), result, report);
            return;
        }
        const CutSequence cut(m_Application, *m_Choices.cut, ranges.ranges());
        run(cut.ranges(), result, report);
    }

 private:
    void run(const ChosenRanges& ranges, ColumnTest& result, const Report& report) const {
        const LaterSheets reports(m_Application->activeBook());
        const auto columns =
            m_Details ? analysis::columnsOf(*m_Application, ranges) : std::vector<LabelledColumn>();
        const FinishedTest finished = runTest(m_Application, m_Companions, m_Choices, ranges);
        result.results = namedResults(m_Choices.test->method, finished.engine());
        if (m_Details) {
            addDetails(columns, finished.engine(), result);
        }
        if (report) {
            report(result, finished);
        }
    }

    /// A column has its results, with details or without.
    void addDetails(const std::vector<LabelledColumn>& columns, const clsNonParaBO& engine,
                    ColumnTest& result) const try {
        result.details = detailsOf(*m_Choices.test, m_Choices.tails, *m_Details, columns, engine);
    } catch (const std::invalid_argument& reason) {
        result.detailsProblem = reason.what();
    } catch (const Error& reason) {
        result.detailsProblem = reason.description();
    }

    Choices m_Choices;
    const std::optional<DetailChoices>& m_Details;
    const TableForm& m_Form;
    const std::string& m_ShownX;
    ObjectRef<EmbeddedApplication> m_Application;
    CompanionLibrary m_Companions;
};

/// What all columns share, and how one of them is tested.
class Tests {
 public:
    Tests(const EmbeddedApplication& application, const Choices& choices, const EachColumn& each,
          const std::optional<DetailChoices>& details)
        : m_Choices(choices),
          m_Details(details),
          m_Each(each),
          m_Sheet(UserRange(application, each.chosen.y)->sheet()),
          m_Form(application, choices, each.chosen),
          m_ShownX(each.chosen.x.empty() ? "" : shownVariables(application, each.chosen).x),
          m_Results(each.columns.size()) {}

    void onAllProcessors() {
        std::atomic<std::size_t> next = 0;
        const auto work = [&] {
            const Workplace place(m_Choices, m_Details, m_Form, m_ShownX);
            for (std::size_t column = next++; column < m_Results.size(); column = next++) {
                test(place, column, {});
            }
        };
        const std::size_t most = std::max(std::thread::hardware_concurrency(), 1U);
        std::vector<std::jthread> others(std::min(most, m_Results.size()) - 1);
        std::ranges::generate(others, [&] { return std::jthread(work); });
        work();
    }

    void inOrder(const Report& report) {
        const Workplace place(m_Choices, m_Details, m_Form, m_ShownX);
        for (std::size_t column = 0; column < m_Results.size(); ++column) {
            test(place, column, report);
        }
    }

    [[nodiscard]] std::vector<ColumnTest> results() && {
        if (m_Details) {
            adjust();
        }
        return std::move(m_Results);
    }

 private:
    void adjust() {
        std::vector<ColumnTest*> tested;
        std::vector<statistics::Probability> probabilities;
        for (ColumnTest& result : m_Results) {
            const auto p = result.details ? probabilityOf(*result.details) : std::nullopt;
            if (p) {
                tested.push_back(&result);
                probabilities.push_back(*p);
            }
        }
        const auto together = statistics::adjusted(probabilities, m_Details->adjustment);
        for (std::size_t i = 0; i < tested.size(); ++i) {
            tested[i]->adjusted = together[i];
        }
    }

    void test(const Workplace& place, std::size_t number, const Report& report) {
        const Rectangle& cells = m_Each.columns[number];
        ColumnTest& result = m_Results[number];
        result.address = shownInReports(*m_Sheet, {cells});
        result.column = columnLetters(cells.left);
        try {
            reshaping::Column column = tableColumn(*m_Sheet, cells, m_Each.chosen.headers);
            result.column = column.header.empty() ? result.column : column.header;
            place.test(std::move(column), result, report);
        } catch (const std::system_error&) {
            throw;
        } catch (const reshaping::Refusal& refusal) {
            result.error.emplace(refusal.number(), refusal.description(), refusal.source());
            result.remedy = refusal.remedy();
        } catch (...) {
            result.error = currentError();
        }
    }

    const Choices& m_Choices;
    const std::optional<DetailChoices>& m_Details;
    const EachColumn& m_Each;
    std::shared_ptr<Sheet> m_Sheet;
    TableForm m_Form;
    std::string m_ShownX;
    std::vector<ColumnTest> m_Results;
};

}  // namespace

bool testsEachColumn(const EmbeddedApplication& application, const Choices& choices) {
    return choices.each || (!choices.by.empty() && placeOf(application, choices, choices.y).size() > 1);
}

EachColumn chooseEach(const EmbeddedApplication& application, const Choices& choices) {
    requireOneColumnTest(choices);
    NamedCells named{application.activeSheet(), {}, false};
    if (!choices.y.empty()) {
        named = findCells(application, choices.y, lookupFor(choices.headers), tbvNPBadYRange);
    }
    const std::vector<Index> numbers =
        choices.y.empty() ? columnsOfNumbers(application, choices) : columnsOf(named);
    const std::string letters = columnLetters(numbers.front());
    Choices first = choices;
    first.y = quotedSheetName(named.sheet->name()) + '!' + letters + ':' + letters;
    EachColumn each{chooseRanges(application, first), {}};
    each.columns = cellsOf(application, choices, each.chosen, numbers);
    return each;
}

std::vector<ColumnTest> testEach(const EmbeddedApplication& application, const Choices& choices,
                                 const EachColumn& each, const std::optional<DetailChoices>& details) {
    Tests tests(application, choices, each, details);
    tests.onAllProcessors();
    return std::move(tests).results();
}

std::vector<ColumnTest> reportEach(const EmbeddedApplication& application, const Choices& choices,
                                   const EachColumn& each, const Report& report,
                                   const std::optional<DetailChoices>& details) {
    Tests tests(application, choices, each, details);
    tests.inOrder(report);
    return std::move(tests).results();
}

}  // namespace TBVNonPara::analysis
