#pragma once

#include <array>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::calc {

namespace css = com::sun::star;
using css::uno::Reference;
using rtl::OString;
using rtl::OUString;

/// A sequence of what is given.
template <typename Element, typename... Others>
[[nodiscard]] css::uno::Sequence<Element> sequenceOf(const Element& first, const Others&... others) {
    const std::array<Element, 1 + sizeof...(others)> elements{first, others...};
    return {elements.data(), static_cast<sal_Int32>(elements.size())};
}

[[nodiscard]] OUString fromUtf8(std::string_view text);
[[nodiscard]] std::string toUtf8(const OUString& text);

/// Another interface of an object; raises the host's error where it has none.
template <typename Interface, typename Source>
[[nodiscard]] Reference<Interface> query(const Reference<Source>& object) {
    return Reference<Interface>(object, css::uno::UNO_QUERY_THROW);
}

/// The same, but an empty reference where there is none.
template <typename Interface, typename Source>
[[nodiscard]] Reference<Interface> queryIfAny(const Reference<Source>& object) {
    return Reference<Interface>(object, css::uno::UNO_QUERY);
}

/// What an object gave. Those of a document that was closed in the meantime give nothing, where others raise
/// an error: for them this does.
template <typename Interface>
[[nodiscard]] Reference<Interface> given(const Reference<Interface>& object) {
    if (!object.is()) {
        throw css::lang::DisposedException("The document was closed.", nullptr);
    }
    return object;
}

template <typename Source>
[[nodiscard]] css::uno::Any property(const Reference<Source>& object, const OUString& name) {
    return query<css::beans::XPropertySet>(object)->getPropertyValue(name);
}

template <typename Value, typename Source>
void setProperty(const Reference<Source>& object, const OUString& name, const Value& value) {
    query<css::beans::XPropertySet>(object)->setPropertyValue(name, css::uno::Any(value));
}

/// The number of every error that the spreadsheet itself raises.
constexpr std::int32_t spreadsheetError = 1004;

/// Raises an error of the spreadsheet as the library's own kind of exception, with its text.
[[noreturn]] void raiseHostError(const css::uno::Exception& error);
[[noreturn]] void raiseHostError(std::string description);

/// Does something with the spreadsheet; whatever it raises leaves as the library's kind of error.
template <typename Work>
auto hosted(const Work& work) {
    try {
        return work();
    } catch (const css::uno::Exception& error) {
        raiseHostError(error);
    }
}

}  // namespace TBVNonPara::calc
