#pragma once

#include <cstddef>
#include <optional>
#include <pybind11/pybind11.h>
#include <span>
#include <vector>

namespace TBVNonPara::python {

/// Arrays of doubles that Python holds, looked at where they lie. Made and destroyed with the interpreter's
/// lock.
class Buffers {
 public:
    /// Contiguous doubles in one dimension, or columns one behind the other in two; nothing where one of the
    /// objects is anything else.
    [[nodiscard]] static std::optional<Buffers> of(const pybind11::tuple& arrays, int dimensions);

    Buffers(Buffers&& other) noexcept : m_Views(std::move(other.m_Views)) { other.m_Views.clear(); }
    Buffers(const Buffers&) = delete;
    Buffers& operator=(const Buffers&) = delete;
    Buffers& operator=(Buffers&&) = delete;
    ~Buffers();

    [[nodiscard]] std::vector<std::span<const double>> whole() const;
    /// The same column of each array, counted from 0.
    [[nodiscard]] std::vector<std::span<const double>> column(std::size_t number) const;
    /// Of the first array.
    [[nodiscard]] std::size_t columns() const;
    [[nodiscard]] std::size_t values() const;

 private:
    Buffers() = default;

    std::vector<Py_buffer> m_Views;
};

}  // namespace TBVNonPara::python
