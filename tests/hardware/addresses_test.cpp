// Base addresses of remote nodes: when they are taken, kept, released and rebuilt, as the host's memory maps see it.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;
using tracing::Answer;
using tracing::ScriptedHandler;

struct Addresses : Nodes {
    Ref<Object> module = withMaps();

    Value save(const std::string& node, const std::string& in, const std::string& out, int networkType = 0) const {
        return invoke(*module, "SaveData", node, "name", "type", in, out, "1077", networkType, "N/A");
    }
    void add(const std::string& node, const std::string& in, const std::string& out, const std::string& inAddress,
             const std::string& outAddress) const {
        store.addNode({node, "old", "old type", in, out, inAddress, outAddress, "1", "Polled", "0"});
    }
    std::string addresses(const std::string& node) const {
        return store.one("SELECT InputWords, OutputWords, InputBaseAddress, OutputBaseAddress FROM tblRemoteIO WHERE Node = " +
                         literal(node));
    }
    void forget() { inputs.calls.clear(), outputs.calls.clear(); }
};

TEST_F(Addresses, ANewNodeTakesBothSides) {
    EXPECT_EQ(save("5", "8", "4"), Value());
    EXPECT_EQ(store.nodes(), Texts{"5,name,type,8,4,IW0300,OW0600,1077,N/A,1"});
    EXPECT_EQ(asked(), (Texts{"in.GetAddresses(W,8,0)", "out.GetAddresses(W,4,1)"}));
}

TEST_F(Addresses, TheLetterFollowsTheNetwork) {
    const std::pair<int, std::string> letters[]{{0, "W"}, {1, "O"}, {2, ""}, {-1, ""}};
    for (const auto& [type, letter] : letters) {
        forget();
        save("n" + std::to_string(type), "8", "4", type);
        EXPECT_EQ(asked(), (Texts{"in.GetAddresses(" + letter + ",8,0)", "out.GetAddresses(" + letter + ",4,1)"})) << type;
    }
}

TEST_F(Addresses, ABlankNumberDoesNothing) {
    for (const std::string blank : {"", " ", "    "}) save(blank, "8", "4");
    EXPECT_EQ(store.nodes(), Texts{});
    EXPECT_TRUE(asked().empty());
}

TEST_F(Addresses, ASideWithoutWordsTakesNone) {
    const std::string none[]{"0", "", "abc", "-1", "8 words"};
    for (std::size_t i = 0; i < std::size(none); ++i) {
        save(std::to_string(i), none[i], none[i]);
        EXPECT_EQ(addresses(std::to_string(i)), none[i] + "," + none[i] + ",null,null");
    }
    EXPECT_TRUE(asked().empty());
}

TEST_F(Addresses, WhateverTheMapAnswersIsStored) {
    inputs.answers = {"not an address"};
    outputs.answers = {""};
    save("5", "8", "4");
    EXPECT_EQ(addresses("5"), "8,4,not an address,");
}

TEST_F(Addresses, ANumberWithBlanksIsANumberOfItsOwn) {
    save("5", "0", "0");
    save(" 5 ", "0", "0");
    EXPECT_EQ(store.rows("SELECT Node FROM tblRemoteIO ORDER BY rowid"), (Texts{"5", " 5 "}));
    EXPECT_EQ(invoke(*module, "RemoveFromList", 5, 0), Value(true));
    EXPECT_EQ(store.rows("SELECT Node FROM tblRemoteIO ORDER BY rowid"), Texts{" 5 "});
}

TEST_F(Addresses, NodesAreAddedAtTheEnd) {
    for (const std::string node : {"3", "1", "2"}) save(node, "0", "0");
    EXPECT_EQ(store.rows("SELECT Node FROM tblRemoteIO ORDER BY rowid"), (Texts{"3", "1", "2"}));
}

TEST_F(Addresses, StayWhileTheCountsStay) {
    add("5", "8", "4", "IW0100", "OW0200");
    save("5", "8", "4", 1);
    EXPECT_EQ(store.nodes(), Texts{"5,name,type,8,4,IW0100,OW0200,1077,N/A,1"});
    EXPECT_TRUE(asked().empty());
}

TEST_F(Addresses, AChangedCountFreesAndTakesAfresh) {
    add("5", "8", "4", "IW0100", "OW0200");
    save("5", "9", "4");
    EXPECT_EQ(addresses("5"), "9,4,IW0300,OW0200");
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IW0100,8)", "in.GetAddresses(W,9,0)"}));
    forget();
    save("5", "9", "3");
    EXPECT_EQ(addresses("5"), "9,3,IW0300,OW0600");
    EXPECT_EQ(asked(), (Texts{"out.FreeAddresses(OW0200,4)", "out.GetAddresses(W,3,1)"}));
}

