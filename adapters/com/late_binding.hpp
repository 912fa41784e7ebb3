#pragma once

#include <array>
#include <bit>
#include <span>
#include <type_traits>

#include "adapters/com/variant.hpp"

namespace TBVNonPara::com {

/// A call as a late-bound client sends it.
struct LateCall {
    DISPID member;
    LCID locale;
    WORD flags;
    const DISPPARAMS& parameters;
    VARIANT* result;
    EXCEPINFO* information;
    UINT* wrongArgument;
};

/// What a parameter is converted to, and whether it may be left out.
enum class Given { Always, Optionally };

/// What a text is: in the place of an address, a range is refused in words.
enum class Content { Any, Address };

struct Parameter {
    const wchar_t* name = nullptr;
    VARTYPE type = VT_EMPTY;
    Given given = Given::Always;
    Content content = Content::Any;
};

constexpr std::size_t mostParameters = 2;

/// The arguments of a call in the order of the parameters, each of its parameter's type; one that was left
/// out is VT_EMPTY.
using Arguments = std::array<Variant, mostParameters>;

/// A member of a class. `kind` is how it is used: DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYGET or
/// DISPATCH_METHOD; `result` is never null.
struct Member {
    const wchar_t* name;
    WORD kind;
    std::array<Parameter, mostParameters> parameters;
    HRESULT (*call)(IDispatch& object, const Arguments& arguments, VARIANT* result);

    [[nodiscard]] constexpr std::size_t parameterCount() const noexcept {
        std::size_t count = 0;
        while (count < mostParameters && parameters[count].name != nullptr) {
            count += 1;
        }
        return count;
    }
};

/// The members of a class in the order of its type library: a member's dispatch id is its place, counted
/// from 1.
using Members = std::span<const Member>;

/// How a value of the type library travels: as what type, and in which part of a VARIANT.
template <typename Value>
struct Travelling;

template <typename Value>
requires std::is_enum_v<Value>
struct Travelling<Value> {
    static constexpr VARTYPE type = VT_I4;
    static Value in(const VARIANT& value) noexcept { return std::bit_cast<Value>(value.lVal); }
};
template <>
struct Travelling<VARIANT_BOOL> {
    static constexpr VARTYPE type = VT_BOOL;
    static VARIANT_BOOL in(const VARIANT& value) noexcept { return value.boolVal; }
};
template <>
struct Travelling<double> {
    static constexpr VARTYPE type = VT_R8;
    static double in(const VARIANT& value) noexcept { return value.dblVal; }
};
template <>
struct Travelling<BSTR> {
    static constexpr VARTYPE type = VT_BSTR;
    static BSTR in(const VARIANT& value) noexcept { return value.bstrVal; }
};

template <typename Setter>
struct SetterParts;
template <typename Interface_, typename Value_>
struct SetterParts<HRESULT (STDMETHODCALLTYPE Interface_::*)(Value_)> {
    using Interface = Interface_;
    using Value = Value_;
};

/// A property that can be set: `property<&_clsNonPara::put_Headers>(L"Headers", L"headers")`.
template <auto put>
constexpr Member property(const wchar_t* name, const wchar_t* parameter, Content content = Content::Any) {
    using Parts = SetterParts<decltype(put)>;
    using Carried = Travelling<typename Parts::Value>;
    return {name,
            DISPATCH_PROPERTYPUT,
            {{{parameter, Carried::type, Given::Always, content}}},
            [](IDispatch& object, const Arguments& arguments, VARIANT*) -> HRESULT {
                auto& self = static_cast<typename Parts::Interface&>(object);
                return (self.*put)(Carried::in(arguments[0].get()));
            }};
}

/// The ids of a member and of its parameters, in any spelling of capitals.
[[nodiscard]] HRESULT findMembers(Members members, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// Makes the call: converts its arguments, and turns a failure of the object into an exception's information.
[[nodiscard]] HRESULT invokeMember(Members members, IDispatch& object, const LateCall& call) noexcept;

}  // namespace TBVNonPara::com
