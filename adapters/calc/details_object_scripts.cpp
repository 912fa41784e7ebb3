#include <algorithm>
#include <array>
#include <com/sun/star/beans/UnknownPropertyException.hpp>
#include <com/sun/star/beans/theIntrospection.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/reflection/ParamMode.hpp>
#include <com/sun/star/script/MemberType.hpp>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/arguments.hpp"
#include "adapters/calc/details_object.hpp"
#include "adapters/calc/script_errors.hpp"

namespace TBVNonPara::calc {

namespace {

using css::script::InvocationInfo;
using css::uno::Any;
using css::uno::Sequence;

/// A member as scripts see it: what it is set by, read by or called by. Two of these are empty.
struct DetailsMember {
    const char* name;
    const css::uno::Type& type;
    void (*set)(DetailsObject& object, const Any& value);
    Any (*get)(DetailsObject& object);
    Any (*call)(DetailsObject& object, const Sequence<Any>& arguments);
};

const css::uno::Type& longType = cppu::UnoType<sal_Int32>::get();
const css::uno::Type& truthType = cppu::UnoType<bool>::get();
const css::uno::Type& stringType = cppu::UnoType<OUString>::get();
const css::uno::Type& numberType = cppu::UnoType<double>::get();

OUString textOrNothing(const Any& value) {
    return value.hasValue() ? toOfficeText(value) : OUString();
}

Any callCalculate(DetailsObject& object, const Sequence<Any>&) {
    object.Calculate();
    return {};
}

Any callValue(DetailsObject& object, const Sequence<Any>& arguments) {
    return object.Value(toOfficeText(argument(arguments, 0, std::array{"Name"})));
}

Any callWriteTo(DetailsObject& object, const Sequence<Any>& arguments) {
    constexpr std::array names{"Address", "OverWrite"};
    const Any address = argument(arguments, 0, names);
    const Any overWrite = argument(arguments, 1, names);
    return Any(object.WriteTo(address.hasValue() ? toAddress(address) : OUString(),
                              overWrite.hasValue() && toBoolean(overWrite)));
}

using Object = DetailsObject;

// clang-format off
const std::array<DetailsMember, 17> members{{
    {"Method", longType, [](Object& o, const Any& v) { o.setMethod(toWholeNumber(v)); }, nullptr, nullptr},
    {"Headers", truthType, [](Object& o, const Any& v) { o.setHeaders(toBoolean(v)); }, nullptr, nullptr},
    {"OutputDescriptives", truthType, [](Object& o, const Any& v) { o.setOutputDescriptives(toBoolean(v)); }, nullptr, nullptr},
    {"IgnoreTies", truthType, [](Object& o, const Any& v) { o.setIgnoreTies(toBoolean(v)); }, nullptr, nullptr},
    {"Tails", longType, [](Object& o, const Any& v) { o.setTails(toWholeNumber(v)); }, nullptr, nullptr},
    {"YRange", stringType, [](Object& o, const Any& v) { o.setYRange(toAddress(v)); }, nullptr, nullptr},
    {"XRange", stringType, [](Object& o, const Any& v) { o.setXRange(toAddress(v)); }, nullptr, nullptr},
    {"OutputRange", stringType, [](Object& o, const Any& v) { o.setOutputRange(toAddress(v)); }, nullptr, nullptr},
    {"Confidence", numberType, [](Object& o, const Any& v) { o.setConfidence(toNumber(v)); }, nullptr, nullptr},
    {"Adjust", stringType, [](Object& o, const Any& v) { o.setAdjust(toOfficeText(v)); }, nullptr, nullptr},
    {"Control", stringType, [](Object& o, const Any& v) { o.setControl(textOrNothing(v)); }, nullptr, nullptr},
    {"Trend", truthType, [](Object& o, const Any& v) { o.setTrend(toBoolean(v)); }, nullptr, nullptr},
    {"Calculate", cppu::UnoType<void>::get(), nullptr, nullptr, callCalculate},
    {"Value", cppu::UnoType<Any>::get(), nullptr, nullptr, callValue},
    {"Text", stringType, nullptr, [](Object& o) { return Any(o.getText()); }, nullptr},
    {"Json", stringType, nullptr, [](Object& o) { return Any(o.getJson()); }, nullptr},
    {"WriteTo", stringType, nullptr, nullptr, callWriteTo},
}};
// clang-format on

const DetailsMember* findMember(const OUString& name) {
    const auto* found = std::ranges::find_if(
        members, [&](const DetailsMember& member) { return name.equalsIgnoreAsciiCaseAscii(member.name); });
    return found == members.end() ? nullptr : found;
}

Sequence<css::uno::Type> parametersOf(const DetailsMember& member) {
    if (member.call == callValue) {
        return sequenceOf(stringType);
    }
    return member.call == callWriteTo ? sequenceOf(stringType, truthType) : Sequence<css::uno::Type>();
}

InvocationInfo infoOf(const DetailsMember& member) {
    InvocationInfo info;
    info.aName = OUString::createFromAscii(member.name);
    info.eMemberType =
        member.call != nullptr ? css::script::MemberType_METHOD : css::script::MemberType_PROPERTY;
    info.aType = member.type;
    info.aParamTypes = parametersOf(member);
    info.aParamModes = Sequence<css::reflection::ParamMode>(info.aParamTypes.getLength());
    std::fill_n(info.aParamModes.getArray(), info.aParamModes.getLength(), css::reflection::ParamMode_IN);
    return info;
}

}  // namespace

void DetailsObject::initialize(const Sequence<Any>& arguments) {
    DocumentRef document;
    if (arguments.getLength() != 1 || !(arguments[0] >>= document) || !document.is()) {
        throw css::lang::IllegalArgumentException(
            "The one argument is the spreadsheet document that addresses mean, for example ThisComponent",
            self(), 0);
    }
    m_Session->workOn(document);
}

Reference<css::beans::XIntrospectionAccess> DetailsObject::getIntrospection() {
    const Reference<css::script::XInvocation2> invocation = this;
    return css::beans::theIntrospection::get(m_Context)->inspect(Any(invocation));
}

Any DetailsObject::invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>&,
                          Sequence<Any>&) {
    const DetailsMember* const member = findMember(name);
    if (member == nullptr || member->call == nullptr ||
        arguments.getLength() > parametersOf(*member).getLength()) {
        throw css::lang::IllegalArgumentException("There is no such method: " + name, self(), 0);
    }
    return tellingScripts(self(), [&] { return member->call(*this, arguments); });
}

