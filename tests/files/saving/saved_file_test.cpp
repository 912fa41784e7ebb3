#include "tbvnonpara/files/saving/saved_file.hpp"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/csv/file.hpp"

namespace TBVNonPara::workbook {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A folder that is gone at the end.
class SavedFiles : public testing::Test {
 protected:
    SavedFiles() {
        std::string pattern = (fs::temp_directory_path() / "saved_file_test-XXXXXX").string();
        EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    ~SavedFiles() override { fs::remove_all(folder); }

    void put(const std::string& name, std::string_view text) const { std::ofstream(folder / name) << text; }
    void save(const std::string& name, std::string_view text, ExistingFile existing) const {
        SavedFile file(folder / name, existing);
        file.write(text);
        file.keep();
    }
    [[nodiscard]] std::string refusal(const std::string& name, ExistingFile existing) const {
        try {
            save(name, "new", existing);
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 1004);
            return error.description();
        }
        return "";
    }
    [[nodiscard]] std::size_t files() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }

    fs::path folder;
};

TEST_F(SavedFiles, AppearWhenTheyAreKept) {
    save("a.txt", "report", ExistingFile::Keep);
    EXPECT_EQ(readFile(folder / "a.txt"), "report");
    EXPECT_EQ(files(), 1U);
}

TEST_F(SavedFiles, LeaveNothingBehindWhenTheyAreNotKept) {
    put("a.txt", "mine");
    {
        SavedFile file(folder / "a.txt", ExistingFile::Replace);
        file.write("half");
        EXPECT_EQ(files(), 2U);
        EXPECT_EQ(readFile(folder / "a.txt"), "mine");
    }
    EXPECT_EQ(files(), 1U);
    EXPECT_EQ(readFile(folder / "a.txt"), "mine");
}

TEST_F(SavedFiles, DoNotReplaceAFileUnlessAllowed) {
    put("a.txt", "mine");
    EXPECT_THAT(refusal("a.txt", ExistingFile::Keep), HasSubstr("exists already"));
    EXPECT_EQ(readFile(folder / "a.txt"), "mine");
    EXPECT_EQ(refusal("a.txt", ExistingFile::Replace), "");
    EXPECT_EQ(readFile(folder / "a.txt"), "new");
    EXPECT_EQ(files(), 1U);
}

TEST_F(SavedFiles, DoNotReplaceAFileThatAppearsWhileTheyAreWritten) {
    SavedFile file(folder / "a.txt", ExistingFile::Keep);
    file.write("report");
    put("a.txt", "theirs");
    EXPECT_THROW(file.keep(), Error);
    EXPECT_EQ(readFile(folder / "a.txt"), "theirs");
}

TEST_F(SavedFiles, PassThePermissionsOfTheReplacedFileOn) {
    put("a.txt", "mine");
    ::chmod((folder / "a.txt").c_str(), 0604);
    save("a.txt", "new", ExistingFile::Replace);
    struct stat facts {};
    ::stat((folder / "a.txt").c_str(), &facts);
    EXPECT_EQ(facts.st_mode & 0777U, 0604U);
}

TEST_F(SavedFiles, GoWhereASymbolicLinkLeads) {
    fs::create_directory(folder / "real");
    fs::create_symlink("real/a.txt", folder / "one.txt");
    fs::create_symlink("one.txt", folder / "two.txt");
    save("two.txt", "report", ExistingFile::Keep);
    EXPECT_EQ(readFile(folder / "real" / "a.txt"), "report");
    EXPECT_TRUE(fs::is_symlink(folder / "two.txt"));
    EXPECT_TRUE(fs::is_symlink(folder / "one.txt"));
}

TEST_F(SavedFiles, SayWhyTheyCannotBeWritten) {
    fs::create_directory(folder / "folder");
    fs::create_symlink("circle", folder / "circle");
    EXPECT_THAT(refusal("no/a.txt", ExistingFile::Keep), HasSubstr("there is no folder"));
    EXPECT_THAT(refusal("folder", ExistingFile::Replace), HasSubstr("not an ordinary file"));
    EXPECT_THAT(refusal("circle", ExistingFile::Replace), HasSubstr("circle"));
    EXPECT_EQ(files(), 2U);
}

TEST_F(SavedFiles, SayThatAFileExistsWithoutSayingHowItIsReplaced) {
    put("a.txt", "mine");
    const std::string path = (folder / "a.txt").string();
    try {
        requireSavable(path, ExistingFile::Keep);
        ADD_FAILURE() << "was not refused";
    } catch (const FileExists& error) {
        EXPECT_EQ(error.description(), "\"" + path + "\" was not saved: the file exists already.");
    }
}

TEST_F(SavedFiles, AreNamedInUtf8WhateverTheirBytesAre) {
    EXPECT_THAT(refusal("no\xFF/a.txt", ExistingFile::Keep), HasSubstr("there is no folder"));
    EXPECT_THAT(refusal("no\xFF/a.txt", ExistingFile::Keep), HasSubstr("/no_\"."));
}

TEST_F(SavedFiles, HoldSignalsBackUntilTheyAreDone) {
    static volatile std::sig_atomic_t signalled = 0;
    std::signal(SIGTERM, [](int) { signalled = 1; });
    {
        SavedFile file(folder / "a.txt", ExistingFile::Keep);
        std::raise(SIGTERM);
        EXPECT_EQ(signalled, 0);
        file.keep();
    }
    EXPECT_EQ(signalled, 1);
    std::signal(SIGTERM, SIG_DFL);
}

}  // namespace

}  // namespace TBVNonPara::workbook
