#include "adapters/calc/uno.hpp"

#include <cppuhelper/exc_hlp.hxx>

namespace TBVNonPara::calc {

OUString fromUtf8(std::string_view text) {
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string toUtf8(const OUString& text) {
    const OString utf8 = OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {utf8.getStr(), static_cast<std::size_t>(utf8.getLength())};
}

void raiseHostError(const css::uno::Exception& error) {
    // An exception without a text is named by its kind, for example com.sun.star.lang.DisposedException.
    const css::uno::Any caught = cppu::getCaughtException();
    const OUString text = error.Message.isEmpty() ? caught.getValueTypeName() : error.Message;
    raiseHostError(toUtf8(text));
}

void raiseHostError(std::string description) {
    throw Error(spreadsheetError, std::move(description), "Calc");
}

}  // namespace TBVNonPara::calc
