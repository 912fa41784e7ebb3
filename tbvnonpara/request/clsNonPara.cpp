#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara {

namespace {

/// A setting that changes makes the report of an earlier run stale; the same value again does not.
template <typename Setting>
void change(Setting& setting, Setting value, RangeRef& results, std::string_view procedure) try {
    if (value != setting) {
        setting = value;
        results.release();
    }
} catch (...) {
    passOnAs(procedure);
}

}  // namespace

clsNonPara::clsNonPara(CompanionLibrary companions) try
    : m_Companions(std::move(companions)), m_Engine(makeObject<clsNonParaBO>(m_Companions)) {
} catch (...) {
    passOn("clsNonPara.Class_Initialize");
}

void clsNonPara::LetMethod(TBVNPMethod method) {
    change(m_Method, method, m_Results, "clsNonPara.LetMethod");
}

void clsNonPara::LetHeaders(bool headers) {
    change(m_Headers, headers, m_Results, "clsNonPara.LetHeaders");
}

void clsNonPara::LetOutputDescriptives(bool outputDescriptives) {
    change(m_OutputDescriptives, outputDescriptives, m_Results, "clsNonPara.LetOutputDescriptives");
}

void clsNonPara::LetIgnoreTies(bool ignoreTies) {
    change(m_IgnoreTies, ignoreTies, m_Results, "clsNonPara.LetIgnoreTies");
}

void clsNonPara::LetTails(TBVNPTails tails) {
    change(m_Tails, tails, m_Results, "clsNonPara.LetTails");
}

}  // namespace TBVNonPara
