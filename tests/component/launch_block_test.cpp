// A Launch Program block that a host makes looks into the programs of its tasks, however it was made.

#include <gtest/gtest.h>

#include "component/class_list.h"
#include "tests/component/fake_host.h"
#include "tests/document/fixture.h"

namespace canvas::component::testing {
namespace {

struct LaunchBlock : fixture::Drawing {
    Com<FakeHost> project = makeHost(), list = makeHost(), task = makeHost(), noTask = makeHost();

    LaunchBlock() {
        project.get()->members = {{"tasklist", giving(Value(asObject(list)))}, {"workingdirectory", giving("C:\\Job")}};
        list.get()->members = {{"gettaskat", [this](const HostCall& call) {
                                    const bool first = valueOf(call[0]).toLong() == 0;
                                    return call.answer(Value(asObject(first ? task : noTask)));
                                }}};
        task.get()->members = {{"istaskdefined", giving(true)}, {"taskname", giving("lift.bpg")}, {"tasktitle", giving("Lift")}};
        noTask.get()->members = {{"istaskdefined", giving(false)}};
        disk->contents["lift.bpa"] =
            "VERSION_NUMBER 200\r\nNUM_BLOCKS 1\r\nWINDOW_PARAMS_DEFINE 0 0 100 100 100% 0 0 0\r\n"
            "BLOCK_DEFINE 1 17 \"Start\" -1 -1 0 \"\" 0 1 0 0 1 \"\"\r\n";
    }

    std::string findings(IDispatch* block, std::int16_t blockNumber) {
        EXPECT_EQ(call(block, "SetArBlockNumber", {1, blockNumber}).result, S_OK);
        OwnedVariant message;
        give(Value(""), message);
        OwnedVariant checked, id;
        give(Value(asObject(project)), checked);
        give(Value(5), id);
        const Outcome outcome = invokeRaw(block, numberOf(block, "PropertiesSyntaxCheck"), DISPATCH_METHOD,
                                          {checked, id, referenceTo(message)});
        EXPECT_EQ(outcome.result, S_OK) << outcome.description;
        return valueOf(message).toText();
    }
    void expectChecks(const Value& made) {
        const auto block = dispatchOf(made.toObject());
        EXPECT_EQ(findings(block.get(), 1), "");
        EXPECT_EQ(findings(block.get(), 7), "  (5,1) Error: BlockID 7 does not exist in 'Lift'.@");
    }
};

TEST_F(LaunchBlock, ChecksWhenTheHostCreatesIt) {
    const auto block = dispatchOf(classNamed("clsBVTRestartProgram")->create());
    expectChecks(Value(objectBehind(block.get())));
    expectChecks(call(block.get(), "IsTheSame").value);
}

TEST_F(LaunchBlock, ChecksWhenItIsABlocksOwn) {
    const auto block = dispatchOf(classNamed("clsBVTBlock")->create());
    put(block.get(), "BlockType", 16);
    expectChecks(call(block.get(), "BVTAttribute").value);
    const auto factory = dispatchOf(classNamed("clsBVTGetBlockObject")->create());
    expectChecks(call(factory.get(), "GetObject", {16}).value);
}

}  // namespace
}  // namespace canvas::component::testing
