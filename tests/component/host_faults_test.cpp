// Machine faults on either side of the boundary: the library's become errors, a host's go to the host's own handler.

#include <csignal>

#include <gtest/gtest.h>
#include <sys/mman.h>

#include "component/enumerators.h"
#include "component/identifiers.h"
#include "document/canvas.h"
#include "host/convert.h"
#include "tests/component/fake_host.h"
#include "tracing/faults.h"

namespace canvas::component::testing {
namespace {

/// Memory that cannot be read until the host's handler has put it right.
struct Page {
    static constexpr std::size_t size = 4096;
    volatile int* at =
        static_cast<volatile int*>(mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    int repairs = 0;

    void allow(int protection) { mprotect(const_cast<int*>(at), size, protection); }
    ~Page() { munmap(const_cast<int*>(at), size); }
};
Page* page = nullptr;

void repair(int, siginfo_t* info, void*) {
    if (info->si_addr != const_cast<int*>(page->at)) _exit(99);  // not the host's fault
    ++page->repairs;
    page->allow(PROT_READ);
}

/// Reads where nothing is. Not the null pointer, which a sanitizer tells from a fault of the machine.
std::int32_t readNowhere() {
    static volatile std::uintptr_t nowhere = 64;
    return *reinterpret_cast<const volatile std::int32_t*>(nowhere);
}

/// A member of the library that reads what it may not.
class Faulty final : public Tabled<Faulty> {
public:
    static constexpr std::string_view name = "Faulty";
    static std::span<const Member> table() noexcept {
        static constexpr Member members[] = {method<&Faulty::fault>("Fault")};
        return members;
    }
    std::int32_t fault() { return readNowhere(); }
};

/// The host has a handler of its own from before the library came.
struct HostFaults : ::testing::Test {
    Page memory;
    struct sigaction before {};
    Com<FakeHost> host = makeHost();
    Ref<Object> object = asObject(host);

    HostFaults() {
        tracing::vbwUnHandleException();
        struct sigaction own {};
        own.sa_sigaction = &repair;
        own.sa_flags = SA_SIGINFO | SA_ONSTACK;
        sigaction(SIGSEGV, &own, &before);
        tracing::vbwHandleException();
        page = &memory;
    }
    ~HostFaults() override {
        tracing::vbwUnHandleException();
        sigaction(SIGSEGV, &before, nullptr);
        tracing::vbwHandleException();
    }

    /// What a host's code does here: reads its page, which its handler repairs.
    static HRESULT fault() {
        page->allow(PROT_NONE);
        return *page->at == 0 ? S_OK : E_FAIL;
    }
    static FakeHost::Member faulting(Value answer = {}) {
        return [answer](const HostCall& call) { return FAILED(fault()) ? E_FAIL : call.answer(answer); };
    }
    void expectRepairs(int count) { EXPECT_EQ(memory.repairs, count); }
};

TEST_F(HostFaults, InMembersGoToTheHostsHandler) {
    const tracing::InLibrary inside;
    host.get()->members["left"] = faulting(std::int32_t{7});
    EXPECT_EQ(object->get("Left"), Value(std::int32_t{7}));
    object->put("Left", true);
    expectRepairs(2);
    EXPECT_TRUE(tracing::InLibrary::running()) << "back in the library";
}

TEST_F(HostFaults, InALookUpGoToTheHostsHandler) {
    struct Looking final : FakeHost {
        HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID lcid, DISPID* numbers) override {
            fault();
            return FakeHost::GetIDsOfNames(riid, names, count, lcid, numbers);
        }
        HRESULT QueryInterface(REFIID riid, void** answer) override {
            fault();
            return FakeHost::QueryInterface(riid, answer);
        }
        ULONG Release() override {
            fault();
            return FakeHost::Release();
        }
    };
    const tracing::InLibrary inside;
    Com<FakeHost> looking;
    *looking.out() = new Looking;
    looking.get()->members["left"] = giving(std::int32_t{7});
    Ref<Object> adapter = asObject(looking);
    expectRepairs(1);
    EXPECT_EQ(adapter->get("Left"), Value(std::int32_t{7}));
    expectRepairs(2);
    adapter = nullptr;
    expectRepairs(3);
}

TEST_F(HostFaults, InAWalkGoToTheHostsHandler) {
    class Walk final : public Standalone<Walk, IEnumVARIANT, IID_IEnumVARIANT> {
    public:
        HRESULT Next(ULONG, VARIANT*, ULONG*) override { return FAILED(fault()) ? E_FAIL : S_FALSE; }
        HRESULT Skip(ULONG) override { return E_NOTIMPL; }
        HRESULT Reset() override { return E_NOTIMPL; }
        HRESULT Clone(IEnumVARIANT**) override { return E_NOTIMPL; }
    };
    host.get()->enumerate = [](const HostCall& call) {
        call.result->vt = VT_UNKNOWN;
        call.result->punkVal = new Walk;
        return fault();
    };
    const tracing::InLibrary inside;
    const auto walk = object->enumerate();
    expectRepairs(1);
    Value item;
    EXPECT_FALSE(walk->next(item));
    expectRepairs(2);
}

TEST_F(HostFaults, InASinkGoToTheHostsHandler) {
    const auto canvas = dispatchOf(make<clsBVTCanvas>());
    Com<IConnectionPoint> point;
    ask<IConnectionPointContainer>(canvas.get(), IID_IConnectionPointContainer)
        ->FindConnectionPoint(DIID_CanvasEvents, point.out());
    host.get()->numbered = faulting();
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(host.get(), &cookie), S_OK);
    EXPECT_EQ(call(canvas.get(), "AddActionToUndoList", {2, Value(Ref<Object>(make<clsBVTBlock>()))}).result, S_OK);
    expectRepairs(2);  // before and after
}

TEST_F(HostFaults, InADeferredDescriptionGoToTheHostsHandler) {
    host.get()->members["left"] = [](const HostCall& call) {
        call.exception->pfnDeferredFillIn = [](EXCEPINFO* info) {
            info->scode = static_cast<SCODE>(0x800A0046);
            return fault();
        };
        return DISP_E_EXCEPTION;
    };
    const tracing::InLibrary inside;
    try {
        object->get("Left");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 70);
    }
    expectRepairs(1);
}

TEST_F(HostFaults, TheLibrarysOwnAreErrorsBeforeDuringAndAfter) {
    const auto faulty = dispatchOf(make<Faulty>());
    const auto isError = [&] {
        const Outcome outcome = call(faulty.get(), "Fault");
        return outcome.result == DISP_E_EXCEPTION && static_cast<unsigned>(outcome.scode) == 0x800A01B8;
    };
    host.get()->members["left"] = [&](const HostCall& call) {
        fault();
        const bool answered = isError();
        fault();
        return call.answer(answered);
    };
    EXPECT_TRUE(isError());
    {
        const tracing::InLibrary inside;
        EXPECT_EQ(object->get("Left"), Value(true));
    }
    EXPECT_TRUE(isError());
    expectRepairs(2);
}

TEST(HostFaultsDeathTest, WithoutAHandlerTheProcessEndsAsItWouldWithoutTheLibrary) {
    const auto host = makeHost();
    host.get()->members["left"] = [](const HostCall&) { return HRESULT{readNowhere()}; };
    EXPECT_DEATH(
        {
            const tracing::InLibrary inside;
            asObject(host)->get("Left");
        },
        "");
}

}  // namespace
}  // namespace canvas::component::testing
