// What a variable report shows of a block attribute.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/flow.h"
#include "attributes/plain.h"
#include "host/array.h"
#include "print.h"

namespace canvas {
namespace {

/// Keeps the variables in their order; an array's name stands without its parentheses.
struct Kept final : VariableSink {
    std::vector<std::string> names;
    std::vector<Value> values;

    explicit Kept(const Object& object) { object.reportVariables(*this); }
    void variable(std::string_view name, const Value& value) override {
        if (name.ends_with("()")) name.remove_suffix(2);
        names.emplace_back(name);
        values.push_back(value);
    }
    const Value& of(std::string_view name) const {
        static const Value none;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names[i] == name) return values[i];
        ADD_FAILURE() << "no variable " << name;
        return none;
    }
};

using Names = std::vector<std::string>;

TEST(VariableReport, ListsFieldsThenTheMatrixThenTheLists) {
    const struct {
        Ref<AttributeObject> block;
        Names names;
    } rows[]{
        {make<clsBVTAbortMotion>(), {"strDeceleration", "blockmatrix"}},
        {make<clsBVTChangeDynamics>(),
         {"strAcceleration", "strDeceleration", "strVelocity", "strSCurve", "blockmatrix"}},
        {make<clsBVTMoveAxis>(),
         {"strAcceleration", "strDeceleration", "strType", "strPosition", "strVelocity", "blnWaitForCompletion",
          "blockmatrix", "moveType", "choice"}},
        {make<clsBVTJogAxis>(), {"strAcceleration", "strDeceleration", "strVelocity", "blockmatrix"}},
        {make<clsBVTHomeAxis>(),
         {"strTimeOut", "strApproachVelocity", "strAcceleration", "strDeceleration", "strCreepSpeed",
          "strHomeSwitchInput", "strHomingDirection", "blockmatrix", "moveType"}},
        {make<clsBVTIncrementPosition>(), {"strOffset", "strTime", "blnWaitForCompletion", "blockmatrix", "choice"}},
        {make<clsBVTDefinePosition>(),
         {"strMain", "strExternal", "blnMainChanged", "blnExternalChanged", "blockmatrix", "choice"}},
        {make<clsBVTTorque>(), {"strSpeedLimit", "strTorque", "blockmatrix"}},
        {make<clsBVTIfEvent>(), {"strEvent", "blockmatrix"}},
        {make<clsBVTOnTime>(), {"strTimeOut", "blockmatrix"}},
        {make<clsBVTInput>(), {"strInputBlock", "strCondition", "blockmatrix", "choice"}},
        {make<clsBVTServoOnOff>(), {"blnServo", "blockmatrix", "choice"}},
        {make<clsBVTStart>(), {"strName"}},
        {make<clsBVTEnd>(), {"strName"}},
        {make<clsBVTIfFault>(), {"strType"}},
        {make<clsBVTResetFault>(), {"strType"}},
        {make<clsBVTNodeText>(), {"strNodeText", "LineCount", "MaxCharPerLine", "CharCount"}},
    };
    for (const auto& row : rows) {
        Names names = Kept(*row.block).names;
        std::erase(names, "clsValidate");  // holds nothing
        EXPECT_EQ(names, row.names) << row.block->className();
    }
}

TEST(VariableReport, ShowsTheFieldsAsTheyAre) {
    const auto move = make<clsBVTMoveAxis>();
    move->strType = "Relative";
    const Kept kept(*move);
    EXPECT_EQ(kept.of("strType"), Value("Relative"));
    EXPECT_EQ(kept.of("blnWaitForCompletion"), Value(true));
    EXPECT_EQ(Kept(*make<clsBVTNodeText>()).of("CharCount"), Value(std::int16_t{8}));
}

TEST(VariableReport, ShowsTheMatrixWithItsBounds) {
    const auto jog = make<clsBVTJogAxis>();
    const Value before = Kept(*jog).of("blockmatrix");
    ASSERT_TRUE(before.is(Kind::array));
    EXPECT_EQ(before.toArray().dimensions, (std::vector<Bounds>{{0, 2}, {0, 6}}));
    jog->FillMatrix();
    const Kept kept(*jog);
    const Array& matrix = kept.of("blockmatrix").toArray();
    EXPECT_EQ(matrix.elementType, "String");
    for (std::int32_t row = 0; row <= 2; ++row)
        for (std::int32_t column = 0; column <= 6; ++column) {
            const std::int32_t at[]{row, column};
            EXPECT_EQ(matrix.at(at), Value(jog->GetElementFromMatrix(static_cast<std::int16_t>(row),
                                                                     static_cast<std::int16_t>(column))));
        }
}

TEST(VariableReport, AMatrixThatIsNotFilledHoldsEmptyTexts) {
    const Kept kept(*make<clsBVTJogAxis>());
    const Array& matrix = kept.of("blockmatrix").toArray();
    EXPECT_EQ(matrix.elements, std::vector<Value>(21, Value("")));
}

TEST(VariableReport, ShowsTheLists) {
    const Kept kept(*make<clsBVTMoveAxis>());
    EXPECT_EQ(kept.of("moveType").toArray().elements, (std::vector<Value>{"Absolute", "Relative", "Rotary Shortest"}));
    EXPECT_EQ(kept.of("choice").toArray().elements, (std::vector<Value>{"True", "False"}));
    EXPECT_EQ(Kept(*make<clsBVTInput>()).of("choice").toArray().elements.size(), 4u);
}

}  // namespace
}  // namespace canvas
