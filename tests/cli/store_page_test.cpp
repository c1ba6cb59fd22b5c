// The session in docs/store.md runs as it stands there.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "host/text.h"
#include "tests/host/scratch.h"

using namespace canvas;

namespace {

struct Step {
    int line = 0;  ///< of the page
    std::string command, answer;
};

std::vector<Step> stepsOf(const std::string& page) {
    std::vector<Step> steps;
    bool inside = false;
    int number = 0;
    for (const std::string_view line : text::split(page, "\n")) {
        ++number;
        if (line.starts_with("```")) inside = line == "```console";
        else if (inside && line.starts_with("$ ")) steps.push_back({number, std::string(line.substr(2)), ""});
        else if (inside) steps.back().answer.append(line) += '\n';
    }
    return steps;
}

/// What the shell says to a command in the folder, lines ended by a line feed alone.
std::string answerTo(const std::string& command, const std::string& folder) {
    const std::string program = CANVAS_CLI;
    std::string line = "cd " + folder + " && PATH=" + program.substr(0, program.rfind('/')) + ":$PATH && {\n";
    line.append(command).append("\n} 2>&1");
    std::FILE* pipe = popen(line.c_str(), "r");
    std::string answer;
    std::array<char, 4096> buffer{};
    for (std::size_t n; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) answer.append(buffer.data(), n);
    pclose(pipe);
    std::erase(answer, '\r');
    return answer;
}

}  // namespace

TEST(StorePage, RunsAsItStands) {
    const scratch::Folder folder;
    const auto steps = stepsOf(scratch::bytesOf(CANVAS_SOURCE_DIR "/docs/store.md"));
    ASSERT_GT(steps.size(), 20U);
    for (const Step& step : steps)
        EXPECT_EQ(answerTo(step.command, folder.path()), step.answer) << "docs/store.md:" << step.line;
}
