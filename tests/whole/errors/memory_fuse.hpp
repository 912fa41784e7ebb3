#pragma once

namespace TBVNonPara::Support {

/// The next allocation of this program fails, once. A copy of an array has no other way to fail.
void letTheNextAllocationFail() noexcept;

}  // namespace TBVNonPara::Support
