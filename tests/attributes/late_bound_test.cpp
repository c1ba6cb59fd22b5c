// Block attributes reached by name, as hosts and dialogs reach them.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/flow.h"
#include "attributes/plain.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::FakeChecker;

struct Conversion {
    Ref<Object> (*create)();
    const char* property;
    Value given;
    Value held;     ///< when no error is raised
    int error = 0;  ///< else
};

template <class T>
Ref<Object> created() {
    return make<T>();
}

Ref<Object> withDefault(Value value) {
    const auto object = make<Composed>();
    object->property("", std::move(value));
    return object;
}

TEST(LateBound, PropertiesConvertWhatTheyAreGiven) {
    const Conversion rows[]{
        {created<clsBVTAbortMotion>, "Deceleration", "a + b", "a + b"},
        {created<clsBVTAbortMotion>, "Deceleration", 1.5, "1.5"},
        {created<clsBVTAbortMotion>, "Deceleration", std::int32_t{-70000}, "-70000"},
        {created<clsBVTAbortMotion>, "Deceleration", true, "True"},
        {created<clsBVTAbortMotion>, "Deceleration", Value(), ""},
        {created<clsBVTAbortMotion>, "Deceleration", "-1", "-1"},  // no check: that is the panel's business
        {created<clsBVTAbortMotion>, "Deceleration", Null{}, {}, 94},
        {created<clsBVTAbortMotion>, "Deceleration", withDefault("x"), "x"},
        {created<clsBVTMoveAxis>, "WaitForCompletion", false, false},
        {created<clsBVTMoveAxis>, "WaitForCompletion", "False", false},
        {created<clsBVTMoveAxis>, "WaitForCompletion", "0", false},
        {created<clsBVTMoveAxis>, "WaitForCompletion", std::int16_t{0}, false},
        {created<clsBVTMoveAxis>, "WaitForCompletion", Value(), false},
        {created<clsBVTMoveAxis>, "WaitForCompletion", 0.25, true},
        {created<clsBVTMoveAxis>, "WaitForCompletion", "true", true},
        {created<clsBVTMoveAxis>, "WaitForCompletion", "maybe", {}, 13},
        {created<clsBVTMoveAxis>, "WaitForCompletion", Null{}, {}, 94},
        {created<clsBVTMoveAxis>, "TypeK", "no such type", "no such type"},
        {created<clsBVTStart>, "Name", std::int16_t{5}, "5"},
        {created<clsBVTEnd>, "Name", "Main", "Main"},
        {created<clsBVTIfFault>, "TypeK", std::int16_t{3}, "3"},
        {created<clsBVTNodeText>, "LineCount", "12", std::int16_t{12}},
        {created<clsBVTNodeText>, "MaxCharPerLine", 2.5, std::int16_t{2}},
        {created<clsBVTNodeText>, "CharCount", std::int32_t{40000}, {}, 6},
        {created<clsBVTNodeText>, "CharCount", "many", {}, 13},
        {created<clsBVTNodeText>, "NodeText", "two\r\nlines", "two\r\nlines"},
    };
    for (const Conversion& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.property << " = " << ::testing::PrintToString(row.given));
        const auto object = row.create();
        const Value before = object->get(row.property);
        EXPECT_EQ(raisedBy([&] { object->put(row.property, row.given); }), row.error);
        EXPECT_EQ(object->get(row.property), row.error ? before : row.held);
        EXPECT_EQ(object->call(row.property), object->get(row.property)) << "a property answers a call too";
    }
}

TEST(LateBound, NamesThatDoNotExistAreRefused) {
    const Ref<Object> block = make<clsBVTAbortMotion>();
    for (const char* name : {"Acceleration", "strDeceleration", "blockmatrix", "clsValidate", "", "Deceleration ",
                             "IBlockAttribute_Deceleration", "IBlockAttribute_IsTheSame"}) {
        EXPECT_EQ(raisedBy([&] { block->get(name); }), 438) << name;
        EXPECT_EQ(raisedBy([&] { block->call(name); }), 438) << name;
        EXPECT_EQ(raisedBy([&] { block->put(name, "1"); }), 438) << name;
    }
    EXPECT_EQ(raisedBy([&] { block->put("IsTheSame", "1"); }), 438) << "an operation cannot be written";
}

