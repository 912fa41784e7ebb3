#pragma once

#include <ostream>
#include <string>

#include "adapters/com/windows.hpp"

namespace TBVNonPara::Peer {

/// Where the calls that reach the peer application are written, as statements of a macro; none to stop.
void recordCalls(std::ostream* to);

/// Writes a call that succeeded. `self` is the number of the object that was called; a result that is an
/// object gets a number by which later calls name it.
void recordCall(long self, const std::wstring& member, bool isPut, const DISPPARAMS& parameters,
                const VARIANT* result);

}  // namespace TBVNonPara::Peer
