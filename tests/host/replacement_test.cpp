#include <gtest/gtest.h>

#include <charconv>
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

#include "host/files.h"
#include "scratch.h"

using namespace canvas;
using scratch::bytesOf;
using scratch::errorWithoutRights;
using scratch::put;

namespace {

using Names = std::vector<std::string>;

struct DiskReplacement : testing::Test {
    scratch::Folder folder;
    std::unique_ptr<Files> files = makeDisk();
    const std::string path = folder / "a.bpa";

    int creationError(const std::string& target) {
        return raisedBy([&] { files->replace(target); });
    }
    static unsigned modeOf(const std::string& file) {
        struct stat status {};
        ::stat(file.c_str(), &status);
        return status.st_mode & 07777;
    }
};

}  // namespace

TEST_F(DiskReplacement, ANewFileAppearsWholeAtTheCommit) {
    const auto replacement = files->replace(path);
    EXPECT_FALSE(files->exists(path));
    replacement->commit("content");
    EXPECT_EQ(bytesOf(path), "content");
    EXPECT_EQ(folder.entries(), Names{"a.bpa"});
}

TEST_F(DiskReplacement, AnOldFileStandsUntilTheCommit) {
    put(path, "old, and longer than the new");
    const auto replacement = files->replace(path);
    EXPECT_EQ(bytesOf(path), "old, and longer than the new");
    replacement->commit("new");
    EXPECT_EQ(bytesOf(path), "new");
}

TEST_F(DiskReplacement, ContentOfAnySizeIsWrittenByteForByte) {
    std::string bytes("\0\r\n\xFF", 4);
    for (const std::size_t size : {0U, 4U, 4096U, 3000000U}) {
        while (bytes.size() < size) bytes += bytes;
        bytes.resize(size);
        files->replace(path)->commit(bytes);
        EXPECT_EQ(bytesOf(path), bytes);
        if (size == 0) bytes.assign("\0\r\n\xFF", 4);
    }
}

TEST_F(DiskReplacement, WhatIsNotCommittedLeavesNoTrace) {
    put(path, "old");
    files->replace(path);
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_EQ(folder.entries(), Names{"a.bpa"});
}

TEST_F(DiskReplacement, TheTemporaryFileIsHiddenBesideTheTarget) {
    const auto first = files->replace(path), second = files->replace(path);
    const Names names = folder.entries();
    ASSERT_EQ(names.size(), 2U);
    for (const std::string& name : names) {
        EXPECT_TRUE(name.starts_with(".") && name.ends_with(".tmp")) << name;
        EXPECT_NE(name.find(std::to_string(::getpid())), std::string::npos) << name;
    }
}

TEST_F(DiskReplacement, TwoAtOnceAreBothWholeAndTheLastCommitStands) {
    const auto first = files->replace(path), second = files->replace(path);
    second->commit("second");
    first->commit("first");
    EXPECT_EQ(bytesOf(path), "first");
    EXPECT_EQ(folder.entries(), Names{"a.bpa"});
}

TEST_F(DiskReplacement, ASecondCommitIsAMistakeOfTheProgram) {
    const auto replacement = files->replace(path);
    replacement->commit("once");
    EXPECT_THROW(replacement->commit("twice"), ContractViolation);
    EXPECT_EQ(bytesOf(path), "once");
}

TEST_F(DiskReplacement, TheModeOfTheOldFileIsKept) {
    put(path, "old");
    for (const unsigned mode : {0600U, 0664U, 0755U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        files->replace(path)->commit("new");
        EXPECT_EQ(modeOf(path), mode);
    }
}

TEST_F(DiskReplacement, ANewFileHasTheModeOfAnyNewFile) {
    const mode_t before = ::umask(027);
    files->replace(path)->commit("new");
    ::umask(before);
    EXPECT_EQ(modeOf(path), 0640U);
}

TEST_F(DiskReplacement, TheOwnerOfTheOldFileIsKeptWhereRightsAllow) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    put(path, "old");
    ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
    files->replace(path)->commit("new");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534U);
    EXPECT_EQ(status.st_gid, 65534U);
}

