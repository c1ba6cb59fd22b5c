// canvas report: the error dialogue on a terminal, and the archive it makes.

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>

#include <filesystem>
#include <fstream>

#include "tests/cli/program.h"
#include "tracing/archive.h"

namespace canvas {
namespace {

namespace fs = std::filesystem;

/// A copy of the program on a pseudo terminal, so that its reports lie beside the copy.
class OnTerminal {
public:
    explicit OnTerminal(const std::string& folder) {
        fs::copy_file(CANVAS_CLI, folder + "/canvas", fs::copy_options::overwrite_existing);
        m_child = ::forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child == 0) {
            ::execl((folder + "/canvas").c_str(), "canvas", "report", "demo", nullptr);
            ::_exit(127);
        }
    }
    ~OnTerminal() { ::close(m_terminal); }

    /// Reads until `text` has come; false when the program ends first.
    bool waitFor(std::string_view text) {
        for (;;) {
            const std::size_t found = m_seen.find(text, m_from);
            if (found != std::string::npos) return m_from = found + text.size(), true;
            if (!readMore()) return false;
        }
    }
    void type(const std::string& line) {
        const std::string bytes = line + "\n";
        ASSERT_EQ(::write(m_terminal, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    int exitCode() {
        while (readMore()) {
        }
        int status = 0;
        while (::waitpid(m_child, &status, 0) == -1 && errno == EINTR) {
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    const std::string& seen() const { return m_seen; }

private:
    bool readMore() {
        pollfd ready{m_terminal, POLLIN, 0};
        if (::poll(&ready, 1, 60'000) <= 0) return false;
        char piece[4096];
        const ssize_t got = ::read(m_terminal, piece, sizeof piece);  // an error once the program has ended
        if (got <= 0) return false;
        m_seen.append(piece, static_cast<std::size_t>(got));
        return true;
    }
    int m_terminal = -1;
    pid_t m_child = -1;
    std::string m_seen;
    std::size_t m_from = 0;
};

constexpr std::string_view firstQuestion = "[A]bort, [R]etry, [I]gnore, Report [E]rror? ";
constexpr std::string_view secondQuestion = "[A]bort, [R]etry, [I]gnore? ";

TEST(ReportDemo, RetryRepeatsTheStatement) {
    const scratch::Folder folder;
    OnTerminal terminal(folder / "");
    ASSERT_TRUE(terminal.waitFor("Description: Division by zero")) << terminal.seen();
    ASSERT_TRUE(terminal.waitFor(firstQuestion));
    terminal.type("what?");  // asks again
    ASSERT_TRUE(terminal.waitFor(firstQuestion));
    terminal.type("r");
    ASSERT_TRUE(terminal.waitFor("The failing statement was repeated")) << terminal.seen();
    EXPECT_EQ(terminal.exitCode(), 0);
}

TEST(ReportDemo, IgnoreSkipsIt) {
    const scratch::Folder folder;
    OnTerminal terminal(folder / "");
    ASSERT_TRUE(terminal.waitFor(firstQuestion)) << terminal.seen();
    terminal.type("i");
    ASSERT_TRUE(terminal.waitFor("The failing statement was skipped"));
    EXPECT_EQ(terminal.exitCode(), 0);
}

TEST(ReportDemo, AbortEndsTheProcess) {
    const scratch::Folder folder;
    OnTerminal terminal(folder / "");
    ASSERT_TRUE(terminal.waitFor(firstQuestion)) << terminal.seen();
    terminal.type("a");
    EXPECT_EQ(terminal.exitCode(), 1);
    EXPECT_EQ(terminal.seen().find("The failing statement was"), std::string::npos);
}

TEST(ReportDemo, AReportIsListedPackedAndReadable) {
    const scratch::Folder folder;
    OnTerminal terminal(folder / "");
    ASSERT_TRUE(terminal.waitFor(firstQuestion)) << terminal.seen();
    terminal.type("e");
    ASSERT_TRUE(terminal.waitFor("Please describe in a line"));
    terminal.type("drilling \x1b[31mholes");
    ASSERT_TRUE(terminal.waitFor("Variables.txt ("));
    ASSERT_TRUE(terminal.waitFor("[O]K, [C]ancel? "));
    terminal.type("o");
    ASSERT_TRUE(terminal.waitFor("Impossible to send the error report automatically !"));
    ASSERT_TRUE(terminal.waitFor("[Y]es, [N]o? "));
    terminal.type("n");
    ASSERT_TRUE(terminal.waitFor("Thanks for having reported this error !"));
    ASSERT_TRUE(terminal.waitFor(secondQuestion));
    terminal.type("i");
    EXPECT_EQ(terminal.exitCode(), 0);

    const program::Said shown = program::run({"report", "show", folder / "Error Report Files/Canvas.zip"});
    EXPECT_EQ(shown.code, 0) << shown.err;
    EXPECT_NE(shown.out.find("==== Error.txt ===="), std::string::npos);
    EXPECT_NE(shown.out.find("Circumstances:\ndrilling \\x1B[31mholes\n"), std::string::npos) << shown.out;
    EXPECT_NE(shown.out.find("intTries = \"1\" (Integer)"), std::string::npos);
}

TEST(ReportShow, WhatIsNoArchiveIsUnreadable) {
    const scratch::Folder folder;
    std::ofstream(folder / "text.zip") << "no archive";
    std::ofstream(folder / "cut.zip") << tracing::zipped({{"a.txt", std::string(1000, 'x')}}).substr(0, 60);
    for (const auto* name : {"text.zip", "cut.zip", "missing.zip"}) {
        const program::Said said = program::run({"report", "show", folder / name});
        EXPECT_EQ(said.code, 3) << name;
        EXPECT_NE(said.err.find(name), std::string::npos) << said.err;
    }
    EXPECT_EQ(program::run({"report"}).code, 2);
    EXPECT_EQ(program::run({"report", "show"}).code, 2);
}

}  // namespace
}  // namespace canvas
