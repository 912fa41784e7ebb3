#pragma once

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::workbook {

enum class ExistingFile { Keep, Replace };

/// The error of a file that exists and is to be kept: whoever lets people choose can add how.
class FileExists : public Error {
 public:
    using Error::Error;
};

/// Raises the host's error when a file cannot be saved there: its folder does not exist, it is no ordinary
/// file, it is write-protected, or (as FileExists) it exists and is to be kept.
void requireSavable(const std::filesystem::path& path, ExistingFile existing);

/// A file that appears whole or not at all. What is written goes to a temporary file in the same folder; only
/// keep() puts it in the place of the file named, and without it nothing is left behind. A symbolic link
/// stays a link and its target is replaced; a file that is replaced passes its permissions on. Until the end,
/// signals that ask the program to stop are held back.
///
/// Raises the host's error, which names the file and says why.
class SavedFile {
 public:
    SavedFile(const std::filesystem::path& path, ExistingFile existing);
    ~SavedFile();
    SavedFile(const SavedFile&) = delete;
    SavedFile& operator=(const SavedFile&) = delete;

    [[nodiscard]] std::FILE* file() const noexcept { return m_File; }
    void write(std::string_view bytes);
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
