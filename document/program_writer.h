#pragma once
// Writing program files.

#include <string>
#include <string_view>

namespace canvas {

class clsBVTCanvas;

/// Writes the document under `fileName` with its last four characters ".bpg" replaced by ".bpa", or ".bpa" appended
/// when they are anything else but that. A failure is told in a box "Canvas.WriteFile"; the file that was there is then
/// as it was, byte for byte, and the document stays changed.
void writeProgram(clsBVTCanvas& document, std::string_view fileName);

/// The name on disk, case-sensitively.
std::string nameOnDisk(std::string_view fileName);

/// The program as text (UTF-8, lines end in CR LF). Cam blocks are brought up to date first.
std::string programText(clsBVTCanvas& document);

}  // namespace canvas
