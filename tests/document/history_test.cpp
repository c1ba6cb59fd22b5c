#include "document/history.h"

#include <functional>

#include "tests/document/fixture.h"

namespace canvas {
namespace {

using namespace fixture;

/// Notes every event with the Cancel it came with, and answers as told.
struct Sink : CanvasEvents {
    Sink(Texts& log, std::string name) : log(log), name(std::move(name)) {}

    Texts& log;
    std::string name;
    bool vetoes = false, lowers = false;
    std::function<void(std::string_view event)> during = [](std::string_view) {};
    Ref<Object> record;

    void PreAddtoUndo(bool& Cancel) override { before("PreAddtoUndo", Cancel); }
    void PostAddtoUndo(const Ref<Object>& UndoableObject) override {
        record = UndoableObject;
        after("PostAddtoUndo");
    }
    void PreUndo(bool& Cancel) override { before("PreUndo", Cancel); }
    void PostUndo() override { after("PostUndo"); }
    void PreRedo(bool& Cancel) override { before("PreRedo", Cancel); }
    void PostRedo() override { after("PostRedo"); }

private:
    void before(const std::string& event, bool& cancel) {
        log.push_back(name + event + (cancel ? " cancelled" : ""));
        during(event);
        if (vetoes) cancel = true;
        if (lowers) cancel = false;
    }
    void after(const std::string& event) {
        log.push_back(name + event);
        during(event);
    }
};

struct UndoAndRedo : Drawing {
    Texts log;
    std::shared_ptr<Sink> sink = listen("");

    std::shared_ptr<Sink> listen(const std::string& name) {
        auto listener = std::make_shared<Sink>(log, name);
        document->advise(listener);
        return listener;
    }
    Ref<Object> act(std::int16_t mode) const {
        auto record = make<clsBVTUndoBuffer>();
        document->AddActionToUndoList(mode, record);
        return record;
    }
    Texts logged() { return std::exchange(log, {}); }
    std::string state() const {
        return std::to_string(document->GetUndoActionCode()) + ' ' + std::to_string(document->GetRedoActionCode());
    }
};

/// Tells when it goes.
class Witness final : public Object {
public:
    explicit Witness(bool& gone) : m_gone(gone) {}
    ~Witness() override { m_gone = true; }
    std::string_view className() const noexcept override { return "Witness"; }

private:
    bool& m_gone;
};

TEST_F(UndoAndRedo, ANewCanvasHasNothingToTakeBack) {
    EXPECT_FALSE(document->CanUndo());
    EXPECT_FALSE(document->CanRedo());
    EXPECT_EQ(state(), "-1 -1");
}

TEST_F(UndoAndRedo, AnActionLiesOnTopUntilItIsTakenBack) {
    act(ActionEntityAdd);
    const auto record = act(ActionLabelEdit);
    EXPECT_EQ(state(), "8 -1");
    EXPECT_EQ(document->UndoPerformed(), record);
    EXPECT_EQ(state(), "2 8");
    EXPECT_TRUE(document->CanUndo() && document->CanRedo());
    EXPECT_FALSE(document->blnChanged) << "the host applies the record";
}

TEST_F(UndoAndRedo, RedoGivesTheSameRecordBack) {
    const auto record = act(ActionBlockEdit);
    EXPECT_EQ(document->UndoPerformed(), record);
    EXPECT_EQ(document->RedoPerformed(), record);
    EXPECT_EQ(state(), "7 -1");
    EXPECT_EQ(document->UndoPerformed(), record);
}

TEST_F(UndoAndRedo, ManyStepsGoBackAndForthInOrder) {
    std::vector<Ref<Object>> records;
    for (std::int16_t mode = 0; mode <= 8; ++mode) records.push_back(act(mode));
    for (std::size_t i = 9; i-- > 0;) {
        EXPECT_EQ(document->GetUndoActionCode(), static_cast<std::int16_t>(i));
        EXPECT_EQ(document->UndoPerformed(), records[i]);
    }
    EXPECT_FALSE(document->CanUndo());
    for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(document->RedoPerformed(), records[i]);
    EXPECT_FALSE(document->CanRedo());
}

TEST_F(UndoAndRedo, ANewActionEndsTheRedoHistory) {
    act(ActionEntityAdd), act(ActionEntityMove);
    document->UndoPerformed();
    act(ActionEntityCut);
    EXPECT_FALSE(document->CanRedo());
    EXPECT_EQ(state(), "5 -1");
}

TEST_F(UndoAndRedo, EventsComeBeforeAndAfter) {
    const auto record = act(ActionEntityAdd);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "PostAddtoUndo"}));
    EXPECT_EQ(sink->record, record);
    document->UndoPerformed();
    EXPECT_EQ(logged(), (Texts{"PreUndo", "PostUndo"}));
    document->RedoPerformed();
    EXPECT_EQ(logged(), (Texts{"PreRedo", "PostRedo"}));
}

