#pragma once

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::workbook {

/// What becomes of a file that is there already.
enum class ExistingFile {
    Keep,     ///< FileExists is raised
    Replace,  ///< the new one takes its place
};

/// The error of a file that exists and is to be kept: whoever lets people choose can add how.
class TBVNONPARA_API FileExists : public Error {
 public:
    /// As Error is made.
    using Error::Error;
};

/// Raises the host's error when a file cannot be saved there: its folder does not exist, it is no ordinary
/// file, it is write-protected, or (as FileExists) it exists and is to be kept.
TBVNONPARA_API void requireSavable(const std::filesystem::path& path, ExistingFile existing);

/// A file that appears whole or not at all. What is written goes to a temporary file in the same folder; only
/// keep() puts it in the place of the file named, and without it nothing is left behind. A symbolic link
/// stays a link and its target is replaced; a file that is replaced passes its permissions on. Until the end,
/// signals that ask the program to stop are held back.
///
///     SavedFile file("report.html", ExistingFile::Keep);
///     file.write(page);
///     file.keep();
///
/// Raises the host's error, which names the file and says why.
class TBVNONPARA_API SavedFile {
 public:
    /// Begins a file; raises as requireSavable() does.
    SavedFile(const std::filesystem::path& path, ExistingFile existing);
    /// Without keep() before, nothing is left behind.
    ~SavedFile();
    SavedFile(const SavedFile&) = delete;
    SavedFile& operator=(const SavedFile&) = delete;

    /// The temporary file, open for writing; null after keep().
    [[nodiscard]] std::FILE* file() const noexcept { return m_File; }
    /// Writes bytes at the end.
    void write(std::string_view bytes);
    /// Puts what was written into the place of the file named.
    void keep();

 private:
    void open();
    void takePermissions();
    void putInPlace();
    void discard() noexcept;
    [[noreturn]] void fail(int error);

    std::filesystem::path m_Named;
    std::filesystem::path m_Target;
    std::filesystem::path m_Temporary;
    ExistingFile m_Existing;
    std::FILE* m_File = nullptr;
    sigset_t m_SignalsBefore{};
};

}  // namespace TBVNonPara::workbook
