// The plain classes of the device list.

#include <cmath>

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

Ref<Object> filledEncoder() {
    const Ref<Object> encoder = make<clsBVTMasterEncoder>();
    encoder->put("Enabled", true);
    encoder->put("FeedConstant", 12.5F);
    encoder->put("GearBoxInput", std::int16_t{3});
    encoder->put("GearBoxOutput", std::int16_t{-4});
    encoder->put("MovementType", "Rotary");
    encoder->put("PulseType", "A/B");
    encoder->put("Resolution", std::int32_t{100'000});
    encoder->put("UserUnit", "mm");
    return encoder;
}

TEST(MasterEncoder, StartsWithNothing) {
    const Ref<Object> encoder = make<clsBVTMasterEncoder>();
    EXPECT_EQ(encoder->get("Enabled"), Value(false));
    EXPECT_EQ(encoder->get("FeedConstant"), Value(0.0F));
    EXPECT_EQ(encoder->get("GearBoxInput"), Value(std::int16_t{0}));
    EXPECT_EQ(encoder->get("GearBoxOutput"), Value(std::int16_t{0}));
    EXPECT_EQ(encoder->get("MovementType"), Value(""));
    EXPECT_EQ(encoder->get("PulseType"), Value(""));
    EXPECT_EQ(encoder->get("Resolution"), Value(std::int32_t{0}));
    EXPECT_EQ(encoder->get("UserUnit"), Value(""));
}

TEST(MasterEncoder, KeepsWhatIsPut) {
    const Ref<Object> encoder = filledEncoder();
    EXPECT_EQ(encoder->get("Enabled"), Value(true));
    EXPECT_EQ(encoder->get("FeedConstant"), Value(12.5F));
    EXPECT_EQ(encoder->get("GearBoxInput"), Value(std::int16_t{3}));
    EXPECT_EQ(encoder->get("GearBoxOutput"), Value(std::int16_t{-4}));
    EXPECT_EQ(encoder->get("MovementType"), Value("Rotary"));
    EXPECT_EQ(encoder->get("PulseType"), Value("A/B"));
    EXPECT_EQ(encoder->get("Resolution"), Value(std::int32_t{100'000}));
    EXPECT_EQ(encoder->get("UserUnit"), Value("mm"));
}

TEST(MasterEncoder, ConvertsWhatIsPutOrRefusesIt) {
    const Ref<Object> encoder = make<clsBVTMasterEncoder>();
    encoder->put("GearBoxInput", "7");
    EXPECT_EQ(encoder->get("GearBoxInput"), Value(std::int16_t{7}));
    EXPECT_EQ(raisedBy([&] { encoder->put("GearBoxInput", 40'000); }), 6);
    EXPECT_EQ(raisedBy([&] { encoder->put("Resolution", "fine"); }), 13);
    EXPECT_EQ(encoder->get("GearBoxInput"), Value(std::int16_t{7}));
}

TEST(MasterEncoder, IsTheSameIsACopyOfEveryProperty) {
    const Ref<Object> encoder = filledEncoder();
    const Ref<Object> copy = invoke(*encoder, "IsTheSame").toObject();
    ASSERT_NE(copy.get(), nullptr);
    EXPECT_NE(copy.get(), encoder.get());
    EXPECT_EQ(copy->className(), "clsBVTMasterEncoder");
    for (const std::string_view property : {"Enabled", "FeedConstant", "GearBoxInput", "GearBoxOutput", "MovementType",
                                            "PulseType", "Resolution", "UserUnit"})
        EXPECT_EQ(copy->get(property), encoder->get(property)) << property;
    encoder->put("UserUnit", "inch");
    EXPECT_EQ(copy->get("UserUnit"), Value("mm"));
}

TEST(MasterEncoder, IsSameAsOnlyWhenEveryPropertyIsEqual) {
    const std::pair<std::string_view, Value> changes[]{
        {"Enabled", false},
        {"FeedConstant", 12.25F},
        {"GearBoxInput", std::int16_t{4}},
        {"GearBoxOutput", std::int16_t{4}},
        {"MovementType", "rotary"},
        {"PulseType", ""},
        {"Resolution", 100'001},
        {"UserUnit", "mm "},
    };
    const Ref<Object> encoder = filledEncoder();
    EXPECT_EQ(invoke(*encoder, "SameAs", filledEncoder()), Value(true));
    EXPECT_EQ(invoke(*encoder, "SameAs", encoder), Value(true));
    for (const auto& [property, value] : changes) {
        const Ref<Object> other = filledEncoder();
        other->put(property, value);
        EXPECT_EQ(invoke(*encoder, "SameAs", other), Value(false)) << property;
        EXPECT_EQ(invoke(*other, "SameAs", encoder), Value(false)) << property;
    }
}

TEST(SmallDevices, ADX260StartsAtNodeZero) {
    EXPECT_EQ(make<clsBVTDX260>()->get("NodeNumber"), Value(std::int16_t{0}));
}

TEST(SmallDevices, DX260sWithEqualNodesAreTheSame) {
    const Ref<Object> a = make<clsBVTDX260>(), b = make<clsBVTDX260>();
    a->put("NodeNumber", 7);
    EXPECT_EQ(invoke(*a, "SameAs", b), Value(false));
    b->put("NodeNumber", 7);
    EXPECT_EQ(invoke(*a, "SameAs", b), Value(true));
    const Ref<Object> copy = invoke(*a, "IsTheSame").toObject();
    EXPECT_NE(copy.get(), a.get());
    EXPECT_EQ(copy->get("NodeNumber"), Value(std::int16_t{7}));
}

TEST(SmallDevices, ADX260IsItsDescriptionAndItsNode) {
    const Ref<Object> device = make<clsBVTDX260>();
    EXPECT_EQ(invoke(*device, "OutputToFile", "DX260 "), Value("DX260 0"));
    device->put("NodeNumber", -12);
    EXPECT_EQ(invoke(*device, "OutputToFile", "DX260,"), Value("DX260,-12"));
    EXPECT_EQ(invoke(*device, "OutputToFile", ""), Value("-12"));
}

template <class T>
struct PlainDevices : ::testing::Test {};
using PlainDeviceTypes = ::testing::Types<clsBVTOperatorInterface, clsBVTPC>;
TYPED_TEST_SUITE(PlainDevices, PlainDeviceTypes);

TYPED_TEST(PlainDevices, HoldNothing) {
    const Ref<Object> device = make<TypeParam>();
    EXPECT_EQ(invoke(*device, "OutputToFile", "anything"), Value(""));
    EXPECT_EQ(invoke(*device, "OutputToFile", ""), Value(""));
    EXPECT_EQ(invoke(*device, "AssignFromFile", 3, "value"), Value());
    const Ref<Object> copy = invoke(*device, "IsTheSame").toObject();
    ASSERT_NE(copy.get(), nullptr);
    EXPECT_NE(copy.get(), device.get());
    EXPECT_EQ(copy->className(), TypeParam::name);
    EXPECT_EQ(invoke(*device, "SameAs", copy), Value(true));
}

TEST(SmallDevices, AnotherClassIsNotCompared) {
    const Ref<Object> device = make<clsBVTDX260>(), other = make<clsBVTPC>();
    EXPECT_EQ(raisedBy([&] { invoke(*device, "SameAs", other); }), 13);
    EXPECT_EQ(raisedBy([&] { invoke(*device, "SameAs", Ref<Object>()); }), 91);
}

TEST(SmallDevices, AnAxioLaneHasNoMembers) {
    const Ref<Object> lane = make<clsBVTAxioLane>();
    EXPECT_EQ(lane->className(), "clsBVTAxioLane");
    EXPECT_EQ(raisedBy([&] { lane->call("IsTheSame"); }), 438);
    EXPECT_EQ(raisedBy([&] { lane->get(""); }), 438);
}

}  // namespace
}  // namespace canvas
