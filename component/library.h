#pragma once
// Canvas.Library: what a host sets for the whole process.

#include <string>
#include <string_view>

#include "host/members.h"

namespace canvas::component {

inline constexpr std::string_view libraryVersion = "1.0.0";

/// One per process. What was set stays when the host lets the object go; the host puts Nothing to `Interaction` before
/// it unloads the library.
class Library final : public Tabled<Library> {
public:
    static constexpr std::string_view name = "Library";
    static std::span<const Member> table() noexcept;

    /// The host's own way to ask the user; Nothing brings the library's own back.
    Ref<Object> Interaction() const { return m_interaction; }
    void setInteraction(Ref<Object> object);
    /// "200" unless set.
    std::string FileFormatVersion() const;
    void setFileFormatVersion(std::string_view version);
    /// Objects of the library that a host holds, this one counted.
    std::int32_t LiveObjects() const noexcept;
    std::string Version() const { return std::string(libraryVersion); }

private:
    Ref<Object> m_interaction;
};

Ref<Object> theLibrary();

/// At each use that may be the first: the dialogs and the library's own way to ask are there from then on.
void startLibrary();

/// When the library is unloaded: lets go what it keeps for the process. Not so while anything is held on either side:
/// it may be the process that ends, and the host be gone.
void endLibrary() noexcept;

}  // namespace canvas::component
