#pragma once

#include <algorithm>
#include <array>
#include <com/sun/star/beans/UnknownPropertyException.hpp>
#include <com/sun/star/beans/theIntrospection.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/reflection/ParamMode.hpp>
#include <com/sun/star/script/MemberType.hpp>
#include <com/sun/star/script/XInvocation2.hpp>
#include <cppuhelper/implbase4.hxx>
#include <cppuhelper/supportsservice.hxx>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "adapters/calc/arguments.hpp"
#include "adapters/calc/script_errors.hpp"
#include "adapters/calc/session.hpp"

namespace TBVNonPara::calc {

/// A member as scripts see it: what it is set by, read by or called by. Two of these are empty. A property
/// without `get` reads as nothing.
template <typename Object>
struct ScriptMember {
    using Any = css::uno::Any;
    using Arguments = css::uno::Sequence<Any>;

    const char* name = "";
    const css::uno::Type& type;
    void (*set)(Object& object, const Any& value) = nullptr;
    Any (*get)(Object& object) = nullptr;
    Any (*call)(Object& object, const Arguments& arguments) = nullptr;
    std::array<const css::uno::Type*, 2> parameters{};  ///< of a call

    [[nodiscard]] sal_Int32 parameterCount() const {
        return static_cast<sal_Int32>(std::ranges::count_if(parameters, std::identity()));
    }
    [[nodiscard]] css::script::InvocationInfo info() const {
        css::script::InvocationInfo info;
        info.aName = OUString::createFromAscii(name);
        info.eMemberType =
            call != nullptr ? css::script::MemberType_METHOD : css::script::MemberType_PROPERTY;
        info.aType = type;
        info.aParamTypes.realloc(parameterCount());
        info.aParamModes.realloc(parameterCount());
        for (sal_Int32 i = 0; i < parameterCount(); ++i) {
            info.aParamTypes.getArray()[i] = *parameters[static_cast<std::size_t>(i)];
            info.aParamModes.getArray()[i] = css::reflection::ParamMode_IN;
        }
        return info;
    }
};

/// The types of members and parameters.
inline const css::uno::Type& nothingType = cppu::UnoType<void>::get();
inline const css::uno::Type& anythingType = cppu::UnoType<css::uno::Any>::get();
inline const css::uno::Type& wholeNumberType = cppu::UnoType<sal_Int32>::get();
inline const css::uno::Type& numberType = cppu::UnoType<double>::get();
inline const css::uno::Type& booleanType = cppu::UnoType<bool>::get();
inline const css::uno::Type& textType = cppu::UnoType<OUString>::get();

/// The settings that every service begins with, in the order of the interfaces.
template <typename Object>
std::array<ScriptMember<Object>, 8> settingMembers() {
    using css::uno::Any;
    using O = Object;
    return {{
        {"Method", wholeNumberType, [](O& o, const Any& v) { o.setMethod(toWholeNumber(v)); }},
        {"Headers", booleanType, [](O& o, const Any& v) { o.setHeaders(toBoolean(v)); }},
        {"OutputDescriptives", booleanType,
         [](O& o, const Any& v) { o.setOutputDescriptives(toBoolean(v)); }},
        {"IgnoreTies", booleanType, [](O& o, const Any& v) { o.setIgnoreTies(toBoolean(v)); }},
        {"Tails", wholeNumberType, [](O& o, const Any& v) { o.setTails(toWholeNumber(v)); }},
        {"YRange", textType, [](O& o, const Any& v) { o.setYRange(toAddress(v)); }},
        {"XRange", textType, [](O& o, const Any& v) { o.setXRange(toAddress(v)); }},
        {"OutputRange", textType, [](O& o, const Any& v) { o.setOutputRange(toAddress(v)); }},
    }};
}

/// Those and the service's own behind them.
template <typename Object, std::size_t Count>
std::array<ScriptMember<Object>, 8 + Count> membersBehindSettings(
    const std::array<ScriptMember<Object>, Count>& own) {
    const std::array settings = settingMembers<Object>();
    return [&]<std::size_t... setting, std::size_t... member>(std::index_sequence<setting...>,
                                                              std::index_sequence<member...>) {
        return std::array<ScriptMember<Object>, 8 + Count>{settings[setting]..., own[member]...};
    }
    (std::make_index_sequence<8>(), std::make_index_sequence<Count>());
}

/// A service of the add-in: `Interface` for C++, and late binding for scripts by the members that
/// `Object::members()` lists.
template <typename Object, typename Interface>
class ScriptObject : public cppu::WeakImplHelper4<Interface, css::script::XInvocation2,
                                                  css::lang::XInitialization, css::lang::XServiceInfo> {
 protected:
    using Any = css::uno::Any;
    using Arguments = css::uno::Sequence<Any>;
    using Info = css::script::InvocationInfo;

 public:
    /// The document that addresses mean, where it is not the active one: a hidden one for example.
    void SAL_CALL initialize(const Arguments& arguments) override {
        DocumentRef document;
        if (arguments.getLength() != 1 || !(arguments[0] >>= document) || !document.is()) {
            throw css::lang::IllegalArgumentException(
                "The one argument is the spreadsheet document that addresses mean, for example ThisComponent",
                self(), 0);
        }
        m_Session->workOn(document);
    }

    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override {
        const Reference<css::script::XInvocation2> invocation = this;
        return css::beans::theIntrospection::get(m_Session->context())->inspect(Any(invocation));
    }

    Any SAL_CALL invoke(const OUString& name, const Arguments& arguments, css::uno::Sequence<sal_Int16>&,
                        Arguments&) override {
        const ScriptMember<Object>* const member = find(name);
        if (member == nullptr || member->call == nullptr ||
            arguments.getLength() > member->parameterCount()) {
            throw css::lang::IllegalArgumentException("There is no such method: " + name, self(), 0);
        }
        return tellingScripts(self(), [&] { return member->call(object(), arguments); });
    }

    void SAL_CALL setValue(const OUString& name, const Any& value) override {
        const ScriptMember<Object>* const member = find(name);
        if (member == nullptr || member->set == nullptr) {
            throw css::beans::UnknownPropertyException("There is no such property to set: " + name, self());
        }
        tellingScripts(self(), [&] { member->set(object(), value); });
    }

    Any SAL_CALL getValue(const OUString& name) override {
        const ScriptMember<Object>* const member = find(name);
        if (member == nullptr || member->call != nullptr) {
            throw css::beans::UnknownPropertyException("There is no such property: " + name, self());
        }
        return member->get == nullptr ? Any() : tellingScripts(self(), [&] { return member->get(object()); });
    }

    sal_Bool SAL_CALL hasMethod(const OUString& name) override {
        const ScriptMember<Object>* const member = find(name);
        return member != nullptr && member->call != nullptr;
    }

    sal_Bool SAL_CALL hasProperty(const OUString& name) override {
        const ScriptMember<Object>* const member = find(name);
        return member != nullptr && member->call == nullptr;
    }

    css::uno::Sequence<OUString> SAL_CALL getMemberNames() override {
        const std::span members = Object::members();
        css::uno::Sequence<OUString> names(static_cast<sal_Int32>(members.size()));
        std::ranges::transform(members, names.getArray(), [](const ScriptMember<Object>& member) {
            return OUString::createFromAscii(member.name);
        });
        return names;
    }

    css::uno::Sequence<Info> SAL_CALL getInfo() override {
        const std::span members = Object::members();
        css::uno::Sequence<Info> infos(static_cast<sal_Int32>(members.size()));
        std::ranges::transform(members, infos.getArray(), &ScriptMember<Object>::info);
        return infos;
    }

    Info SAL_CALL getInfoForName(const OUString& name, sal_Bool /*exact*/) override {
        const ScriptMember<Object>* const member = find(name);
        if (member == nullptr) {
            throw css::lang::IllegalArgumentException("There is no such member: " + name, self(), 0);
        }
        return member->info();
    }

    OUString SAL_CALL getImplementationName() override {
        return OUString::createFromAscii(Object::implementationName);
    }
    sal_Bool SAL_CALL supportsService(const OUString& service) override {
        return cppu::supportsService(this, service);
    }
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override {
        return sequenceOf(OUString::createFromAscii(Object::serviceName));
    }

    /// Scripts look at this list first: with the typed interface in it, they would find its setters and not
    /// the properties.
    css::uno::Sequence<css::uno::Type> SAL_CALL getTypes() override {
        return sequenceOf(cppu::UnoType<css::script::XInvocation2>::get());
    }

 protected:
    explicit ScriptObject(const Context& context) : m_Session(std::make_shared<Session>(context)) {}

    [[nodiscard]] const std::shared_ptr<Session>& session() const noexcept { return m_Session; }

    /// Does what a client asks for; what is raised becomes the exception that clients catch.
    auto guarded(const auto& work) { return raisingExceptions(self(), work); }

 private:
    [[nodiscard]] Reference<css::uno::XInterface> self() { return static_cast<cppu::OWeakObject*>(this); }
    [[nodiscard]] Object& object() { return static_cast<Object&>(*this); }

    [[nodiscard]] static const ScriptMember<Object>* find(const OUString& name) {
        const std::span members = Object::members();
        const auto found = std::ranges::find_if(members, [&](const ScriptMember<Object>& member) {
            return name.equalsIgnoreAsciiCaseAscii(member.name);
        });
        return found == members.end() ? nullptr : &*found;
    }

    std::shared_ptr<Session> m_Session;
};

}  // namespace TBVNonPara::calc