void DetailsObject::setValue(const OUString& name, const Any& value) {
    const DetailsMember* const member = findMember(name);
    if (member == nullptr || member->set == nullptr) {
        throw css::beans::UnknownPropertyException("There is no such property to set: " + name, self());
    }
    tellingScripts(self(), [&] { member->set(*this, value); });
}

Any DetailsObject::getValue(const OUString& name) {
    const DetailsMember* const member = findMember(name);
    if (member == nullptr || member->call != nullptr) {
        throw css::beans::UnknownPropertyException("There is no such property: " + name, self());
    }
    if (member->get == nullptr) {
        return {};
    }
    return tellingScripts(self(), [&] { return member->get(*this); });
}

sal_Bool DetailsObject::hasMethod(const OUString& name) {
    const DetailsMember* const member = findMember(name);
    return member != nullptr && member->call != nullptr;
}

sal_Bool DetailsObject::hasProperty(const OUString& name) {
    const DetailsMember* const member = findMember(name);
    return member != nullptr && member->call == nullptr;
}

Sequence<OUString> DetailsObject::getMemberNames() {
    Sequence<OUString> names(static_cast<sal_Int32>(members.size()));
    std::ranges::transform(members, names.getArray(), [](const DetailsMember& member) {
        return OUString::createFromAscii(member.name);
    });
    return names;
}

Sequence<InvocationInfo> DetailsObject::getInfo() {
    Sequence<InvocationInfo> infos(static_cast<sal_Int32>(members.size()));
    std::ranges::transform(members, infos.getArray(),
                           [](const DetailsMember& member) { return infoOf(member); });
    return infos;
}

InvocationInfo DetailsObject::getInfoForName(const OUString& name, sal_Bool) {
    const DetailsMember* const member = findMember(name);
    if (member == nullptr) {
        throw css::lang::IllegalArgumentException("There is no such member: " + name, self(), 0);
    }
    return infoOf(*member);
}

OUString DetailsObject::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool DetailsObject::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

Sequence<OUString> DetailsObject::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

/// As for reports: with the typed interface in the list scripts would not find the properties.
Sequence<css::uno::Type> DetailsObject::getTypes() {
    return sequenceOf(cppu::UnoType<css::script::XInvocation2>::get());
}

}  // namespace TBVNonPara::calc