TEST_F(UndoAndRedo, TheStateHasChangedBetweenTheTwoEvents) {
    Texts seen;
    sink->during = [&](std::string_view event) { seen.push_back(std::string(event) + ' ' + state()); };
    act(ActionEntityAdd);
    document->UndoPerformed();
    document->RedoPerformed();
    EXPECT_EQ(seen, (Texts{"PreAddtoUndo -1 -1", "PostAddtoUndo 2 -1", "PreUndo 2 -1", "PostUndo -1 2", "PreRedo -1 2",
                           "PostRedo 2 -1"}));
}

TEST_F(UndoAndRedo, ACancelledActionIsNotKeptAndLeavesTheRedoHistory) {
    act(ActionEntityAdd);
    document->UndoPerformed();
    sink->vetoes = true;
    logged();
    const auto record = act(ActionEntityCut);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "PostAddtoUndo"}));
    EXPECT_EQ(sink->record, record) << "the record is told although it was not kept";
    EXPECT_EQ(state(), "-1 2");
}

TEST_F(UndoAndRedo, ACancelledUndoMovesNothingAndStillEnds) {
    const auto record = act(ActionEntityAdd);
    sink->vetoes = true;
    logged();
    EXPECT_EQ(document->UndoPerformed(), nullptr);
    EXPECT_EQ(logged(), (Texts{"PreUndo", "PostUndo"}));
    EXPECT_EQ(state(), "2 -1");
    sink->vetoes = false;
    EXPECT_EQ(document->UndoPerformed(), record);
}

TEST_F(UndoAndRedo, ACancelledRedoMovesNothingAndStillEnds) {
    act(ActionEntityAdd);
    document->UndoPerformed();
    sink->vetoes = true;
    logged();
    EXPECT_EQ(document->RedoPerformed(), nullptr);
    EXPECT_EQ(logged(), (Texts{"PreRedo", "PostRedo"}));
    EXPECT_EQ(state(), "-1 2");
}

TEST_F(UndoAndRedo, AnEmptyStackIsToldAsAFailure) {
    EXPECT_EQ(document->UndoPerformed(), nullptr);
    EXPECT_EQ(told(), Texts{"Canvas.UndoPerformed: [9] Subscript out of range"});
    EXPECT_EQ(document->RedoPerformed(), nullptr);
    EXPECT_EQ(told(), Texts{"Canvas.RedoPerformed: [9] Subscript out of range"});
    EXPECT_EQ(logged(), (Texts{"PreUndo", "PreRedo"})) << "a failure ends the operation";
}

TEST_F(UndoAndRedo, AnEmptyStackThatIsCancelledIsNoFailure) {
    sink->vetoes = true;
    EXPECT_EQ(document->UndoPerformed(), nullptr);
    EXPECT_EQ(told(), Texts{});
}

TEST_F(UndoAndRedo, AFailingSinkIsToldAndEndsTheStep) {
    act(ActionEntityAdd);
    sink->during = [](std::string_view) { throw RuntimeError(1000, "no"); };
    act(ActionEntityCut);
    EXPECT_EQ(told(), Texts{"Canvas.AddActionToUndoList: [1000] no"});
    EXPECT_EQ(document->UndoPerformed(), nullptr);
    EXPECT_EQ(told(), Texts{"Canvas.UndoPerformed: [1000] no"});
    EXPECT_EQ(document->RedoPerformed(), nullptr);
    EXPECT_EQ(told(), Texts{"Canvas.RedoPerformed: [1000] no"});
    EXPECT_EQ(state(), "2 -1");
}

