#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "python/engine/buffers.hpp"
#include "python/engine/many.hpp"
#include "python/engine/report.hpp"
#include "python/engine/tested.hpp"
#include "tbvnonpara/files/saving/saved_file.hpp"
#include "tbvnonpara/json/figures.hpp"
#include "tbvnonpara/statistics/comparisons.hpp"

namespace TBVNonPara::python {

namespace py = pybind11;

namespace {

/// Ctrl+C is for the interpreter's main thread, which looks here.
void lookForSignals() {
    const py::gil_scoped_acquire lock;
    if (PyErr_CheckSignals() != 0) {
        throw py::error_already_set();
    }
}

Choices choicesOf(const std::string& alternative, double confidence, bool omit, const std::string& adjust,
                  bool trend, double exactSteps, std::size_t permutations, std::uint64_t seed,
                  std::optional<std::size_t> control) {
    Choices choices;
    choices.options.confidence = confidence;
    choices.options.missing = omit ? statistics::Missing::Omit : statistics::Missing::Refuse;
    const auto adjustment = adjustmentNamed(adjust);
    if (!adjustment) {
        throw std::invalid_argument("adjust is holm, bonferroni, bh or none, not \"" + adjust + "\".");
    }
    choices.options.adjustment = *adjustment;
    choices.options.trend = trend;
    choices.options.exactSteps = exactSteps;
    choices.options.permutations = permutations;
    choices.options.seed = seed;
    choices.control = control;
    choices.tails = alternative == "greater" || alternative == "fewer" ? tbvNPVar1GTVar2
                    : alternative == "less" || alternative == "more"   ? tbvNPVar1LTVar2
                                                                       : tbvNPTwoTailed;
    statistics::checkOptions(choices.options);
    return choices;
}

/// None where the arrays are not contiguous doubles: the caller makes them so.
std::optional<Tested> run(const OfferedTest& test, const py::tuple& arrays, const Choices& choices) {
    const std::optional<Buffers> buffers = Buffers::of(arrays, 1);
    if (!buffers) {
        return std::nullopt;
    }
    Choices watched = choices;
    watched.options.watch = [](double) { lookForSignals(); };
    const Samples samples = buffers->whole();
    const py::gil_scoped_release unlocked;
    return runTest(test, samples, watched);
}

std::optional<std::vector<TestedOrNot>> runColumns(const OfferedTest& test, const py::tuple& arrays,
                                                   const Choices& choices) {
    const std::optional<Buffers> buffers = Buffers::of(arrays, 2);
    if (!buffers) {
        return std::nullopt;
    }
    const auto samplesOf = [&](std::size_t column) { return buffers->column(column); };
    const py::gil_scoped_release unlocked;
    return runMany(test, buffers->columns(), samplesOf, choices, lookForSignals);
}

/// Numbers from a buffer, or texts and numbers from a list.
LabelledColumn columnOf(const std::string& label, const py::object& cells) {
    LabelledColumn column{label, {}};
    if (const auto buffers = Buffers::of(py::make_tuple(cells), 1)) {
        const Samples samples = buffers->whole();
        column.cells.assign(samples.front().begin(), samples.front().end());
        return column;
    }
    for (const py::handle cell : cells) {
        if (py::isinstance<py::str>(cell)) {
            column.cells.emplace_back(Text(cell.cast<std::string>()));
        } else {
            column.cells.emplace_back(cell.cast<double>());
        }
    }
    return column;
}

Report reportOf(const Tested& tested, const Choices& choices,
                const std::vector<std::pair<std::string, py::object>>& named, std::vector<std::string> labels,
                std::string control, bool descriptives) {
    std::vector<LabelledColumn> columns;
    columns.reserve(named.size());
    for (const auto& [label, cells] : named) {
        columns.push_back(columnOf(label, cells));
    }
    const py::gil_scoped_release unlocked;
    return {tested, choices, columns, std::move(labels), std::move(control), descriptives};
}

bool isUnchanged(const Tested& tested, const py::tuple& arrays) {
    const auto buffers = Buffers::of(arrays, 1);
    return buffers && fingerprintOf(buffers->whole()) == tested.fingerprint;
}

/// P of several tests as they are adjusted for each other, from their common logarithms.
std::vector<double> adjustP(const std::vector<std::pair<double, double>>& valuesAndLogarithms,
                            const std::string& word) {
    const auto adjustment = adjustmentNamed(word);
    if (!adjustment) {
        throw std::invalid_argument("adjust is holm, bonferroni, bh or none, not \"" + word + "\".");
    }
    std::vector<statistics::Probability> probabilities;
    probabilities.reserve(valuesAndLogarithms.size());
    for (const auto& [value, log10] : valuesAndLogarithms) {
        probabilities.push_back({value, log10});
    }
    std::vector<double> together;
    together.reserve(probabilities.size());
    for (const statistics::Probability& p : statistics::adjusted(probabilities, *adjustment)) {
        together.push_back(p.value);
    }
    return together;
}

void save(const std::string& path, const py::bytes& bytes, bool overwrite) {
    try {
        saveFile(path, bytes.cast<std::string_view>(), overwrite);
    } catch (const workbook::FileExists& error) {
        PyErr_SetString(PyExc_FileExistsError, error.description().c_str());
        throw py::error_already_set();
    } catch (const Error& error) {
        PyErr_SetString(PyExc_OSError, error.description().c_str());
        throw py::error_already_set();
    }
}

// What is wrong with data or a report is a ValueError in the library's words.
void translateErrors(std::exception_ptr fault) {
    try {
        std::rethrow_exception(std::move(fault));
    } catch (const Error& error) {
        PyErr_SetString(PyExc_ValueError, error.description().c_str());
    }
}

void addTests(py::module_& module) {
    py::class_<OfferedTest>(module, "Test")
        .def_property_readonly("name", [](const OfferedTest& test) { return std::string(test.name); })
        .def_property_readonly("title", [](const OfferedTest& test) { return std::string(test.title); })
        .def("run", &run)
        .def("run_columns", &runColumns);
    py::class_<Choices>(module, "Choices").def(py::init(&choicesOf));
    py::class_<Tested>(module, "Tested")
        .def_property_readonly(
            "test", [](const Tested& tested) { return tested.test; }, py::return_value_policy::reference)
        .def_property_readonly("statistic", &Tested::statistic)
        .def_property_readonly("pvalue", &Tested::pvalue)
        .def_property_readonly("log10p", &Tested::log10p)
        .def("json", &Tested::json)
        .def("is_unchanged", &isUnchanged);
    module.def("test_named", &testNamed, py::return_value_policy::reference);
    module.def("adjust", &adjustP);
}

void addReports(py::module_& module) {
    py::class_<Report>(module, "Report")
        .def("text", &Report::text, py::call_guard<py::gil_scoped_release>())
        .def("html", &Report::html, py::call_guard<py::gil_scoped_release>())
        .def("csv", &Report::csv, py::call_guard<py::gil_scoped_release>())
        .def("json", &Report::json, py::call_guard<py::gil_scoped_release>())
        .def("xlsx", [](Report& report, bool withData) { return py::bytes(report.xlsx(withData)); })
        .def("details", &Report::details);
    module.def("report", &reportOf);
    module.def("save", &save);
}

}  // namespace

}  // namespace TBVNonPara::python

PYBIND11_MODULE(_engine, module) {
    using namespace TBVNonPara::python;
    py::register_exception_translator(&translateErrors);
    module.attr("version") = TBVNONPARA_VERSION;
    addTests(module);
    addReports(module);
}
