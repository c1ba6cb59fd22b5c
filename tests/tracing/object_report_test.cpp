#include <gtest/gtest.h>

#include <functional>

#include "host/collection.h"
#include "host/composed.h"
#include "tests/tracing/fakes.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

/// Reports what a test tells it to.
class Reporting final : public Object {
public:
    using Report = std::function<void(VariableSink&)>;
    explicit Reporting(Report report) : m_report(std::move(report)) {}
    std::string_view className() const noexcept override { return "clsSample"; }
    void reportVariables(VariableSink& sink) const override { m_report(sink); }
    void reports(Report report) { m_report = std::move(report); }

private:
    Report m_report;
};

class ObjectReport : public testing::Test {
protected:
    void SetUp() override { vbwOpenDumpFile(); }

    std::string lines(std::string_view name, const Value& value, int tab = 0) {
        surroundings.disk->contents["report.dmp"].clear();
        vbwReportVariable(name, value, tab);
        return surroundings.dump();
    }

    Surroundings surroundings;
};

Ref<Object> control(std::string className, std::string name) {
    auto made = make<Composed>(std::move(className));
    made->property("Name", std::move(name));
    return made;
}

TEST_F(ObjectReport, HasAHeadingAndItsVariablesOneLevelDeeper) {
    const Ref<Object> object = make<Reporting>([](VariableSink& sink) {
        sink.variable("strLabel", "Move");
        sink.variable("intID", std::int16_t{3});
    });
    EXPECT_EQ(lines("objBlock", object, 1),
              "\t**** clsSample objBlock ****\r\n"
              "\t\tobjBlock.strLabel = \"Move\" (String)\r\n"
              "\t\tobjBlock.intID = \"3\" (Integer)\r\n");
}

TEST_F(ObjectReport, ShowsNothing) { EXPECT_EQ(lines("obj", Ref<Object>()), "obj = {Nothing}\r\n"); }

TEST_F(ObjectReport, AHostObjectThatReportsNoVariablesIsItsHeadingAlone) {
    EXPECT_EQ(lines("objData", Ref<Object>(make<Composed>("Data"))), "**** Data objData ****\r\n");
}

TEST_F(ObjectReport, FollowsObjectsInsideObjects) {
    const Ref<Object> inner = make<Reporting>([](VariableSink& sink) { sink.variable("intID", std::int16_t{1}); });
    const Ref<Object> outer = make<Reporting>([&](VariableSink& sink) { sink.variable("objIn", inner); });
    EXPECT_EQ(lines("obj", outer),
              "**** clsSample obj ****\r\n"
              "\t**** clsSample obj.objIn ****\r\n"
              "\t\tobj.objIn.intID = \"1\" (Integer)\r\n");
}

TEST_F(ObjectReport, DoesNotFollowAnObjectIntoItself) {
    const auto object = make<Reporting>([](VariableSink&) {});
    object->reports([&](VariableSink& sink) {
        sink.variable("objSelf", Ref<Object>(object));
        sink.variable("intID", std::int16_t{1});
    });
    EXPECT_EQ(lines("obj", Ref<Object>(object)),
              "**** clsSample obj ****\r\n"
              "\tobj.objSelf = {Object Inside Itself}\r\n"
              "\tobj.intID = \"1\" (Integer)\r\n");
    object->reports([](VariableSink&) {});
}

TEST_F(ObjectReport, ShowsAnObjectOnceAndTellsItsOtherPlaces) {
    const Ref<Object> shared = make<Reporting>([](VariableSink&) {});
    const Ref<Object> outer = make<Reporting>([&](VariableSink& sink) {
        sink.variable("a", shared);
        sink.variable("b", shared);
    });
    EXPECT_EQ(lines("obj", outer),
              "**** clsSample obj ****\r\n\t**** clsSample obj.a ****\r\n\tobj.b = {Object Shown Above}\r\n");
}

TEST_F(ObjectReport, StopsAtADepthThatNobodyReads) {
    Ref<Object> chain = make<Reporting>([](VariableSink&) {});
    for (int i = 0; i < 200; ++i)
        chain = make<Reporting>([next = chain](VariableSink& sink) { sink.variable("n", next); });
    EXPECT_NE(lines("obj", chain).find(" = {Nested Too Deeply}\r\n"), std::string::npos);
}

TEST_F(ObjectReport, AFailureInTheMiddleLeavesWhatWasWritten) {
    const Ref<Object> object = make<Reporting>([](VariableSink& sink) {
        sink.variable("a", "1");
        raise(Error::automation);
    });
    EXPECT_EQ(lines("obj", object, 1),
              "\t**** clsSample obj ****\r\n"
              "\t\tobj.a = \"1\" (String)\r\n"
              "\tobj = {Variable Dumping Error}\r\n");
}

TEST_F(ObjectReport, AFormShowsItsControlsAndTheirValues) {
    const auto text = make<Composed>("TextBox");
    text->property("Name", "txbSpeed");
    text->property("Value", "12.5");
    const auto controls = make<Collection>();
    controls->Add(Ref<Object>(text));
    controls->Add(control("Label", "lblSpeed"));
    const auto form = make<Composed>("frmMoveAxis");
    form->property("Controls", Ref<Object>(controls));
    EXPECT_EQ(lines("fForm", Ref<Object>(form)),
              "**** frmMoveAxis fForm ****\r\n"
              "\tControls\r\n"
              "\t\t**** TextBox txbSpeed ****\r\n"
              "\t\t\tValue = \"12.5\" (String)\r\n"
              "\t\t**** Label lblSpeed ****\r\n"
              "\t\t\tValue = {No Value Property}\r\n");
}

TEST_F(ObjectReport, AControlWithoutANameHasItsPlace) {
    const auto controls = make<Collection>();
    controls->Add(Ref<Object>(make<Composed>("Line")));
    const auto form = make<Composed>("frm");
    form->property("Controls", Ref<Object>(controls));
    EXPECT_NE(lines("f", Ref<Object>(form)).find("**** Line 1 ****"), std::string::npos);
}

TEST_F(ObjectReport, AControlThatFailsDoesNotHideTheNext) {
    const auto controls = make<Collection>();
    controls->Add("no object");
    const auto broken = make<Composed>("Grid");
    broken->method("Name", [](Args) -> Value { raise(Error::automation); });
    controls->Add(Ref<Object>(broken));
    const auto unreadable = make<Composed>("List");
    unreadable->property("Name", "lst");
    unreadable->property("Value", Null{});
    controls->Add(Ref<Object>(unreadable));
    const auto form = make<Composed>("frm");
    form->property("Controls", Ref<Object>(controls));
    EXPECT_EQ(lines("f", Ref<Object>(form)),
              "**** frm f ****\r\n"
              "\tControls\r\n"
              "\t\t1 = {Variable Dumping Error}\r\n"
              "\t\t2 = {Variable Dumping Error}\r\n"
              "\t\t**** List lst ****\r\n"
              "\t\t\tValue = {Variable Dumping Error}\r\n");
}

TEST_F(ObjectReport, AFormWhoseControlsCannotBeReadSaysSo) {
    const auto form = make<Composed>("frm");
    form->method("Controls", [](Args) -> Value { raise(Error::automation); });
    EXPECT_EQ(lines("f", Ref<Object>(form)), "**** frm f ****\r\nf = {Variable Dumping Error}\r\n");
}

}  // namespace
}  // namespace canvas::tracing
