#include "adapters/calc/functions/figures_in_formula.hpp"

#include <algorithm>

#include "adapters/calc/functions/formula_failure.hpp"
#include "adapters/calc/functions/test_in_formula.hpp"
#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/engine/named_results.hpp"

namespace TBVNonPara::calc {

namespace {

std::string pathOf(const std::string& before, const std::string& step) {
    return before.empty() ? step : before + '.' + step;
}

/// Lists what a figure of the details is or consists of, by its whole name.
struct DetailLister {
    std::string path;
    FiguresInFormula& figures;

    void operator()(std::monostate) const { figures.push_back({path, Empty()}); }
    void operator()(double number) const { figures.push_back({path, number}); }
    void operator()(std::int64_t number) const { figures.push_back({path, static_cast<double>(number)}); }
    void operator()(const std::string& text) const { figures.push_back({path, Text(text)}); }
    void operator()(const statistics::FigureBlock& block) const {
        for (const statistics::NamedFigure& member : block) {
            std::visit(DetailLister{pathOf(path, member.name), figures}, member.figure.value);
        }
    }
    void operator()(const statistics::FigureList& list) const {
        for (std::size_t place = 0; place < list.size(); ++place) {
            std::visit(DetailLister{pathOf(path, std::to_string(place + 1)), figures}, list[place].value);
        }
    }
};

/// The same of a result of the report.
struct ResultLister {
    const std::string& name;
    FiguresInFormula& figures;

    void operator()(bool truth) const { figures.push_back({name, truth ? 1.0 : 0.0}); }
    void operator()(double number) const { figures.push_back({name, number}); }
    void operator()(Long number) const { figures.push_back({name, toDouble(number)}); }
    void operator()(const std::string& text) const { figures.push_back({name, Text(text)}); }
    void operator()(const std::vector<double>& list) const { each(list); }
    void operator()(const Array<Long>& list) const { each(list.elements()); }
    void operator()(const Array<CellValue>& list) const { each(list.elements()); }

 private:
    static CellValue cellOf(double number) { return number; }
    static CellValue cellOf(Long number) { return toDouble(number); }
    static CellValue cellOf(const CellValue& cell) { return cell; }

    void each(const auto& list) const {
        std::size_t place = 0;
        for (const auto& element : list) {
            place += 1;
            figures.push_back({pathOf(name, std::to_string(place)), cellOf(element)});
        }
    }
};

/// Texts that name columns where a range has no labels.
void nameColumns(const OfferedTest& test, DataColumns& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        columns[i].label = takesManyColumns(test.shape) ? "group " + std::to_string(i + 1)
                           : i == 0                     ? "first"
                                                        : "second";
    }
}

bool equalsInAnyCase(const std::string& a, const std::string& b) {
    return fromUtf8(a).equalsIgnoreAsciiCase(fromUtf8(b));
}

const FigureInFormula* findFigure(const FiguresInFormula& figures, const std::string& name) {
    const auto found = std::ranges::find_if(
        figures, [&](const FigureInFormula& figure) { return equalsInAnyCase(figure.name, name); });
    return found == figures.end() ? nullptr : &*found;
}

/// Whether a name leads behind a figure that does not exist for these data: "trend.p" without a trend.
bool leadsBehindNothing(const FiguresInFormula& figures, const std::string& name) {
    const OUString wanted = fromUtf8(name);
    return std::ranges::any_of(figures, [&](const FigureInFormula& figure) {
        return isEmpty(figure.value) && wanted.startsWithIgnoreAsciiCase(fromUtf8(figure.name + '.'));
    });
}

FiguresInFormula listed(const std::vector<NamedResult>& results) {
    FiguresInFormula figures;
    for (const NamedResult& result : results) {
        std::visit(ResultLister{result.name, figures}, result.value);
    }
    return figures;
}

}  // namespace

FiguresInFormula reportFigures(const OfferedTest& test, const DataColumns& columns) {
    clsNonParaBO engine(ownCompanions(nullptr));
    analyse(engine, test, tbvNPTwoTailed, columns);
    return listed(namedResults(test.method, engine));
}

FiguresInFormula figuresInFormula(const OfferedTest& test, const DataColumns& columns) {
    clsNonParaBO engine(ownCompanions(nullptr));
    analyse(engine, test, tbvNPTwoTailed, columns);
    DataColumns named = columns;
    nameColumns(test, named);
    FiguresInFormula details;
    std::visit(DetailLister{{}, details},
               detailFigures(detailsOf(test, tbvNPTwoTailed, {}, named, engine)).value);

    FiguresInFormula figures = listed(namedResults(test.method, engine));
    std::erase_if(figures, [&](const auto& figure) { return findFigure(details, figure.name) != nullptr; });
    std::ranges::move(details, std::back_inserter(figures));
    return figures;
}

const CellValue& figureNamed(const FiguresInFormula& figures, const std::string& name) {
    const FigureInFormula* found = findFigure(figures, name);
    if (found == nullptr) {
        found = findFigure(figures, name + ".value");
    }
    if (found == nullptr) {
        throw FormulaFailure{leadsBehindNothing(figures, name) ? notAvailableFailure : valueFailure};
    }
    if (isEmpty(found->value)) {
        throw FormulaFailure{notAvailableFailure};
    }
    return found->value;
}

RecentFigures::Entry& RecentFigures::entryOf(const OfferedTest& test, DataColumns columns) {
    constexpr std::size_t mostEntries = 4;
    const auto sameCells = [](const LabelledColumn& a, const LabelledColumn& b) {
        return a.cells == b.cells;
    };
    const auto found = std::ranges::find_if(m_Entries, [&](const Entry& entry) {
        return entry.test == &test && std::ranges::equal(entry.columns, columns, sameCells);
    });
    if (found != m_Entries.end()) {
        return *found;
    }
    FiguresInFormula ofTheReport = reportFigures(test, columns);
    m_Entries.push_front({&test, std::move(columns), std::move(ofTheReport)});
    m_Entries.resize(std::min(m_Entries.size(), mostEntries));
    return m_Entries.front();
}

const std::shared_ptr<const FiguresInFormula>& RecentFigures::allOf(Entry& entry) {
    if (!entry.all) {
        entry.all = std::make_shared<const FiguresInFormula>(figuresInFormula(*entry.test, entry.columns));
    }
    return entry.all;
}

std::shared_ptr<const FiguresInFormula> RecentFigures::of(const OfferedTest& test, DataColumns columns) {
    const std::scoped_lock lock(m_Mutex);
    return allOf(entryOf(test, std::move(columns)));
}

CellValue RecentFigures::named(const OfferedTest& test, DataColumns columns, const std::string& name) {
    const std::scoped_lock lock(m_Mutex);
    Entry& entry = entryOf(test, std::move(columns));
    // No figure of the details has the name of one of the report.
    const FigureInFormula* reported = findFigure(entry.ofTheReport, name);
    return reported != nullptr && !isEmpty(reported->value) ? reported->value
                                                            : figureNamed(*allOf(entry), name);
}

}  // namespace TBVNonPara::calc