TEST_F(Addresses, CountsAreComparedAsTexts) {
    add("5", "8", "4", "IW0100", "OW0200");
    save("5", "08", "4");
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IW0100,8)", "in.GetAddresses(W,8,0)"}));
    EXPECT_EQ(addresses("5"), "08,4,IW0300,OW0200");
}

TEST_F(Addresses, AStoredAddressIsFreedAsItStandsWhateverTheNetwork) {
    add("5", "8", "4", "IW0100", "OW0200");
    save("5", "2", "4", 1);
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IW0100,8)", "in.GetAddresses(O,2,0)"}));
}

TEST_F(Addresses, ACountThatDropsToZeroLeavesNone) {
    add("5", "8", "4", "IW0100", "OW0200");
    save("5", "0", "0");
    EXPECT_EQ(addresses("5"), "0,0,null,null");
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IW0100,8)", "out.FreeAddresses(OW0200,4)"}));
}

TEST_F(Addresses, ACountThatIsNoNumberAnyMoreLeavesNone) {
    add("5", "8", "0", "IW0100", "null");
    save("5", "abc", "0");
    EXPECT_EQ(addresses("5"), "abc,0,null,null");
    EXPECT_EQ(asked(), Texts{"in.FreeAddresses(IW0100,8)"});
}

TEST_F(Addresses, ASideThatHadNoneFreesNothing) {
    const std::pair<std::string, std::string> before[]{{"0", "null"}, {"8", "null"}, {"8", ""},  {"abc", "IW0100"},
                                                       {"0", "IW0100"}, {"", "IW0100"}, {"null", "null"}};
    int node = 0;
    for (const auto& [words, address] : before) {
        forget();
        inputs.answers = {"IW0400"};
        const std::string number = std::to_string(++node);
        add(number, words, "0", address, "null");
        save(number, "2", "0");
        EXPECT_EQ(asked(), Texts{"in.GetAddresses(W,2,0)"}) << words << " " << address;
        EXPECT_EQ(addresses(number), "2,0,IW0400,null");
    }
}

TEST_F(Addresses, AMapThatRaisesLeavesTheListAsItWas) {
    add("5", "8", "4", "IW0100", "OW0200");
    const Texts before = store.nodes();
    outputs.raises = true;
    const RuntimeError error = errorOf([&] { save("6", "8", "4"); });
    EXPECT_EQ(error.number, 1234);
    EXPECT_EQ(error.description, "The map is full");
    EXPECT_EQ(store.nodes(), before);
    EXPECT_EQ(raisedBy([&] { save("5", "8", "5"); }), 1234);
    EXPECT_EQ(store.nodes(), before);
    outputs.raises = false;
    save("5", "8", "4");
    save("6", "0", "0");
    EXPECT_EQ(store.nodes(), (Texts{"5,name,type,8,4,IW0100,OW0200,1077,N/A,1", "6,name,type,0,0,null,null,1077,N/A,1"}));
}

TEST_F(Addresses, TheHandlerIsAskedAboutAMapThatRaises) {
    inputs.raises = true;
    ScriptedHandler handler({Answer::leave});
    EXPECT_EQ(save("5", "8", "4"), Value());
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(handler.asked[0].number, 1234);
    EXPECT_EQ(handler.asked[0].module, "clsBVTRemoteIO");
    EXPECT_EQ(handler.asked[0].procedure, "SaveData");
    EXPECT_EQ(store.nodes(), Texts{});
}

TEST_F(Addresses, AMapThatRaisesCanBePassedOverAndLeavesItsSideWithoutAnAddress) {
    inputs.raises = true;
    ScriptedHandler handler({Answer::ignore});
    save("5", "8", "4");
    EXPECT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(store.nodes(), Texts{"5,name,type,8,4,null,OW0600,1077,N/A,1"});
}

TEST_F(Addresses, AMapThatRaisesCanBeAskedAgain) {
    struct Mending final : tracing::ErrorHandler {
        explicit Mending(FakeMap& mended) : map(mended) {}
        Answer ask(const tracing::Failure&) override {
            map.raises = false;
            return Answer::retry;
        }
        FakeMap& map;
        tracing::WithErrorHandler inForce{*this};
    };
    outputs.raises = true;
    const Mending handler(outputs);
    save("5", "8", "4");
    EXPECT_EQ(store.nodes(), Texts{"5,name,type,8,4,IW0300,OW0600,1077,N/A,1"});
    EXPECT_EQ(inputs.calls.size(), 1U) << "what has succeeded is not repeated";
}

