#include "tbvnonpara/core/error.hpp"

#include <new>
#include <stdexcept>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara {

namespace {

constexpr std::int32_t bandFirst = objectErrorBase + 5000;
constexpr std::int32_t bandLast = objectErrorBase + 5101;

std::string sourceOf(std::string_view procedure) {
    // No procedure records the numbers of its lines, so the line is always 0.
    return "Line 0 in TBVNonPara." + std::string(procedure);
}

Error runtimeError(RuntimeError error) {
    return Error(static_cast<std::int32_t>(error), std::string(description(error)));
}

}  // namespace

std::string_view description(RuntimeError error) noexcept {
    switch (error) {
        case RuntimeError::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case RuntimeError::Overflow:
            return "Overflow";
        case RuntimeError::OutOfMemory:
            return "Out of memory";
        case RuntimeError::SubscriptOutOfRange:
            return "Subscript out of range";
        case RuntimeError::DivisionByZero:
            return "Division by zero";
        case RuntimeError::TypeMismatch:
            return "Type mismatch";
        case RuntimeError::UserInterrupt:
            return "User interrupt occurred";
        case RuntimeError::InternalError:
            return "Internal error";
        case RuntimeError::ObjectNotSet:
            return "Object variable or With block variable not set";
    }
    return "Internal error";
}

Error::Error(std::int32_t number, std::string description, std::string source)
    : m_Number(number), m_Description(std::move(description)), m_Source(std::move(source)) {
    m_What = m_Description.empty() ? "error " + std::to_string(m_Number) : m_Description;
}

void raise(RuntimeError error) {
    throw runtimeError(error);
}

void raise(std::int32_t number) {
    throw Error(number);
}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return runtimeError(RuntimeError::OutOfMemory);
    } catch (const std::length_error&) {
        // A container asked for more than any memory holds.
        return runtimeError(RuntimeError::OutOfMemory);
    } catch (const std::exception& other) {
        return Error(static_cast<std::int32_t>(RuntimeError::InternalError), other.what());
    } catch (...) {
        return runtimeError(RuntimeError::InternalError);
    }
}

void passOn(std::string_view procedure) {
    Error error = currentError();
    if (error.source().starts_with("Line")) {
        throw error;
    }
    throw Error(error.number(), error.description(), sourceOf(procedure));
}

void passOnAs(std::string_view procedure) {
    const Error error = currentError();
    throw Error(error.number(), error.description(), sourceOf(procedure));
}

void passOnOwnOr(std::int32_t replacement) {
    const Error error = currentError();
    if (error.number() >= bandFirst && error.number() <= bandLast) {
        throw error;
    }
    raise(replacement);
}

}  // namespace TBVNonPara
