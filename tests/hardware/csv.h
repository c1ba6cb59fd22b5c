#pragma once
// Text files of the modules, put together line by line.

#include <string>

namespace canvas::fixture {

inline const std::string propertyHeader = "\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n";
inline const std::string nodeHeader =
    "\"Node\",\"Name\",\"NodeType\",\"InputWords\",\"OutputWords\",\"TypeCode\",\"Dirty\"\r\n";

inline std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

inline std::string propertyLine(int g, int n, std::string_view value, int mark) {
    return std::to_string(g) + "," + std::to_string(n) + "," + inQuotes(value) + "," + std::to_string(mark) + "\r\n";
}

/// A file of one section up to its first property.
inline std::string head(std::string_view tag) { return inQuotes(tag) + "\r\n" + propertyHeader; }

/// The first section of a file with nodes: properties 1 to `lines` of group 5 with the values "n1", "n2", ..., marked.
inline std::string networkSection(int lines) {
    std::string text = head("Network");
    for (int n = 1; n <= lines; ++n) text += propertyLine(5, n, "n" + std::to_string(n), 1);
    return text;
}

inline std::string nodeLine(std::string_view node, std::string_view name, std::string_view type, std::string_view in,
                            std::string_view out, std::string_view code, int mark) {
    std::string line;
    for (const std::string_view text : {node, name, type, in, out, code}) line += inQuotes(text) + ",";
    return line + std::to_string(mark) + "\r\n";
}

/// The tag and the header of the second section.
inline std::string nodeHead() { return "\"RemoteIO\"\r\n" + nodeHeader; }

}  // namespace canvas::fixture
