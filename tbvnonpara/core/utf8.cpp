#include "tbvnonpara/core/utf8.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace TBVNonPara {

namespace {

constexpr bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

constexpr std::size_t lengthAfter(unsigned char lead) noexcept {
    if (lead < 0x80U) {
        return 1;
    }
    if (lead < 0xC2U) {
        return 0;
    }
    return lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : lead < 0xF5U ? 4 : 0;
}

/// Some lead bytes narrow what may follow: no overlong form, no surrogate, nothing above U+10FFFF.
constexpr bool secondByteFits(unsigned char lead, unsigned char second) noexcept {
    switch (lead) {
        case 0xE0U:
            return second >= 0xA0U;
        case 0xEDU:
            return second <= 0x9FU;
        case 0xF0U:
            return second >= 0x90U;
        case 0xF4U:
            return second <= 0x8FU;
        default:
            return true;
    }
}

/// The length of the character at the start of the text, 0 when it is not valid.
std::size_t characterLength(std::string_view text) noexcept {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lengthAfter(lead);
    if (length == 0 || length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(text[i])) {
            return 0;
        }
    }
    return length == 1 || secondByteFits(lead, static_cast<unsigned char>(text[1])) ? length : 0;
}

std::size_t skipAscii(std::string_view text, std::size_t i) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t eight = 0;
    while (i + sizeof eight <= text.size()) {
        std::memcpy(&eight, text.data() + i, sizeof eight);
        if ((eight & highBits) != 0) {
            break;
        }
        i += sizeof eight;
    }
    while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80U) {
        i += 1;
    }
    return i;
}

/// The code point of a two-byte character in lower case.
unsigned lowerCase(unsigned codePoint) noexcept {
    const auto between = [=](unsigned first, unsigned last) {
        return codePoint >= first && codePoint <= last;
    };
    const bool latin1 = between(0xC0, 0xDE) && codePoint != 0xD7;
    const bool greek = between(0x391, 0x3A9) && codePoint != 0x3A2;
    if (latin1 || greek || between(0x410, 0x42F)) {
        return codePoint + 0x20;
    }
    if (between(0x400, 0x40F)) {
        return codePoint + 0x50;
    }
    if (codePoint == 0x178) {
        return 0xFF;
    }
    // Capitals of extended Latin stand before their small letters: on even places, but on odd ones from
    // U+0139 to U+0148 and from U+0179 on.
    const bool oddCapitals = between(0x139, 0x148) || between(0x179, 0x17E);
    const bool evenCapitals = between(0x100, 0x12F) || between(0x132, 0x137) || between(0x14A, 0x177);
    if ((oddCapitals && codePoint % 2 == 1) || (evenCapitals && codePoint % 2 == 0)) {
        return codePoint + 1;
    }
    return codePoint;
}

}  // namespace

std::optional<std::size_t> firstInvalidUtf8(std::string_view text) noexcept {
    for (std::size_t i = skipAscii(text, 0); i < text.size(); i = skipAscii(text, i)) {
        const std::size_t length = characterLength(text.substr(i));
        if (length == 0) {
            return i;
        }
        i += length;
    }
    return std::nullopt;
}

char32_t takeCharacter(std::string_view& text) noexcept {
    const std::size_t length = characterLength(text);
    if (length == 0) {
        text.remove_prefix(1);
        return U'\uFFFD';
    }
    const auto lead = static_cast<unsigned char>(text[0]);
    // A lead byte of two and more has as many high bits as bytes, then a zero.
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        character = character << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    const auto add = [&](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto addContinuation = [&](unsigned shift) { add(0x80U | (character >> shift & 0x3FU)); };
    if (character < 0x80U) {
        add(character);
    } else if (character < 0x800U) {
        add(0xC0U | character >> 6U);
    } else if (character < 0x10000U) {
        add(0xE0U | character >> 12U);
        addContinuation(6);
    } else {
        add(0xF0U | character >> 18U);
        addContinuation(12);
        addContinuation(6);
    }
    if (character >= 0x80U) {
        addContinuation(0);
    }
}

std::size_t countCharacters(std::string_view text) noexcept {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return !isContinuation(byte); }));
}

std::size_t countUtf16Units(std::string_view text) noexcept {
    const auto astral =
        std::ranges::count_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0xF0U; });
    return countCharacters(text) + static_cast<std::size_t>(astral);
}

std::string_view firstBytes(std::string_view text, std::size_t most) noexcept {
    if (text.size() <= most) {
        return text;
    }
    while (most > 0 && isContinuation(text[most])) {
        most -= 1;
    }
    return text.substr(0, most);
}

std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept {
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        if (isContinuation(text[i])) {
            continue;
        }
        if (count == 0) {
            break;
        }
        count -= 1;
    }
    return text.substr(0, i);
}

std::string foldCase(std::string_view text) {
    std::string folded(text);
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const auto byte = static_cast<unsigned char>(folded[i]);
        if (byte >= 'A' && byte <= 'Z') {
            folded[i] = static_cast<char>(byte + ('a' - 'A'));
        } else if (byte >= 0xC3U && byte <= 0xD0U && i + 1 < folded.size() && isContinuation(folded[i + 1])) {
            const unsigned second = static_cast<unsigned char>(folded[i + 1]) & 0x3FU;
            const unsigned small = lowerCase((byte & 0x1FU) << 6U | second);
            folded[i] = static_cast<char>(0xC0U | small >> 6U);
            folded[i + 1] = static_cast<char>(0x80U | (small & 0x3FU));
        }
    }
    return folded;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a == b || foldCase(a) == foldCase(b);
}

}  // namespace TBVNonPara
