// canvas store new, show, set and reset.

#include <thread>

#include "tests/cli/store.h"

using namespace canvas;
using store_cli::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class StoreValues : public store_cli::Store {};

struct Refusal {
    const char *module, *property, *value, *rule;
};

}  // namespace

TEST_F(StoreValues, ANewStoreIsNeverPutInPlaceOfAFile) {
    const std::string before = scratch::bytesOf(path);
    const auto answer = said({"new"});
    EXPECT_EQ(answer.code, 4);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "canvas: 'plant.db': File already exists\n");
    EXPECT_EQ(scratch::bytesOf(path), before);
}

TEST_F(StoreValues, ShowsEveryModuleInTheOrderOfItsGroup) {
    const Json shown = json({"show"});
    std::vector<std::pair<std::string, std::size_t>> modules;
    for (const Json& module : shown["modules"]) modules.emplace_back(module["module"], module["properties"].size());
    EXPECT_THAT(modules,
                ElementsAre(std::pair("RVQD", 71), std::pair("KX410", 15), std::pair("COM1", 7), std::pair("COM2", 8),
                            std::pair("Network", 13), std::pair("ExternalEncoder", 11), std::pair("RemoteIO", 9)));
    for (const Json& module : shown["modules"])
        for (std::size_t i = 0; i < module["properties"].size(); ++i)
            EXPECT_EQ(module["properties"][i]["number"], i + 1);
    EXPECT_EQ(shown["modules"][2]["properties"][1]["choices"], Json({"7", "8"}));
}

TEST_F(StoreValues, ShowsOneModuleByNameOrClassWhateverTheCase) {
    for (const char* name : {"COM2", "com2", "clsBVTCOM2"}) {
        const Json shown = json({"show"}, {"--module", name});
        ASSERT_EQ(shown["modules"].size(), 1U);
        EXPECT_EQ(shown["modules"][0]["module"], "COM2");
    }
    const auto answer = said({"show"}, {"--module", "COM3"});
    EXPECT_EQ(answer.code, 2);
    EXPECT_THAT(answer.err, HasSubstr("no module is called 'COM3'"));
}

TEST_F(StoreValues, SetsOnePropertyAndMarksItsModule) {
    const Json answer = json({"set"}, {"ExternalEncoder", "FeedConstant", "12.5"});
    ASSERT_EQ(answer["changes"].size(), 1U);
    EXPECT_EQ(answer["changes"][0]["before"], "360");
    EXPECT_EQ(answer["changes"][0]["after"], "12.5");
    EXPECT_EQ(valueOf(6, 4), "12.5");
    EXPECT_THAT(rows("SELECT groupID, count(*) FROM tblSystemProperties WHERE Dirty = 1 GROUP BY groupID"),
                ElementsAre("6,11"));
}

TEST_F(StoreValues, FindsAPropertyByNameWithoutCaseOrByNumber) {
    EXPECT_EQ(said({"set"}, {"COM1", "baudrate", "1200"}).code, 0);
    EXPECT_EQ(valueOf(3, 1), "1200");
    EXPECT_EQ(said({"set"}, {"COM1", "1", "2400"}).code, 0);
    EXPECT_EQ(valueOf(3, 1), "2400");
    const auto answer = said({"set"}, {"COM1", "StationNumber", "3"});
    EXPECT_EQ(answer.code, 2);
    EXPECT_EQ(answer.err, "canvas: COM1 has no property 'StationNumber'\n");
}

