#include "tbvnonpara/rendering/column_table.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <variant>

#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/details/probability.hpp"
#include "tbvnonpara/details/words.hpp"
#include "tbvnonpara/json/values.hpp"
#include "tbvnonpara/rendering/json_report.hpp"

namespace TBVNonPara::rendering {

namespace {

using analysis::ColumnTest;

/// A result as cells of a table, one for each of its values.
struct Cells {
    CellValue operator()(bool value) const { return value; }
    CellValue operator()(Long value) const { return toDouble(value); }
    CellValue operator()(double value) const { return value; }
    CellValue operator()(const std::string& value) const { return Text(value); }
    CellValue operator()(const CellValue& value) const { return value; }
};

template <typename Visitor>
void visitValues(const NamedResult& result, const Visitor& visitor) {
    const auto several = [&](const auto& values) {
        std::size_t place = 0;
        for (const auto& value : values) {
            visitor(result.name + '.' + std::to_string(++place), Cells()(value));
        }
    };
    std::visit(
        [&](const auto& value) {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::vector<double>>) {
                several(value);
            } else if constexpr (std::is_same_v<Value, Array<Long>> ||
                                 std::is_same_v<Value, Array<CellValue>>) {
                several(value.elements());
            } else {
                visitor(result.name, Cells()(value));
            }
        },
        result.value);
}

/// The places of names in a row, in the order in which they come first.
class Names {
 public:
    std::size_t placeOf(const std::string& name) {
        const auto [entry, isNew] = m_Places.try_emplace(name, m_Names.size());
        if (isNew) {
            m_Names.push_back(name);
        }
        return entry->second;
    }

    [[nodiscard]] const std::vector<std::string>& names() const noexcept { return m_Names; }

 private:
    std::vector<std::string> m_Names;
    std::unordered_map<std::string, std::size_t> m_Places;
};

std::string problemOf(const ColumnTest& test) {
    return test.error                    ? test.error->description()
           : test.detailsProblem.empty() ? ""
                                         : "There are no details: " + test.detailsProblem;
}

std::string columnInJson(const ColumnTest& test) {
    const std::string beginning =
        "{\"column\": " + textInJson(test.column) + ", \"address\": " + textInJson(test.address) + ", ";
    if (test.error) {
        return beginning + R"("error": {"number": )" + std::to_string(test.error->number()) +
               ", \"description\": " + textInJson(problemOf(test)) + "}}";
    }
    std::string details;
    if (test.details) {
        details = ", \"details\": " + figureInJson(detailFigures(*test.details), 4) +
                  ", \"adjusted\": " + figureInJson(statistics::figureOf(test.adjusted), 4);
    } else if (!test.detailsProblem.empty()) {
        details = R"(, "details": null, "note": )" + textInJson(problemOf(test));
    }
    return beginning + missingInJson(test.account) + ", \"results\": " + resultsInJson(test.results) +
           details + '}';
}

/// The effects of a test in full as results of a row, and its probability alone and with the other columns'.
std::vector<NamedResult> detailsAsResults(const ColumnTest& test) {
    if (!test.details) {
        return {};
    }
    const statistics::Figure figures =
        std::visit([](const auto& result) { return statistics::figureOf(result); }, test.details->result);
    std::vector<NamedResult> results = {
        {"details.method", std::get<std::string>(find(figures, "p.method")->value)}};
    const auto add = [&](const std::string& name, const std::optional<double>& value) {
        if (value) {
            results.push_back({"details." + name, *value});
        }
    };
    const auto p = probabilityOf(*test.details);
    add("p", p ? std::optional(p->value) : std::nullopt);
    add("p_adjusted", test.adjusted ? std::optional(test.adjusted->value) : std::nullopt);
    for (const auto& [name, effect] : std::get<statistics::FigureBlock>(find(figures, "effect")->value)) {
        for (const char* const member : {"value", "low", "high"}) {
            const statistics::Figure* const figure = find(effect, member);
            const auto* number = figure == nullptr ? nullptr : std::get_if<double>(&figure->value);
            add(name + '.' + member, number == nullptr ? std::nullopt : std::optional(*number));
        }
    }
    return results;
}

/// All results of a row, the details behind those of the report.
void visitRow(const ColumnTest& test, const auto& visitor) {
    for (const NamedResult& result : test.results) {
        visitValues(result, visitor);
    }
    for (const NamedResult& result : detailsAsResults(test)) {
        visitValues(result, visitor);
    }
}

/// Those of the reports first.
Names namesIn(const std::vector<ColumnTest>& tests) {
    Names names;
    const auto take = [&](const std::string& name, const CellValue&) { names.placeOf(name); };
    for (const ColumnTest& test : tests) {
        for (const NamedResult& result : test.results) {
            visitValues(result, take);
        }
    }
    for (const ColumnTest& test : tests) {
        visitRow(test, take);
    }
    return names;
}

}  // namespace

void writeColumnsAsCsv(const std::vector<ColumnTest>& tests, const CsvFields& fields, Output& output) {
    Names names = namesIn(tests);
    output.write("column");
    for (const std::string& name : names.names()) {
        output.write(',' + csvField(Text(name), fields));
    }
    output.write(",missing,error\r\n");
    for (const ColumnTest& test : tests) {
        std::vector<CellValue> row(names.names().size());
        visitRow(test,
                 [&](const std::string& name, const CellValue& value) { row[names.placeOf(name)] = value; });
        output.write(csvField(Text(test.column), fields));
        for (const CellValue& value : row) {
            output.write(',' + csvField(value, fields));
        }
        output.write(',' + (test.error ? "" : std::to_string(test.account.missing)) + ',' +
                     csvField(Text(problemOf(test)), fields) + "\r\n");
    }
}

void writeColumnsAsJson(std::string_view test, const std::vector<ColumnTest>& tests, Output& output) {
    const auto inFull =
        std::ranges::find_if(tests, [](const ColumnTest& column) { return bool(column.details); });
    const std::string adjust =
        inFull == tests.end()
            ? ""
            : ",\n  \"adjust\": " + textInJson(adjustmentWord(inFull->details->choices.adjustment));
    output.write("{\n  \"test\": " + textInJson(test) + adjust + ",\n  \"columns\": [");
    for (const ColumnTest& column : tests) {
        output.write((&column == tests.data() ? "\n    " : ",\n    ") + columnInJson(column));
    }
    output.write("\n  ]\n}\n");
}

DetailPage columnsPage(const std::vector<ColumnTest>& tests, const DetailChoices& choices) {
    DetailTable table{"Columns", {"P", "Adjusted"}, {}};
    std::size_t differ = 0;
    for (const ColumnTest& test : tests) {
        const auto p = test.details ? probabilityOf(*test.details) : std::nullopt;
        if (p && test.adjusted) {
            table.rows.push_back(
                {nameCell(test.column), probabilityCell(*p), probabilityCell(*test.adjusted)});
            differ += test.adjusted->value <= 1 - choices.confidence ? 1U : 0U;
        }
    }
    const std::string among = counted(table.rows.size(), "column", "columns");
    return {{std::to_string(differ) + " of " + among + " with an adjusted P of at most " +
             levelText(1 - choices.confidence) + " (" + adjustmentText(choices.adjustment) + ")."},
            {std::move(table)},
            {}};
}

}  // namespace TBVNonPara::rendering
