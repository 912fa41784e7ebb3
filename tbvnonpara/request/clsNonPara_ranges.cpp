#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara {

namespace {

bool comparesGroups(TBVNPMethod method) noexcept {
    return method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis;
}

}  // namespace

// The text of the data range is not kept: the same address set twice is resolved and checked twice.
void clsNonPara::LetYRange(std::string_view address) try {
    if (address.empty()) {
        raise(tbvNPNoYRange);
    }
    m_YRange = m_Companions.application->GetRange(address);
    m_Results.release();
    if (comparesGroups(m_Method)) {
        if (m_YRange->GetColumnsCount() <= 1 && m_YRange->GetAreasCount() == 1) {
            raise(tbvNPTooFewGroups);
        }
    } else if (m_YRange->GetColumnsCount() > 1) {
        raise(tbvNPYRangeColumns);
    }
} catch (...) {
    passOnOwnOr(tbvNPBadYRange);
}

void clsNonPara::LetXRange(std::string_view address) try {
    if (address != m_XRangeText) {
        if (address.empty()) {
            m_XRange.release();
        } else {
            m_XRange = m_Companions.application->GetRange(address);
            if (m_XRange->GetColumnsCount() > 1) {
                raise(tbvNPXRangeColumns);
            }
        }
        m_Results.release();
    }
    m_XRangeText = address;
} catch (...) {
    passOnOwnOr(tbvNPBadXRange);
}

void clsNonPara::LetOutputRange(std::string_view address) try {
    if (address.empty()) {
        m_OutputRange.release();
    } else {
        m_OutputRange = m_Companions.application->GetRange(address);
    }
} catch (...) {
    passOnOwnOr(tbvNPBadOutputRange);
}

}  // namespace TBVNonPara
