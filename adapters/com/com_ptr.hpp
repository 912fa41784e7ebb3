#pragma once

#include <utility>

#include "adapters/com/windows.hpp"

namespace TBVNonPara::com {

/// A counted reference to a COM object, or none.
template <typename Interface>
class ComPtr {
 public:
    ComPtr() noexcept = default;
    ComPtr(const ComPtr& other) noexcept : ComPtr(share(other.m_Object)) {}
    ComPtr(ComPtr&& other) noexcept : m_Object(std::exchange(other.m_Object, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(m_Object, other.m_Object);
        return *this;
    }
    ~ComPtr() {
        if (m_Object != nullptr) {
            m_Object->Release();
        }
    }

    /// Takes over a reference that the caller owns.
    [[nodiscard]] static ComPtr adopt(Interface* object) noexcept {
        ComPtr reference;
        reference.m_Object = object;
        return reference;
    }
    /// Adds a reference of its own.
    [[nodiscard]] static ComPtr share(Interface* object) noexcept {
        if (object != nullptr) {
            object->AddRef();
        }
        return adopt(object);
    }

    /// The same object seen through another interface; none when it has not got it.
    template <typename Other>
    [[nodiscard]] ComPtr<Other> as() const noexcept {
        ComPtr<Other> other;
        if (m_Object != nullptr) {
            m_Object->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(other.out()));
        }
        return other;
    }

    [[nodiscard]] Interface* get() const noexcept { return m_Object; }
    [[nodiscard]] Interface* operator->() const noexcept { return m_Object; }
    [[nodiscard]] explicit operator bool() const noexcept { return m_Object != nullptr; }

    /// Where a function that hands out a reference puts it.
    [[nodiscard]] Interface** out() noexcept {
        *this = ComPtr();
        return &m_Object;
    }
    /// Gives the reference away.
    [[nodiscard]] Interface* release() noexcept { return std::exchange(m_Object, nullptr); }

 private:
    Interface* m_Object = nullptr;
};

}  // namespace TBVNonPara::com
