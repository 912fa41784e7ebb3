#include "python/engine/buffers.hpp"

#include <string_view>

namespace TBVNonPara::python {

namespace {

/// Python's letter for doubles, in this machine's order of bytes.
bool holdsDoubles(const Py_buffer& view) {
    const std::string_view format = view.format == nullptr ? "B" : view.format;
    return format == "d" || format == "@d" || format == "=d";
}

std::span<const double> spanOf(const Py_buffer& view, std::size_t first, std::size_t count) {
    return std::span(static_cast<const double*>(view.buf), first + count).subspan(first);
}

std::size_t valuesOf(const Py_buffer& view) {
    return static_cast<std::size_t>(view.len) / sizeof(double);
}

}  // namespace

std::optional<Buffers> Buffers::of(const pybind11::tuple& arrays, int dimensions) {
    Buffers buffers;
    buffers.m_Views.reserve(arrays.size());
    const int wanted = (dimensions == 1 ? PyBUF_C_CONTIGUOUS : PyBUF_F_CONTIGUOUS) | PyBUF_FORMAT;
    for (const pybind11::handle array : arrays) {
        Py_buffer view;
        if (PyObject_CheckBuffer(array.ptr()) == 0 || PyObject_GetBuffer(array.ptr(), &view, wanted) != 0) {
            PyErr_Clear();
            return std::nullopt;
        }
        buffers.m_Views.push_back(view);
        if (view.ndim != dimensions || !holdsDoubles(view)) {
            return std::nullopt;
        }
    }
    return buffers;
}

Buffers::~Buffers() {
    for (Py_buffer& view : m_Views) {
        PyBuffer_Release(&view);
    }
}

std::vector<std::span<const double>> Buffers::whole() const {
    std::vector<std::span<const double>> spans;
    spans.reserve(m_Views.size());
    for (const Py_buffer& view : m_Views) {
        spans.push_back(spanOf(view, 0, valuesOf(view)));
    }
    return spans;
}

std::vector<std::span<const double>> Buffers::column(std::size_t number) const {
    std::vector<std::span<const double>> spans;
    spans.reserve(m_Views.size());
    for (const Py_buffer& view : m_Views) {
        const auto rows = static_cast<std::size_t>(view.shape[0]);
        spans.push_back(spanOf(view, number * rows, rows));
    }
    return spans;
}

std::size_t Buffers::columns() const {
    return m_Views.empty() ? 0 : static_cast<std::size_t>(m_Views.front().shape[1]);
}

std::size_t Buffers::values() const {
    std::size_t count = 0;
    for (const Py_buffer& view : m_Views) {
        count += valuesOf(view);
    }
    return count;
}

}  // namespace TBVNonPara::python
