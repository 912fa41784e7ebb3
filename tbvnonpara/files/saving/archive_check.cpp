#include "tbvnonpara/files/saving/archive_check.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

using namespace std::string_view_literals;

/// Stands in a field of 32 bits whose value is in an extra field of 64.
constexpr std::uint64_t elsewhere = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t elsewhere16 = std::numeric_limits<std::uint16_t>::max();

/// Numbers and names at positions of the archive; the error of one that lies outside ends the check.
class Fields {
 public:
    explicit Fields(std::string_view bytes) : m_Bytes(bytes) {}

    [[nodiscard]] std::string_view piece(std::uint64_t at, std::uint64_t size) const {
        if (at > m_Bytes.size() || size > m_Bytes.size() - at) {
            refuse("the list of its parts points beyond its end");
        }
        return m_Bytes.substr(at, size);
    }
    [[nodiscard]] std::uint64_t number(std::uint64_t at, std::uint64_t size) const {
        std::uint64_t value = 0;
        for (const char byte : piece(at, size)) {
            value = (value >> 8U) | (std::uint64_t(static_cast<unsigned char>(byte)) << 56U);
        }
        return value >> (64 - 8 * size);
    }
    [[nodiscard]] bool begins(std::uint64_t at, std::string_view with) const {
        return at <= m_Bytes.size() && m_Bytes.substr(at).starts_with(with);
    }
    [[nodiscard]] std::string_view all() const noexcept { return m_Bytes; }

 private:
    std::string_view m_Bytes;
};

/// The list of parts at the archive's end.
struct PartList {
    std::uint64_t begin = 0;
    std::uint64_t entries = 0;
};

/// A part as the list has it.
struct ListedPart {
    std::string_view name;
    std::uint64_t method = 0;
    std::uint64_t checksum = 0;
    std::uint64_t packed = 0;
    std::uint64_t unpacked = 0;
    std::uint64_t head = 0;
};

PartList findList(const Fields& fields) {
    const std::size_t end = fields.all().rfind("PK\x05\x06"sv);
    if (end == std::string_view::npos) {
        refuse("the list of its parts at its end is missing");
    }
    PartList list{fields.number(end + 16, 4), fields.number(end + 10, 2)};
    constexpr std::size_t locatorSize = 20;
    if ((list.begin == elsewhere || list.entries == elsewhere16) && end >= locatorSize &&
        fields.begins(end - locatorSize, "PK\x06\x07"sv)) {
        const std::uint64_t large = fields.number(end - locatorSize + 8, 8);
        list = {fields.number(large + 48, 8), fields.number(large + 32, 8)};
    }
    return list;
}

/// The 64-bit forms of the sizes and the place, in this order and only of those that need it.
void readLargeFields(const Fields& fields, std::uint64_t at, std::uint64_t size, ListedPart& part) {
    const std::uint64_t end = at + size;
    while (at + 4 <= end && fields.number(at, 2) != 1) {
        at += 4 + fields.number(at + 2, 2);
    }
    at += 4;
    for (std::uint64_t* const field : {&part.unpacked, &part.packed, &part.head}) {
        if (*field == elsewhere && at + 8 <= end) {
            *field = fields.number(at, 8);
            at += 8;
        }
    }
}

/// Reads an entry of the list and moves on behind it.
ListedPart takeListed(const Fields& fields, std::uint64_t& at) {
    if (!fields.begins(at, "PK\x01\x02"sv)) {
        refuse("the list of its parts is damaged");
    }
    const std::uint64_t name = fields.number(at + 28, 2);
    const std::uint64_t extra = fields.number(at + 30, 2);
    ListedPart part{fields.piece(at + 46, name), fields.number(at + 10, 2), fields.number(at + 16, 4),
                    fields.number(at + 20, 4),   fields.number(at + 24, 4), fields.number(at + 42, 4)};
    readLargeFields(fields, at + 46 + name, extra, part);
    at += 46 + name + extra + fields.number(at + 32, 2);
    return part;
}

/// Where a part ends, after a look at its head.
std::uint64_t endOfPart(const Fields& fields, const ListedPart& part) {
    const std::uint64_t head = part.head;
    const auto differs = [&](std::uint64_t at, std::uint64_t listed) {
        const std::uint64_t written = fields.number(head + at, 4);
        return written != 0 && written != elsewhere && written != listed;
    };
    if (!fields.begins(head, "PK\x03\x04"sv)) {
        refuse("part " + std::string(part.name) + " is not where the list of parts says");
    }
    const std::uint64_t name = fields.number(head + 26, 2);
    if (fields.piece(head + 30, name) != part.name || fields.number(head + 8, 2) != part.method ||
        differs(14, part.checksum) || differs(18, part.packed) || differs(22, part.unpacked)) {
        refuse("part " + std::string(part.name) + " is not as the list of parts says");
    }
    const std::uint64_t content = head + 30 + name + fields.number(head + 28, 2);
    (void)fields.piece(content, part.packed);
    return content + part.packed;
}

void check(const Fields& fields) {
    const PartList list = findList(fields);
    std::vector<std::pair<std::uint64_t, std::uint64_t>> places;
    std::uint64_t at = list.begin;
    for (std::uint64_t i = 0; i < list.entries; ++i) {
        const ListedPart part = takeListed(fields, at);
        places.emplace_back(part.head, endOfPart(fields, part));
    }
    std::ranges::sort(places);
    places.emplace_back(list.begin, at);
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (places[i - 1].second > places[i].first) {
            refuse("two of its parts lie one over the other");
        }
    }
}

}  // namespace

std::optional<std::string> problemOfArchive(std::string_view bytes) try {
    check(Fields(bytes));
    return std::nullopt;
} catch (const Error& error) {
    return error.description();
}

}  // namespace TBVNonPara::workbook
