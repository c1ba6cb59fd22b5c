#pragma once
// A syntax checker that answers what a test told it, and keeps what it was asked.

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/composed.h"

namespace canvas::testing {

/// The answers to one text. A status other than 0 makes the text bad.
struct Verdict {
    Value status = std::int32_t{0};
    std::int32_t dataType = 16;
    bool isLValue = false;
    Value value{};
    std::string formatted{};  ///< empty: the text in square brackets
    std::string complaint{};
    std::int32_t selStart = 0;
    std::int32_t selLength = 0;
};

inline Verdict bad(std::string complaint, std::int32_t selStart = 0, std::int32_t selLength = 0) {
    return {.status = std::int32_t{1}, .complaint = std::move(complaint), .selStart = selStart, .selLength = selLength};
}

class FakeChecker {
public:
    std::map<std::string, Verdict> verdicts;  ///< by text
    Verdict otherwise;                        ///< for every other text
    std::vector<std::string> calls;           ///< "checkexpression(text,block,index)", "GetResult", "GetErrorInfo"
    /// Failures to come, by operation: how many calls of it raise error 1000 before one succeeds.
    std::map<std::string, int> failures;

    FakeChecker() : m_object(make<Composed>("clsSyntaxChecking")) {
        m_object->method("checkexpression", [this](Args args) { return check(args); });
        m_object->method("GetResult", [this](Args args) { return result(args); });
        m_object->method("GetErrorInfo", [this](Args args) { return complaint(args); });
    }
    FakeChecker(const FakeChecker&) = delete;
    FakeChecker& operator=(const FakeChecker&) = delete;

    Ref<Object> object() const { return m_object; }

    /// The checked texts alone, in order.
    std::vector<std::string> checks() const {
        std::vector<std::string> found;
        for (const std::string& call : calls)
            if (call.starts_with("checkexpression")) found.push_back(call);
        return found;
    }

private:
    Value check(Args args) {
        EXPECT_EQ(args.size(), 3u);
        EXPECT_TRUE(args[0].is(Kind::text) && args[1].is(Kind::longInteger) && args[2].is(Kind::integer));
        m_last = args[0].toText();
        calls.push_back("checkexpression(" + m_last + "," + args[1].toText() + "," + args[2].toText() + ")");
        fail("checkexpression");
        return verdict().status;
    }

    Value result(Args args) {
        EXPECT_EQ(args.size(), 4u);
        EXPECT_TRUE(args[0].is(Kind::longInteger) && args[1].is(Kind::boolean) && args[3].is(Kind::text));
        calls.push_back("GetResult");
        fail("GetResult");
        const Verdict& found = verdict();
        args[0] = found.dataType;
        args[1] = found.isLValue;
        args[2] = found.value;
        args[3] = found.formatted.empty() ? "[" + m_last + "]" : found.formatted;
        return {};
    }

    Value complaint(Args args) {
        EXPECT_EQ(args.size(), 3u);
        EXPECT_TRUE(args[0].is(Kind::text) && args[1].is(Kind::longInteger) && args[2].is(Kind::longInteger));
        calls.push_back("GetErrorInfo");
        fail("GetErrorInfo");
        const Verdict& found = verdict();
        args[0] = found.complaint;
        args[1] = found.selStart;
        args[2] = found.selLength;
        return std::int32_t{4711};  // a number that nobody reads
    }

    void fail(const std::string& operation) {
        if (failures[operation]-- > 0) throw RuntimeError(1000, "The checker is not at home", "Host");
    }

    const Verdict& verdict() const {
        const auto found = verdicts.find(m_last);
        return found == verdicts.end() ? otherwise : found->second;
    }

    Ref<Composed> m_object;
    std::string m_last;
};

}  // namespace canvas::testing
