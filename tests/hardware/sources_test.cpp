// Who asks whom after a failure: operations that raise it again under a source text of their own, and the others.

#include "fixture.h"
#include "host/collection.h"

namespace canvas {
namespace {

using namespace fixture;
using tracing::Answer;
using tracing::ScriptedHandler;

struct Operation {
    std::string_view className;
    std::string_view name;
    std::vector<Value> arguments;
    /// What is taken out of the store before the call.
    std::string_view broken;
    std::string_view source;
};

constexpr std::string_view noProperties = "DROP TABLE tblSystemProperties";
constexpr std::string_view noNodes = "DROP TABLE tblRemoteIO";

const ModuleCase& moduleNamed(std::string_view name) {
    for (const ModuleCase& module : modules)
        if (module.name == name) return module;
    throw std::logic_error("no such class");
}

Value list() { return Value(Ref<Object>(make<Collection>())); }

const Operation raisingAgain[]{
    {"clsBVTExternalEncoder", "ImportFromCSV", {"ExternalEncoder.csv"}, noProperties, "ExternalEncoder::ImportFromCSV"},
    {"clsBVTExternalEncoder", "ExportToCSV", {"out.csv"}, noProperties, "ExternalEncoder::ExportToCSV"},
    {"clsBVTKX410", "ReadFromDB", {}, "DROP VIEW qryKX410", "KX410::ReadFromDB"},
    {"clsBVTKX410", "ExportToCSV", {"out.csv"}, noProperties, "KX410::ExportToCSV"},
    {"clsBVTKX410", "SaveToDB", {}, noProperties, "KX410::SavtToDB"},
    {"clsBVTKX410", "ImportFromCSV", {"KX410.csv"}, noProperties, "KX410::ImportFromCSV"},
    {"clsBVTRVQD", "ImportFromCSV", {"RVQD.csv"}, noProperties, "RVQD::ImportFromCSV"},
    {"clsBVTRVQD", "ExportToCSV", {"out.csv"}, noProperties, "RVQD::ExportToCSV"},
    {"clsBVTRVQD", "ReadFromDB", {}, "DROP VIEW qryRVQD", "RVQD::ReadFromDB"},
    {"clsBVTCOM1", "ReadFromDB", {}, "DROP VIEW qryCOM1", "COM1::ReadFromDB"},
    {"clsBVTCOM1", "ExportToCSV", {"out.csv"}, noProperties, "COM1::ExportToCSV"},
    {"clsBVTCOM1", "ImportFromCSV", {"COM1.csv"}, noProperties, "COM1::ImportFromCSV"},
    {"clsBVTCOM2", "ReadFromDB", {}, "DROP VIEW qryCOM2", "COM2::ReadFromDB "},
    {"clsBVTCOM2", "ExportToCSV", {"out.csv"}, noProperties, "COM2::ExportToCSV"},
    {"clsBVTCOM2", "ImportFromCSV", {"COM2.csv"}, noProperties, "COM2::ImportFromCSV"},
    {"clsBVTNetwork", "ReadFromDB", {}, "DROP VIEW qryNetwork", "Network::ReadFromDB"},
    {"clsBVTNetwork", "ExportToCSV", {"out.csv"}, noProperties, "Network::ExportToCSV"},
    {"clsBVTNetwork", "ExportToCSV", {"out.csv"}, noNodes, "Network::ExportToCSV"},
    {"clsBVTNetwork", "ImportFromCSV", {"Network.csv"}, noProperties, "Network::ImportFromCSV"},
    {"clsBVTRemoteIO", "ReadFromDB", {}, "DROP VIEW qryRemoteIO", "RemoteIO::ReadFromDB"},
    {"clsBVTRemoteIO", "ExportToCSV", {"out.csv"}, noProperties, "RemoteIO::ExportToCSV"},
    {"clsBVTRemoteIO", "ExportToCSV", {"out.csv"}, noNodes, "RemoteIO::ExportToCSV"},
    {"clsBVTRemoteIO", "ImportFromCSV", {"Network.csv", 0}, noProperties, "RemoteIO::ImportFromCSV"},
    {"clsBVTRemoteIO", "RemoveFromList", {1, 0}, noNodes, "RemoteIO::RemoveFromList"},
    {"clsBVTRemoteIO", "GetData", {"1", "", "", "", "", ""}, noNodes, "RemoteIO::GetData"},
    {"clsBVTRemoteIO", "GetRemoteIOList", {0, list(), list()}, noNodes, "RemoteIO::GetRemoteIOList"},
    {"clsBVTRemoteIO", "IsInList", {"1"}, noNodes, "RemoteIO::IsInList"},
    {"clsBVTRemoteIO", "IsNameInList", {"a"}, noNodes, "RemoteIO::IsInList"},
    {"clsBVTRemoteIO", "SetKX410Slave", {"1", false, 0, "8", "8"}, noNodes, "RemoteIO::SetKX410Slave"},
    {"clsBVTRemoteIO", "SetKX410Master", {0}, noNodes, "RemoteIO::SetKX410Master"},
    {"clsBVTRemoteIO", "RemoveAllRemoteIONodes", {}, noNodes, "RemoteIO::RemoveAllRemoteIONodes"},
};

const Operation asking[]{
    {"clsBVTRVQD", "SaveToDB", {}, noProperties, {}},
    {"clsBVTCOM1", "SaveToDB", {}, noProperties, {}},
    {"clsBVTCOM2", "SaveToDB", {}, noProperties, {}},
    {"clsBVTNetwork", "SaveToDB", {}, noProperties, {}},
    {"clsBVTExternalEncoder", "SaveToDB", {}, noProperties, {}},
    {"clsBVTRVQD", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTKX410", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTCOM1", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTCOM2", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTNetwork", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTExternalEncoder", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTRemoteIO", "RestoreDefault", {}, noProperties, {}},
    {"clsBVTNetwork", "GetAxiolaneNodes", {Array::undimensioned("String")}, "DROP VIEW qryAxiolaneNodes", {}},
    {"clsBVTRemoteIO", "SaveData", {"1", "a", "b", "8", "8", "c", 0, "N/A"}, noNodes, {}},
    {"clsBVTRemoteIO", "AllocationMemoryMaps", {0}, noNodes, {}},
    {"clsBVTRemoteIO", "GetMessageType", {"1", 0, ""}, noNodes, {}},
    {"clsBVTRemoteIO", "GetNumberOfNodes", {}, noNodes, {}},
    {"clsBVTRemoteIO", "UpdateNodeNumber", {"1", "2"}, noNodes, {}},
    {"clsBVTRemoteIO", "UpdateNodeName", {"a", "b"}, noNodes, {}},
};

struct Failures : Nodes, ::testing::WithParamInterface<Operation> {
    Ref<Object> ready() {
        const Ref<Object> module = opened(moduleNamed(GetParam().className).create());
        if (moduleNamed(GetParam().className).holdsNodes) withMaps(module);
        for (const ModuleCase& each : modules)
            file(std::string(each.tag) + ".csv", "\"" + std::string(each.tag) + "\"\r\n\"\",\"\",\"\",\"\"\r\n1,1,\"\",0\r\n");
        store.run(std::string(GetParam().broken));
        return module;
    }
    Value call(Object& module) const {
        std::vector<Value> arguments = GetParam().arguments;
        for (Value& argument : arguments)
            if (argument.text() && argument.text()->ends_with(".csv")) argument = store.folder / *argument.text();
        return module.call(GetParam().name, arguments);
    }
};

std::string operationName(const ::testing::TestParamInfo<Operation>& info) {
    return std::string(info.param.className) + "_" + std::string(info.param.name) + "_" + std::to_string(info.index);
}

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.className << '.' << operation.name; }

using RaisedAgain = Failures;
using Asked = Failures;
INSTANTIATE_TEST_SUITE_P(Operations, RaisedAgain, ::testing::ValuesIn(raisingAgain), operationName);
INSTANTIATE_TEST_SUITE_P(Operations, Asked, ::testing::ValuesIn(asking), operationName);

TEST_P(RaisedAgain, UnderItsOwnSourceTextAndNobodyIsAsked) {
    const auto module = ready();
    ScriptedHandler handler({Answer::leave});
    const RuntimeError error = errorOf([&] { call(*module); });
    EXPECT_TRUE(error.number == 3078 || error.number == 3265) << error.number;
    EXPECT_FALSE(error.description.empty());
    EXPECT_EQ(error.source, GetParam().source);
    EXPECT_TRUE(handler.asked.empty());
    EXPECT_TRUE(told().empty());
}

TEST_P(Asked, UnderItsOwnName) {
    const auto module = ready();
    ScriptedHandler handler({Answer::leave});
    call(*module);
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_TRUE(handler.asked[0].number == 3078 || handler.asked[0].number == 3265) << handler.asked[0].number;
    EXPECT_EQ(handler.asked[0].module, GetParam().className);
    EXPECT_EQ(handler.asked[0].procedure, GetParam().name);
    EXPECT_TRUE(told().empty());
}

TEST_P(Asked, HandsTheErrorOnWhenNobodyCanBeAsked) {
    const auto module = ready();
    const int number = raisedBy([&] { call(*module); });
    EXPECT_TRUE(number == 3078 || number == 3265) << number;
}

struct FailedReading : Hardware {};

TEST_F(FailedReading, ReachesTheCallerOfSetDBPath) {
    store.run("DROP VIEW qryKX410");
    const RuntimeError error = errorOf([&] { opened<clsBVTKX410>(); });
    EXPECT_NE(error.number, 0);
    EXPECT_EQ(error.source, "KX410::ReadFromDB");
}

TEST_F(FailedReading, IsWhatSetDBPathAndRestoreDefaultAskAbout) {
    const auto module = make<clsBVTCOM2>();
    store.run("DROP VIEW qryCOM2");
    ScriptedHandler handler({Answer::leave, Answer::leave});
    EXPECT_EQ(invoke(*module, "SetDBPath", store.path), Value());
    invoke(*module, "RestoreDefault");
    ASSERT_EQ(handler.asked.size(), 2U);
    EXPECT_EQ(handler.asked[0].procedure, "SetDBPath");
    EXPECT_EQ(handler.asked[1].procedure, "RestoreDefault");
}

TEST_F(FailedReading, OfTheExternalEncoderIsAPlainBox) {
    store.run("DROP VIEW qryExternalEncoder; DROP VIEW qryKX410");
    const auto module = make<clsBVTExternalEncoder>();
    std::string expected = errorOf([&] { opened<clsBVTKX410>(); }).description;
    ScriptedHandler handler({Answer::leave});
    EXPECT_EQ(invoke(*module, "SetDBPath", store.path), Value());
    EXPECT_EQ(invoke(*module, "ReadFromDB"), Value(false));
    EXPECT_TRUE(handler.asked.empty());
    ASSERT_EQ(user->boxes.size(), 2U);
    if (const auto place = expected.find("qryKX410"); place != std::string::npos)
        expected.replace(place, 8, "qryExternalEncoder");
    for (const MessageBox& box : user->boxes) {
        EXPECT_EQ(box.text, expected);
        EXPECT_EQ(box.icon, Icon::none);
        EXPECT_EQ(box.buttons, Buttons::ok);
    }
}

TEST_F(FailedReading, OfTheExternalEncodersDefaultsIsABoxToo) {
    const auto module = opened<clsBVTExternalEncoder>();
    store.run("DROP VIEW qryExternalEncoder");
    invoke(*module, "RestoreDefault");
    EXPECT_EQ(user->boxes.size(), 1U);
    EXPECT_EQ(store.property(6, 1), "d6.1,1");
}

}  // namespace
}  // namespace canvas
