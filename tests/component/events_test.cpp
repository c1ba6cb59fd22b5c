// The canvas's events as sinks of a host meet them.

#include <gtest/gtest.h>

#include "component/identifiers.h"
#include "document/canvas.h"
#include "tests/component/fake_host.h"

namespace canvas::component::testing {
namespace {

struct Events : ::testing::Test {
    Ref<clsBVTCanvas> document = make<clsBVTCanvas>();
    Com<IDispatch> canvas = dispatchOf(document);
    Com<IConnectionPoint> point = [&] {
        Com<IConnectionPoint> found;
        ask<IConnectionPointContainer>(canvas.get(), IID_IConnectionPointContainer)
            ->FindConnectionPoint(DIID_CanvasEvents, found.out());
        return found;
    }();
    std::vector<std::string> seen;

    DWORD advise(FakeHost::Member member) {
        const auto sink = makeHost();
        sink.get()->numbered = std::move(member);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(sink.get(), &cookie), S_OK);
        return cookie;
    }
    /// Notes its name and the event's number, and sets Cancel where `cancels`.
    FakeHost::Member noting(std::string name, bool cancels = false) {
        return [this, name, cancels](const HostCall& call) {
            std::string line = name + std::to_string(call.number);
            if (call.count() == 1 && call[0].vt == (VT_BYREF | VT_BOOL)) {
                line += *call[0].pboolVal ? "!" : "";
                if (cancels) *call[0].pboolVal = VARIANT_TRUE;
            }
            seen.push_back(line);
            return S_OK;
        };
    }
    void step() { document->AddActionToUndoList(ActionEntityAdd, make<clsBVTBlock>()); }
};

using Lines = std::vector<std::string>;

TEST_F(Events, ComeInTheirOrderToSinksInTheirOrder) {
    advise(noting("a"));
    advise(noting("b"));
    step();
    document->UndoPerformed();
    document->RedoPerformed();
    EXPECT_EQ(seen, (Lines{"a1", "b1", "a2", "b2", "a3", "b3", "a4", "b4", "a5", "b5", "a6", "b6"}));
}

TEST_F(Events, CancelGoesFromSinkToSinkAndHolds) {
    advise(noting("a", true));
    advise(noting("b"));
    step();
    EXPECT_EQ(seen, (Lines{"a1", "b1!", "a2", "b2"}));
    EXPECT_FALSE(document->CanUndo());
}

TEST_F(Events, ASinkMayUnadviseItselfAndAnother) {
    DWORD self = 0, other = 0;
    self = advise([&](const HostCall& call) {
        seen.push_back("self" + std::to_string(call.number));
        EXPECT_EQ(point->Unadvise(self), S_OK);
        EXPECT_EQ(point->Unadvise(other), S_OK);
        return S_OK;
    });
    other = advise(noting("other"));
    advise(noting("last"));
    step();
    EXPECT_EQ(seen, (Lines{"self1", "last1", "last2"}));
    EXPECT_EQ(point->Unadvise(self), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, ASinkThatFailsStopsNothing) {
    advise([](const HostCall& call) { return fail(call, 5, "no"); });
    advise(noting("b"));
    step();
    EXPECT_EQ(seen, (Lines{"b1", "b2"}));
    EXPECT_TRUE(document->CanUndo());
}

TEST_F(Events, ASinkMayLetTheDocumentGo) {
    advise([&](const HostCall&) {
        document = nullptr;
        return S_OK;
    });
    VARIANT mode{}, record{};
    mode.vt = VT_I2;
    record.vt = VT_DISPATCH;
    EXPECT_EQ(invokeRaw(canvas.get(), numberOf(canvas.get(), "AddActionToUndoList"), DISPATCH_METHOD, {mode, record}).result,
              S_OK);
}

TEST_F(Events, ConnectionsAreListed) {
    const DWORD cookie = advise(noting("a"));
    Com<IEnumConnections> walk;
    ASSERT_EQ(point->EnumConnections(walk.out()), S_OK);
    CONNECTDATA data[2]{};
    ULONG fetched = 0;
    EXPECT_EQ(walk->Next(2, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, cookie);
    data[0].pUnk->Release();
    Com<IEnumConnectionPoints> points;
    Com<IConnectionPointContainer> container;
    ASSERT_EQ(point->GetConnectionPointContainer(container.out()), S_OK);
    ASSERT_EQ(container->EnumConnectionPoints(points.out()), S_OK);
    Com<IConnectionPoint> only;
    EXPECT_EQ(points->Next(1, only.out(), nullptr), S_OK);
    EXPECT_EQ(only.get(), point.get());
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(iid == DIID_CanvasEvents);
}

TEST_F(Events, BadInputIsRefused) {
    EXPECT_EQ(point->Unadvise(4711), CONNECT_E_NOCONNECTION);
    IUnknown* const noSink = point.get();  // offers no IDispatch
    DWORD cookie = 7;
    EXPECT_EQ(point->Advise(noSink, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    Com<IConnectionPoint> none;
    Com<IConnectionPointContainer> container;
    point->GetConnectionPointContainer(container.out());
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.out()), CONNECT_E_NOCONNECTION);
}

}  // namespace
}  // namespace canvas::component::testing
