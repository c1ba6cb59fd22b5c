#include "host/files.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "scratch.h"

using namespace canvas;
using scratch::bytesOf;
using scratch::errorWithoutRights;
using scratch::put;

namespace {

constexpr std::uint64_t plenty = 1 << 20;

struct Disk : testing::Test {
    scratch::Folder folder;
    std::unique_ptr<Files> files = makeDisk();

    int readError(const std::string& path) {
        return raisedBy([&] { files->read(path, plenty); });
    }
    int openError(const std::string& path, OpenMode mode) {
        return raisedBy([&] { files->open(path, mode); });
    }
};

using DiskReading = Disk;
using DiskNames = Disk;

}  // namespace

TEST_F(DiskReading, AllBytesComeAsTheyLie) {
    const std::string bytes("a\r\n\0\xFF\n", 6);
    put(folder / "a.bpa", bytes);
    put(folder / "empty", "");
    EXPECT_EQ(files->read(folder / "a.bpa", plenty), bytes);
    EXPECT_EQ(files->read(folder / "empty", plenty), "");
}

TEST_F(DiskReading, ALargeFileIsReadWhole) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i) bytes += std::to_string(i) + "\n";
    put(folder / "large", bytes);
    EXPECT_EQ(files->read(folder / "large", plenty), bytes);
}

TEST_F(DiskReading, AFileOfTheLimitIsReadAndALargerOneIsOutOfMemory) {
    put(folder / "ten", "0123456789");
    EXPECT_EQ(files->read(folder / "ten", 10), "0123456789");
    EXPECT_EQ(raisedBy([&] { files->read(folder / "ten", 9); }), 7);
    EXPECT_EQ(raisedBy([&] { files->read(folder / "ten", 0); }), 7);
}

TEST_F(DiskReading, AnEnormousFileIsRefusedBeforeItIsRead) {
    put(folder / "sparse", "");
    std::filesystem::resize_file(folder / "sparse", std::uintmax_t{1} << 40);
    EXPECT_EQ(raisedBy([&] { files->read(folder / "sparse", plenty); }), 7);
}

TEST_F(DiskReading, AFileThatDoesNotTellItsSizeIsReadToItsEnd) {
    const std::string unsized = "/proc/self/status";
    if (!files->exists(unsized)) GTEST_SKIP() << "no such file here";
    EXPECT_NE(files->read(unsized, plenty).find("\nPid:"), std::string::npos);
    EXPECT_EQ(raisedBy([&] { files->read(unsized, 20); }), 7);
}

TEST_F(DiskReading, WhatIsNoFileIsRefusedWithoutWaiting) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(readError(folder / "pipe"), 75);
    EXPECT_EQ(readError(folder.path()), 75);
    EXPECT_EQ(readError("/dev/null"), 75);
}

TEST_F(DiskReading, AMissingFileIsNotFound) {
    put(folder / "file", "x");
    EXPECT_EQ(readError(folder / "none"), 53);
    EXPECT_EQ(readError(folder / "none/none"), 76);
    EXPECT_EQ(readError(folder / "file/none"), 76);
}

TEST_F(DiskReading, ARefusedFileIsPermissionAndARefusedPathIsPathAccess) {
    put(folder / "closed", "x");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0), 0);
    ASSERT_EQ(::mkdir((folder / "locked").c_str(), 0700), 0);
    put(folder / "locked/file", "x");
    ASSERT_EQ(::chmod((folder / "locked").c_str(), 0), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->read(folder / "closed", plenty); }), 70);
    EXPECT_EQ(errorWithoutRights([&] { files->read(folder / "locked/file", plenty); }), 75);
    ::chmod((folder / "locked").c_str(), 0700);
}

TEST_F(DiskNames, BackslashesSeparateFolders) {
    std::filesystem::create_directory(folder / "sub");
    put(folder / "sub/a.bpa", "text");
    EXPECT_EQ(files->read(folder.path() + "\\sub\\a.bpa", plenty), "text");
    EXPECT_TRUE(files->exists(folder.path() + "\\sub\\a.bpa"));
    EXPECT_TRUE(files->isFolder(folder.path() + "\\sub"));
    files->replace(folder.path() + "\\sub\\b.bpa")->commit("other");
    EXPECT_EQ(bytesOf(folder / "sub/b.bpa"), "other");
}

TEST_F(DiskNames, ANameThatCannotBeOneIsABadFileName) {
    const std::string withNul = folder / std::string("a\0b", 3), endless = folder / std::string(300, 'x');
    for (const std::string& name : {std::string(), withNul, endless}) {
        EXPECT_EQ(readError(name), 52);
        EXPECT_EQ(openError(name, OpenMode::output), 52);
        EXPECT_EQ(raisedBy([&] { files->replace(name); }), 52);
        EXPECT_EQ(raisedBy([&] { files->remove(name); }), 52);
        EXPECT_EQ(raisedBy([&] { files->makeFolder(name); }), 52);
        EXPECT_FALSE(files->exists(name));
        EXPECT_FALSE(files->isFolder(name));
    }
    EXPECT_TRUE(folder.entries().empty());
}

TEST_F(DiskNames, FilesAndFoldersExistAndOnlyFoldersAreFolders) {
    put(folder / "file", "");
    EXPECT_TRUE(files->exists(folder / "file"));
    EXPECT_TRUE(files->exists(folder.path()));
    EXPECT_FALSE(files->exists(folder / "none"));
    EXPECT_FALSE(files->exists(folder / "file/none"));
    EXPECT_TRUE(files->isFolder(folder.path()));
    EXPECT_FALSE(files->isFolder(folder / "file"));
    EXPECT_FALSE(files->isFolder(folder / "none"));
}

TEST_F(DiskNames, RemovingTakesAFileAndNothingElse) {
    put(folder / "file", "");
    files->remove(folder / "file");
    EXPECT_TRUE(folder.entries().empty());
    EXPECT_EQ(raisedBy([&] { files->remove(folder / "file"); }), 53);
    files->makeFolder(folder / "sub");
    EXPECT_EQ(raisedBy([&] { files->remove(folder / "sub"); }), 75);
    EXPECT_TRUE(files->isFolder(folder / "sub"));
}

TEST_F(DiskNames, RenamingNeverReplaces) {
    put(folder / "a", "first");
    put(folder / "b", "second");
    EXPECT_EQ(raisedBy([&] { files->rename(folder / "a", folder / "b"); }), 58);
    EXPECT_EQ(bytesOf(folder / "b"), "second");
    files->rename(folder / "a", folder / "c");
    EXPECT_EQ(bytesOf(folder / "c"), "first");
    EXPECT_EQ(raisedBy([&] { files->rename(folder / "a", folder / "d"); }), 53);
    EXPECT_EQ(raisedBy([&] { files->rename(folder / "c", folder / "none/c"); }), 76);
}

TEST_F(DiskNames, AFolderIsMadeOnce) {
    files->makeFolder(folder / "sub");
    EXPECT_TRUE(files->isFolder(folder / "sub"));
    EXPECT_EQ(raisedBy([&] { files->makeFolder(folder / "sub"); }), 58);
    EXPECT_EQ(raisedBy([&] { files->makeFolder(folder / "none/sub"); }), 76);
}

TEST_F(DiskNames, TheCurrentFolderIsTheProcessesOwn) {
    EXPECT_EQ(files->currentFolder(), std::filesystem::current_path().string());
}
