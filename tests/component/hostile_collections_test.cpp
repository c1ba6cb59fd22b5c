// Collections of a host, and of the library in a host's hands, that do not behave.

#include <gtest/gtest.h>

#include "attributes/program_control.h"
#include "component/enumerators.h"
#include "document/block_col.h"
#include "document/catalogue.h"
#include "host/collection.h"
#include "tests/component/hostile.h"

namespace canvas::component::testing {
namespace {

Use walking() {
    return [](Object& host) {
        std::int32_t count = 0;
        forEach(host, [&](const Value&) { return ++count < 2'000'000; });
        return Value(count);
    };
}
/// A host's enumerator that gives what a function says.
class FakeEnumerator final : public Standalone<FakeEnumerator, IEnumVARIANT, IID_IEnumVARIANT> {
public:
    using Next1 = std::function<HRESULT(int, VARIANT&)>;
    explicit FakeEnumerator(Next1 next) : m_next(std::move(next)) {}
    HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* item, ULONG* fetched) override {
        const HRESULT result = m_next(m_at++, *item);
        if (fetched) *fetched = result == S_OK ? 1 : 0;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    Next1 m_next;
    int m_at = 0;
};

Be walkedBy(FakeEnumerator::Next1 next) {
    return [next](FakeHost& h) {
        h.enumerate = [next](const HostCall& call) {
            call.result->vt = VT_UNKNOWN;
            call.result->punkVal = new FakeEnumerator(next);
            return S_OK;
        };
        h.members["count"] = giving(std::int32_t{3});
    };
}

FakeEnumerator::Next1 counting(int items) {
    return [items](int at, VARIANT& item) {
        if (at >= items) return S_FALSE;
        give(Value(std::int32_t{at}), item);
        return S_OK;
    };
}

TEST(HostileHosts, Collections) {
    const auto byItem = [](FakeHost& h) {
        h.members["count"] = giving(std::int32_t{3});
        h.members["item"] = [](const HostCall& call) { return call.answer(valueOf(call[0])); };
    };
    const Hostile rows[] = {
        {"walked", walkedBy(counting(3)), walking(), Value(std::int32_t{3})},
        {"fewer items than its count", walkedBy(counting(1)), walking(), Value(std::int32_t{1})},
        {"an enumerator that fails", walkedBy([](int, VARIANT&) { return E_FAIL; }), walking(), {}, 440},
        {"an enumerator without an end", walkedBy([](int, VARIANT&) { return S_OK; }), walking(), {}, 7},
        {"no enumerator, but count and item", byItem, walking(), Value(std::int32_t{3})},
        {"an endless count",
         [](FakeHost& h) {
             h.members["count"] = giving(std::int32_t{2'000'000'000});
             h.members["item"] = giving(1);
         },
         walking(), {}, 7},
        {"a negative count",
         [](FakeHost& h) {
             h.members["count"] = giving(std::int32_t{-3});
             h.members["item"] = giving(1);
         },
         walking(), Value(std::int32_t{0})},
        {"neither", [](FakeHost&) {}, walking(), {}, 451},
        {"an enumerator that raises", walkedBy([](int, VARIANT&) { return DISP_E_EXCEPTION; }), walking(), {}, 440},
        {"an enumerator that fails in the middle",
         walkedBy([](int at, VARIANT& item) {
             give(Value(std::int32_t{at}), item);
             return at < 2 ? S_OK : E_OUTOFMEMORY;
         }),
         walking(), {}, 7},
        {"an item of a kind unknown here",
         walkedBy([](int, VARIANT& item) {
             item.vt = 36;
             return S_OK;
         }),
         walking(), {}, 13},
        {"an enumeration that is Nothing", [](FakeHost& h) { h.enumerate = giving(Ref<Object>()); }, walking(), {}, 451},
        {"an enumeration that is the collection itself",
         [](FakeHost& h) {
             h.enumerate = [&h](const HostCall& call) { return call.answer(Value(objectBehind(&h))); };
         },
         walking(), {}, 451},
        {"an enumeration that is a collection of the library",
         [](FakeHost& h) {
             h.enumerate = [](const HostCall& call) {
                 const auto collection = make<Collection>();
                 for (const char* item : {"a", "b"}) collection->Add(Value(item));
                 return call.answer(Value(enumeratorOf(collection)));
             };
         },
         walking(), Value(std::int32_t{2})},
        {"an enumeration that is text", [](FakeHost& h) { h.enumerate = giving("x"); }, walking(), {}, 451},
        {"an enumeration that raises", [](FakeHost& h) { h.enumerate = raising(57, "x"); }, walking(), {}, 57},
        {"a count that is no number",
         [](FakeHost& h) {
             h.members["count"] = giving("many");
             h.members["item"] = giving(1);
         },
         walking(), {}, 13},
        {"fewer items than counted",
         [](FakeHost& h) {
             h.members["count"] = giving(std::int32_t{3});
             h.members["item"] = [](const HostCall& call) {
                 return valueOf(call[0]).toLong() > 1 ? fail(call, 9, "changed meanwhile") : call.answer(1);
             };
         },
         walking(), {}, 9},
    };
    for (const Hostile& row : rows) run(row);
}

TEST(HostileHosts, ACollectionMayChangeWhileTheLibraryWalksIt) {
    std::vector<std::string> items = {"a", "b", "c"};
    const auto collection = makeHost();
    collection.get()->members = {
        {"count", [&](const HostCall& call) { return call.answer(static_cast<std::int32_t>(items.size())); }},
        {"item",
         [&](const HostCall& call) {
             const auto place = static_cast<std::size_t>(valueOf(call[0]).toLong());
             if (place > items.size()) return fail(call, 9, "gone");
             const std::string item = items[place - 1];
             if (place == 1) items.pop_back();
             return call.answer(item);
         }},
    };
    const auto block = dispatchOf(make<clsBVTSuperBlock>());
    EXPECT_EQ(static_cast<unsigned>(put(block.get(), "SubroutineFilename", Value(asObject(collection))).scode), 0x800A0009u);
}

TEST(HostileHosts, TheLibrarysCollectionsMayChangeWhileAHostWalksThem) {
    const auto blocks = make<clsBVTBlockCol>();
    for (std::int16_t id = 1; id <= 4; ++id) {
        auto block = make<clsBVTBlock>();
        block->intBlockID = id;
        block->setBlockType(PROGRAMSTART);
        blocks->Add(*block);
    }
    const auto collection = dispatchOf(blocks);
    DISPPARAMS none{};
    OwnedVariant walk;
    ASSERT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, &walk, nullptr, nullptr), S_OK);
    const auto items = ask<IEnumVARIANT>(walk.punkVal, IID_IEnumVARIANT);
    const auto next = [&] {
        OwnedVariant item;
        return items->Next(1, &item, nullptr) == S_OK ? call(item.pdispVal, "BlockID").value : Value();
    };
    EXPECT_EQ(next(), Value(std::int16_t{1}));
    EXPECT_EQ(call(collection.get(), "Delete", {"1"}).result, S_OK);
    EXPECT_EQ(call(collection.get(), "Delete", {"3"}).result, S_OK);
    EXPECT_EQ(next(), Value(std::int16_t{2})) << "none is passed over";
    EXPECT_EQ(next(), Value(std::int16_t{4}));
    EXPECT_EQ(call(collection.get(), "Clear").result, S_OK);
    EXPECT_EQ(next(), Value()) << "the end";
}

TEST(HostileHosts, AHostMayEmptyTheCollectionThatTheLibraryWalksForIt) {
    const auto titles = make<Collection>();
    for (const char* item : {"a.bpg", "b.bpg", "c.bpg"}) titles->Add(Value(item));
    const auto block = dispatchOf(make<clsBVTSuperBlock>());
    ASSERT_EQ(put(block.get(), "SubroutineFilename", Value(Ref<Object>(titles))).result, S_OK);
    titles->Clear();
    OwnedVariant list;
    list.vt = VT_DISPATCH;
    VARIANT row{};
    row.vt = VT_I2;
    EXPECT_EQ(invokeRaw(block.get(), numberOf(block.get(), "GetComboItem"), DISPATCH_METHOD, {row, referenceTo(list)}).result,
              S_OK);
    EXPECT_EQ(call(list.pdispVal, "Count").value, Value(std::int32_t{3})) << "the titles are the block's own";
}

}  // namespace
}  // namespace canvas::component::testing
