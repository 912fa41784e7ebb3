#include "adapters/calc/analysis_object.hpp"

#include <algorithm>
#include <array>
#include <com/sun/star/beans/UnknownPropertyException.hpp>
#include <com/sun/star/beans/theIntrospection.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/reflection/ParamMode.hpp>
#include <com/sun/star/script/MemberType.hpp>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/arguments.hpp"
#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/script_errors.hpp"

namespace TBVNonPara::calc {

namespace {

using css::script::InvocationInfo;
using css::uno::Any;
using css::uno::Sequence;

/// The properties as scripts see them, in the order of the interface.
struct Property {
    const char* name;
    const css::uno::Type& type;
    void (*set)(AnalysisObject& object, const Any& value);
};

const css::uno::Type& wholeNumberType = cppu::UnoType<sal_Int32>::get();
const css::uno::Type& booleanType = cppu::UnoType<bool>::get();
const css::uno::Type& textType = cppu::UnoType<OUString>::get();

// clang-format off
const std::array<Property, 8> properties{{
    {"Method", wholeNumberType, [](AnalysisObject& o, const Any& v) { o.setMethod(toWholeNumber(v)); }},
    {"Headers", booleanType, [](AnalysisObject& o, const Any& v) { o.setHeaders(toBoolean(v)); }},
    {"OutputDescriptives", booleanType, [](AnalysisObject& o, const Any& v) { o.setOutputDescriptives(toBoolean(v)); }},
    {"IgnoreTies", booleanType, [](AnalysisObject& o, const Any& v) { o.setIgnoreTies(toBoolean(v)); }},
    {"Tails", wholeNumberType, [](AnalysisObject& o, const Any& v) { o.setTails(toWholeNumber(v)); }},
    {"YRange", textType, [](AnalysisObject& o, const Any& v) { o.setYRange(toAddress(v)); }},
    {"XRange", textType, [](AnalysisObject& o, const Any& v) { o.setXRange(toAddress(v)); }},
    {"OutputRange", textType, [](AnalysisObject& o, const Any& v) { o.setOutputRange(toAddress(v)); }},
}};
// clang-format on

constexpr auto resultsMethod = "Results";

const Property* findProperty(const OUString& name) {
    const auto* found = std::ranges::find_if(
        properties, [&](const Property& property) { return name.equalsIgnoreAsciiCaseAscii(property.name); });
    return found == properties.end() ? nullptr : found;
}

InvocationInfo infoOf(const Property& property) {
    InvocationInfo info;
    info.aName = OUString::createFromAscii(property.name);
    info.eMemberType = css::script::MemberType_PROPERTY;
    info.aType = property.type;
    return info;
}

InvocationInfo infoOfResults() {
    InvocationInfo info;
    info.aName = OUString::createFromAscii(resultsMethod);
    info.eMemberType = css::script::MemberType_METHOD;
    info.aType = cppu::UnoType<void>::get();
    info.aParamTypes = sequenceOf(booleanType);
    info.aParamModes = sequenceOf(css::reflection::ParamMode_IN);
    return info;
}

/// What OverWrite is, by place or by name.
bool overWriteIn(const Sequence<Any>& arguments) {
    const Any given = argument(arguments, 0, std::array{"OverWrite"});
    return given.hasValue() && toBoolean(given);
}

}  // namespace

AnalysisObject::AnalysisObject(const Context& context)
    : m_Context(context),
      m_Session(std::make_shared<Session>(context)),
      m_Request(calcCompanions(m_Session)) {
}

void AnalysisObject::guarded(const auto& work) {
    raisingExceptions(static_cast<cppu::OWeakObject*>(this), work);
}

void AnalysisObject::initialize(const Sequence<Any>& arguments) {
    DocumentRef document;
    if (arguments.getLength() != 1 || !(arguments[0] >>= document) || !document.is()) {
        throw css::lang::IllegalArgumentException(
            "The one argument is the spreadsheet document that addresses mean, for example ThisComponent",
            static_cast<cppu::OWeakObject*>(this), 0);
    }
    m_Session->workOn(document);
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
        const DataRangeScope scope(*m_Session, DataRange::First, address);
        m_Request.LetYRange(address);
    });
}

