#include "host/object.h"

#include <gtest/gtest.h>

#include "host/value.h"
#include "raised.h"

namespace canvas {
namespace {

/// Counts the objects that are alive.
class Counted : public Object {
public:
    static constexpr char tag = 0;
    Counted() { ++alive; }
    Counted(const Counted& other) : Object(other) { ++alive; }
    ~Counted() override { --alive; }
    std::string_view className() const noexcept override { return "Counted"; }
    void* face(const void* asked) noexcept override { return asked == &tag ? this : Object::face(asked); }
    static int alive;
};
int Counted::alive = 0;

struct Other : Counted {
    static constexpr char tag = 0;
};

TEST(Object, NamesMatchWithoutRegardToCase) {
    EXPECT_TRUE(sameName("GetResult", "getRESULT"));
    EXPECT_TRUE(sameName("", ""));
    EXPECT_FALSE(sameName("GetResult", "GetResults"));
    EXPECT_FALSE(sameName("Get[", "Get{"));
    EXPECT_FALSE(sameName("a_b", "a@b"));
}

TEST(Object, OneWithoutMembersRefusesEveryName) {
    const auto object = make<Counted>();
    EXPECT_EQ(raisedBy([&] { object->get("Name"); }), 438);
    EXPECT_EQ(raisedBy([&] { object->call("Name"); }), 438);
    EXPECT_EQ(raisedBy([&] { object->put("Name", Value(1.0)); }), 438);
    EXPECT_EQ(object->enumerate(), nullptr);
}

TEST(Object, ItsFaceIsKnownByTag) {
    const auto object = make<Counted>();
    EXPECT_EQ(faceOf<Counted>(*object), object.get());
    EXPECT_EQ(faceOf<Other>(*object), nullptr);
}

TEST(Ref, TheLastReferenceEndsTheObject) {
    {
        const auto first = make<Counted>();
        Ref<Object> second = first;
        EXPECT_EQ(Counted::alive, 1);
        EXPECT_EQ(second, Ref<Object>(first));
        second = nullptr;
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Ref, MovingHandsTheCountOver) {
    auto first = make<Counted>();
    const Ref<Object> second = std::move(first);
    EXPECT_EQ(first, nullptr);
    EXPECT_TRUE(second);
    EXPECT_EQ(Counted::alive, 1);
}

TEST(Ref, AssigningToItselfKeepsTheObject) {
    auto object = make<Counted>();
    const auto& same = object;
    object = same;
    EXPECT_TRUE(object);
    EXPECT_EQ(Counted::alive, 1);
}

TEST(Ref, ADetachedObjectIsReleasedByHand) {
    Counted* const object = make<Counted>().detach();
    EXPECT_EQ(Counted::alive, 1);
    object->release();
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Ref, ACopyOfAnObjectHasReferencesOfItsOwn) {
    const auto original = make<Counted>();
    {
        const auto copy = make<Counted>(*original);
        EXPECT_EQ(Counted::alive, 2);
    }
    EXPECT_EQ(Counted::alive, 1);
}

TEST(Ref, NothingIsNoObject) {
    EXPECT_EQ(raisedBy([] { required(Ref<Object>()); }), 91);
    const auto object = make<Counted>();
    EXPECT_EQ(&required(object), object.get());
}

}  // namespace
}  // namespace canvas
