#include "adapters/calc/functions/formula_failure.hpp"

#include <bit>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::calc {

namespace {

/// What the data leave undefined: 0 / 0 and x / 0 in a statistic, or a table of counts with an empty margin.
bool isUndefined(std::int32_t number) {
    return number == static_cast<std::int32_t>(RuntimeError::DivisionByZero) ||
           number == static_cast<std::int32_t>(RuntimeError::Overflow) || number == tbvNPNoContingencyTable;
}

}  // namespace

FormulaFailure currentFailure() {
    try {
        throw;
    } catch (const FormulaFailure& failure) {
        return failure;
    } catch (const Error& error) {
        return {isUndefined(error.number()) ? divisionFailure : valueFailure};
    } catch (...) {
        return {valueFailure};
    }
}

double failureAsNumber(FormulaFailure failure) noexcept {
    constexpr std::uint64_t notANumber = 0x7FF8'0000'0000'0000;
    return std::bit_cast<double>(notANumber | static_cast<std::uint64_t>(failure.number));
}

}  // namespace TBVNonPara::calc
