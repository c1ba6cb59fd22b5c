#include "host/members.h"

#include <gtest/gtest.h>

#include "host/composed.h"
#include "raised.h"

namespace canvas {
namespace {

/// One member of every shape that a table can hold.
class Gadget final : public Tabled<Gadget> {
public:
    static constexpr std::string_view name = "Gadget";
    static std::span<const Member> table() noexcept;

    std::int16_t number = 7;
    std::string label = "start";
    std::string secret;
    Ref<Object> partner;
    std::string cells[2];

    std::string Title() const { return "<" + label + ">"; }
    void SetTitle(const std::string& value) { label = value; }
    void SetSecret(std::string value) { secret = std::move(value); }
    std::string Cell(std::int16_t index) const { return cells[index]; }
    void SetCell(std::int16_t index, std::string_view value) { cells[index] = value; }
    std::int32_t Sum(std::int32_t a, std::int32_t b) const noexcept { return a + b; }
    void Halve(std::int32_t& value, const std::string& note) { value /= 2, label = note; }
    bool Same(Object& other) const { return &other == this; }
    std::string First() { return "none"; }
    std::string FirstOf(const std::string& list) { return list.substr(0, 1); }
    void DropPartner() { required(partner).put("Partner", Ref<Object>()), label = "alive"; }
    void Fail(std::int32_t& value) { value = 9, raise(Error::divisionByZero); }
};

std::span<const Member> Gadget::table() noexcept {
    static constexpr Member members[] = {
        property<&Gadget::number>("Number"),
        property<&Gadget::partner>("Partner"),
        byDefault(property<&Gadget::Title, &Gadget::SetTitle>("Title")),
        property<&Gadget::Title, nullptr>("Shown"),
        property<nullptr, &Gadget::SetSecret>("Secret"),
        property<&Gadget::Cell, &Gadget::SetCell>("Cell"),
        property<nullptr, &Gadget::SetCell>("CellIn"),
        method<&Gadget::Sum>("Sum", 1),
        method<&Gadget::Halve>("Halve"),
        method<&Gadget::Same>("Same"),
        method<&Gadget::First>("First"),
        method<&Gadget::FirstOf>("First"),
        method<&Gadget::DropPartner>("DropPartner"),
        method<&Gadget::Fail>("Fail"),
    };
    return members;
}

TEST(Members, ADataMemberIsReadAndWrittenWithConversion) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(gadget->get("number"), Value(std::int16_t{7}));
    gadget->put("NUMBER", "12");
    EXPECT_EQ(gadget->number, 12);
    EXPECT_EQ(raisedBy([&] { gadget->put("Number", 40000.0); }), 6);
    EXPECT_EQ(raisedBy([&] { gadget->put("Number", "abc"); }), 13);
    EXPECT_EQ(gadget->number, 12);
}

TEST(Members, APropertyGoesThroughItsFunctions) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(gadget->get("Title"), Value("<start>"));
    gadget->put("Title", 1.5);
    EXPECT_EQ(gadget->label, "1.5");
}

TEST(Members, TheEmptyNameReachesTheDefaultMember) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(gadget->get(""), Value("<start>"));
    gadget->put("", "new");
    EXPECT_EQ(Value(gadget).toText(), "<new>");
}

TEST(Members, ASideThatIsLeftOutIsNoSuchMember) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(raisedBy([&] { gadget->put("Shown", "x"); }), 438);
    EXPECT_EQ(raisedBy([&] { gadget->get("Secret"); }), 438);
    gadget->put("Secret", "x");
    EXPECT_EQ(gadget->secret, "x");
    EXPECT_EQ(raisedBy([&] { gadget->put("Sum", 1.0); }), 438);
    EXPECT_EQ(raisedBy([&] { gadget->get("Unknown"); }), 438);
    EXPECT_EQ(raisedBy([&] { gadget->put("Unknown", 1.0); }), 438);
}

TEST(Members, AnIndexedPropertyTakesItsIndexFirst) {
    const auto gadget = make<Gadget>();
    for (const std::string_view name : {"Cell", "CellIn"}) {
        Value index = "1";
        gadget->put(name, Value(name), Args(&index, 1));
        EXPECT_EQ(gadget->get("Cell", Args(&index, 1)), Value(name));
        EXPECT_EQ(raisedBy([&] { gadget->put(name, "x"); }), 450) << name;
    }
    EXPECT_EQ(raisedBy([&] { gadget->get("Cell"); }), 450);
}

TEST(Members, AnOperationConvertsItsArguments) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(invoke(*gadget, "sum", "40", 2.0), Value(std::int32_t{42}));
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Sum", "x", 2.0); }), 13);
}

