#include <gtest/gtest.h>

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

using Lines = std::vector<std::string>;

struct NumberedFiles : testing::Test {
    scratch::Folder folder;
    std::unique_ptr<Files> files = makeDisk();

    int openError(const std::string& path, OpenMode mode) {
        return raisedBy([&] { files->open(path, mode); });
    }
    Lines linesOf(const std::string& path) {
        const int number = files->open(path, OpenMode::input);
        Lines lines;
        while (!files->atEnd(number)) lines.push_back(files->readLine(number));
        files->close(number);
        return lines;
    }
};

}  // namespace

TEST_F(NumberedFiles, TheLowestFreeNumberIsGiven) {
    EXPECT_EQ(files->open(folder / "a", OpenMode::output), 1);
    EXPECT_EQ(files->open(folder / "b", OpenMode::output), 2);
    EXPECT_EQ(files->open(folder / "c", OpenMode::output), 3);
    files->close(2);
    files->close(1);
    EXPECT_EQ(files->open(folder / "d", OpenMode::output), 1);
    EXPECT_EQ(files->open(folder / "e", OpenMode::output), 2);
    EXPECT_EQ(files->open(folder / "f", OpenMode::output), 4);
}

TEST_F(NumberedFiles, AFailedOpeningTakesNoNumber) {
    EXPECT_EQ(openError(folder / "none", OpenMode::input), 53);
    EXPECT_EQ(files->open(folder / "a", OpenMode::output), 1);
}

TEST_F(NumberedFiles, WrittenLinesEndInCarriageReturnAndLineFeed) {
    const int number = files->open(folder / "a", OpenMode::output);
    files->writeLine(number, "one");
    files->writeLine(number, "");
    EXPECT_EQ(bytesOf(folder / "a"), "one\r\n\r\n") << "a line is in the file as soon as it is written";
    files->writeLine(number, "three");
    files->close(number);
    EXPECT_EQ(bytesOf(folder / "a"), "one\r\n\r\nthree\r\n");
}

TEST_F(NumberedFiles, OutputStartsAnewAndAppendGoesOn) {
    put(folder / "a", "a long line of before\r\n");
    const auto write = [&](OpenMode mode, const char* line) {
        const int number = files->open(folder / "a", mode);
        files->writeLine(number, line);
        files->close(number);
    };
    write(OpenMode::output, "one");
    write(OpenMode::append, "two");
    EXPECT_EQ(bytesOf(folder / "a"), "one\r\ntwo\r\n");
    std::filesystem::remove(folder / "a");
    write(OpenMode::append, "new");
    EXPECT_EQ(bytesOf(folder / "a"), "new\r\n");
}

TEST_F(NumberedFiles, LinesEndWithOrWithoutACarriageReturn) {
    const struct {
        std::string bytes;
        Lines lines;
    } cases[] = {
        {"", {}},
        {"\n", {""}},
        {"\r\n\n", {"", ""}},
        {"one\r\ntwo\n", {"one", "two"}},
        {"one\r\ntwo", {"one", "two"}},
        {"one\rtwo\r\r\n", {"one\rtwo\r"}},
        {"last\r", {"last\r"}},
        {std::string("a\0b\n\x1A\n", 6), {std::string("a\0b", 3), "\x1A"}},
    };
    for (const auto& c : cases) {
        put(folder / "a", c.bytes);
        EXPECT_EQ(linesOf(folder / "a"), c.lines);
    }
}

TEST_F(NumberedFiles, LinesOfAnyLengthAreReadWhole) {
    Lines lines;
    std::string bytes;
    // Lengths around powers of two, where a carriage return and its line feed fall into different reads.
    for (std::size_t power = 1 << 12; power <= 1 << 16; power *= 2)
        for (std::size_t length = power - 3; length < power + 3; ++length) {
            lines.emplace_back(length, static_cast<char>('a' + length % 26));
            bytes += lines.back() + "\r\n";
        }
    put(folder / "a", bytes);
    EXPECT_EQ(linesOf(folder / "a"), lines);
    for (const std::string& line : lines) {
        put(folder / "one", line + "\r\n");
        EXPECT_EQ(linesOf(folder / "one"), Lines{line});
    }
}

TEST_F(NumberedFiles, ReadingPastTheEndIsAnError) {
    put(folder / "a", "one\r\n");
    const int number = files->open(folder / "a", OpenMode::input);
    EXPECT_FALSE(files->atEnd(number));
    EXPECT_EQ(files->readLine(number), "one");
    EXPECT_TRUE(files->atEnd(number));
    EXPECT_EQ(raisedBy([&] { files->readLine(number); }), 62);
    EXPECT_EQ(raisedBy([&] { files->readLine(number); }), 62);
}

