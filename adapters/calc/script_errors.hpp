#pragma once

#include <TBVNonPara/AnalysisException.hpp>
#include <com/sun/star/reflection/InvocationTargetException.hpp>

#include "adapters/calc/uno.hpp"

namespace TBVNonPara::calc {

using ObjectOfUno = Reference<css::uno::XInterface>;

/// The library's error as the one that clients of an object catch.
[[nodiscard]] AnalysisException exceptionOf(const Error& error, const ObjectOfUno& self);

/// The error that is being handled.
[[nodiscard]] AnalysisException currentException(const ObjectOfUno& self);

/// Does what a client of an object asks for.
template <typename Work>
auto raisingExceptions(const ObjectOfUno& self, const Work& work) {
    try {
        return work();
    } catch (...) {
        throw currentException(self);
    }
}

/// Does what a script asks for: the error is passed on inside the one that scripts unpack.
template <typename Work>
auto tellingScripts(const ObjectOfUno& self, const Work& work) {
    try {
        return work();
    } catch (...) {
        const AnalysisException error = currentException(self);
        throw css::reflection::InvocationTargetException(error.Message, error.Context, css::uno::Any(error));
    }
}

}  // namespace TBVNonPara::calc
