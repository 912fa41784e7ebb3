#include "tbvnonpara/files/csv/encoding.hpp"

#include <array>
#include <cstdint>

#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// What windows-1252 has in the place of the control characters from 0x80 on; 0 where it has nothing.
constexpr std::array<std::uint16_t, 32> windowsCharacters = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void appendUtf8(std::string& text, std::uint32_t point) {
    const auto byte = [&](std::uint32_t bits) {
        text += static_cast<char>(static_cast<unsigned char>(bits));
    };
    const auto rest = [&](unsigned shift) { byte(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80U) {
        byte(point);
    } else if (point < 0x800U) {
        byte(0xC0U | (point >> 6U));
        rest(0);
    } else if (point < 0x10000U) {
        byte(0xE0U | (point >> 12U));
        rest(6);
        rest(0);
    } else {
        byte(0xF0U | (point >> 18U));
        rest(12);
        rest(6);
        rest(0);
    }
}

[[noreturn]] void refuseByte(std::string_view source, std::size_t position, const char* problem) {
    refuse(std::string(source) + ", byte " + std::to_string(position + 1) + " of the file: " + problem);
}

std::string fromBytes(std::string_view bytes, bool windows, std::string_view source) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::uint32_t point = static_cast<unsigned char>(bytes[i]);
        if (windows && point >= 0x80U && point < 0xA0U) {
            point = windowsCharacters[point - 0x80U];
            if (point == 0) {
                refuseByte(source, i, "windows-1252 has no such character; name the encoding of the file.");
            }
        }
        appendUtf8(text, point);
    }
    return text;
}

/// Units of two bytes, of which pairs of surrogates make one character.
std::string fromUtf16(std::string_view bytes, bool bigEndian, std::string_view source) {
    constexpr std::size_t markSize = 2;
    constexpr const char* damaged = "half a character of UTF-16; the file is damaged.";
    const auto unitAt = [&](std::size_t at) {
        const std::uint32_t first = static_cast<unsigned char>(bytes[at]);
        const std::uint32_t second = static_cast<unsigned char>(bytes[at + 1]);
        return bigEndian ? (first << 8U) | second : (second << 8U) | first;
    };
    if (bytes.size() % 2 != 0) {
        refuseByte(source, bytes.size() - 1, damaged);
    }
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = markSize; i < bytes.size(); i += 2) {
        std::uint32_t point = unitAt(i);
        if (point >= 0xD800U && point <= 0xDFFFU) {
            const std::uint32_t low = i + 3 < bytes.size() ? unitAt(i + 2) : 0;
            if (point >= 0xDC00U || low < 0xDC00U || low > 0xDFFFU) {
                refuseByte(source, i, damaged);
            }
            point = 0x10000U + ((point - 0xD800U) << 10U) + (low - 0xDC00U);
            i += 2;
        }
        appendUtf8(text, point);
    }
    return text;
}

}  // namespace

bool isMarkedUtf16(std::string_view beginning) noexcept {
    return beginning.starts_with("\xFF\xFE") || beginning.starts_with("\xFE\xFF");
}

DecodedText::DecodedText(std::string_view bytes, Encoding encoding, std::string_view source)
    : m_Bytes(bytes) {
    if (bytes.starts_with("\xFF\xFE\0\0"sv) || bytes.starts_with("\0\0\xFE\xFF"sv)) {
        refuse(std::string(source) + " is UTF-32 text; save it as UTF-8.");
    }
    m_IsOwn = isMarkedUtf16(bytes) || encoding != Encoding::Utf8;
    if (isMarkedUtf16(bytes)) {
        m_Own = fromUtf16(bytes, bytes.front() == '\xFE', source);
    } else if (bytes.starts_with(byteOrderMark)) {
        m_IsOwn = false;
        m_Bytes.remove_prefix(byteOrderMark.size());
    } else if (m_IsOwn) {
        m_Own = fromBytes(bytes, encoding == Encoding::Windows1252, source);
    }
}

}  // namespace TBVNonPara::workbook
