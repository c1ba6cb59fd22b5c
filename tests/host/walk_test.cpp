#include <gtest/gtest.h>

#include "host/collection.h"
#include "host/composed.h"
#include "raised.h"

namespace canvas {
namespace {

/// `count` entries "1", "2", ... under keys of the same text.
Ref<Collection> numbered(int count) {
    auto collection = make<Collection>();
    for (int i = 1; i <= count; ++i) collection->Add(std::to_string(i), std::to_string(i));
    return collection;
}

std::string walked(Object& object) {
    std::string all;
    forEach(object, [&](const Value& item) {
        all += item.toText() + ";";
        return true;
    });
    return all;
}

TEST(Collection, IsWalkedInOrder) {
    EXPECT_EQ(walked(*numbered(12)), "1;2;3;4;5;6;7;8;9;10;11;12;");
    EXPECT_EQ(walked(*numbered(0)), "");
}

TEST(Collection, AWalkEndsWhenTheVisitorIsDone) {
    const auto collection = numbered(5);
    int visits = 0;
    forEach(*collection, [&](const Value&) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
}

/// The items seen by a walk during which the visit of `at` calls `change`.
template <class Change>
std::string walkedWith(const Ref<Collection>& collection, std::string_view at, Change change) {
    std::string all;
    forEach(*collection, [&](const Value& item) {
        const std::string text = item.toText();
        all += text + ";";
        if (text == at) change(*collection);
        return true;
    });
    return all;
}

TEST(Collection, AWalkSeesChangesAsTheyStand) {
    const auto remove = [](std::initializer_list<const char*> keys) {
        return [keys = std::vector<std::string>(keys.begin(), keys.end())](Collection& c) {
            for (const std::string& key : keys) c.Remove(key);
        };
    };
    EXPECT_EQ(walkedWith(numbered(4), "2", remove({"2"})), "1;2;3;4;");
    EXPECT_EQ(walkedWith(numbered(4), "2", remove({"1"})), "1;2;3;4;");
    EXPECT_EQ(walkedWith(numbered(4), "2", remove({"1", "2"})), "1;2;3;4;");
    EXPECT_EQ(walkedWith(numbered(4), "2", remove({"3"})), "1;2;4;");
    EXPECT_EQ(walkedWith(numbered(4), "4", remove({"1", "4"})), "1;2;3;4;");
    EXPECT_EQ(walkedWith(numbered(4), "2", remove({"1", "2", "3", "4"})), "1;2;");
    EXPECT_EQ(walkedWith(numbered(3), "3", [](Collection& c) { c.Add("new"); }), "1;2;3;new;");
    EXPECT_EQ(walkedWith(numbered(3), "2", [](Collection& c) { c.Clear(), c.Add("new"); }), "1;2;new;");
}

TEST(Collection, AWalkThatRemovesEachItemSeesThemAll) {
    const auto collection = numbered(30);
    int visits = 0;
    forEach(*collection, [&](const Value& item) {
        collection->Remove(item);
        return ++visits > 0;
    });
    EXPECT_EQ(visits, 30);
    EXPECT_EQ(collection->Count(), 0);
}

TEST(Collection, AWalkKeepsTheCollectionAlive) {
    auto collection = numbered(3);
    const auto walk = collection->enumerate();
    collection = nullptr;
    Value item;
    int count = 0;
    while (walk->next(item)) ++count;
    EXPECT_EQ(count, 3);
    EXPECT_EQ(item, Value("3"));
}

/// A host's collection without enumeration.
Ref<Composed> counted(std::int32_t count, std::int32_t items) {
    auto host = make<Composed>();
    host->property("Count", count);
    host->method("Item", [items](Args args) {
        if (args[0].toLong() > items) raise(Error::subscript);
        return Value("item " + args[0].toText());
    });
    return host;
}

TEST(ForEach, WalksByCountAndItemWhatDoesNotEnumerate) {
    EXPECT_EQ(walked(*counted(3, 3)), "item 1;item 2;item 3;");
    EXPECT_EQ(walked(*counted(0, 0)), "");
    EXPECT_EQ(walked(*counted(-1, 0)), "");
}

TEST(ForEach, EndsInTheErrorOfAnItemThatIsNotThere) {
    int visits = 0;
    const auto host = counted(5, 2);
    EXPECT_EQ(raisedBy([&] { forEach(*host, [&](const Value&) { return ++visits > 0; }); }), 9);
    EXPECT_EQ(visits, 2);
}

TEST(ForEach, AnObjectWithoutTheMembersIsNoCollection) {
    const auto host = counted(1, 1);
    host->without("Item");
    EXPECT_EQ(raisedBy([&] { walked(*host); }), 451);
    EXPECT_EQ(raisedBy([&] { walked(*make<Composed>()); }), 451);
}

TEST(ForEach, AHostsOwnFailurePassesOnAsItIs) {
    const auto host = counted(1, 1);
    host->method("Item", [](Args) -> Value { throw RuntimeError(1001, "The drive is off", "Drive"); });
    try {
        walked(*host);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 1001);
        EXPECT_EQ(error.description, "The drive is off");
        EXPECT_EQ(error.source, "Drive");
    }
    host->property("Count", "many");
    EXPECT_EQ(raisedBy([&] { walked(*host); }), 13);
}

TEST(ForEach, PrefersAHostsOwnEnumeration) {
    struct Listing final : Object {
        struct Walk final : Enumerator {
            bool next(Value& item) override {
                if (++place > 2) return false;
                item = place;
                return true;
            }
            std::int32_t place = 0;
        };
        std::string_view className() const noexcept override { return "Listing"; }
        std::unique_ptr<Enumerator> enumerate() override { return std::make_unique<Walk>(); }
    };
    EXPECT_EQ(walked(*make<Listing>()), "1;2;");
}

}  // namespace
}  // namespace canvas
