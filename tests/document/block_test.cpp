#include "document/block.h"

#include "attributes/axis_motion.h"
#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

struct Block : Drawing {
    Ref<clsBVTBlock> block = make<clsBVTBlock>();
};

TEST_F(Block, IsUnsetBeforeItHasAType) {
    EXPECT_EQ(block->intBlockID, 0);
    EXPECT_EQ(wiring(*block), "to 0,0 used 0,0 from");
    EXPECT_EQ(block->vntAttribute, nullptr);
    EXPECT_EQ(block->strBlockLabel, "");
    EXPECT_EQ(block->strBlockUserName, "");
    EXPECT_EQ(block->lngBlockUserID, 0);
}

TEST_F(Block, IsUnconnectedOnceItsTypeIsSet) {
    block->setBlockType(MOVEAXIS);
    EXPECT_EQ(wiring(*block), "to -1,-1 used 0,0 from");
}

TEST_F(Block, HasThePortsOfItsType) {
    const struct {
        std::int16_t type;
        bool dual, noIn, noOut;
    } cases[] = {
        {MOVEAXIS, false, false, false},  {HOMEAXIS, true, false, false}, {PROGRAMSTART, false, true, false},
        {PROGRAMEND, false, false, true}, {NodeText, false, true, true},
    };
    for (const auto& c : cases) {
        block->setBlockType(c.type);
        EXPECT_EQ(block->BlockType(), c.type);
        EXPECT_EQ(block->blnHasDualOutPort, c.dual) << c.type;
        EXPECT_EQ(block->blnNoInPort, c.noIn) << c.type;
        EXPECT_EQ(block->blnNoOutPort, c.noOut) << c.type;
    }
}

TEST_F(Block, ASecondTypeWipesTheLinksAndBringsANewDefaultAttribute) {
    block->setBlockType(ABORTMOTION);
    const Ref<Object> before = block->BVTAttribute();
    before->put("Deceleration", "7");
    block->intToFirstBlockID = 4;
    block->intToSecondBlockID = 5;
    block->blnHasDualOutPort = true;
    block->setBlockType(ABORTMOTION);
    EXPECT_EQ(wiring(*block), "to -1,-1 used 0,0 from");
    EXPECT_FALSE(block->blnHasDualOutPort);
    EXPECT_FALSE(block->BVTAttribute() == before);
    EXPECT_EQ(block->BVTAttribute()->get("Deceleration"), Value("0.0"));
}

TEST_F(Block, ATypeLeavesThePortsUsedAndTheSourcesAsTheyAre) {
    block->blnTopPortUsed = block->blnBottomPortUsed = true;
    block->AddFromBlockID(9, false);
    block->setBlockType(MOVEAXIS);
    EXPECT_EQ(wiring(*block), "to -1,-1 used 1,1 from 9b");
}

TEST_F(Block, ASourceIsTakenOnceAndKeepsItsFirstPort) {
    EXPECT_TRUE(block->AddFromBlockID(7, true));
    EXPECT_FALSE(block->AddFromBlockID(7, false));
    EXPECT_EQ(wiring(*block), "to 0,0 used 0,0 from 7t");
    EXPECT_EQ(block->GetFromBlockCount(), 1);
}

TEST_F(Block, ASourceIsKeyedByTheTextOfItsID) {
    block->AddFromBlockID(12, false);
    const Value* entry = block->ColFromBlockID()->find("12");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->toObject()->get("BlockID"), Value(12.0F));
    EXPECT_EQ(entry->toObject()->get("FromTopPort"), Value(false));
}

TEST_F(Block, SourcesAreFoundByTheirFloatingPointID) {
    block->ColFromBlockID()->Add(Value(make<clsBVTInPort>(2.5F, true)), "2");
    block->ColFromBlockID()->Add(Value(make<clsBVTInPort>(3.0F, true)), "elsewhere");
    EXPECT_FALSE(block->AlreadyExist(2));
    EXPECT_TRUE(block->AlreadyExist(3)) << "whatever its key";
    EXPECT_FALSE(block->AlreadyExist(4));
}

