// Calls without text or objects take nothing from the heap, in either direction.

#include <cstdlib>

#include <gtest/gtest.h>

#include "document/canvas.h"
#include "tests/component/fake_host.h"

// A sanitizer has a heap of its own.
#ifndef __SANITIZE_ADDRESS__

namespace {
std::size_t allocations = 0;
}

// Every allocation comes to one of these in the end (glibc's own names stand behind them).
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* malloc(std::size_t size) noexcept {
    ++allocations;
    return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
    ++allocations;
    return __libc_calloc(count, size);
}

namespace canvas::component::testing {
namespace {

/// Of the second of two calls: names are looked up once.
template <class Call>
std::size_t allocationsOf(Call&& call) {
    call();
    const std::size_t before = allocations;
    call();
    return allocations - before;
}

TEST(Allocations, TextIsCounted) {
    EXPECT_GT(allocationsOf([] { OwnedText("a"); }), 0u);
    EXPECT_GT(allocationsOf([] { std::string text(100, 'a'); }), 0u);
}

TEST(Allocations, CallsIntoTheLibraryWithoutTextTakeNothing) {
    struct Row {
        const char* member;
        WORD flags;
        int arguments;
    };
    const Row rows[] = {
        {"Changed", DISPATCH_PROPERTYGET, 0},     {"Changed", DISPATCH_PROPERTYPUT, 1},
        {"FormZoom", DISPATCH_PROPERTYPUT, 1},    {"MaxNumberOfBlock", DISPATCH_PROPERTYGET, 0},
        {"DoesBlockIDExist", DISPATCH_METHOD, 1}, {"SelectPort", DISPATCH_METHOD, 3},
        {"GetUndoActionCode", DISPATCH_METHOD, 0}, {"HasSuperBlock", DISPATCH_METHOD, 0},
        {"SelectPort", DISPATCH_METHOD, 2},  // refused
    };
    const auto canvas = dispatchOf(make<clsBVTCanvas>());
    for (const Row& row : rows) {
        const DISPID number = numberOf(canvas.get(), row.member);
        VARIANT arguments[3]{};
        for (VARIANT& argument : arguments) argument.vt = VT_I2;
        const bool writes = row.flags == DISPATCH_PROPERTYPUT;
        DISPID name = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{arguments, writes ? &name : nullptr, static_cast<UINT>(row.arguments), writes ? 1u : 0u};
        EXPECT_EQ(allocationsOf([&] {
                      VARIANT answer{};
                      canvas->Invoke(number, IID_NULL, 0, row.flags, &parameters, &answer, nullptr, nullptr);
                  }), 0u) << row.member;
    }
}

TEST(Allocations, ATextIntoTheLibraryTakesTwoWhenItIsLong) {
    const auto canvas = dispatchOf(make<clsBVTCanvas>());
    const DISPID number = numberOf(canvas.get(), "OpenQuote");
    const auto taken = [&](std::size_t length) {
        const OwnedText text(std::string(length, 'a'));
        VARIANT argument{};
        argument.vt = VT_BSTR;
        argument.bstrVal = text.get();
        DISPPARAMS parameters{&argument, nullptr, 1, 0};
        return allocationsOf([&] {
            canvas->Invoke(number, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
        });
    };
    EXPECT_EQ(taken(15), 0u);
    EXPECT_EQ(taken(40), 2u);
}

TEST(Allocations, CallsIntoAHostWithoutTextTakeNothing) {
    const auto host = makeHost();
    host.get()->numbered = [](const HostCall& call) {
        if (call.result) give(Value(std::int32_t{7}), *call.result);
        return S_OK;
    };
    host.get()->members["left"] = nullptr;
    const Ref<Object> object = asObject(host);
    EXPECT_EQ(allocationsOf([&] { object->get("Left"); }), 0u);
    EXPECT_EQ(allocationsOf([&] { object->put("Left", Value(std::int32_t{5})); }), 0u);
    EXPECT_EQ(allocationsOf([&] {
                  Value arguments[] = {Value(std::int32_t{5}), Value(true)};
                  object->call("Left", arguments);
              }), 0u);
}

}  // namespace
}  // namespace canvas::component::testing

#endif
