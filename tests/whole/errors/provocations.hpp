#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tbvnonpara/companion/own/array_utility.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/support/test_host.hpp"
#include "tests/support/watched_host.hpp"
#include "tests/whole/errors/memory_fuse.hpp"

namespace TBVNonPara {

constexpr std::int32_t refusedByTheHost = 1004;
constexpr std::int32_t outOfMemory = 7;

[[noreturn]] inline void refuse() {
    throw Error(refusedByTheHost, "refused", "Host");
}

/// Companions on a host that refuses an operation from its `from`-th time on.
inline CompanionLibrary refusing(const std::string& operation, int from = 1) {
    const ObjectRef<Application> host = Support::testHost();
    const ValueGrid data = {{1.0, 4.0}, {-1.0, 5.0}, {1.0, -6.0}, {0.0, 7.5}};
    host->GetRange("Data!A1:B4")->LetValue(data);
    return ownCompanions(Support::watchHost(host, [=, times = 0](const Support::HostCall& call) mutable {
        if (call.operation == operation && ++times >= from) {
            refuse();
        }
    }));
}

inline void requestReport(clsNonPara& request, TBVNPMethod method) {
    const bool groups = method >= tbvNPMedian && method <= tbvNPKWallis;
    request.LetMethod(method);
    request.LetYRange(groups ? "Data!A1:B4" : "Data!A1:A4");
    request.LetXRange(method <= tbvNPSpearman ? "Data!B1:B4" : "");
    request.Results();
}

/// A run whose report cannot name its range.
inline std::function<void()> report(TBVNPMethod method) {
    return [method] {
        clsNonPara request(refusing("Worksheet.GetName"));
        requestReport(request, method);
    };
}

/// The array component is made once with the engine and once for each run: the second one fails.
inline void failInGetResults() {
    CompanionLibrary companions = refusing("");
    companions.createArrayUtility = [made = std::make_shared<int>(0)]() -> ObjectRef<ArrayUtility> {
        if (++*made > 1) {
            refuse();
        }
        return createArrayUtility();
    };
    clsNonPara request(companions);
    requestReport(request, tbvNPMannU);
}

inline void failInClassInitialize() {
    CompanionLibrary companions = refusing("");
    Support::letTheNextAllocationFail();
    const clsNonPara request(std::move(companions));
}

inline std::function<void()> setting(void (clsNonPara::*property)(std::string_view),
                                     const std::string& address) {
    return [=] {
        clsNonPara request(refusing(""));
        (request.*property)(address);
    };
}

/// An array component that can do nothing.
class Helpless : public ArrayUtility {
 public:
    void SortRows(Grid<double>&, Long, Long) const override { refuse(); }
    [[nodiscard]] ValueGrid MakeTwoDimensional(const Array<CellValue>&) const override { refuse(); }
    [[nodiscard]] ValueGrid JoinColumns(const ValueGrid&, const ValueGrid&) const override { refuse(); }
};

inline clsNonParaBO helplessEngine() {
    CompanionLibrary companions = refusing("");
    companions.createArrayUtility = [] { return makeObject<Helpless>(); };
    return clsNonParaBO(companions);
}

inline void failInEngineInitialise() {
    CompanionLibrary companions = refusing("");
    companions.createArrayUtility = []() -> ObjectRef<ArrayUtility> { refuse(); };
    const clsNonParaBO engine(companions);
}

inline void analyse(clsNonParaBO& engine, TBVNPMethod method, const ValueGrid& Ys, const ValueGrid& Xs) {
    engine.LetMethod(method);
    engine.LetYs(Ys);
    if (Xs.allocated()) {
        engine.Letxs(Xs);
    }
    engine.Analyse();
}

inline std::function<void()> analysing(TBVNPMethod method, const ValueGrid& Ys, const ValueGrid& Xs = {}) {
    return [=] {
        clsNonParaBO engine(refusing(""));
        analyse(engine, method, Ys, Xs);
    };
}

/// Reads an array after an analysis that fills it, when there is no memory for the copy.
template <typename Result>
std::function<void()> reading(Result (clsNonParaBO::*accessor)() const) {
    return [accessor] {
        clsNonParaBO engine(refusing(""));
        analyse(engine, tbvNPSign, {{1.0}, {-1.0}}, {{Empty()}});
        analyse(engine, tbvNPKWallis, {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}}, {});
        Support::letTheNextAllocationFail();
        (void)(engine.*accessor)();
    };
}

/// A section written on a sheet that takes no values.
inline std::function<void()> section(const std::function<void(clsNonParaOutput&)>& write) {
    return [write] {
        clsNonParaOutput writer(refusing("Range.LetValue"));
        write(writer);
    };
}

inline void failInGetReportRange() {
    clsNonParaOutput writer(refusing("Worksheet.GetRange"));
    (void)writer.GetResults();
}

inline void goBelowTheLastRow(clsNonParaOutput& writer) {
    for (Long i = 1; i <= 70000; ++i) {
        writer.InsertBlankLines(32767);
    }
}

}  // namespace TBVNonPara
