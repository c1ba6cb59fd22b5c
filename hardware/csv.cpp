#include "hardware/csv.h"

#include <algorithm>
#include <charconv>

#include "host/errors.h"
#include "host/text.h"

namespace canvas {
namespace {

/// Spelled as numbers are written: "+5", "007" and "1.0" are texts, which keep their spelling.
Value bareValue(std::string_view text) {
    if (text.empty()) return Null{};
    std::int32_t number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = fault == std::errc{} && end == text.data() + text.size();
    const std::string_view digits = text.substr(text.front() == '-' ? 1 : 0);
    const bool plain = !digits.starts_with('0') || text.size() == 1;
    return whole && plain ? Value(number) : Value(text);
}

}  // namespace

Value CsvReader::next() {
    while (m_at < m_text.size() && m_text[m_at] == ' ') ++m_at;
    if (atEnd()) raise(Error::inputPastEnd);
    m_fieldLine = m_line;
    if (m_text[m_at] != '"') {
        const Value value = bareValue(text::trimmed(barePart()));
        endField();
        return value;
    }
    std::string value = quotedPart();
    value += text::trimmed(barePart());
    endField();
    return value;
}

void CsvReader::skip(int fields) {
    for (int i = 0; i < fields; ++i) next();
}

std::string CsvReader::quotedPart() {
    std::string value;
    for (++m_at;;) {
        const std::size_t quote = std::min(m_text.find('"', m_at), m_text.size());
        const std::string_view part = std::string_view(m_text).substr(m_at, quote - m_at);
        m_line += static_cast<int>(std::count(part.begin(), part.end(), '\n'));
        value += part;
        m_at = std::min(quote + 1, m_text.size());
        if (m_at == m_text.size() || m_text[m_at] != '"') return value;
        value += '"';
        ++m_at;
    }
}

std::string_view CsvReader::barePart() {
    const std::size_t end = std::min(m_text.find_first_of(",\r\n", m_at), m_text.size());
    const std::string_view part = std::string_view(m_text).substr(m_at, end - m_at);
    m_at = end;
    return part;
}

/// Passes one comma or one line end.
void CsvReader::endField() {
    if (atEnd()) return;
    const bool pair = m_text.compare(m_at, 2, "\r\n") == 0;
    if (m_text[m_at] != ',') ++m_line;
    m_at += pair ? 2 : 1;
}

CsvWriter& CsvWriter::field(const Value& value) {
    if (m_lineBegun) m_text += ',';
    m_lineBegun = true;
    if (value.is(Kind::null) || value.is(Kind::empty)) return *this;
    const std::string* text = value.text();
    if (!text) {
        m_text += value.toText();
        return *this;
    }
    m_text += '"';
    for (const char c : *text) {
        if (c == '"') m_text += '"';
        m_text += c;
    }
    m_text += '"';
    return *this;
}

void CsvWriter::endLine() {
    m_text += "\r\n";
    m_lineBegun = false;
}

void CsvWriter::titles(std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts) field(text);
    endLine();
}

}  // namespace canvas
