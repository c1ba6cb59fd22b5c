#include "host/convert.h"

#include <gtest/gtest.h>

#include "host/collection.h"
#include "host/composed.h"
#include "raised.h"

namespace canvas {
namespace {

enum Plain : std::int32_t { plainTwo = 2 };
enum class Narrow : std::int16_t { three = 3 };

TEST(Convert, AValueBecomesTheTypeAskedFor) {
    EXPECT_EQ(fromValue<Value>(Value("x")), Value("x"));
    EXPECT_EQ(fromValue<bool>(Value("True")), true);
    EXPECT_EQ(fromValue<std::int16_t>(Value(2.5)), 2);
    EXPECT_EQ(fromValue<std::int32_t>(Value("70000")), 70000);
    EXPECT_EQ(fromValue<float>(Value("0.5")), 0.5f);
    EXPECT_EQ(fromValue<double>(Value(true)), -1.0);
    EXPECT_EQ(fromValue<std::string>(Value(1.5)), "1.5");
    EXPECT_EQ(fromValue<Plain>(Value("2")), plainTwo);
    EXPECT_EQ(fromValue<Narrow>(Value(3.0)), Narrow::three);
}

TEST(Convert, AFailedConversionIsTheValuesOwn) {
    EXPECT_EQ(raisedBy([] { fromValue<std::int16_t>(Value(1e6)); }), 6);
    EXPECT_EQ(raisedBy([] { fromValue<std::int32_t>(Value("abc")); }), 13);
    EXPECT_EQ(raisedBy([] { fromValue<std::string>(Value(Null{})); }), 94);
    EXPECT_EQ(raisedBy([] { fromValue<Narrow>(Value(40000.0)); }), 6);
}

TEST(Convert, AnObjectMustBeOfTheClassAskedFor) {
    const auto collection = make<Collection>();
    EXPECT_EQ(fromValue<Ref<Collection>>(Value(collection)), collection);
    EXPECT_EQ(fromValue<Ref<Object>>(Value(collection)), Ref<Object>(collection));
    EXPECT_EQ(fromValue<Ref<Collection>>(Value(Ref<Object>())), nullptr);
    EXPECT_EQ(raisedBy([] { fromValue<Ref<Collection>>(Value(make<Composed>())); }), 13);
    EXPECT_EQ(raisedBy([] { fromValue<Ref<Collection>>(Value("x")); }), 424);
}

TEST(Convert, ATypeBecomesTheValueOfItsKind) {
    EXPECT_EQ(toValue(true), Value(true));
    EXPECT_EQ(toValue(std::int16_t{1}).kind(), Kind::integer);
    EXPECT_EQ(toValue(std::int32_t{1}).kind(), Kind::longInteger);
    EXPECT_EQ(toValue(plainTwo), Value(std::int32_t{2}));
    EXPECT_EQ(toValue(Narrow::three), Value(std::int16_t{3}));
    EXPECT_EQ(toValue(std::string_view("x")), Value("x"));
    EXPECT_EQ(toValue("x").kind(), Kind::text);
    EXPECT_EQ(toValue(make<Composed>()).kind(), Kind::object);
    EXPECT_EQ(toValue(Array::of("Long", {{0, 0}})).kind(), Kind::array);
}

TEST(Convert, InvokingPassesArgumentsInOrder) {
    const auto host = make<Composed>();
    std::vector<Value> seen;
    host->method("Take", [&](Args args) {
        seen.assign(args.begin(), args.end());
        return Value(static_cast<std::int32_t>(args.size()));
    });
    EXPECT_EQ(invoke(*host, "Take"), Value(std::int32_t{0}));
    EXPECT_EQ(invoke(*host, "Take", "a", std::int16_t{2}, true, plainTwo), Value(std::int32_t{4}));
    EXPECT_EQ(seen, (std::vector<Value>{"a", std::int16_t{2}, true, std::int32_t{2}}));
}

TEST(Convert, AnArgumentByReferenceHoldsWhatTheCalleeLeft) {
    const auto host = make<Composed>();
    host->method("Answer", [](Args args) {
        EXPECT_EQ(args[0], Value(std::int32_t{5}));
        args[0] = "17";
        args[1] = 2.5;
        args[2] = "changed, but not asked for";
        return Value(true);
    });
    std::int32_t number = 5;
    std::string text = "before";
    std::string own = "own";
    EXPECT_EQ(invoke(*host, "Answer", std::ref(number), std::ref(text), own), Value(true));
    EXPECT_EQ(number, 17);
    EXPECT_EQ(text, "2.5");
    EXPECT_EQ(own, "own");
}

TEST(Convert, AnAnswerThatDoesNotConvertIsATypeMismatch) {
    const auto host = make<Composed>();
    host->method("Answer", [](Args args) {
        args[0] = "abc";
        return Value();
    });
    std::int32_t number = 5;
    EXPECT_EQ(raisedBy([&] { invoke(*host, "Answer", std::ref(number)); }), 13);
    EXPECT_EQ(number, 5);
}

TEST(Convert, AnObjectGoesByReferenceToo) {
    const auto host = make<Composed>();
    const auto given = make<Collection>();
    host->method("Give", [&](Args args) {
        args[0] = given;
        return Value();
    });
    Ref<Collection> collection;
    invoke(*host, "Give", std::ref(collection));
    EXPECT_EQ(collection, given);
    invoke(*host, "Give", collection);
}

TEST(Convert, AMemberThatMustBeAnObjectIsOne) {
    const auto host = make<Composed>();
    const auto data = make<Composed>();
    host->property("Data", data).property("Unset", Ref<Object>()).property("Name", "x");
    EXPECT_EQ(objectAt(*host, "Data"), Ref<Object>(data));
    EXPECT_EQ(raisedBy([&] { objectAt(*host, "Unset"); }), 91);
    EXPECT_EQ(raisedBy([&] { objectAt(*host, "Name"); }), 424);
    EXPECT_EQ(raisedBy([&] { objectAt(*host, "Missing"); }), 438);
}

}  // namespace
}  // namespace canvas
