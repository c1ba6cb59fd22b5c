#pragma once
// Walks through collections, in both directions.

#include <memory>

#include "component/com.h"
#include "component/invoke.h"
#include "host/object.h"

namespace canvas::component {

/// Answers DISPID_NEWENUM with an IEnumVARIANT; DISP_E_MEMBERNOTFOUND for an object that cannot be walked.
HRESULT giveEnumerator(Object& object, std::size_t arguments, const Call& call);

/// An IEnumVARIANT at the start of a collection, with a reference for the caller; null when it cannot be walked.
Com<IEnumVARIANT> enumeratorFor(Object& object);

/// A host's enumerator. Ends with error 7 after `mostItems`.
class HostEnumerator final : public Enumerator {
public:
    explicit HostEnumerator(Com<IEnumVARIANT> enumerator) noexcept : m_enumerator(std::move(enumerator)) {}
    bool next(Value& item) override;

private:
    Com<IEnumVARIANT> m_enumerator;
    std::int32_t m_given = 0;
};

}  // namespace canvas::component
