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
    ObjectRef() noexcept = default;
    ObjectRef(std::nullptr_t) noexcept {}

    template <std::derived_from<Object> Other>
    ObjectRef(std::shared_ptr<Other> object) noexcept : m_Object(std::move(object)) {}

    template <std::derived_from<Object> Other>
    ObjectRef(const ObjectRef<Other>& other) noexcept : m_Object(other.shared()) {}

    [[nodiscard]] bool isSet() const noexcept { return m_Object != nullptr; }
    void release() noexcept { m_Object.reset(); }

    [[nodiscard]] Object* operator->() const { return &**this; }
    [[nodiscard]] Object& operator*() const {
        if (m_Object == nullptr) {
            raise(RuntimeError::ObjectNotSet);
        }
        return *m_Object;
    }

    [[nodiscard]] const std::shared_ptr<Object>& shared() const noexcept { return m_Object; }

    friend bool operator==(const ObjectRef&, const ObjectRef&) noexcept = default;

 private:
    std::shared_ptr<Object> m_Object;
};

template <typename Object, typename... Arguments>
[[nodiscard]] ObjectRef<Object> makeObject(Arguments&&... arguments) {
    return std::make_shared<Object>(std::forward<Arguments>(arguments)...);
}

}  // namespace TBVNonPara
