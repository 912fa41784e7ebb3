#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/com/variant.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara::com {

/// The kinds of object that the application's object model hands out.
enum class Kind {
    Application,
    Workbooks,
    Workbook,
    Worksheets,
    Worksheet,
    Range,
    Areas,
    Interior,
    Font,
    Characters,
    Borders,
    Border,
    WorksheetFunction,
    Last = WorksheetFunction
};

/// The dispatch ids of one kind of object, looked up once.
class DispatchIds {
 public:
    /// `name` must be a literal: it is remembered by its address.
    [[nodiscard]] DISPID find(IDispatch& object, const wchar_t* name);

 private:
    std::vector<std::pair<const wchar_t*, DISPID>> m_Known;
};

/// What is known of one application's object model.
using ObjectModel = std::array<DispatchIds, static_cast<std::size_t>(Kind::Last) + 1>;

/// An object of the application, used by the names of its members as a macro would. A failure is raised as
/// the application's error, an object that is not there as ObjectNotSet.
class HostObject {
 public:
    HostObject(ComPtr<IDispatch> object, Kind kind, std::shared_ptr<ObjectModel> model)
        : m_Object(std::move(object)), m_Kind(kind), m_Model(std::move(model)) {}

    /// The value of a property, or of a method that is a function.
    template <typename... Values>
    [[nodiscard]] Variant get(const wchar_t* name, Values&&... values) const {
        return invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, packed(std::forward<Values>(values)...));
    }

    template <typename... Values>
    void call(const wchar_t* name, Values&&... values) const {
        (void)invoke(name, DISPATCH_METHOD, packed(std::forward<Values>(values)...));
    }

    template <typename Value>
    void put(const wchar_t* name, Value&& value) const {
        (void)invoke(name, DISPATCH_PROPERTYPUT, packed(std::forward<Value>(value)));
    }

    /// An object that a property leads to.
    template <typename... Values>
    [[nodiscard]] HostObject object(Kind kind, const wchar_t* name, Values&&... values) const {
        return HostObject(toObject(get(name, std::forward<Values>(values)...)), kind, m_Model);
    }

    /// An item of a collection that is a property: a macro's `Areas(2)`, whether the application takes the
    /// subscript with the property or with the collection's Item.
    template <typename... Values>
    [[nodiscard]] HostObject item(Kind collection, const wchar_t* name, Kind kind, Values&&... values) const {
        const Variant found = itemOf(collection, name, packed(std::forward<Values>(values)...));
        return HostObject(toObject(found), kind, m_Model);
    }

    [[nodiscard]] double getNumber(const wchar_t* name) const;
    [[nodiscard]] std::string getText(const wchar_t* name) const;

    [[nodiscard]] const ComPtr<IDispatch>& dispatch() const noexcept { return m_Object; }

 private:
    using Arguments = std::span<const Variant>;

    static Variant argument(Long number) { return Variant(number.value()); }
    static Variant argument(std::int32_t number) { return Variant(number); }
    static Variant argument(double number) { return Variant(number); }
    static Variant argument(bool truth) { return Variant(truth); }
    static Variant argument(std::string_view text) { return Variant(text); }
    static Variant argument(const HostObject& object) { return Variant(object.m_Object); }
    static Variant argument(Variant&& value) { return std::move(value); }

    template <typename... Values>
    [[nodiscard]] static std::array<Variant, sizeof...(Values)> packed(Values&&... values) {
        return {argument(std::forward<Values>(values))...};
    }

    [[nodiscard]] Variant invoke(const wchar_t* name, WORD flags, Arguments arguments) const;
    HRESULT tryInvoke(const wchar_t* name, WORD flags, Arguments arguments, Variant& result) const;
    [[nodiscard]] Variant itemOf(Kind collection, const wchar_t* name, Arguments arguments) const;
    [[nodiscard]] static ComPtr<IDispatch> toObject(const Variant& value);

    ComPtr<IDispatch> m_Object;
    Kind m_Kind;
    std::shared_ptr<ObjectModel> m_Model;
};

}  // namespace TBVNonPara::com
