#pragma once
// How many kills the tests of interrupted saves deal out.

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace canvas::kills {

/// `usual`, unless CANVAS_KILLS in the environment asks for another number.
inline int wanted(int usual) {
    if (const char* text = std::getenv("CANVAS_KILLS")) std::from_chars(text, text + std::strlen(text), usual);
    return usual;
}

}  // namespace canvas::kills
