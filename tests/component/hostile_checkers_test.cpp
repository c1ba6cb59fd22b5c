// Syntax checkers of a host that do not behave.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "tests/component/hostile.h"

namespace canvas::component::testing {
namespace {

/// checkexpression as `member`; the other answers are those of a checker that is content.
Com<FakeHost> checker(FakeHost::Member member) {
    auto host = makeHost();
    host.get()->members["checkexpression"] = std::move(member);
    host.get()->members["getresult"] = [](const HostCall& call) {
        giveBack(Value(std::int32_t{16}), call[0]);
        giveBack(Value(true), call[1]);
        giveBack(Value("v"), call[2]);
        giveBack(Value("n"), call[3]);
        return S_OK;
    };
    host.get()->members["geterrorinfo"] = giving({});
    return host;
}

Outcome check(IDispatch* attribute, const Com<FakeHost>& host) {
    return call(attribute, "PropertiesSyntaxCheck", {Value(asObject(host)), 5, ""});
}

struct Checking {
    const char* behaviour;
    FakeHost::Member answers;
    HRESULT result = S_OK;
    unsigned scode = 0;
};

TEST(HostileHosts, Checkers) {
    const Checking rows[] = {
        {"content", giving(std::int32_t{0})},
        {"not content", giving(std::int32_t{1})},
        {"raises", raising(1234, "x"), DISP_E_EXCEPTION, 0x800A04D2},
        {"raises without information", failing(DISP_E_EXCEPTION), DISP_E_EXCEPTION, 0x800A01B8},
        {"takes fewer arguments", failing(DISP_E_BADPARAMCOUNT), DISP_E_EXCEPTION, 0x800A01C2},
        {"gives text", giving("maybe"), DISP_E_EXCEPTION, 0x800A000D},
        {"gives null", giving(Null{}), DISP_E_EXCEPTION, 0x800A005E},
        {"gives an array", giving(numbers(2)), DISP_E_EXCEPTION, 0x800A000D},
    };
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    for (const Checking& row : rows) {
        SCOPED_TRACE(row.behaviour);
        const Outcome outcome = check(attribute.get(), checker(row.answers));
        EXPECT_EQ(outcome.result, row.result);
        EXPECT_EQ(static_cast<unsigned>(outcome.scode), row.scode);
    }
}

TEST(HostileHosts, ACheckerMayCallBackAndEditWhatIsAskedAbout) {
    auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    IDispatch* const raw = attribute.get();
    const auto editor = checker([&](const HostCall& call) {
        put(raw, "Deceleration", "changed meanwhile");
        testing::call(raw, "FillMatrix");
        return call.answer(std::int32_t{0});
    });
    EXPECT_EQ(check(raw, editor).value, Value(true));
    EXPECT_EQ(call(raw, "Deceleration").value, Value("changed meanwhile"));
    const auto releaser = checker([&](const HostCall& call) {
        attribute = {};  // the host's one reference, in the middle of the call
        return call.answer(std::int32_t{0});
    });
    EXPECT_EQ(check(raw, releaser).value, Value(true));
}

TEST(HostileHosts, AHostThatCallsBackWithoutEndEndsAsAnError) {
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    Com<FakeHost> host;
    int depth = 0;
    host = checker([&](const HostCall& call) {
        ++depth;
        const Outcome inner = check(attribute.get(), host);
        return inner.result == DISP_E_EXCEPTION ? fail(call, static_cast<int>(inner.scode & 0xFFFF), inner.description)
                                                : call.answer(std::int32_t{0});
    });
    const Outcome outcome = check(attribute.get(), host);
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<unsigned>(outcome.scode), 0x800A01B8u);
    EXPECT_EQ(outcome.description, "Exception: Stack Overflow");
    EXPECT_GT(depth, 200);
    host.get()->members.clear();
}

}  // namespace
}  // namespace canvas::component::testing
