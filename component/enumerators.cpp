#include "component/enumerators.h"

#include "component/failure.h"
#include "component/variant.h"
#include "host/collection.h"

namespace canvas::component {
namespace {

class LibraryEnumerator final : public Standalone<LibraryEnumerator, IEnumVARIANT, IID_IEnumVARIANT> {
public:
    /// At the start of the collection.
    explicit LibraryEnumerator(Ref<Object> collection)
        : m_collection(std::move(collection)), m_walk(m_collection->enumerate()) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!items || (!fetched && count > 1)) return E_POINTER;
        ULONG given = 0;
        const HRESULT result = guarded([&] {
            for (; given < count; ++given) {
                items[given] = VARIANT{};
                Value item;
                if (!advance(item)) return S_FALSE;
                give(item, items[given]);
            }
            return S_OK;
        });
        if (FAILED(result))
            while (given > 0) clear(items[--given]);
        if (fetched) *fetched = given;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        return guarded([&] {
            Value item;
            for (; count > 0; --count)
                if (!advance(item)) return S_FALSE;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        return guarded([&] {
            m_walk = m_collection->enumerate();
            m_given = 0;
            return m_walk ? S_OK : E_FAIL;
        });
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** answer) override {
        if (!answer) return E_POINTER;
        *answer = nullptr;
        return guarded([&] {
            Com<LibraryEnumerator> copy;
            *copy.out() = new LibraryEnumerator(m_collection);
            const HRESULT result = copy->Skip(m_given);
            if (SUCCEEDED(result)) *answer = copy.detach();
            return FAILED(result) ? result : S_OK;
        });
    }

private:
    bool advance(Value& item) {
        if (!m_walk || !m_walk->next(item)) return false;
        ++m_given;
        return true;
    }

    Ref<Object> m_collection;
    std::unique_ptr<Enumerator> m_walk;
    ULONG m_given = 0;
};

}  // namespace

Com<IEnumVARIANT> enumeratorFor(Object& object) {
    Com<IEnumVARIANT> made;
    if (object.enumerate()) *made.out() = new LibraryEnumerator(Ref<Object>(&object));
    return made;
}

HRESULT giveEnumerator(Object& object, std::size_t arguments, const Call& call) {
    if (arguments) return DISP_E_BADPARAMCOUNT;
    Com<IEnumVARIANT> made = enumeratorFor(object);
    if (!made) return DISP_E_MEMBERNOTFOUND;
    if (!call.result) return S_OK;
    call.result->punkVal = made.detach();
    call.result->vt = VT_UNKNOWN;
    return S_OK;
}

bool HostEnumerator::next(Value& item) {
    OwnedVariant given;
    ULONG fetched = 0;
    const Com<IEnumVARIANT> alive = m_enumerator;
    const HRESULT result = outside([&] { return alive->Next(1, &given, &fetched); });
    EXCEPINFO none{};
    if (FAILED(result)) throw errorOf(result, none);
    if (result != S_OK || fetched == 0) return false;
    if (++m_given > mostItems) raise(Error::outOfMemory);
    item = valueOf(given);
    return true;
}

}  // namespace canvas::component