TEST_F(StoreValues, SaysSoWhenTheValueWasThereAlready) {
    const auto answer = said({"set"}, {"COM1", "BaudRate", "9600"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.out, "no changes\n");
}

TEST_F(StoreValues, RefusesWhatItsPropertyDoesNotTake) {
    const Refusal refusals[] = {
        {"COM1", "BaudRate", "9601", "list"},
        {"COM1", "Parity", "none", "list"},
        {"COM2", "StationNumber", "0", "bounds"},
        {"COM2", "StationNumber", "248", "bounds"},
        {"COM2", "StationNumber", "-1", "type"},
        {"COM2", "StationNumber", "1.5", "type"},
        {"COM2", "StationNumber", "", "type"},
        {"COM2", "StationNumber", "first", "type"},
        {"COM2", "StationNumber", "40000", "type"},
        {"KX410", "GearboxInput", "0", "bounds"},
        {"KX410", "CycleTime", "0.4", "bounds"},
        {"KX410", "MotorReversed", "perhaps", "type"},
        {"KX410", "ControllerType", "KX410", "read-only"},
        {"RVQD", "AmplifierType", "RVQD-20A", "read-only"},
        {"RVQD", "OptionWord", "12345", "bounds"},
        {"RVQD", "OptionWord", "1G", "type"},
        {"RVQD", "OptionWord", "", "type"},
        {"RVQD", "CommutationOffset", "180.5", "bounds"},
        {"RVQD", "CurrentOffsetU", "2048", "bounds"},
        {"RemoteIO", "MaximumNodes", "5", "read-only"},
    };
    const auto before = rows("SELECT * FROM tblSystemProperties");
    for (const Refusal& refusal : refusals) {
        const Json answer = json({"set"}, {refusal.module, refusal.property, refusal.value}, 1);
        ASSERT_EQ(answer["findings"].size(), 1U) << refusal.property << ' ' << refusal.value;
        EXPECT_EQ(answer["findings"][0]["rule"], refusal.rule) << refusal.property << ' ' << refusal.value;
        EXPECT_EQ(answer["findings"][0]["name"], refusal.property);
    }
    EXPECT_EQ(rows("SELECT * FROM tblSystemProperties"), before);
}

TEST_F(StoreValues, TakesValuesAtTheirBounds) {
    const std::tuple<const char*, const char*, const char*> taken[] = {
        {"COM2", "StationNumber", "1"},         {"COM2", "StationNumber", "247"},
        {"KX410", "CycleTime", "0.5"},          {"KX410", "CycleTime", "20"},
        {"RVQD", "CurrentOffsetU", "-2048"},    {"RVQD", "FollowingErrorLimit", "2147483647"},
        {"RVQD", "CommutationOffset", "-17.5"}, {"KX410", "MotorReversed", "True"},
        {"KX410", "ControllerName", "Ω-line"},
    };
    for (const auto& [module, property, value] : taken)
        EXPECT_EQ(said({"set"}, {module, property, value}).code, 0) << property << ' ' << value;
}

TEST_F(StoreValues, KeepsHexadecimalWordsInDecimal) {
    const std::tuple<const char*, const char*> words[] = {
        {"FFFF", "65535"}, {"FFFF H", "65535"}, {"8000", "32768"}, {"1F", "31"}, {"1f H", "31"}, {"0", "0"},
    };
    for (const auto& [shown, stored] : words) {
        EXPECT_EQ(said({"set"}, {"RVQD", "OptionWord", shown}).code, 0) << shown;
        EXPECT_EQ(valueOf(1, 71), stored) << shown;
    }
    EXPECT_EQ(said({"set"}, {"RVQD", "OptionWord", "1F"}).code, 0);
    EXPECT_EQ(json({"show"}, {"--module", "RVQD"})["modules"][0]["properties"][70]["value"], "001F H");
}

TEST_F(StoreValues, TellsWhatAModuleDoesNotSave) {
    sql("UPDATE tblPropertyNumberLookup SET Accessibility = 1");
    const auto answer = said({"set"}, {"RVQD", "AmplifierType", "RVQD-20A"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_THAT(answer.out, HasSubstr("not-taken"));
    EXPECT_EQ(said({"set"}, {"RVQD", "AmplifierName", ""}).code, 1) << "an empty value leaves its row";
    EXPECT_EQ(said({"set"}, {"RemoteIO", "MaximumNodes", "5"}).code, 1);
    EXPECT_EQ(valueOf(7, 2), "63");
}

TEST_F(StoreValues, GivesDefaultsBack) {
    said({"set"}, {"COM1", "BaudRate", "1200"});
    said({"set"}, {"COM2", "BaudRate", "1200"});
    EXPECT_EQ(said({"reset"}, {"COM1"}).out, "COM1 1 BaudRate: 1200 -> 9600\n");
    EXPECT_EQ(valueOf(3, 1), "9600");
    EXPECT_EQ(valueOf(4, 1), "1200");
    EXPECT_EQ(said({"reset"}, {"all"}).out, "COM2 1 BaudRate: 1200 -> 9600\n");
    EXPECT_EQ(said({"reset"}, {"all"}).out, "no changes\n");
}

TEST_F(StoreValues, ResetIsTheWayBackOfAModuleThatCannotBeRead) {
    sql("UPDATE tblSystemProperties SET Value = 'abc' WHERE groupID = 1 AND PropertyNumber = 63");
    EXPECT_EQ(said({"show"}, {"--module", "RVQD"}).code, 3);
    const auto answer = said({"reset"}, {"RVQD"});
    EXPECT_EQ(answer.code, 0) << answer.err;
    EXPECT_EQ(answer.out, "RVQD 63 InputPolarity: abc -> 0000 H\n");
    EXPECT_EQ(said({"show"}, {"--module", "RVQD"}).code, 0);
}

TEST_F(StoreValues, SettersAtTheSameTimeLoseNothing) {
    const std::pair<std::string, std::string> values[] = {
        {"ScanInterval", "11"}, {"Retries", "7"}, {"ResponseTime", "51"}, {"StartDelay", "1001"}};
    std::vector<std::thread> setters;
    for (const auto& [property, value] : values)
        setters.emplace_back([&] { EXPECT_EQ(said({"set"}, {"Network", property, value}).code, 0); });
    for (std::thread& setter : setters) setter.join();
    for (const auto& [number, value] :
         {std::pair{7, "11"}, std::pair{8, "51"}, std::pair{9, "7"}, std::pair{11, "1001"}})
        EXPECT_EQ(valueOf(5, number), value);
}

TEST_F(StoreValues, TakesMarksOff) {
    said({"set"}, {"COM1", "BaudRate", "1200"});
    said({"set"}, {"COM2", "BaudRate", "1200"});
    EXPECT_EQ(said({"reset"}, {"COM1", "--marks"}).code, 0);
    EXPECT_THAT(rows("SELECT DISTINCT groupID FROM tblSystemProperties WHERE Dirty <> 0"), ElementsAre("4"));
    EXPECT_EQ(valueOf(3, 1), "1200");
}

TEST_F(StoreValues, ShowsControlCharactersAsText) {
    sql("UPDATE tblSystemProperties SET Value = 'a' || char(27, 10) || 'b' WHERE groupID = 2 AND PropertyNumber = 2");
    EXPECT_THAT(said({"show"}, {"--module", "KX410"}).out, HasSubstr("ControllerName   a\\x1B\\x0Ab"));
}
