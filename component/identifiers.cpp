#include "component/identifiers.h"

namespace canvas::component {

const ClassIdentifiers* identifiersOf(std::string_view className) noexcept {
    for (const ClassIdentifiers& row : classIdentifiers)
        if (row.name == className) return &row;
    return nullptr;
}

const ClassIdentifiers* identifiersOf(REFCLSID clsid) noexcept {
    for (const ClassIdentifiers& row : classIdentifiers)
        if (row.clsid == clsid) return &row;
    return nullptr;
}

std::string textOf(const GUID& id) {
    std::string text = "{";
    const auto digits = [&](unsigned long number, int bytes) {
        for (int shift = bytes * 8 - 4; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[number >> shift & 0xF];
    };
    digits(id.Data1, 4);
    text += '-';
    digits(id.Data2, 2);
    text += '-';
    digits(id.Data3, 2);
    text += '-';
    for (int i = 0; i < 8; ++i) {
        if (i == 2) text += '-';
        digits(id.Data4[i], 1);
    }
    return text + '}';
}

}  // namespace canvas::component
