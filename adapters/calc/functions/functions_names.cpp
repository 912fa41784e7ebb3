#include <algorithm>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/functions/functions_object.hpp"

namespace TBVNonPara::calc {

OUString FunctionsObject::getProgrammaticFuntionName(const OUString& shown) {
    const FunctionTexts* const function = functionShownAs(toUtf8(shown));
    return function == nullptr ? OUString() : fromUtf8(function->method);
}

// The spreadsheet asks this of every method of the object: those that are no functions have no name.
OUString FunctionsObject::getDisplayFunctionName(const OUString& method) {
    const FunctionTexts* const function = functionOf(toUtf8(method));
    return function == nullptr ? OUString() : fromUtf8(function->shown);
}

OUString FunctionsObject::getFunctionDescription(const OUString& method) {
    const FunctionTexts* const function = functionOf(toUtf8(method));
    return function == nullptr ? OUString() : shown(function->description);
}

OUString FunctionsObject::getDisplayArgumentName(const OUString& method, sal_Int32 argument) {
    const ArgumentTexts* const texts = argumentOf(method, argument);
    return texts == nullptr ? OUString() : shown(texts->name);
}

OUString FunctionsObject::getArgumentDescription(const OUString& method, sal_Int32 argument) {
    const ArgumentTexts* const texts = argumentOf(method, argument);
    return texts == nullptr ? OUString() : shown(texts->description);
}

OUString FunctionsObject::getProgrammaticCategoryName(const OUString& /*method*/) {
    return "Statistical";
}

OUString FunctionsObject::getDisplayCategoryName(const OUString& /*method*/) {
    return "Statistical";
}

css::uno::Sequence<css::sheet::LocalizedName> FunctionsObject::getCompatibilityNames(const OUString& method) {
    const css::lang::Locale locale("en", "US", {});
    return sequenceOf(css::sheet::LocalizedName(locale, getDisplayFunctionName(method)));
}

void FunctionsObject::setLocale(const css::lang::Locale& locale) {
    m_Locale = locale;
}

css::lang::Locale FunctionsObject::getLocale() {
    return m_Locale;
}

OUString FunctionsObject::getServiceName() {
    return OUString::createFromAscii(serviceName);
}

OUString FunctionsObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool FunctionsObject::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

css::uno::Sequence<OUString> FunctionsObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName), OUString("com.sun.star.sheet.AddIn"));
}

OUString FunctionsObject::shown(const WizardText& text) const {
    return fromUtf8(text.in(m_Locale.Language == "de"));
}

const ArgumentTexts* FunctionsObject::argumentOf(const OUString& method, sal_Int32 argument) const {
    const FunctionTexts* const function = functionOf(toUtf8(method));
    if (function == nullptr || argument < 0) {
        return nullptr;
    }
    return &function->arguments[std::min(static_cast<std::size_t>(argument), function->arguments.size() - 1)];
}

}  // namespace TBVNonPara::calc
