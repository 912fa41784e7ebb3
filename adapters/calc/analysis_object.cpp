#include "adapters/calc/analysis_object.hpp"

#include "adapters/calc/calc_application.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

/// What OverWrite is, by place or by name.
Any callResults(AnalysisObject& object, const css::uno::Sequence<Any>& arguments) {
    const Any given = argument(arguments, 0, std::array{"OverWrite"});
    object.Results(given.hasValue() && toBoolean(given));
    return {};
}

}  // namespace

std::span<const ScriptMember<AnalysisObject>> AnalysisObject::members() {
    static const auto all = membersBehindSettings<AnalysisObject>(std::array{
        ScriptMember<AnalysisObject>{"Results", nothingType, nullptr, nullptr, callResults, {&booleanType}}});
    return all;
}

AnalysisObject::AnalysisObject(const Context& context)
    : ScriptObject(context), m_Request(calcCompanions(session())) {
}

void AnalysisObject::setMethod(sal_Int32 Method) {
    guarded([&] { m_Request.LetMethod(static_cast<TBVNPMethod>(Method)); });
    m_Method = static_cast<TBVNPMethod>(Method);
}

void AnalysisObject::setHeaders(sal_Bool Headers) {
    guarded([&] { m_Request.LetHeaders(Headers); });
    m_Headers = Headers;
}

void AnalysisObject::setOutputDescriptives(sal_Bool OutputDescriptives) {
    guarded([&] { m_Request.LetOutputDescriptives(OutputDescriptives); });
}

void AnalysisObject::setIgnoreTies(sal_Bool IgnoreTies) {
    guarded([&] { m_Request.LetIgnoreTies(IgnoreTies); });
}

void AnalysisObject::setTails(sal_Int32 Tails) {
    guarded([&] { m_Request.LetTails(static_cast<TBVNPTails>(Tails)); });
}

void AnalysisObject::setYRange(const OUString& Address) {
    guarded([&] {
        const std::string address = toUtf8(Address);
        const DataRangeScope scope(*session(), DataRange::First, address);
        m_Request.LetYRange(address);
    });
}

void AnalysisObject::setXRange(const OUString& Address) {
    guarded([&] {
        const std::string address = toUtf8(Address);
        const DataRangeScope scope(*session(), DataRange::Second, address);
        m_Request.LetXRange(address);
    });
}

void AnalysisObject::setOutputRange(const OUString& Address) {
    guarded([&] { m_Request.LetOutputRange(toUtf8(Address)); });
}

void AnalysisObject::Results(sal_Bool OverWrite) {
    guarded([&] {
        const Run run(*session(), rowRules(m_Method, m_Headers));
        m_Request.Results(OverWrite);
    });
}

OUString VisibleRowsObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

css::uno::Sequence<OUString> VisibleRowsObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

}  // namespace TBVNonPara::calc