TEST(Members, BelowTheNamesARefusedArgumentIsToldApart) {
    const auto gadget = make<Gadget>();
    const auto refused = [&](std::string_view name, std::vector<Value> arguments) {
        try {
            findMember(Gadget::table(), name, arguments.size())->read(*gadget, arguments);
        } catch (const ArgumentError& error) {
            return error.argument;
        } catch (const RuntimeError&) {
        }
        return -1;
    };
    EXPECT_EQ(refused("Sum", {"x", 2.0}), 0);
    EXPECT_EQ(refused("Sum", {1.0, "x"}), 1);
    EXPECT_EQ(refused("Fail", {1.0}), -1) << "raised by the operation";
    try {
        invoke(*gadget, "Sum", "x", 2.0);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(dynamic_cast<const ArgumentError*>(&error), nullptr) << "through a name it is an error like any other";
    }
}

TEST(Members, LastArgumentsMayBeLeftOutWhereDeclaredSo) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(invoke(*gadget, "Sum", 40.0), Value(std::int32_t{40}));
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Sum"); }), 450);
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Sum", 1.0, 2.0, 3.0); }), 450);
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Halve", 1.0); }), 450);
}

TEST(Members, OnlyReferencesAreWrittenBack) {
    const auto gadget = make<Gadget>();
    Value args[] = {"9", "halved"};
    gadget->call("Halve", args);
    EXPECT_EQ(args[0], Value(std::int32_t{4}));
    EXPECT_EQ(args[1], Value("halved"));
    EXPECT_EQ(gadget->label, "halved");
}

TEST(Members, AFailedCallWritesNothingBack) {
    const auto gadget = make<Gadget>();
    Value argument = std::int32_t{1};
    EXPECT_EQ(raisedBy([&] { gadget->call("Fail", Args(&argument, 1)); }), 11);
    EXPECT_EQ(argument, Value(std::int32_t{1}));
}

TEST(Members, AnObjectArgumentMustBeThere) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(invoke(*gadget, "Same", gadget), Value(true));
    EXPECT_EQ(invoke(*gadget, "Same", make<Gadget>()), Value(false));
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Same", Ref<Object>()); }), 91);
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "Same", "x"); }), 424);
}

TEST(Members, TheCountOfArgumentsChoosesBetweenRowsOfOneName) {
    const auto gadget = make<Gadget>();
    EXPECT_EQ(invoke(*gadget, "First"), Value("none"));
    EXPECT_EQ(invoke(*gadget, "First", "abc"), Value("a"));
    EXPECT_EQ(raisedBy([&] { invoke(*gadget, "First", "a", "b"); }), 450);
}

TEST(Members, AnObjectLivesUntilItsCallIsOver) {
    const auto gadget = make<Gadget>();
    const auto holder = make<Composed>();
    holder->property("Partner", gadget);
    gadget->partner = holder;
    Object& object = *gadget;
    const_cast<Ref<Gadget>&>(gadget) = nullptr;
    object.call("DropPartner");
}

TEST(Members, TheTableTellsArgumentsAndKind) {
    const auto row = [](std::string_view name, std::size_t arguments) {
        return *findMember(Gadget::table(), name, arguments);
    };
    EXPECT_TRUE(row("Number", 0).isProperty);
    EXPECT_FALSE(row("Sum", 2).isProperty);
    EXPECT_EQ(row("Sum", 2).arguments, 2);
    EXPECT_EQ(row("Sum", 2).optional, 1);
    EXPECT_EQ(row("Sum", 2).byReference, 0u);
    EXPECT_EQ(row("Halve", 2).byReference, 1u) << "a constant reference is none";
    EXPECT_EQ(row("Same", 1).byReference, 0u);
    EXPECT_EQ(row("Cell", 1).arguments, 1);
    EXPECT_EQ(row("CellIn", 1).arguments, 1);
    EXPECT_EQ(row("First", 1).arguments, 1);
    EXPECT_EQ(row("First", 5).arguments, 0);
    EXPECT_EQ(findMember(Gadget::table(), "Unknown", 0), nullptr);
}

TEST(Members, AClassIsKnownByItsFace) {
    const auto gadget = make<Gadget>();
    Object& object = *gadget;
    EXPECT_EQ(faceOf<Gadget>(object), gadget.get());
    EXPECT_EQ(faceOf<Gadget>(*make<Composed>()), nullptr);
    EXPECT_EQ(object.className(), "Gadget");
}

}  // namespace
}  // namespace canvas