void AnalysisObject::setXRange(const OUString& Address) {
    guarded([&] {
        const std::string address = toUtf8(Address);
        const DataRangeScope scope(*m_Session, DataRange::Second, address);
        m_Request.LetXRange(address);
    });
}

void AnalysisObject::setOutputRange(const OUString& Address) {
    guarded([&] { m_Request.LetOutputRange(toUtf8(Address)); });
}

void AnalysisObject::Results(sal_Bool OverWrite) {
    guarded([&] {
        const Run run(*m_Session, rowRules(m_Method, m_Headers));
        m_Request.Results(OverWrite);
    });
}

Reference<css::beans::XIntrospectionAccess> AnalysisObject::getIntrospection() {
    const Reference<css::script::XInvocation2> self = this;
    return css::beans::theIntrospection::get(m_Context)->inspect(Any(self));
}

Any AnalysisObject::invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>&,
                           Sequence<Any>&) {
    if (!hasMethod(name) || arguments.getLength() > 1) {
        throw css::lang::IllegalArgumentException("There is no such method: " + name,
                                                  static_cast<cppu::OWeakObject*>(this), 0);
    }
    tellingScripts(static_cast<cppu::OWeakObject*>(this), [&] { Results(overWriteIn(arguments)); });
    return {};
}

void AnalysisObject::setValue(const OUString& name, const Any& value) {
    const Property* property = findProperty(name);
    if (property == nullptr) {
        throw css::beans::UnknownPropertyException("There is no such property: " + name,
                                                   static_cast<cppu::OWeakObject*>(this));
    }
    tellingScripts(static_cast<cppu::OWeakObject*>(this), [&] { property->set(*this, value); });
}

Any AnalysisObject::getValue(const OUString& name) {
    if (findProperty(name) == nullptr) {
        throw css::beans::UnknownPropertyException("There is no such property: " + name,
                                                   static_cast<cppu::OWeakObject*>(this));
    }
    return {};
}

sal_Bool AnalysisObject::hasMethod(const OUString& name) {
    return name.equalsIgnoreAsciiCaseAscii(resultsMethod);
}

sal_Bool AnalysisObject::hasProperty(const OUString& name) {
    return findProperty(name) != nullptr;
}

Sequence<OUString> AnalysisObject::getMemberNames() {
    Sequence<OUString> names(static_cast<sal_Int32>(properties.size()) + 1);
    OUString* next = names.getArray();
    for (const Property& property : properties) {
        *next++ = OUString::createFromAscii(property.name);
    }
    *next = OUString::createFromAscii(resultsMethod);
    return names;
}

Sequence<InvocationInfo> AnalysisObject::getInfo() {
    Sequence<InvocationInfo> infos(static_cast<sal_Int32>(properties.size()) + 1);
    InvocationInfo* next = infos.getArray();
    for (const Property& property : properties) {
        *next++ = infoOf(property);
    }
    *next = infoOfResults();
    return infos;
}

InvocationInfo AnalysisObject::getInfoForName(const OUString& name, sal_Bool) {
    if (hasMethod(name)) {
        return infoOfResults();
    }
    const Property* property = findProperty(name);
    if (property == nullptr) {
        throw css::lang::IllegalArgumentException("There is no such member: " + name,
                                                  static_cast<cppu::OWeakObject*>(this), 0);
    }
    return infoOf(*property);
}

OUString AnalysisObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool AnalysisObject::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

Sequence<OUString> AnalysisObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

OUString VisibleRowsObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

Sequence<OUString> VisibleRowsObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

/// Scripts look at this list first: with the typed interface in it, they would find its setters and not the
/// properties.
Sequence<css::uno::Type> AnalysisObject::getTypes() {
    return sequenceOf(cppu::UnoType<css::script::XInvocation2>::get());
}

}  // namespace TBVNonPara::calc
