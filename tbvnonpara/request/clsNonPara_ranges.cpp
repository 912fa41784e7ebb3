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
    // A range of our own: the host may call the client back, and the client set another one.
    const RangeRef range = m_Companions.application->GetRange(address);
    m_YRange = range;
    m_Results.release();
    if (comparesGroups(m_Method)) {
        if (range->GetColumnsCount() <= 1 && range->GetAreasCount() == 1) {
            raise(tbvNPTooFewGroups);
        }
    } else if (range->GetColumnsCount() > 1) {
        raise(tbvNPYRangeColumns);
    }
} catch (...) {
    passOnOwnOr(tbvNPBadYRange);
}

void clsNonPara::LetXRange(std::string_view address) try {
    if (address != m_XRangeText) {
        RangeRef range;
        if (!address.empty()) {
            range = m_Companions.application->GetRange(address);
        }
        m_XRange = range;
        if (range.isSet() && range->GetColumnsCount() > 1) {
            raise(tbvNPXRangeColumns);
        }
        m_Results.release();
        // The text belongs to the range that is kept, which may be one that was set from an event.
        if (m_XRange == range) {
            m_XRangeText = address;
        }
    }
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
