#include "host/posix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstring>

#include <sys/stat.h>
#include <sys/time.h>

#include "scratch.h"

using namespace canvas;

TEST(FailedSystemCalls, AreTheRunTimeErrorsOfOneTable) {
    const struct {
        int code, number;
    } cases[] = {
        {ENOENT, 53},       {ENOTDIR, 76}, {EPERM, 70},  {EROFS, 70},  {EBUSY, 70},  {ETXTBSY, 70},
        {EISDIR, 75},       {ELOOP, 75},   {ENXIO, 75},  {EXDEV, 75},  {EEXIST, 58}, {ENOSPC, 61},
        {EDQUOT, 61},       {EFBIG, 61},   {EIO, 57},    {EMFILE, 7},  {ENFILE, 7},  {ENOMEM, 7},
        {ENAMETOOLONG, 52}, {EINVAL, 52},  {EILSEQ, 52}, {ENOSYS, 57}, {0, 57},
    };
    for (const auto& c : cases)
        EXPECT_EQ(raisedBy([&] { posix::fail(c.code, "a"); }), c.number) << std::strerror(c.code);
}

TEST(FailedSystemCalls, CarryTheDescriptionOfTheirNumber) {
    try {
        posix::fail(ENOSPC, "a");
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.description, "Disk full");
        EXPECT_EQ(error.source, "");
    }
}

TEST(FailedSystemCalls, ForAMissingNameTheCallerDecides) {
    EXPECT_EQ(raisedBy([] { posix::fail(ENOENT, "a", Error::pathNotFound); }), 76);
}

TEST(FailedSystemCalls, RefusedAccessHangsOnWhetherThePathCanBeWalked) {
    const scratch::Folder folder;
    EXPECT_EQ(raisedBy([&] { posix::fail(EACCES, folder / "a"); }), 70);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0600), 0);
    EXPECT_EQ(scratch::errorWithoutRights([&] { posix::fail(EACCES, folder / "a"); }), 75);
}

TEST(NativeNames, TakeBackslashesAsSeparators) {
    EXPECT_EQ(posix::nativeName("C:\\sub/a b\\c.bpa"), "C:/sub/a b/c.bpa");
    EXPECT_EQ(posix::nativeName("."), ".");
    EXPECT_EQ(raisedBy([] { posix::nativeName(""); }), 52);
    EXPECT_EQ(raisedBy([] { posix::nativeName(std::string_view("a\0b", 3)); }), 52);
}

TEST(NativeNames, FallIntoFolderAndEntry) {
    const struct {
        const char *path, *folder, *entry;
    } cases[] = {{"a", ".", "a"}, {"/a", "/", "a"}, {"b/a", "b", "a"}, {"/c/b/a", "/c/b", "a"}, {"b/", "b", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(posix::folderOf(c.path), c.folder);
        EXPECT_EQ(posix::entryOf(c.path), c.entry);
    }
}

TEST(Descriptors, TellAFailedClose) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    posix::Descriptor first(ends[0]);
    const posix::Descriptor second(ends[1]);
    posix::Descriptor moved = std::move(first);
    EXPECT_EQ(moved.get(), ends[0]);
    EXPECT_EQ(moved.close(), 0);
    EXPECT_EQ(moved.close(), 0) << "closing what is closed is no failure";
    posix::Descriptor never(1 << 20);
    EXPECT_EQ(never.close(), EBADF);
}

TEST(InterruptedCalls, AreRepeated) {
    int calls = 0;
    const int result = posix::uninterrupted([&] {
        errno = EINTR;
        return ++calls < 4 ? -1 : 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(calls, 4);
    errno = EIO;
    EXPECT_EQ(posix::uninterrupted([] { return -1; }), -1);
}

TEST(InterruptedCalls, LoseNoByteOfAWrite) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const std::string sent(1 << 20, 'x');
    const int code = scratch::inChild([&] {
        const pid_t reader = ::fork();
        if (reader == 0) {  // slowly, so that the writer waits in the middle of its bytes when the signals come
            std::string block(4096, '\0');
            std::size_t length = 0;
            while (length < sent.size()) {
                length += static_cast<std::size_t>(std::max<ssize_t>(0, ::read(ends[0], block.data(), block.size())));
                ::usleep(100);
            }
            ::_exit(0);
        }
        struct sigaction action {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, nullptr);
        const itimerval often{{0, 500}, {0, 500}}, never{};
        ::setitimer(ITIMER_REAL, &often, nullptr);
        const int written = posix::writeAll(ends[1], sent);
        ::setitimer(ITIMER_REAL, &never, nullptr);
        if (written != 0) ::kill(reader, SIGKILL);
        int status = 0;
        ::waitpid(reader, &status, 0);
        return written == 0 && WIFEXITED(status) ? WEXITSTATUS(status) : 2;
    });
    ::close(ends[0]);
    ::close(ends[1]);
    EXPECT_EQ(code, 0);
}
