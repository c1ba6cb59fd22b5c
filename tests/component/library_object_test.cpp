// Canvas.Library: what a host sets for the whole process.

#include <gtest/gtest.h>

#include "component/library.h"
#include "document/canvas.h"
#include "host/ports.h"
#include "tests/component/fake_host.h"
#include "tests/host/raised.h"

namespace canvas::component::testing {
namespace {

struct LibraryObject : ::testing::Test {
    Com<IDispatch> library = dispatchOf(theLibrary());
    Com<FakeHost> host = makeHost();

    void SetUp() override { put(library.get(), "Interaction", Value(asObject(host))); }
    void TearDown() override {
        put(library.get(), "Interaction", Value(Ref<Object>()));
        put(library.get(), "FileFormatVersion", "200");
    }
    Interaction& interaction() { return *environment().interaction; }
};

TEST_F(LibraryObject, MessageBoxesGoToTheHost) {
    struct Row {
        Buttons buttons;
        Icon icon;
        const char* buttonWord;
        const char* iconWord;
        const char* answer;
        Reply reply;
    };
    const Row rows[] = {
        {Buttons::ok, Icon::none, "OK", "", "OK", Reply::ok},
        {Buttons::okCancel, Icon::critical, "OKCancel", "Critical", "Cancel", Reply::cancel},
        {Buttons::yesNo, Icon::question, "YesNo", "Question", "Yes", Reply::yes},
        {Buttons::yesNoCancel, Icon::exclamation, "YesNoCancel", "Exclamation", "no", Reply::no},
        {Buttons::abortRetryIgnore, Icon::information, "AbortRetryIgnore", "Information", "Abort", Reply::abort},
        {Buttons::abortRetryIgnore, Icon::none, "AbortRetryIgnore", "", "Retry", Reply::retry},
        {Buttons::abortRetryIgnore, Icon::none, "AbortRetryIgnore", "", "Ignore", Reply::ignore},
    };
    for (const Row& row : rows) {
        std::vector<Value> asked;
        host.get()->members["messagebox"] = [&](const HostCall& call) {
            for (UINT i = 0; i < call.count(); ++i) asked.push_back(valueOf(call[i]));
            return call.answer(row.answer);
        };
        EXPECT_EQ(interaction().messageBox({"text", row.buttons, row.icon, "title"}), row.reply);
        EXPECT_EQ(asked, (std::vector<Value>{"text", row.buttonWord, row.iconWord, "title"}));
    }
}

TEST_F(LibraryObject, WhatTheHostLacksFallsBack) {
    EXPECT_EQ(interaction().messageBox({"a line on standard error", Buttons::yesNo, Icon::none, {}}), Reply::no);
    EXPECT_EQ(interaction().inputBox("p", "t", "d"), "");
    interaction().beep();
    EXPECT_EQ(interaction().openAddress("a"), 0);
    interaction().setClipboard("t");
    EXPECT_FALSE(interaction().showForm(*make<Collection>()));
    host.get()->members["messagebox"] = giving("Perhaps");
    EXPECT_EQ(interaction().messageBox({"an unknown answer", Buttons::okCancel, Icon::none, {}}), Reply::cancel);
}

TEST_F(LibraryObject, TheOtherMembersReachTheHost) {
    std::vector<std::string> seen;
    const auto noting = [&](std::string name, Value answer) {
        return [&seen, name, answer](const HostCall& call) {
            std::string line = name;
            for (UINT i = 0; i < call.count(); ++i)
                line += "," + (call[i].vt == VT_DISPATCH ? "object" : valueOf(call[i]).toText());
            seen.push_back(line);
            return call.answer(answer);
        };
    };
    host.get()->members = {{"inputbox", noting("InputBox", "typed")}, {"beep", noting("Beep", {})},
                           {"openaddress", noting("OpenAddress", "33")}, {"setclipboard", noting("SetClipboard", {})},
                           {"showform", noting("ShowForm", true)}};
    EXPECT_EQ(interaction().inputBox("p", "t", "d"), "typed");
    interaction().beep();
    EXPECT_EQ(interaction().openAddress("a"), 33);
    interaction().setClipboard("t");
    EXPECT_TRUE(interaction().showForm(*make<Collection>()));
    EXPECT_EQ(seen, (std::vector<std::string>{"InputBox,p,t,d", "Beep", "OpenAddress,a", "SetClipboard,t", "ShowForm,object"}));
}

TEST_F(LibraryObject, AFailingHostIsNotAMissingMember) {
    host.get()->members["inputbox"] = [](const HostCall& call) { return fail(call, 70, "no"); };
    EXPECT_EQ(raisedBy([&] { interaction().inputBox("p", "t", "d"); }), 70);
}

TEST_F(LibraryObject, NothingBringsTheOwnWayBack) {
    EXPECT_EQ(call(library.get(), "Interaction").value, Value(asObject(host)));
    put(library.get(), "Interaction", Value(Ref<Object>()));
    host.get()->members["messagebox"] = giving("Yes");
    EXPECT_EQ(interaction().messageBox({"a line on standard error", Buttons::yesNo, Icon::none, {}}), Reply::no);
    EXPECT_EQ(call(library.get(), "Interaction").value, Value(Ref<Object>()));
    EXPECT_EQ(put(library.get(), "Interaction", "text").result, DISP_E_TYPEMISMATCH);
}

TEST_F(LibraryObject, TheFileFormatVersionReachesTheLibrary) {
    EXPECT_EQ(call(library.get(), "FileFormatVersion").value, Value("200"));
    put(library.get(), "FileFormatVersion", 210);
    EXPECT_EQ(call(library.get(), "FileFormatVersion").value, Value("210"));
    EXPECT_EQ(environment().utility->FileFormatVersion(), "210");
    EXPECT_EQ(environment().utility->StripQuotes("\"a\""), "a") << "the rest is as it was";
}

TEST_F(LibraryObject, LiveObjectsAreThoseThatAHostHolds) {
    const auto live = [&] { return call(library.get(), "LiveObjects").value.toLong(); };
    const std::int32_t before = live();
    const auto document = make<clsBVTCanvas>();
    EXPECT_EQ(live(), before) << "nobody outside holds it";
    auto held = dispatchOf(document);
    const auto twice = dispatchOf(document);
    EXPECT_EQ(live(), before + 1);
}

TEST_F(LibraryObject, ThereIsOne) { EXPECT_EQ(theLibrary(), theLibrary()); }

}  // namespace
}  // namespace canvas::component::testing
