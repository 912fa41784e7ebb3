#pragma once

#include <concepts>
#include <memory>
#include <utility>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

/// A counted reference to an object, or none. Using an empty one raises ObjectNotSet, so nobody checks.
template <typename Object>
class ObjectRef {
 public:
    /// None.
    ObjectRef() noexcept = default;
    /// None.
    ObjectRef(std::nullptr_t) noexcept {}

    /// A part in the object, which lives as long as any of them.
    template <std::derived_from<Object> Other>
    ObjectRef(std::shared_ptr<Other> object) noexcept : m_Object(std::move(object)) {}

    /// The same object as what it derives from.
    template <std::derived_from<Object> Other>
    ObjectRef(const ObjectRef<Other>& other) noexcept : m_Object(other.shared()) {}

    /// Whether there is an object.
    [[nodiscard]] bool isSet() const noexcept { return m_Object != nullptr; }
    /// Makes it none.
    void release() noexcept { m_Object.reset(); }

    /// The object; raises ObjectNotSet for none.
    [[nodiscard]] Object* operator->() const { return &**this; }
    /// The same.
    [[nodiscard]] Object& operator*() const {
        if (m_Object == nullptr) {
            raise(RuntimeError::ObjectNotSet);
        }
        return *m_Object;
    }

    /// The pointer below, null for none.
    [[nodiscard]] const std::shared_ptr<Object>& shared() const noexcept { return m_Object; }

    /// Whether both are the same object, or none.
    friend bool operator==(const ObjectRef&, const ObjectRef&) noexcept = default;

 private:
    std::shared_ptr<Object> m_Object;
};

/// A new object, made of the arguments.
template <typename Object, typename... Arguments>
[[nodiscard]] ObjectRef<Object> makeObject(Arguments&&... arguments) {
    return std::make_shared<Object>(std::forward<Arguments>(arguments)...);
}

}  // namespace TBVNonPara
