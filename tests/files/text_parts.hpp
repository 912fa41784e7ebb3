#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

/// Parts that are written down in a test, as if they came out of a container.
class TextParts final : public Parts {
 public:
    explicit TextParts(std::map<std::string, std::string> texts) : m_Texts(std::move(texts)) {}

    [[nodiscard]] bool has(const std::string& part) const override { return m_Texts.contains(part); }
    [[nodiscard]] std::unique_ptr<PartStream> open(const std::string& part) const override {
        const auto found = m_Texts.find(part);
        if (found == m_Texts.end()) {
            refuse("part " + part + " is missing");
        }
        return std::make_unique<Stream>(found->second);
    }

 private:
    class Stream final : public PartStream {
     public:
        explicit Stream(const std::string& text) : m_Rest(text) {}
        std::size_t read(char* buffer, std::size_t size) override {
            const std::size_t count = std::min(size, m_Rest.size());
            std::memcpy(buffer, m_Rest.data(), count);
            m_Rest.remove_prefix(count);
            return count;
        }

     private:
        std::string_view m_Rest;
    };

    std::map<std::string, std::string> m_Texts;
};

}  // namespace TBVNonPara::workbook
