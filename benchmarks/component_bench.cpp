// Late-bound calls through the component beside a plain virtual call: nanoseconds, and allocations of a call.

#include <cstdlib>
#include <iterator>

#include <benchmark/benchmark.h>

#include "component/text.h"
#include "component/variant.h"
#include "component/wrappers.h"
#include "document/canvas.h"
#include "host/convert.h"

namespace {

std::size_t allocations = 0;

}  // namespace

// Counts what every allocation comes to in the end (glibc's own name behind it).
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* malloc(std::size_t size) noexcept {
    ++allocations;
    return __libc_malloc(size);
}

namespace canvas::component {
namespace {

/// Runs the calls and reports allocations of one of them.
template <class Call>
void measure(benchmark::State& state, Call&& call) {
    call();  // names are looked up once
    const std::size_t before = allocations;
    for (auto _ : state) call();
    const auto calls = static_cast<double>(state.iterations());
    state.counters["allocations"] = static_cast<double>(allocations - before) / calls;
}

DISPID numberOf(IDispatch* object, std::string_view name) {
    const OwnedText text(name);
    LPOLESTR names[] = {text.get()};
    DISPID number = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, names, 1, 0, &number);
    return number;
}

VARIANT textArgument(const OwnedText& text) {
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = text.get();
    return argument;
}

struct Plain {
    virtual ~Plain() = default;
    virtual bool call(std::string_view text) = 0;
};
struct Counted final : Plain {
    bool call(std::string_view text) override { return text.size() % 2 != 0; }
};

void plainVirtualCall(benchmark::State& state) {
    const std::unique_ptr<Plain> object = std::make_unique<Counted>();
    measure(state, [&] {
        Plain* called = object.get();
        benchmark::DoNotOptimize(called);
        bool result = called->call("Move Axis");
        benchmark::DoNotOptimize(result);
    });
}
BENCHMARK(plainVirtualCall);

void intoLibrary(benchmark::State& state, std::string_view member, std::vector<VARIANT> arguments) {
    const auto canvas = dispatchOf(make<clsBVTCanvas>());
    const DISPID number = numberOf(canvas.get(), member);
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    measure(state, [&] {
        OwnedVariant result;
        canvas->Invoke(number, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
    });
}

void intoLibraryPropertyRead(benchmark::State& state) { intoLibrary(state, "Changed", {}); }
BENCHMARK(intoLibraryPropertyRead);

void intoLibraryOneInteger(benchmark::State& state) {
    VARIANT id{};
    id.vt = VT_I2;
    id.iVal = 7;
    intoLibrary(state, "DoesBlockIDExist", {id});
}
BENCHMARK(intoLibraryOneInteger);

void intoLibraryOneText(benchmark::State& state) {
    const OwnedText text("say \"stop\"");
    intoLibrary(state, "OpenQuote", {textArgument(text)});
}
BENCHMARK(intoLibraryOneText);

/// Says yes to everything.
struct Host final : IDispatch {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
        *answer = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* numbers) override {
        numbers[0] = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        result->vt = VT_BOOL;
        result->boolVal = VARIANT_TRUE;
        return S_OK;
    }
};

void intoHostWithoutText(benchmark::State& state) {
    Host host;
    const Ref<Object> object = objectBehind(&host);
    measure(state, [&] {
        bool result = object->call("IsTaskDefined").toBoolean();
        benchmark::DoNotOptimize(result);
    });
}
BENCHMARK(intoHostWithoutText);

void intoHostOneText(benchmark::State& state) {
    Host host;
    const Ref<Object> object = objectBehind(&host);
    measure(state, [&] {
        bool result = invoke(*object, "IsASubroutine", "homing").toBoolean();
        benchmark::DoNotOptimize(result);
    });
}
BENCHMARK(intoHostOneText);

}  // namespace
}  // namespace canvas::component