TEST_F(UndoAndRedo, SinksAreCalledInTheirOrder) {
    listen("b"), listen("c");
    act(ActionEntityAdd);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "bPreAddtoUndo", "cPreAddtoUndo", "PostAddtoUndo", "bPostAddtoUndo",
                               "cPostAddtoUndo"}));
}

TEST_F(UndoAndRedo, ASinkSeesTheCancelBeforeItAndCannotTakeItBack) {
    sink->vetoes = true;
    const auto second = listen("b");
    second->lowers = true;
    listen("c");
    act(ActionEntityAdd);
    EXPECT_EQ(state(), "-1 -1") << "any veto holds";
    const Texts events = logged();
    ASSERT_GE(events.size(), 2U);
    EXPECT_EQ(events[0], "PreAddtoUndo");
    EXPECT_EQ(events[1], "bPreAddtoUndo cancelled");
}

TEST_F(UndoAndRedo, ALaterSinkCanVetoToo) {
    listen("b")->vetoes = true;
    act(ActionEntityAdd);
    EXPECT_FALSE(document->CanUndo());
}

TEST_F(UndoAndRedo, ASinkThatIsTakenAwayHearsNoMore) {
    const auto second = std::make_shared<Sink>(log, "b");
    const std::int32_t cookie = document->advise(second);
    document->unadvise(cookie);
    act(ActionEntityAdd);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "PostAddtoUndo"}));
    EXPECT_EQ(second.use_count(), 1);
}

TEST_F(UndoAndRedo, CookiesDiffer) {
    const std::int32_t first = document->advise(std::make_shared<Sink>(log, "b"));
    const std::int32_t second = document->advise(std::make_shared<Sink>(log, "c"));
    EXPECT_NE(first, second);
    document->unadvise(first);
    EXPECT_NE(document->advise(std::make_shared<Sink>(log, "d")), second);
}

TEST_F(UndoAndRedo, ASinkMayTakeItselfAwayDuringACall) {
    auto leaving = std::make_shared<Sink>(log, "b");
    const std::int32_t cookie = document->advise(leaving);
    const std::weak_ptr<Sink> watch = leaving;
    bool outlivesItsCall = false;
    leaving->during = [&, cookie](std::string_view) {
        document->unadvise(cookie);
        outlivesItsCall = !watch.expired();
    };
    leaving.reset();
    listen("c");
    act(ActionEntityAdd);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "bPreAddtoUndo", "cPreAddtoUndo", "PostAddtoUndo", "cPostAddtoUndo"}));
    EXPECT_TRUE(outlivesItsCall);
    EXPECT_TRUE(watch.expired());
}

TEST_F(UndoAndRedo, ASinkMayTakeAnotherAwayDuringACall) {
    auto other = std::make_shared<Sink>(log, "b");
    const std::int32_t cookie = document->advise(other);
    other.reset();
    listen("c");
    sink->during = [this, cookie](std::string_view) { document->unadvise(cookie); };
    act(ActionEntityAdd);
    EXPECT_EQ(logged(), (Texts{"PreAddtoUndo", "cPreAddtoUndo", "PostAddtoUndo", "cPostAddtoUndo"}));
}

TEST_F(UndoAndRedo, ClearLeavesTheStacks) {
    act(ActionEntityAdd), act(ActionEntityMove);
    document->UndoPerformed();
    document->Clear();
    EXPECT_EQ(state(), "2 4");
}

TEST_F(UndoAndRedo, RecordsAreReleasedWithTheCanvasAndWithTheirHistory) {
    bool undone = false, dropped = false;
    document->AddActionToUndoList(ActionEntityAdd, make<Witness>(undone));
    document->AddActionToUndoList(ActionEntityCut, make<Witness>(dropped));
    document->UndoPerformed();
    EXPECT_FALSE(undone || dropped);
    act(ActionEntityMove);
    EXPECT_TRUE(dropped) << "its redo history ended";
    document = nullptr;
    EXPECT_TRUE(undone);
}

}  // namespace
}  // namespace canvas