TEST_F(Block, AKeyThatAHostHasTakenCannotBeTakenAgain) {
    block->ColFromBlockID()->Add(Value(make<clsBVTInPort>(2.5F, true)), "2");
    EXPECT_EQ(raisedBy([&] { block->AddFromBlockID(2, true); }), 457);
    EXPECT_EQ(block->GetFromBlockCount(), 1);
}

TEST_F(Block, AllOutPortsAreTakenByTheRulesOfThePorts) {
    const struct {
        bool noOut, dual, top, bottom, taken;
    } cases[] = {
        {false, false, false, false, false}, {false, false, false, true, false}, {false, false, true, false, true},
        {false, false, true, true, true},    {false, true, false, false, false}, {false, true, false, true, false},
        {false, true, true, false, false},   {false, true, true, true, true},    {true, false, false, false, true},
        {true, false, false, true, true},    {true, false, true, false, true},   {true, false, true, true, true},
        {true, true, false, false, true},    {true, true, false, true, true},    {true, true, true, false, true},
        {true, true, true, true, true},
    };
    for (const auto& c : cases) {
        block->blnNoOutPort = c.noOut;
        block->blnHasDualOutPort = c.dual;
        block->blnTopPortUsed = c.top;
        block->blnBottomPortUsed = c.bottom;
        EXPECT_EQ(block->AllOutPortTaken(), c.taken) << c.noOut << c.dual << c.top << c.bottom;
    }
}

TEST_F(Block, EndAndNotesHaveNoFreeOutputFromTheStart) {
    EXPECT_TRUE(newBlock(2, PROGRAMEND)->AllOutPortTaken());
    EXPECT_TRUE(newBlock(3, NodeText)->AllOutPortTaken());
    EXPECT_FALSE(newBlock(4, IFEVENT)->AllOutPortTaken());
    EXPECT_FALSE(newBlock(5, MOVEAXIS)->AllOutPortTaken());
}

TEST_F(Block, OneSourceIsRemovedAndAnAbsentOneIsNoFailure) {
    for (const std::int16_t id : Ids{3, 4, 5}) block->AddFromBlockID(id, true);
    block->RemoveFromBlockID(4);
    EXPECT_EQ(wiring(*block), "to 0,0 used 0,0 from 3t 5t");
    block->RemoveFromBlockID(4);
    EXPECT_EQ(wiring(*block), "to 0,0 used 0,0 from 3t 5t");
    EXPECT_EQ(told(), Texts{});
    EXPECT_TRUE(block->AddFromBlockID(4, false)) << "and it can come back";
    EXPECT_EQ(wiring(*block), "to 0,0 used 0,0 from 3t 5t 4b");
}

TEST_F(Block, ASourceWithoutItsKeyCannotBeRemovedAndThatIsTold) {
    block->ColFromBlockID()->Add(Value(make<clsBVTInPort>(6.0F, true)));
    block->RemoveFromBlockID(6);
    EXPECT_EQ(told(), Texts{"clsBVTBlock.RemoveFromBlockID(): [5] Invalid procedure call or argument"});
    EXPECT_EQ(block->GetFromBlockCount(), 1);
}

TEST_F(Block, ClearingTheSourcesBeginsANewCollection) {
    block->AddFromBlockID(3, true);
    const Ref<Collection> before = block->ColFromBlockID();
    block->ClearFromBlockID();
    EXPECT_EQ(block->GetFromBlockCount(), 0);
    EXPECT_FALSE(block->ColFromBlockID() == before);
    EXPECT_EQ(before->Count(), 1);
}

TEST_F(Block, ItsLineIsExtendedByTheAttribute) {
    block->setBlockType(ABORTMOTION);
    EXPECT_EQ(block->OutputToFile("BLOCK_DEFINE 5 "), "BLOCK_DEFINE 5 1 \"0.0\"");
    block->setBlockType(NodeText);
    EXPECT_EQ(block->OutputToFile(""), "0 ");
}

TEST_F(Block, AForeignAttributeIsAskedByName) {
    const auto attribute = foreignAttribute();
    attribute->method("OutputToFile", [](Args args) { return Value("<" + args[0].toText() + ">"); });
    block->setBVTAttribute(attribute);
    EXPECT_EQ(block->OutputToFile("line "), "<line >");
}

