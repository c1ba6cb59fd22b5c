#pragma once
// An enumerator over items as they stood when it was made.

#include <utility>
#include <vector>

#include "component/com.h"
#include "component/failure.h"

namespace canvas::component {

/// `Item` owns what `Given` hands out to a caller.
template <class Interface, class Item, class Given, const IID& iid>
class Snapshot final : public Standalone<Snapshot<Interface, Item, Given, iid>, Interface, iid> {
public:
    using Hand = Given (*)(const Item&);
    Snapshot(std::vector<Item> items, Hand hand, std::size_t next = 0)
        : m_items(std::move(items)), m_hand(hand), m_next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* items, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!items || (!fetched && count > 1)) return E_POINTER;
        ULONG given = 0;
        while (given < count && m_next < m_items.size()) items[given++] = m_hand(m_items[m_next++]);
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const bool enough = count <= m_items.size() - m_next;
        m_next = enough ? m_next + count : m_items.size();
        return enough ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** answer) override {
        if (!answer) return E_POINTER;
        *answer = nullptr;
        return guarded([&] {
            *answer = new Snapshot(m_items, m_hand, m_next);
            return S_OK;
        });
    }

private:
    std::vector<Item> m_items;
    Hand m_hand;
    std::size_t m_next;
};

}  // namespace canvas::component
