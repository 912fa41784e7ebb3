#include "tbvnonpara/rendering/column_table.hpp"

#include <unordered_map>
#include <utility>
#include <variant>

#include "tbvnonpara/rendering/json_report.hpp"
#include "tbvnonpara/rendering/json_values.hpp"

namespace TBVNonPara::rendering {

namespace {

using analysis::ColumnTest;
using analysis::NamedResult;

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

Names namesIn(const std::vector<ColumnTest>& tests) {
    Names names;
    for (const ColumnTest& test : tests) {
        for (const NamedResult& result : test.results) {
            visitValues(result, [&](const std::string& name, const CellValue&) { names.placeOf(name); });
        }
    }
    return names;
}

std::string problemOf(const ColumnTest& test) {
    return test.error ? test.error->description() : "";
}

std::string columnInJson(const ColumnTest& test) {
    const std::string beginning =
        "{\"column\": " + textInJson(test.column) + ", \"address\": " + textInJson(test.address) + ", ";
    if (test.error) {
        return beginning + R"("error": {"number": )" + std::to_string(test.error->number()) +
               ", \"description\": " + textInJson(problemOf(test)) + "}}";
    }
    return beginning + missingInJson(test.account) + ", \"results\": " + resultsInJson(test.results) + '}';
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
        for (const NamedResult& result : test.results) {
            visitValues(result, [&](const std::string& name, const CellValue& value) {
                row[names.placeOf(name)] = value;
            });
        }
        output.write(csvField(Text(test.column), fields));
        for (const CellValue& value : row) {
            output.write(',' + csvField(value, fields));
        }
        output.write(',' + (test.error ? "" : std::to_string(test.account.missing)) + ',' +
                     csvField(Text(problemOf(test)), fields) + "\r\n");
    }
}

void writeColumnsAsJson(std::string_view test, const std::vector<ColumnTest>& tests, Output& output) {
    output.write("{\n  \"test\": " + textInJson(test) + ",\n  \"columns\": [");
    for (const ColumnTest& column : tests) {
        output.write((&column == tests.data() ? "\n    " : ",\n    ") + columnInJson(column));
    }
    output.write("\n  ]\n}\n");
}

}  // namespace TBVNonPara::rendering
