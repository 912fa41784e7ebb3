#include "tbvnonpara/files/saving/saved_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "tbvnonpara/core/file_name.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuseToSave(const fs::path& path, std::string_view why) {
    refuse(inQuotes(shown(path)) + " was not saved: " + std::string(why));
}

[[noreturn]] void refuseToReplace(const fs::path& path) {
    throw FileExists(hostErrorNumber, inQuotes(shown(path)) + " was not saved: the file exists already.");
}

std::string reason(int error) {
    return std::generic_category().message(error) + '.';
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// The file behind symbolic links, which need not exist.
fs::path behindLinks(const fs::path& path) {
    constexpr int mostLinks = 40;
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(target, error); ++i) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) {
            refuseToSave(path, error.message() + '.');
        }
        target = next.is_absolute() ? next : folderOf(target) / next;
    }
    if (fs::is_symlink(target, error)) {
        refuseToSave(path, "its symbolic links lead in a circle.");
    }
    return target;
}

std::string randomEnding() {
    constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> pick(0, characters.size() - 1);
    std::string ending;
    for (int i = 0; i < 10; ++i) {
        ending += characters[pick(source)];
    }
    return ending;
}

void syncFolder(const fs::path& folder) noexcept {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

}  // namespace

void requireSavable(const fs::path& path, ExistingFile existing) {
    const fs::path target = behindLinks(path);
    std::error_code error;
    if (!fs::is_directory(folderOf(target), error)) {
        refuseToSave(path, "there is no folder " + inQuotes(shown(folderOf(target))) + '.');
    }
    const fs::file_status status = fs::status(target, error);
    if (!fs::exists(status)) {
        return;
    }
    if (!fs::is_regular_file(status)) {
        refuseToSave(path, "it is not an ordinary file.");
    }
    if (existing == ExistingFile::Keep) {
        refuseToReplace(path);
    }
    if (::access(target.c_str(), W_OK) != 0) {
        refuseToSave(path, "the file is write-protected.");
    }
}

SavedFile::SavedFile(const fs::path& path, ExistingFile existing) : m_Named(path), m_Existing(existing) {
    requireSavable(path, existing);
    m_Target = behindLinks(path);
    sigset_t stopping;
    sigemptyset(&stopping);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&stopping, signal);
    }
    ::pthread_sigmask(SIG_BLOCK, &stopping, &m_SignalsBefore);
    try {
        open();
        takePermissions();
    } catch (...) {
        discard();
        throw;
    }
}

SavedFile::~SavedFile() {
    discard();
}

void SavedFile::open() {
    constexpr int mostAttempts = 100;
    int descriptor = -1;
    for (int i = 0; i < mostAttempts && descriptor < 0; ++i) {
        m_Temporary = folderOf(m_Target) / (".tbvnonpara-" + randomEnding() + ".tmp");
        descriptor = ::open(m_Temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno != EEXIST) {
            break;
        }
    }
    if (descriptor < 0) {
        const int error = errno;
        m_Temporary.clear();
        fail(error);
    }
    m_File = ::fdopen(descriptor, "wb");
    if (m_File == nullptr) {
        const int error = errno;
        ::close(descriptor);
        fail(error);
    }
}

void SavedFile::takePermissions() {
    struct stat replaced {};
    if (::stat(m_Target.c_str(), &replaced) != 0) {
        return;
    }
    // The owner can be kept only by those who may give files away; the permissions must be.
    [[maybe_unused]] const int ignored = ::fchown(::fileno(m_File), replaced.st_uid, replaced.st_gid);
    if (::fchmod(::fileno(m_File), replaced.st_mode & 07777U) != 0) {
        fail(errno);
    }
}

void SavedFile::write(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_File) != bytes.size()) {
        fail(errno);
    }
}

void SavedFile::keep() {
    if (std::fflush(m_File) != 0 || ::fsync(::fileno(m_File)) != 0) {
        fail(errno);
    }
    const int closed = std::fclose(m_File);
    m_File = nullptr;
    if (closed != 0) {
        fail(errno);
    }
    putInPlace();
    syncFolder(folderOf(m_Target));
}

void SavedFile::putInPlace() {
    // A link to a name that is taken fails, also when the file appeared a moment ago; a rename would replace
    // it.
    if (m_Existing == ExistingFile::Keep && ::link(m_Temporary.c_str(), m_Target.c_str()) == 0) {
        return;
    }
    if (m_Existing == ExistingFile::Keep && errno == EEXIST) {
        refuseToReplace(m_Named);
    }
    // Replacing is allowed, or the file system has no links.
    requireSavable(m_Named, m_Existing);
    if (::rename(m_Temporary.c_str(), m_Target.c_str()) != 0) {
        fail(errno);
    }
    m_Temporary.clear();
}

void SavedFile::discard() noexcept {
    if (m_File != nullptr) {
        std::fclose(m_File);
        m_File = nullptr;
    }
    if (!m_Temporary.empty()) {
        ::unlink(m_Temporary.c_str());
    }
    ::pthread_sigmask(SIG_SETMASK, &m_SignalsBefore, nullptr);
}

void SavedFile::fail(int error) {
    refuseToSave(m_Named, reason(error));
}

}  // namespace TBVNonPara::workbook
