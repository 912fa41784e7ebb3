#include "tbvnonpara/c/tbvnonpara.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/c/guarded.hpp"
#include "tbvnonpara/c/options.hpp"
#include "tbvnonpara/c/result.hpp"
#include "tbvnonpara/json/figures.hpp"
#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"

namespace TBVNonPara::c {

namespace {

using Numbers = std::span<const double>;

/// The values at a pointer, which may be null where there are none.
template <typename Value>
std::span<const Value> valuesAt(const Value* values, size_t n, const char* name) {
    if (n > 0) {
        requirePointer(values, name);
    }
    if (n > static_cast<size_t>(PTRDIFF_MAX) / sizeof(Value)) {
        throw BadArgument(std::string(name) + " has more values than memory: is its size negative?");
    }
    return {values, n};
}

/// Several samples; `sizeAt(i)` is how many values that at place i has.
template <typename SizeAt>
std::vector<Numbers> groupsAt(const double* const* groups, size_t count, const std::string& name,
                              const SizeAt& sizeAt) {
    const auto pointers = valuesAt(groups, count, name.c_str());
    std::vector<Numbers> spans;
    spans.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        spans.push_back(valuesAt(pointers[i], sizeAt(i), (name + '[' + std::to_string(i) + ']').c_str()));
    }
    return spans;
}

void requireControl(const TakenOptions& taken, size_t count) {
    if (taken.control && *taken.control >= count) {
        throw BadArgument("options.control is " + std::to_string(*taken.control + 1) + ", and there are " +
                          std::to_string(count) + " groups.");
    }
}

/// The numbers of the given groups that a test has, from 1.
template <typename Group>
std::vector<std::string> labelsOf(const std::vector<Group>& groups) {
    std::vector<std::string> labels;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if constexpr (requires { groups[i].original; }) {
            labels.push_back(std::to_string(groups[i].original + 1));
        } else {
            labels.push_back(std::to_string(i + 1));
        }
    }
    return labels;
}

/// All figures under the names of the program's details.
template <typename Test>
statistics::Figure figuresOf(std::string_view name, const Test& test, const statistics::Options& options) {
    statistics::FigureCollector collector;
    collector("schema", 1);
    collector("test", name);
    collector("level", options.confidence);
    if constexpr (requires { test.comparisons; }) {
        collector("adjust", adjustmentWord(options.adjustment));
        collector("labels", labelsOf(test.groups));
    }
    visit(test, collector);
    return std::move(collector).figure();
}

/// A result for what `compute` makes of the options.
template <typename Compute>
tbv_status run(std::string_view name, const tbv_options* options, tbv_result** result, tbv_error* error,
               const Compute& compute) noexcept {
    return guarded(error, [&] {
        requirePointer(static_cast<const void*>(result), "result");
        *result = nullptr;
        const TakenOptions taken = takenOptions(options);
        *result = std::make_unique<tbv_result>(figuresOf(name, compute(taken), taken.options)).release();
    });
}

/// The same for pairs.
template <typename Test>
tbv_status runPairs(std::string_view name, const double* first, const double* second, size_t n,
                    const tbv_options* options, tbv_result** result, tbv_error* error,
                    const Test& test) noexcept {
    return run(name, options, result, error, [&](const TakenOptions& taken) {
        return test(valuesAt(first, n, "first"), valuesAt(second, n, "second"), taken.options);
    });
}

/// The same for groups.
template <typename Test>
tbv_status runGroups(std::string_view name, const double* const* groups, const size_t* sizes, size_t count,
                     const tbv_options* options, tbv_result** result, tbv_error* error,
                     const Test& test) noexcept {
    return run(name, options, result, error, [&](const TakenOptions& taken) {
        requireControl(taken, count);
        const auto lengths = valuesAt(sizes, count, "sizes");
        return test(groupsAt(groups, count, "groups", [lengths](size_t i) { return lengths[i]; }), taken);
    });
}

}  // namespace

}  // namespace TBVNonPara::c

using namespace TBVNonPara;

tbv_status tbv_mann_whitney(const double* first, size_t n1, const double* second, size_t n2,
                            const tbv_options* options, tbv_result** result, tbv_error* error) {
    return c::run("mann-whitney", options, result, error, [&](const c::TakenOptions& taken) {
        return statistics::mannWhitney(c::valuesAt(first, n1, "first"), c::valuesAt(second, n2, "second"),
                                       taken.options);
    });
}

