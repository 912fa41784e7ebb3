#include "adapters/calc/script_errors.hpp"

#include <com/sun/star/script/BasicErrorException.hpp>

namespace TBVNonPara::calc {

namespace {

/// A bare number gets the text that automation runtimes have for numbers they do not know.
std::string descriptionOf(const Error& error) {
    return error.description().empty() ? "Application-defined or object-defined error" : error.description();
}

std::string fullText(const Error& error) {
    std::string result = "Error " + std::to_string(error.number()) + ": " + descriptionOf(error);
    if (!error.source().empty()) {
        result += " (" + error.source() + ')';
    }
    return result;
}

}  // namespace

AnalysisException exceptionOf(const Error& error, const ObjectOfUno& self) {
    // Macros are told of errors with Basic's own numbers only; 440 is the one whose text is free.
    constexpr sal_Int32 automationError = 440;

    const OUString message = fromUtf8(fullText(error));
    const css::script::BasicErrorException basic({}, self, automationError, message);
    return {message, self, css::uno::Any(basic), error.number(), fromUtf8(error.source())};
}

AnalysisException currentException(const ObjectOfUno& self) {
    try {
        throw;
    } catch (const AnalysisException& error) {
        return error;
    } catch (const css::uno::Exception& error) {
        return exceptionOf(Error(spreadsheetError, toUtf8(error.Message)), self);
    } catch (...) {
        return exceptionOf(currentError(), self);
    }
}

}  // namespace TBVNonPara::calc
