#pragma once
// Comma-separated text: fields between commas, text in double quotes (a quote inside is doubled), numbers bare, a null
// as nothing at all, lines ended by CR LF.

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "host/array.h"

namespace canvas {

/// Takes field after field; a line's end separates them as a comma does.
class CsvReader {
public:
    /// UTF-8.
    explicit CsvReader(std::string text) : m_text(std::move(text)) {}

    bool atEnd() const noexcept { return m_at == m_text.size(); }
    /// A quoted field is text. A bare one is a 32-bit number when it is spelled as one, null when it is empty, else text
    /// without the blanks around it. Text behind a closing quote belongs to the field; a quote that is never closed
    /// takes the rest. Error 62 at the end.
    Value next();
    void skip(int fields);
    /// The line, from 1, on which the field that was read last began.
    int line() const noexcept { return m_fieldLine; }

private:
    std::string quotedPart();
    std::string_view barePart();
    void endField();

    std::string m_text;
    std::size_t m_at = 0;
    int m_line = 1;
    int m_fieldLine = 1;
};

class CsvWriter {
public:
    CsvWriter& field(const Value& value);
    void endLine();
    /// A line of texts.
    void titles(std::initializer_list<std::string_view> texts);
    const std::string& text() const noexcept { return m_text; }

private:
    std::string m_text;
    bool m_lineBegun = false;
};

}  // namespace canvas