TEST_F(Addresses, AMapThatIsNotSetIsAnErrorOnlyWhenItIsReached) {
    module = opened<clsBVTRemoteIO>();
    save("5", "0", "0");
    EXPECT_EQ(store.nodes().size(), 1U);
    EXPECT_EQ(raisedBy([&] { save("6", "8", "0"); }), 91);
    EXPECT_EQ(store.nodes().size(), 1U);
    const RuntimeError error = errorOf([&] { invoke(*module, "SetKX410Master", 0); });
    EXPECT_EQ(error.number, 91);
    EXPECT_EQ(error.source, "RemoteIO::SetKX410Master");
}

TEST_F(Addresses, NothingIsAMapThatIsNotSet) {
    module->put("InputMap", Value(Ref<Object>()));
    EXPECT_EQ(raisedBy([&] { save("6", "8", "0"); }), 91);
}

TEST_F(Addresses, AMapWithoutTheOperationIsAnErrorOfItsOwn) {
    module->put("InputMap", Value(Ref<Object>(make<Composed>("clsMap"))));
    EXPECT_EQ(raisedBy([&] { save("6", "8", "0"); }), 438);
}

TEST_F(Addresses, RemovingANodeFreesThemUnderTheLetterOfTheNetwork) {
    add("5", "8", "4", "IW0256", "OW0512");
    EXPECT_EQ(invoke(*module, "RemoveFromList", 5, 1), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IO0256,8)", "out.FreeAddresses(OO0512,4)"}));
    EXPECT_EQ(store.nodes(), Texts{});
    forget();
    add("6", "8", "4", "IO0256", "OO0512");
    EXPECT_EQ(invoke(*module, "RemoveFromList", 6, 0), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.FreeAddresses(IW0256,8)", "out.FreeAddresses(OW0512,4)"}));
}

TEST_F(Addresses, RemovingFreesNothingOnASideWithoutWordsOrAddress) {
    const std::pair<std::string, std::string> sides[]{
        {"0", "IW0100"}, {"abc", "IW0100"}, {"8", "null"}, {"8", ""}, {"null", "IW0100"}};
    for (const auto& [words, address] : sides) {
        add("7", words, words, address, address);
        EXPECT_EQ(invoke(*module, "RemoveFromList", 7, 0), Value(true));
        EXPECT_TRUE(asked().empty()) << words << " " << address;
    }
    EXPECT_EQ(store.nodes(), Texts{});
}

TEST_F(Addresses, RemovingAnUnknownNodeIsTrue) {
    add("5", "8", "4", "IW0256", "OW0512");
    EXPECT_EQ(invoke(*module, "RemoveFromList", 50, 0), Value(true));
    EXPECT_EQ(store.nodes().size(), 1U);
    EXPECT_TRUE(asked().empty());
}

TEST_F(Addresses, ANodeWhoseMapRaisesIsNotRemoved) {
    add("5", "8", "4", "IW0256", "OW0512");
    outputs.raises = true;
    const RuntimeError error = errorOf([&] { invoke(*module, "RemoveFromList", 5, 0); });
    EXPECT_EQ(error.number, 1234);
    EXPECT_EQ(error.description, "The map is full");
    EXPECT_EQ(error.source, "RemoteIO::RemoveFromList");
    EXPECT_EQ(store.nodes().size(), 1U);
}

TEST_F(Addresses, AllocationPassesStoredAddressesWithTheLetterBesideThem) {
    add("5", "8", "4", "IW0256", "OW0512");
    add("6", "abc", "2", "IW0264", "OW0520");
    add("7", "3", "0", "null", "OW0530");
    add("8", "3", "1", "", "null");
    EXPECT_EQ(invoke(*module, "AllocationMemoryMaps", 1), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.AllocateAddresses(IW0256,O,8)", "out.AllocateAddresses(OW0512,O,4)",
                              "out.AllocateAddresses(OW0520,O,2)", "out.AllocateAddresses(OW0530,O,0)"}));
}

