#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <utility>

namespace TBVNonPara {

/// An immutable text of a cell: one pointer wide, shared when it is copied.
class Text {
 public:
    Text() noexcept = default;
    Text(std::string text) : m_Shared(text.empty() ? nullptr : new Shared{std::move(text)}) {}
    Text(std::string_view text) : Text(std::string(text)) {}
    Text(const char* text) : Text(std::string(text)) {}

    Text(const Text& other) noexcept : m_Shared(other.m_Shared) {
        if (m_Shared != nullptr) {
            m_Shared->uses.fetch_add(1, std::memory_order_relaxed);
        }
    }
    Text(Text&& other) noexcept : m_Shared(std::exchange(other.m_Shared, nullptr)) {}
    Text& operator=(Text other) noexcept {
        std::swap(m_Shared, other.m_Shared);
        return *this;
    }
    ~Text() {
        if (m_Shared != nullptr && m_Shared->uses.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete m_Shared;
        }
    }

    [[nodiscard]] const std::string& string() const noexcept {
        static const std::string empty;
        return m_Shared == nullptr ? empty : m_Shared->text;
    }

    friend bool operator==(const Text& a, const Text& b) noexcept {
        return a.m_Shared == b.m_Shared || a.string() == b.string();
    }

 private:
    struct Shared {
        std::string text;
        std::atomic<unsigned> uses = 1;
    };

    Shared* m_Shared = nullptr;
};

}  // namespace TBVNonPara