TEST(LateBound, AWrongNumberOfArgumentsIsRefused) {
    const Ref<Object> block = make<clsBVTAbortMotion>();
    Value arguments[3]{"1", "2", "3"};
    EXPECT_EQ(raisedBy([&] { block->get("Deceleration", Args(arguments, 1)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("IsTheSame", Args(arguments, 1)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("SameAs"); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("OutputToFile"); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("OutputToFile", Args(arguments, 2)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("AssignFromFile", Args(arguments, 1)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("GetElementFromMatrix", Args(arguments, 1)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("PropertiesSyntaxCheck", Args(arguments, 2)); }), 450);
    EXPECT_EQ(raisedBy([&] { block->call("IBlockAttribute_GetPropertyAt"); }), 450);
}

TEST(LateBound, TheCommonOperationsAnswer) {
    const Ref<Object> block = make<clsBVTAbortMotion>();
    EXPECT_EQ(invoke(*block, "assignfromfile", "1", 2.5), Value()) << "arguments convert";
    EXPECT_EQ(invoke(*block, "OutputToFile", "7 "), Value("7 1 \"2.5\""));
    const Ref<Object> copy = block->call("IsTheSame").toObject();
    ASSERT_NE(copy, block);
    EXPECT_EQ(copy->className(), "clsBVTAbortMotion");
    EXPECT_EQ(invoke(*block, "SameAs", copy), Value(true));
    copy->put("Deceleration", "3");
    EXPECT_EQ(invoke(*block, "SameAs", copy), Value(false));
}

TEST(LateBound, TheMatrixAnswersUnderBothNames) {
    for (const std::string prefix : {"", "IBlockAttribute_"}) {
        const Ref<Object> block = make<clsBVTMoveAxis>();
        EXPECT_EQ(block->call(prefix + "FillMatrix"), Value(false));
        EXPECT_EQ(block->call(prefix + "MatrixRow"), Value(std::int16_t{5}));
        EXPECT_EQ(block->call(prefix + "MatrixCol"), Value(std::int16_t{6}));
        EXPECT_EQ(invoke(*block, prefix + "GetElementFromMatrix", "0", std::int32_t{1}), Value("Absolute"));
        EXPECT_EQ(invoke(*block, prefix + "getelementfrommatrix", std::int16_t{6}, std::int16_t{0}), Value(""));
        EXPECT_EQ(block->call(prefix + "GetNumOfProperties"), Value(std::int16_t{6}));
        EXPECT_EQ(invoke(*block, prefix + "GetPropertyAt", std::int16_t{6}), Value("True"));
        const auto items = make<Collection>();
        EXPECT_EQ(invoke(*block, prefix + "GetComboItem", std::int16_t{5}, Ref<Object>(items)), Value(false));
        EXPECT_EQ(items->Count(), 2);
    }
}

TEST(LateBound, ACellCommitWritesItsArgumentsBack) {
    for (const char* name : {"UpdateElementInMatrix", "IBlockAttribute_UpdateElementInMatrix"}) {
        const Ref<Object> block = make<clsBVTAbortMotion>();
        FakeChecker checker;
        checker.otherwise.value = Null{};
        checker.otherwise.isLValue = true;
        Value arguments[]{
            true,  std::int16_t{0}, "x", "", checker.object(), std::int32_t{0}, std::int32_t{0}, std::int32_t{0},
            false, Value(),         ""};
        EXPECT_EQ(block->call(name, arguments), Value(true));
        EXPECT_EQ(arguments[2], Value("x"));
        EXPECT_EQ(arguments[3], Value(""));
        EXPECT_EQ(arguments[7], Value(std::int32_t{16}));
        EXPECT_EQ(arguments[8], Value(true));
        EXPECT_EQ(arguments[9], Value(Null{}));
        EXPECT_EQ(arguments[10], Value("[x]"));
        arguments[2] = "-1";
        EXPECT_EQ(block->call(name, arguments), Value(false));
        EXPECT_EQ(arguments[3], Value("Expecting a positive real number in the range of [0.0 To 3.402823E+38]."));
        EXPECT_EQ(arguments[5], Value(std::int32_t{1}));
        EXPECT_EQ(arguments[6], Value(std::int32_t{2}));
    }
}

TEST(LateBound, APanelCommitWritesItsArgumentsBack) {
    for (const char* name : {"UpdateMatrix", "IBlockAttribute_UpdateMatrix"}) {
        const Ref<Object> block = make<clsBVTChangeDynamics>();
        FakeChecker checker;
        Value arguments[]{true,
                          std::int16_t{0},
                          testing::panelOf({"1", "2", "3", "256"}),
                          Ref<Object>(),
                          "",
                          std::int16_t{0},
                          checker.object(),
                          std::int32_t{0},
                          std::int32_t{0},
                          std::int32_t{0},
                          false,
                          Value(),
                          ""};
        EXPECT_EQ(block->call(name, arguments), Value(false));
        EXPECT_EQ(arguments[4], Value("Expecting an integer in the range of [0 To 255]."));
        EXPECT_EQ(arguments[5], Value(std::int16_t{4}));
        EXPECT_EQ(arguments[7], Value(std::int32_t{1}));
        EXPECT_EQ(arguments[8], Value(std::int32_t{3}));
        EXPECT_EQ(arguments[12], Value("[1]"));
        arguments[2] = testing::panelOf({"1", "2", "3", "255"});
        EXPECT_EQ(block->call(name, arguments), Value(true));
        EXPECT_EQ(block->get("SCurve"), Value("255"));
    }
}

TEST(LateBound, TheSecondPanelTabIsEmptyAndHasPrefixedNamesOnly) {
    for (const Ref<Object>& block : {Ref<Object>(make<clsBVTAbortMotion>()), Ref<Object>(make<clsBVTStart>())}) {
        EXPECT_EQ(block->call("IBlockAttribute_AdvancedMatrixCol"), Value(std::int16_t{0}));
        EXPECT_EQ(block->call("IBlockAttribute_AdvancedMatrixRow"), Value(std::int16_t{0}));
        EXPECT_EQ(invoke(*block, "IBlockAttribute_GetElementFromAdvancedMatrix", std::int16_t{0}, std::int16_t{0}),
                  Value(""));
        const auto items = make<Collection>();
        EXPECT_EQ(invoke(*block, "IBlockAttribute_GetAdvancedComboItem", std::int16_t{0}, Ref<Object>(items)),
                  Value(false));
        EXPECT_EQ(items->Count(), 0);
        EXPECT_EQ(block->call("IBlockAttribute_IsAdvancedOn"), Value(false));
        for (const char* plain : {"AdvancedMatrixCol", "AdvancedMatrixRow", "IsAdvancedOn"})
            EXPECT_EQ(raisedBy([&] { block->call(plain); }), 438) << plain;
    }
}

TEST(SameAsByName, TakesAHostsObjectWithTheSameProperties) {
    const auto block = make<clsBVTMoveAxis>();
    const auto host = make<Composed>();
    for (const char* property : {"acceleration", "DECELERATION", "Velocity", "Position"})
        host->property(property, "0.0");
    host->property("TypeK", "Absolute").property("WaitForCompletion", true);
    EXPECT_TRUE(block->SameAs(host));
    EXPECT_EQ(invoke(*block, "SameAs", Ref<Object>(host)), Value(true));
    host->property("WaitForCompletion", false);
    EXPECT_FALSE(block->SameAs(host));
    host->property("WaitForCompletion", true).property("TypeK", "absolute");
    EXPECT_FALSE(block->SameAs(host)) << "case counts";
    host->property("TypeK", "Absolute").property("Position", "0");
    EXPECT_FALSE(block->SameAs(host));
}

TEST(SameAsByName, AnObjectThatLacksAPropertyIsRefused) {
    const auto block = make<clsBVTJogAxis>();
    const auto host = make<Composed>();
    host->property("Acceleration", "0.0").property("Deceleration", "0.0");
    EXPECT_EQ(raisedBy([&] { block->SameAs(host); }), 438);
    EXPECT_EQ(raisedBy([&] { invoke(*block, "SameAs", Ref<Object>(host)); }), 438);
    host->property("Velocity", "0.0");
    EXPECT_TRUE(block->SameAs(host));
    testing::Answering handler{tracing::Answer::leave};
    EXPECT_FALSE(block->SameAs(make<Composed>()));
    ASSERT_EQ(handler.failures.size(), 1u);
    EXPECT_EQ(handler.failures[0].number, 438);
}

TEST(SameAsByName, NothingIsAnObjectThatIsNotSet) {
    const auto block = make<clsBVTAbortMotion>();
    EXPECT_EQ(raisedBy([&] { block->SameAs(nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { invoke(*block, "SameAs", Ref<Object>()); }), 91);
}

TEST(SameAsByName, AnotherClassWithTheSamePropertiesWillDo) {
    const auto start = make<clsBVTStart>();
    const auto end = make<clsBVTEnd>();
    EXPECT_TRUE(start->SameAs(end));
    end->strName = "x";
    EXPECT_FALSE(start->SameAs(end));
}

}  // namespace
}  // namespace canvas
