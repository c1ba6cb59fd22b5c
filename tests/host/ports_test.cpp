#include "host/ports.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <pthread.h>

#include "host/composed.h"

using namespace canvas;

namespace {

class Recorder final : public Interaction {
public:
    Reply messageBox(const MessageBox& box) override {
        boxes.push_back(box);
        return Reply::ok;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return "typed"; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 33; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return true; }

    std::vector<MessageBox> boxes;
};

class StoppedClock final : public Clock {
public:
    double now() override { return 42; }
};

struct Printed {
    Reply reply;
    std::string text;
};

Printed ask(const MessageBox& box) {
    testing::internal::CaptureStderr();
    const Reply reply = environment().interaction->messageBox(box);
    return {reply, testing::internal::GetCapturedStderr()};
}

}  // namespace

TEST(TheProcessesOwnEnvironment, AnswersBoxesWithTheButtonThatDoesNoHarm) {
    const struct {
        Buttons buttons;
        Reply reply;
    } cases[] = {
        {Buttons::ok, Reply::ok},
        {Buttons::okCancel, Reply::cancel},
        {Buttons::yesNo, Reply::no},
        {Buttons::yesNoCancel, Reply::cancel},
        {Buttons::abortRetryIgnore, Reply::abort},
    };
    for (const auto& c : cases) EXPECT_EQ(ask({.text = "?", .buttons = c.buttons, .title = {}}).reply, c.reply);
}

TEST(TheProcessesOwnEnvironment, PrintsBoxesToStandardError) {
    EXPECT_EQ(ask({.text = "100% of %s", .title = "Title"}).text, "Title: 100% of %s\n");
    EXPECT_EQ(ask({.text = "text", .title = {}}).text, "text\n");
}

TEST(TheProcessesOwnEnvironment, TypesNothingAndStartsNothing) {
    Interaction& interaction = *environment().interaction;
    EXPECT_EQ(interaction.inputBox("Prompt", "Title", "0"), "");
    EXPECT_LE(interaction.openAddress("https://example.org"), 32);
    EXPECT_NO_THROW(interaction.beep());
    EXPECT_NO_THROW(interaction.setClipboard("text"));
    const auto form = make<Composed>("frmMoveAxis");
    EXPECT_FALSE(interaction.showForm(*form));
}

TEST(TheProcessesOwnEnvironment, HasTheMachinesDiskClockAndUtilities) {
    const Environment& own = environment();
    EXPECT_TRUE(own.files->isFolder("/"));
    EXPECT_GT(own.clock->now(), 1.7e9) << "seconds since 1970";
    EXPECT_EQ(own.utility->FileFormatVersion(), "200");
    EXPECT_EQ(own.application.title, "Canvas");
    EXPECT_TRUE(own.files->isFolder(own.application.path));
    EXPECT_FALSE(own.application.path.ends_with("/"));
}

TEST(TheProcessesOwnEnvironmentDeathTest, EndsTheProcessWithItsCode) {
    EXPECT_EXIT(environment().process->exitProcess(3), testing::ExitedWithCode(3), "");
}

TEST(TheProcessesOwnEnvironment, EndsAThreadWithItsCode) {
    pthread_t thread;
    const auto body = [](void*) -> void* {
        environment().process->exitThread(4);
        return nullptr;
    };
    ASSERT_EQ(::pthread_create(&thread, nullptr, body, nullptr), 0);
    void* code = nullptr;
    ASSERT_EQ(::pthread_join(thread, &code), 0);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(code), 4);
}

TEST(WithEnvironment, IsInForceUntilTheEndOfItsScope) {
    const auto outer = std::make_shared<Recorder>(), inner = std::make_shared<Recorder>();
    Environment* const own = &environment();
    {
        const WithEnvironment first(
            {.interaction = outer, .files = {}, .clock = {}, .process = {}, .utility = {}, .application = {}});
        EXPECT_EQ(environment().interaction, outer);
        {
            const WithEnvironment second(
                {.interaction = inner, .files = {}, .clock = {}, .process = {}, .utility = {}, .application = {}});
            EXPECT_EQ(environment().interaction, inner);
        }
        EXPECT_EQ(environment().interaction, outer);
    }
    EXPECT_EQ(&environment(), own);
}

TEST(WithEnvironment, TakesThePortsThatItLacksFromTheOneBefore) {
    const Environment own = environment();
    Environment mine;
    mine.clock = std::make_shared<StoppedClock>();
    mine.application.title = "Editor";
    const WithEnvironment first(mine);
    const WithEnvironment second(Environment{});
    EXPECT_EQ(environment().clock->now(), 42);
    EXPECT_EQ(environment().interaction, own.interaction);
    EXPECT_EQ(environment().files, own.files);
    EXPECT_EQ(environment().process, own.process);
    EXPECT_EQ(environment().utility, own.utility);
    EXPECT_EQ(environment().application.title, "Canvas") << "the application is no port and comes as it is";
}

TEST(WithEnvironment, HoldsOnItsOwnThreadOnly) {
    Environment mine;
    mine.clock = std::make_shared<StoppedClock>();
    const WithEnvironment scope(mine);
    double elsewhere = 42;
    std::thread([&] { elsewhere = environment().clock->now(); }).join();
    EXPECT_NE(elsewhere, 42);
    EXPECT_EQ(environment().clock->now(), 42);
}

TEST(Tell, ShowsABoxWithAnOkButton) {
    const auto recorder = std::make_shared<Recorder>();
    Environment mine;
    mine.interaction = recorder;
    const WithEnvironment scope(mine);
    tell("text", Icon::exclamation, "title");
    tell("plain");
    ASSERT_EQ(recorder->boxes.size(), 2U);
    EXPECT_EQ(recorder->boxes[0].text, "text");
    EXPECT_EQ(recorder->boxes[0].title, "title");
    EXPECT_EQ(recorder->boxes[0].icon, Icon::exclamation);
    EXPECT_EQ(recorder->boxes[0].buttons, Buttons::ok);
    EXPECT_EQ(recorder->boxes[1].title, "");
    EXPECT_EQ(recorder->boxes[1].icon, Icon::none);
}
