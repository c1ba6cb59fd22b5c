// Committing the whole panel.

#include <set>

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::Answering;
using testing::bad;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using tracing::Answer;
using Calls = std::vector<std::string>;

constexpr const char* positiveReal = "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";

TEST(PanelCommit, StoresTheTextAsTyped) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.verdicts["a+b"] = {.dataType = 32, .isLValue = true, .value = 2.5, .formatted = "a + b"};
    const auto out = commitPanel(*block, 0, panelOf({"a+b"}), checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(a+b,1,1)", "GetResult"}));
    EXPECT_EQ(block->strDeceleration, "a+b");
    EXPECT_EQ(out.FormattedText, "a + b");
    EXPECT_EQ(out.dataType, 32);
    EXPECT_TRUE(out.isLValue);
    EXPECT_EQ(out.value, Value(2.5));
    EXPECT_EQ(out.iIndex, 77);
}

TEST(PanelCommit, ATextOutOfRangeIsNotStored) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    const auto out = commitPanel(*block, 0, panelOf({"-1"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveReal);
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 2);
    EXPECT_EQ(out.iIndex, 77);
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(PanelCommit, ATextOfWrongSyntaxIsNotStored) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.verdicts["a +"] = bad("Operand missing", 4, 1);
    const auto out = commitPanel(*block, 0, panelOf({"a +"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(a +,1,1)", "GetErrorInfo"}));
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 4);
    EXPECT_EQ(out.selLength, 1);
    EXPECT_EQ(out.FormattedText, "before");
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(PanelCommit, ChecksTheCurrentRowAndStoresAll) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    EXPECT_TRUE(commitPanel(*block, 1, panelOf({"-1", "2", "speed"}), checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(2,1,1)"});
    EXPECT_EQ(block->strAcceleration, "-1") << "only the current row is checked";
    EXPECT_EQ(block->strDeceleration, "2");
    EXPECT_EQ(block->strVelocity, "speed");
}

TEST(PanelCommit, AComboRowGoesThroughTheCheckerToo) {
    const auto block = make<clsBVTMoveAxis>();
    FakeChecker checker;
    checker.verdicts["Relative"] = bad("Unknown name");
    const auto rows = panelOf({"Relative", "1", "2", "3", "4", "False"});
    EXPECT_FALSE(commitPanel(*block, 0, rows, checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(Relative,1,1)"});
    EXPECT_EQ(block->strType, "Absolute");
    EXPECT_EQ(block->strAcceleration, "0.0");
    EXPECT_TRUE(commitPanel(*block, 5, rows, checker.object()).result);
    EXPECT_EQ(checker.checks().back(), "checkexpression(False,1,1)");
    EXPECT_EQ(block->strType, "Relative");
    EXPECT_EQ(block->OutputToFile(""), R"(6 "1" "2" "3" "4" "Relative" 0)");
}

TEST(PanelCommit, WithoutACurrentRowNothingChanges) {
    const auto block = make<clsBVTAbortMotion>();
    const auto out = commitPanel(*block, -1, panelOf({"5"}), nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(block->strDeceleration, "0.0");
    EXPECT_TRUE(commitPanel(*block, -7, nullptr, nullptr).result);
}

TEST(PanelCommit, TakesAHostsCollection) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    const auto host = make<Composed>("HostCollection");
    std::set<std::int32_t> read;
    host->method("Item", [&](Args args) {
        EXPECT_EQ(args.size(), 1u);
        const std::int32_t place = args[0].toLong();
        read.insert(place);
        return Value("t" + std::to_string(place));
    });
    EXPECT_TRUE(commitPanel(*block, 2, host, checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(t4,1,1)"});
    EXPECT_EQ(block->OutputToFile(""), R"(3 "t2" "t3" "t4")");
    EXPECT_EQ(read, (std::set<std::int32_t>{2, 3, 4})) << "the first element belongs to no row";
}

TEST(PanelCommit, NumbersInTheCollectionAreReadAsText) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    const auto texts = make<Collection>();
    texts->Add(Value());
    texts->Add(1.5);
    texts->Add(std::int32_t{70000});
    texts->Add(Value());
    EXPECT_TRUE(commitPanel(*block, 0, texts, checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), R"(3 "1.5" "70000" "")");
}

TEST(PanelCommit, TheTabIsIgnored) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({"5"}), checker.object(), false).result);
    EXPECT_EQ(block->strDeceleration, "5");
}

TEST(PanelCommit, ACollectionThatIsMissingOrShortFails) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, nullptr, checker.object()); }), 91);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 2, panelOf({"1", "2"}), checker.object()); }), 9);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, panelOf({"1", "2", "3"}), nullptr); }), 91);
    EXPECT_EQ(block->OutputToFile(""), R"(3 "0.0" "0.0" "0.0")");
}

TEST(PanelCommit, AnIgnoredRowKeepsItsOldText) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    const auto host = make<Composed>("HostCollection");
    host->method("Item", [](Args args) {
        if (args[0].toLong() == 3) raise(Error::subscript);
        return Value("t");
    });
    Answering handler{Answer::ignore};
    EXPECT_TRUE(commitPanel(*block, 0, host, checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), R"(3 "t" "0.0" "t")");
    EXPECT_EQ(handler.failures.size(), 1u);
}

TEST(PanelCommit, LeavingAfterAFailureIsFalse) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.failures["GetResult"] = 1;
    Answering handler{Answer::leave};
    EXPECT_FALSE(commitPanel(*block, 0, panelOf({"5"}), checker.object()).result);
    EXPECT_EQ(block->strDeceleration, "0.0");
}

}  // namespace
}  // namespace canvas
