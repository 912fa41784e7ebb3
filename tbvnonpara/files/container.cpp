#include "tbvnonpara/files/container.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <zip.h>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/part_names.hpp"
#include "tbvnonpara/files/read_ahead.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::uint64_t alwaysAllowed = std::uint64_t(64) << 20U;
constexpr std::uint64_t largestRatio = 200;
constexpr std::uint64_t mostOfAll = std::uint64_t(8) << 30U;

}  // namespace

/// What all parts of a file together may still unpack to. (Not in the unnamed namespace: Container::Archive,
/// which has one, is known outside of this file.)
struct Budget {
    explicit Budget(std::uint64_t fileSize)
        : allowed(std::min(mostOfAll, alwaysAllowed + largestRatio * std::min(fileSize, mostOfAll))) {}

    void spend(std::uint64_t bytes, const std::string& part) {
        spent += bytes;
        if (spent > allowed) {
            refuse("it unpacks to more than " + std::to_string(allowed >> 20U) + " MiB at part " + part +
                   ", far more than a file of its size holds; it is damaged or made to do harm");
        }
    }

    std::uint64_t allowed;
    std::uint64_t spent = 0;
};

namespace {

struct FreeFile {
    void operator()(zip_file_t* file) const noexcept { zip_fclose(file); }
};

std::string reasonOf(zip_error_t* error) {
    switch (zip_error_code_zip(error)) {
        case ZIP_ER_CRC:
            return "its checksum is wrong";
        case ZIP_ER_NOPASSWD:
        case ZIP_ER_ENCRNOTSUPP:
        case ZIP_ER_WRONGPASSWD:
            return "it is encrypted; save the workbook without a password";
        default:
            return zip_error_strerror(error);
    }
}

class ZipStream final : public PartStream {
 public:
    ZipStream(zip_file_t* file, std::string part, std::shared_ptr<Budget> budget)
        : m_File(file), m_Part(std::move(part)), m_Budget(std::move(budget)) {}

    std::size_t read(char* buffer, std::size_t size) override {
        const zip_int64_t count = zip_fread(m_File.get(), buffer, size);
        if (count < 0) {
            refuse("part " + m_Part + " is damaged: " + reasonOf(zip_file_get_error(m_File.get())));
        }
        m_Budget->spend(static_cast<std::uint64_t>(count), m_Part);
        return static_cast<std::size_t>(count);
    }

 private:
    std::unique_ptr<zip_file_t, FreeFile> m_File;
    std::string m_Part;
    std::shared_ptr<Budget> m_Budget;
};

/// An error of the zip library with its text, which it owns.
class ZipError {
 public:
    ZipError() { zip_error_init(&m_Error); }
    ZipError(const ZipError&) = delete;
    ZipError& operator=(const ZipError&) = delete;
    ~ZipError() { zip_error_fini(&m_Error); }

    [[nodiscard]] zip_error_t* get() noexcept { return &m_Error; }

    [[noreturn]] void refuseContainer() {
        const int code = zip_error_code_zip(&m_Error);
        if (code == ZIP_ER_NOZIP || code == ZIP_ER_INCONS || code == ZIP_ER_EOF || code == ZIP_ER_SEEK) {
            refuse(
                "it is damaged or not complete: it begins like a workbook (zip), but the list of its parts "
                "at its end is missing or wrong");
        }
        refuse(reasonOf(&m_Error));
    }

 private:
    zip_error_t m_Error{};
};

}  // namespace

class Container::Archive {
 public:
    Archive(zip_source_t* source, std::uint64_t size, ZipError& error)
        : m_Budget(std::make_shared<Budget>(size)) {
        if (source == nullptr) {
            error.refuseContainer();
        }
        m_Zip = zip_open_from_source(source, ZIP_RDONLY, error.get());
        if (m_Zip == nullptr) {
            zip_source_free(source);
            error.refuseContainer();
        }
    }
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    ~Archive() { zip_discard(m_Zip); }

    [[nodiscard]] zip_t* get() const noexcept { return m_Zip; }
    [[nodiscard]] const std::shared_ptr<Budget>& budget() const noexcept { return m_Budget; }

    [[nodiscard]] std::optional<zip_uint64_t> find(const std::string& part) const {
        return findPart(m_Zip, part);
    }

 private:
    zip_t* m_Zip = nullptr;
    std::shared_ptr<Budget> m_Budget;
};

Container::Container(const std::filesystem::path& path, std::size_t threads) : m_Threads(threads) {
    ZipError error;
    zip_source_t* const source = zip_source_file_create(path.string().c_str(), 0, -1, error.get());
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    m_Archive = std::make_unique<Archive>(source, failure ? 0 : size, error);
}

Container::Container(std::string_view bytes, std::size_t threads) : m_Threads(threads) {
    ZipError error;
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, error.get());
    m_Archive = std::make_unique<Archive>(source, bytes.size(), error);
}

Container::~Container() = default;

bool Container::has(const std::string& part) const {
    return m_Archive->find(part).has_value();
}

std::unique_ptr<PartStream> Container::open(const std::string& part) const {
    const auto index = m_Archive->find(part);
    if (!index) {
        refuse("part " + part + " is missing");
    }
    zip_file_t* const file = zip_fopen_index(m_Archive->get(), *index, 0);
    if (file == nullptr) {
        refuse("part " + part + " cannot be unpacked: " + reasonOf(zip_get_error(m_Archive->get())));
    }
    auto stream = std::make_unique<ZipStream>(file, part, m_Archive->budget());
    return m_Threads > 1 ? readAhead(std::move(stream)) : std::move(stream);
}

bool Container::hasFolder(std::string_view folder) const {
    return hasPartFolder(m_Archive->get(), folder);
}

std::string beginningOf(const Parts& parts, const std::string& part, std::size_t size) {
    std::string text;
    if (!parts.has(part)) {
        return text;
    }
    const std::unique_ptr<PartStream> stream = parts.open(part);
    text.resize(size);
    std::size_t filled = 0;
    while (filled < size) {
        const std::size_t count = stream->read(text.data() + filled, size - filled);
        if (count == 0) {
            break;
        }
        filled += count;
    }
    text.resize(filled);
    return text;
}

}  // namespace TBVNonPara::workbook
