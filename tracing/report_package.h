#pragma once
// The report package: a private folder of text files about a failure, and a .zip of them for the support.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/private_folder.h"
#include "tracing/archive.h"
#include "tracing/handler.h"

namespace canvas::tracing {

/// What is shown of a failure, line by line: number, description, project, module, procedure, line, version.
std::string messageOf(const Failure& failure);

/// The folder of the report: "Error Report Files" in the application's directory where that can be written, else in the
/// user's state directory ($XDG_STATE_HOME, ~/.local/state), under "brevant". Its path is kept in `vbwErrorPath`.
class ReportPackage {
public:
    /// Makes or empties the folder, and lets the dump file be written inside it, since a dump is as private as the
    /// package. Raises the disk's errors when no place can be written.
    ReportPackage();

    /// Writes all files but the archive, in their order; one that cannot be written is left out. Gives what there is.
    void collect();
    const std::vector<ArchiveFile>& files() const noexcept { return m_files; }
    /// "Variables.txt (12 Kb)", a line each: what goes into the archive.
    std::string listing() const;
    /// Writes the archive, named for the application. False when it cannot be written.
    bool pack();

    /// Full path of the archive without ".zip".
    std::string archive() const;
    std::uint64_t archiveKb() const noexcept { return m_archiveKb; }

private:
    void add(const std::string& name, std::string bytes);

    PrivateFolder m_folder;
    std::vector<ArchiveFile> m_files;
    std::uint64_t m_archiveKb = 0;
};

/// The parts of the mail that goes with an archive.
struct ReportMail {
    std::string address;  ///< the one recipient, from the options
    std::string subject;
    std::string body;
    std::string attachment;  ///< the archive's path and size, as the texts show them

    /// The mail for the report of `vbwMessageString` and `vbwCircumstancesString`.
    static ReportMail about(const ReportPackage& package);
    /// A mailto address (RFC 6068): everything percent-encoded, at most `longestAddress` characters; a body that does
    /// not fit loses its end.
    std::string link() const;
    /// What is shown, and offered for the clipboard, when the mail could not be sent.
    std::string fallback() const;

    static constexpr std::size_t longestAddress = 1900;
};

}  // namespace canvas::tracing
