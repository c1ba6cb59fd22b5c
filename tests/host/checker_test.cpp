#include "host/checker.h"

#include <gtest/gtest.h>

#include "host/composed.h"
#include "raised.h"

using namespace canvas;

namespace {

/// A checker that answers with what a test has put here, and keeps what it was given.
struct Fake {
    Value status = std::int32_t{0};
    std::vector<Value> answers;
    std::vector<Value> given;
    Ref<Composed> object = make<Composed>("clsSyntaxChecking");

    Fake() {
        object->method("checkexpression", [this](Args args) { return answer(args, status); });
        object->method("GetResult", [this](Args args) { return answer(args, Value()); });
        object->method("GetErrorInfo", [this](Args args) { return answer(args, std::int16_t{5}); });
    }

    Value answer(Args args, const Value& result) {
        given.assign(args.begin(), args.end());
        for (std::size_t i = 0; i < answers.size() && i < args.size(); ++i) args[i] = answers[i];
        return result;
    }
};

}  // namespace

TEST(SyntaxChecker, HandsOnTheTextTheBlockAndTheIndex) {
    Fake fake;
    EXPECT_TRUE(SyntaxChecker(*fake.object).check("a + 1", 70000, 3));
    EXPECT_EQ(fake.given, (std::vector<Value>{"a + 1", std::int32_t{70000}, std::int16_t{3}}));
}

TEST(SyntaxChecker, OnlyStatusZeroIsGood) {
    const struct {
        Value status;
        bool good;
    } cases[] = {
        {std::int16_t{0}, true},
        {std::int32_t{0}, true},
        {0.0, true},
        {"0", true},
        {" 0.0 ", true},
        {Value(), true},
        {false, true},
        {std::int16_t{1}, false},
        {std::int32_t{-1}, false},
        {0.4, false},
        {"1", false},
        {true, false},
    };
    for (const auto& c : cases) {
        Fake fake;
        fake.status = c.status;
        EXPECT_EQ(SyntaxChecker(*fake.object).check("x", 1, 1), c.good) << c.status.typeName();
    }
}

TEST(SyntaxChecker, AStatusThatIsNoNumberIsAnError) {
    Fake fake;
    fake.status = "good";
    EXPECT_EQ(raisedBy([&] { SyntaxChecker(*fake.object).check("x", 1, 1); }), 13);
    fake.status = Null{};
    EXPECT_EQ(raisedBy([&] { SyntaxChecker(*fake.object).check("x", 1, 1); }), 94);
}

TEST(SyntaxChecker, MayWriteToItsArgumentsWithoutHarm) {
    Fake fake;
    fake.answers = {"other", std::int32_t{2}, std::int16_t{2}};
    EXPECT_TRUE(SyntaxChecker(*fake.object).check("x", 1, 1));
}

TEST(SyntaxChecker, TheResultTakesThePresentValuesInAndTheNewOnesOut) {
    Fake fake;
    fake.answers = {std::int32_t{18}, true, 1.5, "1.5"};
    std::int32_t dataType = 7;
    bool isLValue = false;
    Value value = "before";
    std::string formatted = "text";
    SyntaxChecker(*fake.object).result(dataType, isLValue, value, formatted);
    EXPECT_EQ(fake.given, (std::vector<Value>{std::int32_t{7}, false, "before", "text"}));
    EXPECT_EQ(dataType, 18);
    EXPECT_TRUE(isLValue);
    EXPECT_EQ(value, Value(1.5));
    EXPECT_EQ(formatted, "1.5");
}

TEST(SyntaxChecker, WhatItLeavesAloneStaysAsItWas) {
    Fake fake;
    std::int32_t start = 3, length = 4;
    std::string text = "before";
    SyntaxChecker(*fake.object).complaint(text, start, length);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(start, 3);
    EXPECT_EQ(length, 4);
}

TEST(SyntaxChecker, AnswersOfOtherTypesAreConverted) {
    Fake fake;
    fake.answers = {"18", "True", Null{}, 1.5};
    const Checked found = SyntaxChecker(*fake.object).result();
    EXPECT_EQ(found.dataType, 18);
    EXPECT_TRUE(found.isLValue);
    EXPECT_EQ(found.value, Value(Null{})) << "the value is taken as it comes";
    EXPECT_EQ(found.formatted, "1.5");
}

TEST(SyntaxChecker, ResultAndComplaintStartEmpty) {
    Fake fake;
    const Checked found = SyntaxChecker(*fake.object).result();
    EXPECT_EQ(fake.given, (std::vector<Value>{std::int32_t{0}, false, Value(), ""}));
    EXPECT_EQ(found.formatted, "");
    const Complaint complaint = SyntaxChecker(*fake.object).complaint();
    EXPECT_EQ(fake.given, (std::vector<Value>{"", std::int32_t{0}, std::int32_t{0}}));
    EXPECT_EQ(complaint.selStart, 0);
}

TEST(SyntaxChecker, TheComplaintTellsTextAndPlace) {
    Fake fake;
    fake.answers = {"Unknown variable", std::int16_t{5}, "2"};
    const Complaint complaint = SyntaxChecker(*fake.object).complaint();
    EXPECT_EQ(complaint.text, "Unknown variable");
    EXPECT_EQ(complaint.selStart, 5);
    EXPECT_EQ(complaint.selLength, 2);
}

TEST(SyntaxChecker, AnswersThatDoNotConvertAreErrors) {
    const struct {
        std::vector<Value> answers;
        int result, complaint;
    } cases[] = {
        {{"a word"}, 13, 0},
        {{Null{}}, 94, 94},
        {{Value(Ref<Object>())}, 91, 91},
        {{1e10}, 6, 0},
        {{std::int32_t{1}, "maybe"}, 13, 13},
        {{std::int32_t{1}, true, Value(), Null{}}, 94, 0},
    };
    for (const auto& c : cases) {
        Fake fake;
        fake.answers = c.answers;
        EXPECT_EQ(raisedBy([&] { SyntaxChecker(*fake.object).result(); }), c.result);
        EXPECT_EQ(raisedBy([&] { SyntaxChecker(*fake.object).complaint(); }), c.complaint);
    }
}

TEST(SyntaxChecker, AMissingMemberIsAnErrorWhereItIsNeeded) {
    const struct {
        const char* missing;
        int check, result, complaint;
    } cases[] = {{"checkexpression", 438, 0, 0}, {"GetResult", 0, 438, 0}, {"GetErrorInfo", 0, 0, 438}};
    for (const auto& c : cases) {
        Fake fake;
        fake.object->without(c.missing);
        SyntaxChecker checker(*fake.object);
        EXPECT_EQ(raisedBy([&] { checker.check("x", 1, 1); }), c.check);
        EXPECT_EQ(raisedBy([&] { checker.result(); }), c.result);
        EXPECT_EQ(raisedBy([&] { checker.complaint(); }), c.complaint);
    }
}

TEST(SyntaxChecker, AnErrorOfTheHostPassesOnAsItIs) {
    const auto object = make<Composed>();
    object->method("checkexpression", [](Args) -> Value { throw RuntimeError(1234, "the host's own", "Host"); });
    try {
        SyntaxChecker(*object).check("x", 1, 1);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 1234);
        EXPECT_EQ(error.description, "the host's own");
        EXPECT_EQ(error.source, "Host");
    }
}
