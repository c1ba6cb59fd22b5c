// What the blocks without settings in the panel do differently.

#include <gtest/gtest.h>

#include "attributes/plain.h"
#include "host/composed.h"
#include "host/ports.h"
#include "print.h"
#include "tests/host/raised.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

TEST(FaultBlocks, DoNotWriteTheirType) {
    for (const Ref<AttributeObject>& block :
         {Ref<AttributeObject>(make<clsBVTIfFault>()), Ref<AttributeObject>(make<clsBVTResetFault>())}) {
        block->put("TypeK", "5");
        EXPECT_EQ(block->OutputToFile(""), "0 ");
        EXPECT_EQ(block->IsTheSame()->get("TypeK"), Value("5")) << "a copy keeps it";
        block->AssignFromFile(1, "7");
        EXPECT_EQ(block->get("TypeK"), Value("5"));
    }
}

TEST(NodeText, WritesNothingOfTheNote) {
    const auto note = make<clsBVTNodeText>();
    note->strNodeText = "a longer text";
    EXPECT_EQ(note->OutputToFile("12 "), "12 0 ");
    EXPECT_EQ(note->LineCount, 1);
    EXPECT_EQ(note->MaxCharPerLine, 5) << "the counts are held, not computed";
    EXPECT_EQ(note->CharCount, 8);
}

TEST(EndBlock, IsTheSameAsMakesAnEndOfAnothersName) {
    const auto end = make<clsBVTEnd>();
    end->strName = "own";
    const auto other = make<Composed>();
    other->property("Name", "theirs");
    const auto copy = end->IsTheSameAs(other);
    EXPECT_EQ(copy->strName, "theirs");
    EXPECT_EQ(end->strName, "own");
    const Ref<Object> byName = end;
    const Value result = invoke(*byName, "IsTheSameAs", Ref<Object>(other));
    EXPECT_EQ(result.toObject()->className(), "clsBVTEnd");
    EXPECT_EQ(result.toObject()->get("Name"), Value("theirs"));
    EXPECT_EQ(raisedBy([&] { end->IsTheSameAs(nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { end->IsTheSameAs(make<Composed>()); }), 438);
}

TEST(EndBlock, InputFromFileReadsTwoLines) {
    const scratch::Folder folder;
    scratch::put(folder / "ends.txt", "first\r\nsecond\r\nthird\r\nfourth\r\nfifth\r\n");
    Files& files = *environment().files;
    const int number = files.open(folder / "ends.txt", OpenMode::input);
    const FileGuard guard(files, number);
    const auto end = make<clsBVTEnd>();
    EXPECT_EQ(end->InputFromFile(static_cast<std::int16_t>(number))->strName, "second");
    const Ref<Object> byName = end;
    const Value result = invoke(*byName, "InputFromFile", static_cast<std::int16_t>(number));
    EXPECT_EQ(result.toObject()->get("Name"), Value("fourth"));
    EXPECT_EQ(end->strName, "") << "the object itself is not named";
    EXPECT_EQ(raisedBy([&] { end->InputFromFile(static_cast<std::int16_t>(number)); }), 62) << "one line is left";
}

TEST(EndBlock, InputFromFileNeedsAnOpenFile) {
    const auto end = make<clsBVTEnd>();
    EXPECT_EQ(raisedBy([&] { end->InputFromFile(511); }), 52);
}

}  // namespace
}  // namespace canvas
