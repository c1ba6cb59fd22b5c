#pragma once
// A host's object as the library sees it.

#include <memory>
#include <string>
#include <vector>

#include "component/com.h"
#include "host/object.h"

namespace canvas::component {

/// Names are looked up once for each object and name, through IDispatchEx where it is offered. Failures inside the
/// host come as its number, source and description; a missing member is error 438.
class HostObject final : public Object {
public:
    explicit HostObject(IDispatch* dispatch);
    ~HostObject() override;

    std::string_view className() const noexcept override { return "Object"; }
    Value get(std::string_view name, Args args = {}) override;
    void put(std::string_view name, const Value& value, Args args = {}) override;
    /// Null where the host offers none; a failure of its own passes.
    std::unique_ptr<Enumerator> enumerate() override;

    /// Whether the host knows the name now.
    bool offers(std::string_view name) const { return lookUp(name) != DISPID_UNKNOWN; }
    IDispatch* dispatch() const noexcept { return m_dispatch.get(); }

    static constexpr char tag = 0;
    void* face(const void* asked) noexcept override { return asked == &tag ? this : nullptr; }

private:
    struct Name {
        std::string name;
        DISPID number = DISPID_UNKNOWN;
        std::uint32_t byReference = 0;  ///< arguments that the host may write; bit 0 is the first
    };
    /// Error 438 when the host does not know the name.
    Name found(std::string_view name);
    DISPID lookUp(std::string_view name) const;
    HRESULT called(DISPID number, WORD flags, DISPPARAMS& parameters, VARIANT* answer, EXCEPINFO& exception);
    void forget(std::string_view name) noexcept;

    Com<IDispatch> m_dispatch;
    Com<IDispatchEx> m_extended;  ///< null where it is not offered
    std::vector<Name> m_names;
};

}  // namespace canvas::component
