// The values that reading hands to its caller, and the gear ratios that are mended on the way.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct ControllerValues : Hardware {
    /// ReadFromDB with eight texts, which start as "before".
    static Texts read(const Ref<Object>& module, std::size_t count = 8) {
        std::vector<Value> arguments(count, Value("before"));
        EXPECT_EQ(module->call("ReadFromDB", arguments), Value(true));
        Texts found;
        for (const Value& value : arguments) {
            EXPECT_TRUE(value.is(Kind::text));
            found.push_back(value.toText());
        }
        return found;
    }
};

TEST_F(ControllerValues, ComeFromEightRowsByPosition) {
    EXPECT_EQ(read(opened<clsBVTKX410>()), (Texts{"2004", "2005", "2006", "2008", "2009", "2011", "2013", "2014"}));
}

TEST_F(ControllerValues, MayBeLeftOut) {
    const auto module = opened<clsBVTKX410>();
    edit(module, 14, "edited");
    EXPECT_EQ(read(module, 2), (Texts{"2004", "2005"}));
    EXPECT_EQ(invoke(*module, "ReadFromDB"), Value(true));
    for (int row = 0; row < 15; ++row) EXPECT_EQ(cell(module, row), valueOf(2, row + 1));
}

TEST_F(ControllerValues, FollowTheirPositionAndNotTheirName) {
    store.set(2, 4, "PropertyName", "Gearbox input");
    EXPECT_EQ(read(opened<clsBVTKX410>())[0], "2004");
}

TEST_F(ControllerValues, AreTextsWhateverTheStoreHolds) {
    store.set(2, 6, "Value", "12.50");
    store.set(2, 11, "Value", "");
    const Texts found = read(opened<clsBVTKX410>());
    EXPECT_EQ(found[2], "12.50");
    EXPECT_EQ(found[5], "");
}

TEST_F(ControllerValues, AGearRatioOfZeroReadsAsOneAndTheStoreKeepsItsZero) {
    store.set(2, 8, "Value", "0");
    const auto module = opened<clsBVTKX410>();
    EXPECT_EQ(read(module)[3], "1");
    EXPECT_EQ(cell(module, 7), "1");
    EXPECT_EQ(store.property(2, 8), "0,0");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(2, 8), "1,1");
}

TEST_F(ControllerValues, ANegativeGearRatioChangesTheValueAndNotItsBound) {
    store.set(2, 9, "Value", "-5");
    const auto module = opened<clsBVTKX410>();
    EXPECT_EQ(read(module)[4], "1");
    EXPECT_EQ(cell(module, 8), "1");
    EXPECT_EQ(cell(module, 8, 10), "1");
    EXPECT_EQ(cell(module, 7), "2008");
}

TEST_F(ControllerValues, ALowerBoundOfAGearRatioIsRaisedToOne) {
    for (const std::string bound : {"0", "-3", "-0.5"})
        for (const int row : {8, 9}) {
            store.set(2, row, "MinimumValue", bound);
            const auto module = opened<clsBVTKX410>();
            EXPECT_EQ(cell(module, row - 1, 10), "1") << bound;
            EXPECT_EQ(cell(module, row - 1), valueOf(2, row));
            store.set(2, row, "MinimumValue", "1");
        }
}

TEST_F(ControllerValues, ALowerBoundAboveZeroStays) {
    store.set(2, 8, "MinimumValue", "0.25");
    store.set(2, 9, "MinimumValue", "2");
    const auto module = opened<clsBVTKX410>();
    EXPECT_EQ(cell(module, 7, 10), "0.25");
    EXPECT_EQ(cell(module, 8, 10), "2");
}

TEST_F(ControllerValues, OtherRowsKeepZeroAndNegativeValues) {
    for (int row = 1; row <= 15; ++row) {
        if (row == 8 || row == 9) continue;
        store.set(2, row, "Value", "-5");
        store.set(2, row, "MinimumValue", "0");
    }
    const auto module = opened<clsBVTKX410>();
    for (int row = 1; row <= 15; ++row) {
        if (row == 8 || row == 9) continue;
        EXPECT_EQ(cell(module, row - 1), "-5");
        EXPECT_EQ(cell(module, row - 1, 10), "0");
    }
    EXPECT_EQ(read(module), (Texts{"-5", "-5", "-5", "2008", "2009", "-5", "-5", "-5"}));
}

TEST_F(ControllerValues, TheRepairReachesDefaultsThatAreRestored) {
    store.set(2, 8, "Default", "0");
    store.set(2, 9, "Default", "3");
    const auto module = opened<clsBVTKX410>();
    invoke(*module, "RestoreDefault");
    EXPECT_EQ(cell(module, 7), "1");
    EXPECT_EQ(store.property(2, 8), "0,1");
    EXPECT_EQ(store.property(2, 9), "3,1");
}

struct EncoderValues : Hardware {};

TEST_F(EncoderValues, ComeFromSevenRowsByPosition) {
    const auto module = opened<clsBVTExternalEncoder>();
    std::vector<Value> arguments(7, Value("before"));
    EXPECT_EQ(module->call("ReadFromDB", arguments), Value(true));
    EXPECT_EQ(arguments, (std::vector<Value>{"6004", "6005", "6006", "6007", "6008", "6009", "6010"}));
}

TEST_F(EncoderValues, MayBeLeftOut) {
    const auto module = opened<clsBVTExternalEncoder>();
    Value arguments[]{"before"};
    EXPECT_EQ(module->call("ReadFromDB", arguments), Value(true));
    EXPECT_EQ(arguments[0], Value("6004"));
}

TEST_F(EncoderValues, AGearRatioOfZeroIsNotMended) {
    store.set(6, 5, "Value", "0");
    const auto module = opened<clsBVTExternalEncoder>();
    EXPECT_EQ(cell(module, 4), "0");
}

TEST_F(EncoderValues, TheLastCellOfTheMatrixCanBeSet) {
    const auto module = opened<clsBVTExternalEncoder>();
    edit(module, 10, "x", 14);
    EXPECT_EQ(cell(module, 10, 14), "x");
}

}  // namespace
}  // namespace canvas
