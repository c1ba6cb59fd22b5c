#pragma once
// Identifiers of classes and interfaces: version 5 UUIDs (RFC 4122) below the one of "urn:brevant:canvas".

#include <string>
#include <string_view>

#include "component/platform/automation.h"

namespace canvas::component {

struct ClassIdentifiers {
    std::string_view name;
    CLSID clsid;
    IID iid;  ///< of the default interface
};

#include "component/identifiers.inc"

/// Null for a class without a row.
const ClassIdentifiers* identifiersOf(std::string_view className) noexcept;
const ClassIdentifiers* identifiersOf(REFCLSID clsid) noexcept;

/// "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}" in upper case.
std::string textOf(const GUID& id);

}  // namespace canvas::component