TEST_F(Addresses, AllocationWithAnUnknownNetwork) {
    add("5", "8", "4", "IW0256", "OW0512");
    const Texts before = store.nodes();
    EXPECT_EQ(invoke(*module, "AllocationMemoryMaps", -1), Value(false));
    EXPECT_TRUE(asked().empty());
    EXPECT_EQ(invoke(*module, "AllocationMemoryMaps", 2), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.AllocateAddresses(IW0256,,8)", "out.AllocateAddresses(OW0512,,4)"}));
    EXPECT_EQ(store.nodes(), before);
}

TEST_F(Addresses, AllocationOfAnEmptyListIsTrueWithoutMaps) {
    EXPECT_EQ(invoke(*opened<clsBVTRemoteIO>(), "AllocationMemoryMaps", 0), Value(true));
}

TEST_F(Addresses, AllocationAsksTheHandlerAboutAMapThatRaises) {
    add("5", "8", "4", "IW0256", "OW0512");
    inputs.raises = true;
    ScriptedHandler handler({Answer::leave});
    invoke(*module, "AllocationMemoryMaps", 0);
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(handler.asked[0].procedure, "AllocationMemoryMaps");
}

TEST_F(Addresses, AControllerThatBecomesMasterRemovesEveryNodeAndEmptiesBothMaps) {
    add("5", "8", "0", "IW0256", "null");
    add("6", "0", "4", "null", "OW0512");
    add("7", "2", "2", "IW0300", "OW0600");
    EXPECT_EQ(invoke(*module, "SetKX410Master", 1), Value(true));
    EXPECT_EQ(store.nodes(), Texts{});
    EXPECT_EQ(inputs.calls, (Texts{"FreeAddresses(IO0256,8)", "FreeAddresses(IO0300,2)", "EmptyMap()"}));
    EXPECT_EQ(outputs.calls, (Texts{"FreeAddresses(OO0512,4)", "FreeAddresses(OO0600,2)", "EmptyMap()"}));
}

TEST_F(Addresses, AControllerThatBecomesMasterWithoutNodesEmptiesBothMaps) {
    EXPECT_EQ(invoke(*module, "SetKX410Master", 0), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.EmptyMap()", "out.EmptyMap()"}));
}

TEST_F(Addresses, ANodeWithoutANumberStopsTheChangeToMaster) {
    add("abc", "8", "0", "IW0256", "null");
    const RuntimeError error = errorOf([&] { invoke(*module, "SetKX410Master", 0); });
    EXPECT_EQ(error.number, 13);
    EXPECT_EQ(error.source, "RemoteIO::SetKX410Master");
    EXPECT_EQ(store.nodes().size(), 1U);
}

TEST_F(Addresses, AMapThatRaisesStopsTheChangeToMasterAndWhatWasRemovedStaysRemoved) {
    add("5", "8", "0", "IW0256", "null");
    add("6", "0", "4", "null", "OW0512");
    outputs.raises = true;
    const RuntimeError error = errorOf([&] { invoke(*module, "SetKX410Master", 0); });
    EXPECT_EQ(error.number, 1234);
    EXPECT_EQ(error.source, "RemoteIO::SetKX410Master");
    EXPECT_EQ(store.rows("SELECT Node FROM tblRemoteIO"), Texts{"6"});
}

TEST_F(Addresses, AMapThatRemovesTheNodeItIsAskedForEndsInAnError) {
    add("5", "8", "4", "IW0100", "OW0200");
    const auto map = make<Composed>("clsMap");
    map->method("FreeAddresses", [&](Args) -> Value { return {}; });
    map->method("GetAddresses", [&](Args) -> Value {
        invoke(*module, "RemoveAllRemoteIONodes");
        return "IW0300";
    });
    module->put("InputMap", Value(Ref<Object>(map)));
    EXPECT_EQ(raisedBy([&] { save("5", "9", "4"); }), 3021);
    EXPECT_EQ(store.nodes(), Texts{});
    save("6", "0", "0");
    EXPECT_EQ(store.nodes().size(), 1U);
}

TEST_F(Addresses, AMapMayReplaceItself) {
    const auto map = make<Composed>("clsMap");
    map->method("GetAddresses", [&](Args) -> Value {
        module->put("InputMap", inputs.object());
        return "IW0777";
    });
    module->put("InputMap", Value(Ref<Object>(map)));
    save("5", "8", "0");
    save("6", "8", "0");
    EXPECT_EQ(store.rows("SELECT InputBaseAddress FROM tblRemoteIO ORDER BY rowid"), (Texts{"IW0777", "IW0300"}));
}

TEST_F(Addresses, AMapMayCallBackIntoTheModule) {
    const auto map = make<Composed>("clsMap");
    std::string seen;
    map->method("GetAddresses", [&](Args) -> Value {
        seen = invoke(*module, "GetNumberOfNodes").toText();
        return "IW0300";
    });
    module->put("InputMap", Value(Ref<Object>(map)));
    save("4", "0", "0");
    save("5", "8", "0");
    EXPECT_EQ(seen, "1");
    EXPECT_EQ(addresses("5"), "8,0,IW0300,null");
}

}  // namespace
}  // namespace canvas