TEST_F(Block, IsTheSameCopiesEveryField) {
    block->intBlockID = 8;
    block->setBlockType(IFEVENT);
    block->BVTAttribute()->put("EventK", "a > b");
    block->blnHasDualOutPort = false;  // another value than the type's
    block->blnNoInPort = block->blnNoOutPort = true;
    block->blnTopPortUsed = block->blnBottomPortUsed = true;
    block->intToFirstBlockID = 4;
    block->intToSecondBlockID = 5;
    block->lngBlockUserID = 70000;
    block->strBlockUserName = "user";
    block->strBlockLabel = "label";
    block->AddFromBlockID(3, false);
    block->AddFromBlockID(1, true);
    const Ref<clsBVTBlock> copy = block->IsTheSame();
    EXPECT_EQ(copy->intBlockID, 8);
    EXPECT_EQ(copy->BlockType(), IFEVENT);
    EXPECT_EQ(wiring(*copy), "to 4,5 used 1,1 from 3b 1t");
    EXPECT_FALSE(copy->blnHasDualOutPort);
    EXPECT_TRUE(copy->blnNoInPort && copy->blnNoOutPort);
    EXPECT_EQ(copy->lngBlockUserID, 70000);
    EXPECT_EQ(copy->strBlockUserName, "user");
    EXPECT_EQ(copy->strBlockLabel, "label");
    EXPECT_EQ(copy->BVTAttribute()->get("EventK"), Value("a > b"));
}

TEST_F(Block, ACopySharesNothingWithItsOriginal) {
    block->setBlockType(ABORTMOTION);
    block->AddFromBlockID(3, false);
    const Ref<clsBVTBlock> copy = block->IsTheSame();
    EXPECT_FALSE(copy->ColFromBlockID() == block->ColFromBlockID());
    copy->ColFromBlockID()->at(1).toObject()->put("FromTopPort", true);
    copy->BVTAttribute()->put("Deceleration", "9");
    EXPECT_EQ(wiring(*block), "to -1,-1 used 0,0 from 3b");
    EXPECT_EQ(block->BVTAttribute()->get("Deceleration"), Value("0.0"));
}

TEST_F(Block, ACopyKeysItsSourcesByTheTextOfTheFloatingPointID) {
    block->setBlockType(ABORTMOTION);
    block->ColFromBlockID()->Add(Value(make<clsBVTInPort>(2.5F, true)), "mine");
    const Ref<clsBVTBlock> copy = block->IsTheSame();
    EXPECT_NE(copy->ColFromBlockID()->find("2.5"), nullptr);
    EXPECT_EQ(copy->ColFromBlockID()->find("mine"), nullptr);
}

TEST_F(Block, ACopyOfAnUnknownTypeTellsSoAgain) {
    block->setBlockType(28);
    block->setBVTAttribute(foreignAttribute());
    told();
    const Ref<clsBVTBlock> copy = block->IsTheSame();
    EXPECT_EQ(told(), Texts{"clsBVTGetBlockObject.GetObject: [91] Object variable not set"});
    EXPECT_EQ(copy->BlockType(), 28);
    EXPECT_EQ(copy->BVTAttribute()->className(), "Foreign");
}

TEST_F(Block, OnlyADualOutputBlockCountsAsASelfEdge) {
    block->intBlockID = 6;
    block->setBlockType(IFEVENT);
    EXPECT_FALSE(block->IsSelfedgeBlock());
    block->AddFromBlockID(6, false);
    EXPECT_TRUE(block->IsSelfedgeBlock());
    block->setBlockType(MOVEAXIS);
    EXPECT_FALSE(block->IsSelfedgeBlock());
}

TEST_F(Block, AMissingAttributeIsTold) {
    EXPECT_EQ(block->BVTAttribute(), nullptr);
    EXPECT_EQ(told(), Texts{"clsBVTBlock.BVTAttribute: [91] Object variable not set"});
}

}  // namespace
}  // namespace canvas
