#include "host/composed.h"

#include <gtest/gtest.h>

#include "raised.h"

namespace canvas {
namespace {

TEST(Composed, AMemberAnswersToItsNameInAnyCase) {
    const auto host = make<Composed>("Project");
    host->method("MachineUnits", [](Args) { return Value("mm"); }).property("Name", "Press");
    EXPECT_EQ(host->get("machineunits"), Value("mm"));
    EXPECT_EQ(host->call("MACHINEUNITS"), Value("mm"));
    EXPECT_EQ(host->get("nAME"), Value("Press"));
    EXPECT_EQ(host->className(), "Project");
    EXPECT_EQ(make<Composed>()->className(), "Object");
}

TEST(Composed, AnOperationSeesItsArgumentsAndWritesThemByReference) {
    const auto host = make<Composed>();
    host->method("Split", [](Args args) {
        const std::string word = args[0].toText();
        args[1] = word.substr(1);
        return Value(word.substr(0, 1));
    });
    Value args[] = {"axis", ""};
    EXPECT_EQ(host->call("Split", args), Value("a"));
    EXPECT_EQ(args[1], Value("xis"));
}

TEST(Composed, AnUnknownNameIsNoSuchMember) {
    const auto host = make<Composed>();
    host->property("Name", "x");
    EXPECT_EQ(raisedBy([&] { host->get("Nam"); }), 438);
    EXPECT_EQ(raisedBy([&] { host->call("Names"); }), 438);
    EXPECT_EQ(raisedBy([&] { host->put("Other", 1.0); }), 438);
    EXPECT_EQ(raisedBy([&] { host->get(""); }), 438);
}

TEST(Composed, AStoredPropertyKeepsWhatIsPut) {
    const auto host = make<Composed>();
    host->property("Caption", "before");
    host->put("caption", "after");
    EXPECT_EQ(host->get("Caption"), Value("after"));
    host->put("Caption", Null{});
    EXPECT_EQ(host->get("Caption"), Value(Null{}));
}

TEST(Composed, AnOperationCannotBePut) {
    const auto host = make<Composed>();
    host->method("Count", [](Args) { return Value(1.0); });
    EXPECT_EQ(raisedBy([&] { host->put("Count", 2.0); }), 438);
}

TEST(Composed, APropertyMayBehaveWhenReadAndWritten) {
    const auto host = make<Composed>();
    double width = 2;
    host->property(
        "Width", [&](Args) { return Value(width * 10); }, [&](const Value& value) { width = value.toDouble() / 10; });
    EXPECT_EQ(host->get("Width"), Value(20.0));
    host->put("Width", "45");
    EXPECT_EQ(width, 4.5);
}

TEST(Composed, ASideThatIsLeftOutIsNoSuchMember) {
    const auto host = make<Composed>();
    bool written = false;
    host->property(
        "Reads", [](Args) { return Value(1.0); }, nullptr);
    host->property("Writes", nullptr, [&](const Value&) { written = true; });
    EXPECT_EQ(raisedBy([&] { host->put("Reads", 1.0); }), 438);
    EXPECT_EQ(raisedBy([&] { host->get("Writes"); }), 438);
    host->put("Writes", 1.0);
    EXPECT_TRUE(written);
}

TEST(Composed, AStoredPropertyTakesNoIndexes) {
    const auto host = make<Composed>();
    host->property("Name", "x");
    Value index = 1.0;
    EXPECT_EQ(raisedBy([&] { host->get("Name", Args(&index, 1)); }), 450);
    EXPECT_EQ(raisedBy([&] { host->put("Name", "y", Args(&index, 1)); }), 450);
}

TEST(Composed, TheEmptyNameIsTheDefaultMember) {
    const auto host = make<Composed>();
    host->property("", std::int32_t{12});
    EXPECT_EQ(Value(host).toText(), "12");
}

TEST(Composed, ALaterMemberReplacesOneOfTheSameName) {
    const auto host = make<Composed>();
    host->method("Name", [](Args) { return Value("operation"); });
    host->property("NAME", "stored");
    EXPECT_EQ(host->get("Name"), Value("stored"));
    host->put("Name", "put");
    host->method("name", [](Args) { return Value("operation again"); });
    EXPECT_EQ(host->get("Name"), Value("operation again"));
}

TEST(Composed, AMemberCanBeTakenAway) {
    const auto host = make<Composed>();
    host->property("Name", "x").property("Other", "y").without("NAME").without("never there");
    EXPECT_EQ(raisedBy([&] { host->get("Name"); }), 438);
    EXPECT_EQ(host->get("Other"), Value("y"));
}

TEST(Composed, AnOperationMayTakeItselfAway) {
    const auto host = make<Composed>();
    const std::string text(100, 'x');
    host->method("Once", [&host = *host, text](Args) {
        host.without("Once");
        return Value(text);
    });
    EXPECT_EQ(host->call("Once"), Value(text));
    EXPECT_EQ(raisedBy([&] { host->call("Once"); }), 438);
}

TEST(Composed, ACopyHasPropertiesOfItsOwn) {
    const auto host = make<Composed>();
    host->property("Name", "x");
    const auto copy = make<Composed>(*host);
    copy->put("Name", "y");
    EXPECT_EQ(host->get("Name"), Value("x"));
    EXPECT_EQ(copy->get("Name"), Value("y"));
}

TEST(Composed, WhatAnOperationRaisesPassesOn) {
    const auto host = make<Composed>();
    host->method("Fail", [](Args) -> Value { throw RuntimeError(1001, "The drive is off", "Drive"); });
    EXPECT_EQ(raisedBy([&] { host->call("Fail"); }), 1001);
}

}  // namespace
}  // namespace canvas