TEST_F(NumberedFiles, ANumberThatIsNotOpenIsABadNumber) {
    const int number = files->open(folder / "a", OpenMode::output);
    files->close(number);
    for (const int wrong : {number, 0, -1, 2, 512}) {
        EXPECT_EQ(raisedBy([&] { files->readLine(wrong); }), 52);
        EXPECT_EQ(raisedBy([&] { files->writeLine(wrong, ""); }), 52);
        EXPECT_EQ(raisedBy([&] { files->atEnd(wrong); }), 52);
        EXPECT_EQ(raisedBy([&] { files->close(wrong); }), 52);
    }
}

TEST_F(NumberedFiles, ANumberServesOneDirection) {
    const int out = files->open(folder / "a", OpenMode::output);
    EXPECT_EQ(raisedBy([&] { files->readLine(out); }), 52);
    EXPECT_TRUE(files->atEnd(out));
    files->close(out);
    const int in = files->open(folder / "a", OpenMode::input);
    EXPECT_EQ(raisedBy([&] { files->writeLine(in, ""); }), 52);
}

TEST_F(NumberedFiles, AFileHasManyReadersOrOneWriter) {
    put(folder / "a", "kept\r\n");
    std::filesystem::create_symlink("a", folder / "link");
    const int first = files->open(folder / "a", OpenMode::input);
    const int second = files->open(folder / "link", OpenMode::input);
    EXPECT_EQ(files->readLine(first), "kept");
    EXPECT_EQ(files->readLine(second), "kept");
    EXPECT_EQ(openError(folder / "a", OpenMode::output), 55);
    EXPECT_EQ(openError(folder / "link", OpenMode::append), 55);
    EXPECT_EQ(bytesOf(folder / "a"), "kept\r\n") << "a refused opening leaves the content alone";
    files->close(first);
    files->close(second);
    const int writer = files->open(folder / "a", OpenMode::append);
    EXPECT_EQ(openError(folder / "a", OpenMode::input), 55);
    files->close(writer);
    EXPECT_EQ(linesOf(folder / "a"), Lines{"kept"});
}

TEST_F(NumberedFiles, OpeningTellsWhatIsInTheWay) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    put(folder / "file", "x");
    const struct {
        std::string path;
        int input, output;
    } cases[] = {
        {folder / "none/a", 76, 76}, {folder / "file/a", 76, 76}, {folder.path(), 75, 75},
        {folder / "pipe", 75, 75},   {"/dev/null", 75, 75},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(openError(c.path, OpenMode::input), c.input) << c.path;
        EXPECT_EQ(openError(c.path, OpenMode::output), c.output) << c.path;
        EXPECT_EQ(openError(c.path, OpenMode::append), c.output) << c.path;
    }
    ASSERT_EQ(::chmod((folder / "file").c_str(), 0444), 0);
    EXPECT_EQ(errorWithoutRights([&] { files->open(folder / "file", OpenMode::output); }), 70);
}

TEST_F(NumberedFiles, AFullDiskIsToldAtTheLine) {
    const int error = scratch::inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const int number = files->open(folder / "a", OpenMode::output);
        files->writeLine(number, std::string(900, 'x'));
        return raisedBy([&] { files->writeLine(number, std::string(900, 'y')); });
    });
    EXPECT_EQ(error, 61);
}

TEST_F(NumberedFiles, AGuardClosesAtTheEndOfItsScope) {
    { const FileGuard guard(*files, files->open(folder / "a", OpenMode::output)); }
    EXPECT_EQ(files->open(folder / "a", OpenMode::output), 1);
}

TEST_F(NumberedFiles, AGuardThatHasClosedDoesSoOnce) {
    {
        FileGuard guard(*files, files->open(folder / "a", OpenMode::output));
        guard.close();
        EXPECT_EQ(files->open(folder / "b", OpenMode::output), 1);
    }
    EXPECT_NO_THROW(files->writeLine(1, "still open"));
}

TEST_F(NumberedFiles, AGuardTellsAFailureOnlyWhenAskedToClose) {
    const int number = files->open(folder / "a", OpenMode::output);
    FileGuard asked(*files, number);
    { const FileGuard silent(*files, number); }
    EXPECT_EQ(raisedBy([&] { asked.close(); }), 52);
}