TEST_F(DiskReplacement, ALinkStaysALinkAndItsTargetIsReplaced) {
    std::filesystem::create_directory(folder / "sub");
    put(folder / "sub/real", "old");
    std::filesystem::create_symlink("sub/hop", path);
    std::filesystem::create_symlink("real", folder / "sub/hop");
    files->replace(path)->commit("new");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "sub/hop"));
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "sub/real"));
    EXPECT_EQ(bytesOf(folder / "sub/real"), "new");
}

TEST_F(DiskReplacement, ADanglingLinkGetsItsTarget) {
    std::filesystem::create_symlink(folder / "real", path);
    files->replace(path)->commit("new");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(bytesOf(folder / "real"), "new");
}

TEST_F(DiskReplacement, ARelativeNameIsBoundWhenItBegins) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const auto replacement = files->replace("a.bpa");
    std::filesystem::current_path(before);
    replacement->commit("content");
    EXPECT_EQ(bytesOf(path), "content");
}

TEST_F(DiskReplacement, ANameOfTheGreatestLengthIsReplaced) {
    const std::string longest = folder / std::string(255, 'x');
    files->replace(longest)->commit("content");
    EXPECT_EQ(bytesOf(longest), "content");
}

TEST_F(DiskReplacement, ATargetThatCannotBeWrittenIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("loop", folder / "loop");
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_symlink("sub", folder / "link");
    put(folder / "file", "x");
    const struct {
        std::string target;
        int error;
    } cases[] = {
        {folder / "none/a.bpa", 76}, {folder / "none/", 76}, {folder / "file/a.bpa", 76}, {folder / "sub", 75},
        {folder / "sub/", 75},       {folder / "link", 75},  {folder / "pipe", 75},       {folder / "loop", 75},
        {"/dev/null", 75},           {folder / "file/", 76}, {"/none-such/a.bpa", 76},
    };
    const Names before = folder.entries();
    for (const auto& c : cases) EXPECT_EQ(creationError(c.target), c.error) << c.target;
    EXPECT_EQ(folder.entries(), before);
}

TEST_F(DiskReplacement, AReadOnlyFileOrFolderIsPermissionDenied) {
    put(path, "old");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->replace(path); }), 70);
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->replace(path); }), 70);
    EXPECT_EQ(errorWithoutRights([&] { files->replace(folder / "new"); }), 70);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0666), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->replace(path); }), 75);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(bytesOf(path), "old");
}

TEST_F(DiskReplacement, AFolderThatCannotBeListedStillServes) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0333), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->replace(path)->commit("new"); }), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(bytesOf(path), "new");
}

TEST_F(DiskReplacement, AFullDiskLeavesTheOldFileAndNothingElse) {
    put(path, "old");
    const int error = scratch::inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{65536, 65536};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto replacement = files->replace(path);
        return raisedBy([&] { replacement->commit(std::string(100000, 'x')); });
    });
    EXPECT_EQ(error, 61);
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_EQ(folder.entries(), Names{"a.bpa"});
}

TEST_F(DiskReplacement, ATargetThatBecameAFolderMeanwhileIsLeftAlone) {
    const auto replacement = files->replace(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(raisedBy([&] { replacement->commit("content"); }), 75);
    EXPECT_TRUE(files->isFolder(path));
    EXPECT_EQ(folder.entries(), Names{"a.bpa"});
}

TEST_F(DiskReplacement, AFolderThatWentAwayMeanwhileIsToldAtTheCommit) {
    std::filesystem::create_directory(folder / "sub");
    const auto replacement = files->replace(folder / "sub/a.bpa");
    std::filesystem::remove_all(folder / "sub");
    EXPECT_EQ(raisedBy([&] { replacement->commit("content"); }), 76);
}

TEST_F(DiskReplacement, AStrayTemporaryOfAKilledProcessIsPassedOver) {
    const auto probe = files->replace(path);
    const std::string name = folder.entries().at(0);
    const auto dash = name.rfind('-'), dot = name.rfind('.');
    int count = 0;
    std::from_chars(name.data() + dash + 1, name.data() + dot, count);
    for (int i = 1; i <= 5; ++i) put(folder / (name.substr(0, dash + 1) + std::to_string(count + i) + ".tmp"), "stray");
    files->replace(path)->commit("content");
    EXPECT_EQ(bytesOf(path), "content");
    EXPECT_EQ(folder.entries().size(), 7U) << "the probe, five strays and the file";
}
