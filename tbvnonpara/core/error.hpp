#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The runtime's own errors: classic numbers, each with its usual description.
enum class RuntimeError : std::int32_t {
    InvalidProcedureCall = 5,  ///< an argument out of its bounds
    Overflow = 6,              ///< a number that its type cannot hold
    OutOfMemory = 7,           ///< no room for the data
    SubscriptOutOfRange = 9,   ///< outside an array, or in one without a size
    DivisionByZero = 11,       ///< x / 0
    TypeMismatch = 13,         ///< a value that reads as no number
    UserInterrupt = 18,        ///< the user wants it to end
    InternalError = 51,        ///< a fault of the library
    ObjectNotSet = 91,         ///< an empty reference was used
};

/// The usual description of a runtime error, for example "Subscript out of range".
[[nodiscard]] TBVNONPARA_API std::string_view description(RuntimeError error) noexcept;

/// What a client is told: a number, a description (may be empty) and a source (where it arose).
///
///     try {
///         request.Results();
///     } catch (const Error& error) {
///         std::cerr << error.number() << ": " << error.description() << " (" << error.source() << ")\n";
///     }
class TBVNONPARA_API Error : public std::exception {
 public:
    /// An error as a host raises it: with a number and words of its own, without a source.
    explicit Error(std::int32_t number, std::string description = {}, std::string source = {});

    /// One of core/enumerations.hpp, a RuntimeError, or the host's own.
    [[nodiscard]] std::int32_t number() const noexcept { return m_Number; }
    /// In English; empty for a bare number.
    [[nodiscard]] const std::string& description() const noexcept { return m_Description; }
    /// "Line 0 in TBVNonPara.clsNonPara.Results"; empty until a procedure passes the error on.
    [[nodiscard]] const std::string& source() const noexcept { return m_Source; }
    /// For who knows it as std::exception alone.
    [[nodiscard]] const char* what() const noexcept override { return m_What.c_str(); }

 private:
    std::int32_t m_Number;
    std::string m_Description;
    std::string m_Source;
    std::string m_What;
};

/// Raises a runtime error with its usual description.
[[noreturn]] TBVNONPARA_API void raise(RuntimeError error);

/// Raises a bare number: no description, no source.
[[noreturn]] TBVNONPARA_API void raise(std::int32_t number);

/// @cond
/// The exception being handled as an Error: a foreign C++ exception keeps its text.
/// Call it in a handler only.
[[nodiscard]] TBVNONPARA_API Error currentError();

/// Ends a procedure's handler: raises the error being handled again. A source that begins with "Line"
/// stays (the innermost name wins); any other becomes "Line 0 in TBVNonPara.<procedure>".
[[noreturn]] TBVNONPARA_API void passOn(std::string_view procedure);

/// The same, but the source is always replaced by the procedure's own name.
[[noreturn]] TBVNONPARA_API void passOnAs(std::string_view procedure);

/// The filter of the range properties: an error whose number lies in the library's own band (5000 to 5101
/// above the object-error base) is raised again unchanged, any other is replaced by the bare number given.
[[noreturn]] TBVNONPARA_API void passOnOwnOr(std::int32_t replacement);
/// @endcond

}  // namespace TBVNonPara
