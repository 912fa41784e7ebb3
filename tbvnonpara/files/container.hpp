#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::workbook {

/// One part, read from its beginning to its end.
class TBVNONPARA_API PartStream {
 public:
    PartStream() = default;
    PartStream(const PartStream&) = delete;
    PartStream& operator=(const PartStream&) = delete;
    virtual ~PartStream() = default;

    /// The next bytes, at most as many as asked for; 0 at the end.
    virtual std::size_t read(char* buffer, std::size_t size) = 0;
};

/// Named parts, as a workbook file is made of.
class TBVNONPARA_API Parts {
 public:
    Parts() = default;
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;
    virtual ~Parts() = default;

    [[nodiscard]] virtual bool has(const std::string& part) const = 0;
    /// Raises the host's error for a part that is missing, encrypted or packed in an unknown way.
    [[nodiscard]] virtual std::unique_ptr<PartStream> open(const std::string& part) const = 0;
};

/// The beginning of a part, empty when there is no such part.
[[nodiscard]] TBVNONPARA_API std::string beginningOf(const Parts& parts, const std::string& part,
                                                     std::size_t size);

/// A container in the zip format. Names of parts are the same in upper and lower case and
/// with slashes and backslashes. What is read is
/// checked against its checksum, and all parts together may unpack to 64 MiB, beyond that to 200 times the
/// file's size, and to 8 GiB at most: more is refused as soon as it is reached.
class TBVNONPARA_API Container final : public Parts {
 public:
    /// With more than one thread a large part is unpacked by one of its own; one part is read at a time then.
    explicit Container(const std::filesystem::path& path, std::size_t threads = 1);
    /// The bytes must stay as long as the container is used.
    explicit Container(std::string_view bytes, std::size_t threads = 1);
    ~Container() override;

    [[nodiscard]] bool has(const std::string& part) const override;
    [[nodiscard]] std::unique_ptr<PartStream> open(const std::string& part) const override;
    /// Whether a part with this beginning is there.
    [[nodiscard]] bool hasFolder(std::string_view folder) const;

 private:
    class Archive;
    std::unique_ptr<Archive> m_Archive;
    std::size_t m_Threads;
};

}  // namespace TBVNonPara::workbook
