#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "TBVNonPara_h.h"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::com {

/// A test that an early-bound client runs on testedCells() in the sheet "Data".
struct ClientTest {
    const char* name;
    ::TBVNPMethod method;
    const char* y;
    const char* x;
    const char* title;
};

/// Settings on refusedCells() that one of the members refuses.
struct Refusal {
    const char* name;
    ::TBVNPMethod method;
    VARIANT_BOOL headers;
    const char* y;
    const char* x;
    /// What YRange, XRange and Results come to, 0 for success.
    std::int32_t yNumber;
    std::int32_t xNumber;
    std::int32_t number;
};

void PrintTo(const ClientTest& test, std::ostream* out);
void PrintTo(const Refusal& refusal, std::ostream* out);

/// Five rows under labels, for A1:D6.
[[nodiscard]] ValueGrid testedCells();
[[nodiscard]] const std::vector<ClientTest>& clientTests();

/// Three rows under labels, for A1:C4.
[[nodiscard]] ValueGrid refusedCells();
[[nodiscard]] const std::vector<Refusal>& refusals();

}  // namespace TBVNonPara::com
