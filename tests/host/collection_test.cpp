#include "host/collection.h"

#include <gtest/gtest.h>

#include "host/composed.h"
#include "raised.h"

namespace canvas {
namespace {

Value number(std::int32_t v) { return Value(v); }

Ref<Collection> filled(std::initializer_list<const char*> keys) {
    auto collection = make<Collection>();
    for (const char* key : keys) collection->Add(std::string("item ") + key, key);
    return collection;
}

/// `count` entries "1", "2", ... under keys of the same text.
Ref<Collection> numbered(int count) {
    auto collection = make<Collection>();
    for (int i = 1; i <= count; ++i) collection->Add(std::to_string(i), std::to_string(i));
    return collection;
}

TEST(Collection, KeepsTheOrderOfInsertion) {
    const auto collection = filled({"b", "a", "c"});
    EXPECT_EQ(collection->Count(), 3);
    EXPECT_EQ(collection->at(1), Value("item b"));
    EXPECT_EQ(collection->Item(number(2)), Value("item a"));
    EXPECT_EQ((*collection)[2], Value("item c"));
}

TEST(Collection, FindsByKeyWithoutRegardToCase) {
    const auto collection = filled({"Main", "ÄRGER", "12"});
    EXPECT_EQ(collection->Item("MAIN"), Value("item Main"));
    EXPECT_EQ(collection->Item("main"), Value("item Main"));
    EXPECT_EQ(collection->Item("ärger"), Value("item ÄRGER"));
    ASSERT_NE(collection->find("12"), nullptr);
    EXPECT_EQ(*collection->find("12"), Value("item 12"));
    EXPECT_EQ(collection->find("13"), nullptr);
}

TEST(Collection, ATextIsAKeyEvenWhenItIsNumeric) {
    const auto collection = filled({"2", "1"});
    EXPECT_EQ(collection->Item("1"), Value("item 1"));
    EXPECT_EQ(collection->Item(number(1)), Value("item 2"));
}

TEST(Collection, ATakenKeyIsRefused) {
    for (const int count : {3, 100}) {
        const auto collection = numbered(count);
        EXPECT_EQ(raisedBy([&] { collection->Add("x", "2"); }), 457);
        EXPECT_EQ(collection->Count(), count);
        collection->Add("x", "key");
        EXPECT_EQ(raisedBy([&] { collection->Add("x", "KEY"); }), 457);
    }
}

TEST(Collection, AnAbsentKeyIsAnInvalidCall) {
    for (const int count : {0, 3, 100}) {
        const auto collection = numbered(count);
        EXPECT_EQ(raisedBy([&] { collection->Item("absent"); }), 5);
        EXPECT_EQ(raisedBy([&] { collection->Remove("absent"); }), 5);
    }
}

TEST(Collection, APlaceOutsideIsASubscriptError) {
    for (const int count : {0, 3, 100}) {
        const auto collection = numbered(count);
        for (const Value& place :
             {number(0), number(-1), number(count + 1), Value(0.5), Value(count + 0.6), Value(1e300), Value(-1e300)}) {
            EXPECT_EQ(raisedBy([&] { collection->Item(place); }), 9) << place.toText();
            EXPECT_EQ(raisedBy([&] { collection->Remove(place); }), 9) << place.toText();
        }
        EXPECT_EQ(raisedBy([&] { collection->at(0); }), 9);
        EXPECT_EQ(raisedBy([&] { collection->at(count + 1); }), 9);
        EXPECT_EQ(raisedBy([&] { collection->removeAt(static_cast<std::size_t>(count)); }), 9);
    }
}

TEST(Collection, APlaceIsRoundedHalfToEven) {
    const auto collection = numbered(3);
    EXPECT_EQ(collection->Item(std::int16_t{3}), Value("3"));
    EXPECT_EQ(collection->Item(1.5f), Value("2"));
    EXPECT_EQ(collection->Item(2.5), Value("2"));
    EXPECT_EQ(collection->Item(0.6), Value("1"));
    EXPECT_EQ(raisedBy([&] { collection->Item(3.5); }), 9);
    EXPECT_EQ(numbered(4)->Item(4.5), Value("4"));
}

TEST(Collection, OnlyTextAndNumbersIndex) {
    const auto collection = numbered(3);
    for (const Value& index :
         {Value(), Value(Null{}), Value(true), Value(collection), Value(Array::of("Long", {{0, 0}}))})
        EXPECT_EQ(raisedBy([&] { collection->Item(index); }), 13) << index.typeName();
}

TEST(Collection, ARemovedKeyCanBeAddedAgain) {
    for (const int count : {3, 100}) {
        const auto collection = numbered(count);
        collection->Remove("2");
        EXPECT_EQ(collection->find("2"), nullptr);
        collection->Add("again", "2");
        EXPECT_EQ(collection->Item("2"), Value("again"));
        EXPECT_EQ(collection->at(count), Value("again"));
    }
}

TEST(Collection, KeysHoldAfterARemoval) {
    for (const int count : {5, 9, 10, 100}) {
        const auto collection = numbered(count);
        collection->Remove(number(1));
        collection->Remove(std::to_string(count));
        EXPECT_EQ(collection->Count(), count - 2);
        for (int i = 2; i < count; ++i) EXPECT_EQ(collection->Item(std::to_string(i)), Value(std::to_string(i)));
        EXPECT_EQ(collection->find("1"), nullptr);
        EXPECT_EQ(collection->find(std::to_string(count)), nullptr);
    }
}

TEST(Collection, ManyKeysAreAllFoundAndAllDistinct) {
    const auto collection = numbered(5000);
    for (int i = 1; i <= 5000; ++i) {
        ASSERT_EQ(*collection->find(std::to_string(i)), Value(std::to_string(i)));
        ASSERT_EQ(raisedBy([&] { collection->Add("x", std::to_string(i)); }), 457);
    }
    EXPECT_EQ(collection->find("0"), nullptr);
    EXPECT_EQ(collection->find("5001"), nullptr);
}

TEST(Collection, GrowingAndShrinkingAroundTheSizeOfAnIndexKeepsKeys) {
    const auto collection = make<Collection>();
    for (int round = 0; round < 5; ++round) {
        for (int i = 1; i <= 12; ++i) collection->Add(number(i), std::to_string(i));
        collection->Add("unkeyed");
        ASSERT_EQ(collection->Item("12"), number(12));
        collection->removeAt(12);
        for (int i = 12; i >= 1; --i) {
            ASSERT_EQ(collection->Item(std::to_string(i)), number(i));
            collection->Remove(std::to_string(i));
            ASSERT_EQ(collection->find(std::to_string(i)), nullptr);
        }
        ASSERT_EQ(collection->Count(), 0);
    }
}

TEST(Collection, UnkeyedEntriesHaveNoKey) {
    const auto collection = make<Collection>();
    for (int i = 0; i < 20; ++i) collection->Add(number(i));
    EXPECT_EQ(collection->find(""), nullptr);
    collection->Add("keyed", "");
    EXPECT_EQ(collection->Item(""), Value("keyed"));
    collection->removeAt(0);
    EXPECT_EQ(collection->Item(""), Value("keyed"));
    EXPECT_EQ(collection->at(1), number(1));
}

TEST(Collection, UnkeyedEntriesDoNotHideKeyedOnes) {
    const auto collection = make<Collection>();
    for (int i = 0; i < 30; ++i) {
        collection->Add(number(i));
        collection->Add(number(i), std::to_string(i));
    }
    for (int i = 0; i < 30; ++i) EXPECT_EQ(collection->Item(std::to_string(i)), number(i));
    while (collection->Count() > 1) {
        collection->removeAt(collection->size() - 1);
        if (const int last = (collection->Count() - 2) / 2; collection->Count() >= 2) {
            EXPECT_EQ(collection->Item(std::to_string(last)), number(last));
        }
    }
}

TEST(Collection, ClearingForgetsKeys) {
    const auto collection = numbered(50);
    collection->Clear();
    EXPECT_EQ(collection->Count(), 0);
    EXPECT_EQ(collection->find("1"), nullptr);
    collection->Add("new", "1");
    EXPECT_EQ(collection->Item("1"), Value("new"));
}

TEST(Collection, ACopyIsACollectionOfItsOwn) {
    const auto collection = numbered(20);
    const auto copy = make<Collection>(*collection);
    copy->Remove("5");
    copy->Add("x", "21");
    EXPECT_EQ(collection->Count(), 20);
    EXPECT_EQ(collection->Item("5"), Value("5"));
    EXPECT_EQ(collection->find("21"), nullptr);
    EXPECT_EQ(copy->Item("21"), Value("x"));
}

TEST(Collection, AnswersByName) {
    const auto collection = make<Collection>();
    Object& object = *collection;
    invoke(object, "Add", "first");
    invoke(object, "add", "second", "Key");
    EXPECT_EQ(object.get("Count"), number(2));
    EXPECT_EQ(invoke(object, "Item", number(1)), Value("first"));
    EXPECT_EQ(invoke(object, "", "key"), Value("second"));
    invoke(object, "Remove", number(1));
    EXPECT_EQ(object.get("COUNT"), number(1));
    invoke(object, "Remove", "KEY");
    EXPECT_EQ(object.get("Count"), number(0));
    EXPECT_EQ(object.className(), "Collection");
}

TEST(Collection, RefusesWrongUseByName) {
    const auto collection = make<Collection>();
    Object& object = *collection;
    EXPECT_EQ(raisedBy([&] { object.put("Count", 1.0); }), 438);
    EXPECT_EQ(raisedBy([&] { object.get("Clear"); }), 438);
    EXPECT_EQ(raisedBy([&] { object.get("Item"); }), 450);
    EXPECT_EQ(raisedBy([&] { object.call("Add"); }), 450);
    EXPECT_EQ(raisedBy([&] { invoke(object, "Add", "item", 12.0); }), 13);
    EXPECT_EQ(raisedBy([&] { invoke(object, "Add", "item", Null{}); }), 13);
    EXPECT_EQ(collection->Count(), 0);
    invoke(object, "Add", "item", Empty{});
    EXPECT_EQ(collection->Count(), 1);
}

TEST(Collection, ReportsItsCountAndItems) {
    struct Sink final : VariableSink {
        void variable(std::string_view name, const Value& value) override {
            all += std::string(name) + "=" + value.toText() + ";";
        }
        std::string all;
    } sink;
    filled({"a", "b"})->reportVariables(sink);
    EXPECT_EQ(sink.all, "Count=2;Item(1)=item a;Item(2)=item b;");
}

TEST(Collection, AnItemThatEndsMayComeBackToItsCollection) {
    struct Rude final : Object {
        explicit Rude(Collection& c) : collection(c) {}
        ~Rude() override { collection.Add("last words", "words"); }
        std::string_view className() const noexcept override { return "Rude"; }
        Collection& collection;
    };
    const auto collection = numbered(20);
    collection->Add(make<Rude>(*collection), "rude");
    collection->Add("behind");
    collection->Remove("rude");
    EXPECT_EQ(collection->Count(), 22);
    EXPECT_EQ(collection->Item("words"), Value("last words"));
    collection->Remove("words");
    collection->Add(make<Rude>(*collection), "rude");
    collection->Clear();
    EXPECT_EQ(collection->Count(), 1);
}

}  // namespace
}  // namespace canvas
