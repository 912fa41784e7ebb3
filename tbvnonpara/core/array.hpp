#pragma once

#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A one-dimensional array counted from 1. It is unallocated until it is given a size; round brackets check
/// the subscript and raise SubscriptOutOfRange, on an unallocated array always.
template <typename Element>
class Array {
 public:
    /// Unallocated.
    Array() = default;
    /// So many elements without a value; raises SubscriptOutOfRange below 0.
    explicit Array(Long size) : m_Allocated(true), m_Elements(checkedSize(size)) {}
    /// So many equal elements; raises SubscriptOutOfRange below 0.
    Array(Long size, const Element& element) : m_Allocated(true), m_Elements(checkedSize(size), element) {}
    /// These elements.
    Array(std::initializer_list<Element> elements) : m_Allocated(true), m_Elements(elements) {}
    /// The elements of a vector.
    explicit Array(std::vector<Element> elements) : m_Allocated(true), m_Elements(std::move(elements)) {}

    /// Whether it has a size, which may be 0.
    [[nodiscard]] bool allocated() const noexcept { return m_Allocated; }

    /// The last subscript; raises SubscriptOutOfRange on an unallocated array.
    [[nodiscard]] Long size() const {
        if (!m_Allocated) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return Long(m_Elements.size());
    }

    /// The element at a subscript from 1 on; raises SubscriptOutOfRange.
    [[nodiscard]] Element& operator()(auto subscript) { return m_Elements[position(toIndex(subscript))]; }
    /// The same.
    [[nodiscard]] const Element& operator()(auto subscript) const {
        return m_Elements[position(toIndex(subscript))];
    }

    /// Adds an element at the end; an unallocated array is allocated then.
    void append(Element element) {
        m_Allocated = true;
        m_Elements.push_back(std::move(element));
    }

    /// The elements in order, for algorithms; empty when unallocated.
    [[nodiscard]] std::span<Element> elements() noexcept { return m_Elements; }
    /// The same.
    [[nodiscard]] std::span<const Element> elements() const noexcept { return m_Elements; }

    /// Whether the elements are equal, and both are allocated or neither.
    friend bool operator==(const Array&, const Array&) = default;

 private:
    static std::size_t checkedSize(Long size) {
        if (size < Long(0)) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(size.value());
    }

    [[nodiscard]] std::size_t position(Index subscript) const {
        const auto position = static_cast<std::size_t>(subscript - 1);
        if (position >= m_Elements.size()) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return position;
    }

    bool m_Allocated = false;
    std::vector<Element> m_Elements;
};

}  // namespace TBVNonPara
