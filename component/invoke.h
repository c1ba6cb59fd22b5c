#pragma once
// One late-bound call into the library.

#include "component/member_list.h"
#include "component/platform/automation.h"

namespace canvas::component {

/// What IDispatch::Invoke is given.
struct Call {
    DISPID number;
    WORD flags;
    DISPPARAMS* parameters;
    VARIANT* result;       ///< may be null
    EXCEPINFO* exception;  ///< may be null
    UINT* argument;        ///< may be null; takes the place of a refused one in `parameters`
};

/// Results as IDispatch::Invoke gives them; throws nothing but what a machine fault throws.
HRESULT invoke(Object& object, const MemberList& members, const Call& call);

HRESULT numbersOf(const MemberList& members, LPOLESTR* names, UINT count, DISPID* numbers);

}  // namespace canvas::component