tbv_status tbv_wilcoxon(const double* first, const double* second, size_t n, const tbv_options* options,
                        tbv_result** result, tbv_error* error) {
    return c::runPairs("wilcoxon", first, second, n, options, result, error, statistics::wilcoxon);
}

tbv_status tbv_spearman(const double* first, const double* second, size_t n, const tbv_options* options,
                        tbv_result** result, tbv_error* error) {
    return c::runPairs("spearman", first, second, n, options, result, error, statistics::spearman);
}

tbv_status tbv_sign(const double* first, const double* second, size_t n, const tbv_options* options,
                    tbv_result** result, tbv_error* error) {
    return c::runPairs("sign", first, second, n, options, result, error,
                       [](c::Numbers x, c::Numbers y, const statistics::Options& chosen) {
                           return statistics::sign(x, y, chosen);
                       });
}

tbv_status tbv_sign_codes(const double* codes, size_t n, const tbv_options* options, tbv_result** result,
                          tbv_error* error) {
    return c::run("sign", options, result, error, [&](const c::TakenOptions& taken) {
        return statistics::sign(c::valuesAt(codes, n, "codes"), taken.options);
    });
}

tbv_status tbv_median(const double* const* groups, const size_t* sizes, size_t count,
                      const tbv_options* options, tbv_result** result, tbv_error* error) {
    return c::runGroups("median", groups, sizes, count, options, result, error,
                        [](const std::vector<c::Numbers>& samples, const c::TakenOptions& taken) {
                            return statistics::median(samples, taken.options, taken.control);
                        });
}

tbv_status tbv_kruskal_wallis(const double* const* groups, const size_t* sizes, size_t count,
                              const tbv_options* options, tbv_result** result, tbv_error* error) {
    return c::runGroups("kruskal-wallis", groups, sizes, count, options, result, error,
                        [](const std::vector<c::Numbers>& samples, const c::TakenOptions& taken) {
                            return statistics::kruskalWallis(samples, taken.options, taken.control);
                        });
}

tbv_status tbv_friedman(const double* const* treatments, size_t count, size_t blocks,
                        const tbv_options* options, tbv_result** result, tbv_error* error) {
    return c::run("friedman", options, result, error, [&](const c::TakenOptions& taken) {
        c::requireControl(taken, count);
        return statistics::friedman(
            c::groupsAt(treatments, count, "treatments", [blocks](size_t) { return blocks; }), taken.options,
            taken.control);
    });
}

tbv_status tbv_runs(const int* codes, size_t n, const tbv_options* options, tbv_result** result,
                    tbv_error* error) {
    return c::run("runs", options, result, error, [&](const c::TakenOptions& taken) {
        const std::span<const int> given = c::valuesAt(codes, n, "codes");
        return statistics::runs(std::vector<double>(given.begin(), given.end()), taken.options);
    });
}

tbv_status tbv_runs_numbers(const double* numbers, size_t n, const tbv_options* options, tbv_result** result,
                            tbv_error* error) {
    return c::run("runs", options, result, error, [&](const c::TakenOptions& taken) {
        return statistics::runs(c::valuesAt(numbers, n, "numbers"), taken.options);
    });
}

const char* tbv_status_text(tbv_status status) {
    switch (status) {
        case TBV_OK:
            return "No error.";
        case TBV_ABSENT:
            return "These data have no such figure.";
        case TBV_UNKNOWN_NAME:
            return "The test has no figure of this name; tbv_result_json shows all.";
        case TBV_WRONG_KIND:
            return "The figure is of another kind: a text, a number, or several figures.";
        case TBV_BAD_DATA:
            return "The data cannot be tested.";
        case TBV_BAD_ARGUMENT:
            return "An argument is a null pointer or no possible choice.";
        case TBV_OUT_OF_MEMORY:
            return "There is not enough memory.";
        case TBV_INTERRUPTED:
            return "options.watch ended the test.";
        case TBV_INTERNAL:
            break;
    }
    return "An error inside the library.";
}

const char* tbv_version() {
    return TBVNONPARA_VERSION;
}
