#include "tracing/report_package.h"

#include <sys/utsname.h>

#include <cstdlib>

#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/options.h"

namespace canvas::tracing {

using numbers::textOf;

namespace {

constexpr std::string_view folderName = "Error Report Files";
constexpr std::string_view dumpName = "vbwCanvas.dmp";
constexpr std::string_view newLine = "\r\n";

std::string versionOf(const Application& application) {
    return textOf(std::int32_t{application.major}) + "." + textOf(std::int32_t{application.minor}) + "." +
           textOf(std::int32_t{application.revision});
}

std::string fromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string stateFolder() {
    if (const std::string state = fromEnvironment("XDG_STATE_HOME"); state.starts_with('/')) return state + "/brevant";
    const std::string home = fromEnvironment("HOME");
    if (!home.starts_with('/')) raise(Error::pathNotFound, "No place for a report: HOME is not set.");
    return home + "/.local/state/brevant";
}

/// Beside the application when that can be written; a backslash as the system's own names have it.
PrivateFolder openFolder() {
    const std::string& beside = environment().application.path;
    if (!beside.empty()) {
        try {
            PrivateFolder folder(beside + "\\" + std::string(folderName));
            folder.write("probe", "");
            folder.empty();
            return folder;
        } catch (const RuntimeError&) {  // read-only, or somebody else's: the user's own place then
        }
    }
    return PrivateFolder(stateFolder() + "/" + std::string(folderName), true);
}

/// A report tells of the program, not of who runs it.
std::string withoutHome(std::string text) {
    std::string home = fromEnvironment("HOME");
    while (home.size() > 1 && home.back() == '/') home.pop_back();
    return home.size() > 1 ? text::replaced(text, home, "~") : text;
}

std::string runtimeVersions() {
    constexpr std::string_view references = "DAO;StdFormat;VSFlex6Ctl;Utility;MSComDlg;MSComctlLib;TabDlg;SSDataWidgets_B;";
    std::string text = "C++ runtime: " __VERSION__ "\r\n";
    text += "References: " + std::string(references) + std::string(newLine);
    for (const std::string_view reference : text::split(references, ";"))
        if (!reference.empty()) text += std::string(reference) + ": built in, no file of its own" + std::string(newLine);
    return text;
}

/// The machine's kind. Its name is nobody's business.
std::string systemData() {
    utsname system{};
    if (::uname(&system) != 0) return "Operating system: unknown\r\n";
    std::string text = "Operating system: " + std::string(system.sysname) + " " + system.release + std::string(newLine);
    text += "Build: " + std::string(system.version) + std::string(newLine);
    text += "Processor: " + std::string(system.machine) + std::string(newLine);
    return text;
}

std::string libraryObject() {
    const Application& application = environment().application;
    return "Canvas.dll\r\nVersion: " + versionOf(application) + "\r\nCompiler: " __VERSION__ "\r\n";
}

std::uint64_t kilobytes(std::size_t bytes) { return (bytes + 1023) / 1024; }
std::string number(std::uint64_t value) { return textOf(static_cast<double>(value)); }

std::string percentEncoded(std::string_view text) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
                           c == '.' || c == '_' || c == '~';
        if (plain) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return encoded;
}

/// Of an address: "@" stands as it is. A comma would add a recipient, and is encoded like everything else.
std::string encodedAddress(std::string_view address) { return text::replaced(percentEncoded(address), "%40", "@"); }

/// The start of an encoded text that fits, without half a character at its end.
std::string_view fitting(std::string_view encoded, std::size_t room) {
    if (encoded.size() <= room) return encoded;
    encoded = encoded.substr(0, room);
    const std::size_t sign = encoded.find_last_of('%');
    if (sign != std::string_view::npos && sign + 3 > encoded.size()) encoded = encoded.substr(0, sign);
    // bytes from %80 to %BF go on with a character that must not be cut
    while (encoded.size() >= 3 && encoded[encoded.size() - 3] == '%' && encoded[encoded.size() - 2] >= '8') {
        const bool lead = encoded[encoded.size() - 2] >= 'C';
        encoded.remove_suffix(3);
        if (lead) break;
    }
    return encoded;
}

}  // namespace

std::string messageOf(const Failure& failure) {
    const auto line = [](std::string_view label, std::string_view text) {
        return std::string(label) + std::string(text) + std::string(newLine);
    };
    return "An unexpected error has occurred in this application: \r\n\r\n" +
           line("Error ", textOf(std::int32_t{failure.number})) + line("Description: ", failure.description) +
           line("Project: ", failure.project) + line("Module: ", failure.module) +
           line("Procedure: ", failure.procedure) + line("Line: ", textOf(std::int32_t{failure.line})) +
           "Version: " + versionOf(environment().application);
}

ReportPackage::ReportPackage() : m_folder(openFolder()) {
    vbwErrHandler.vbwErrorPath = m_folder.path();
    vbwCommon.vbwDumpFile = m_folder.path() + std::string(dumpName);
}

void ReportPackage::add(const std::string& name, std::string bytes) {
    try {
        bytes = withoutHome(std::move(bytes));
        m_folder.write(name, bytes);
        m_files.push_back({name, std::move(bytes)});
    } catch (const RuntimeError&) {  // the package is short by this file
    }
}

void ReportPackage::collect() {
    m_files.clear();
    try {
        m_folder.rename(std::string(dumpName), "Variables.txt");
        add("Variables.txt", m_folder.read("Variables.txt").value_or(""));
    } catch (const RuntimeError&) {  // the dump could not be opened
    }
    add("Canvas.dll.obj", libraryObject());
    if (vbwCommon.vbwTraceProc) add("Stack.txt", vbwGetStack());
    if (vbwCommon.vbwLog && environment().files->exists(vbwCommon.vbwLogFile)) {
        try {
            add("Trace.txt", environment().files->read(vbwCommon.vbwLogFile, 64u << 20));
        } catch (const RuntimeError&) {
        }
    }
    add("Error.txt", vbwErrHandler.vbwMessageString + "\r\n\r\nCircumstances:\r\n" + vbwErrHandler.vbwCircumstancesString);
    add("Version.txt", runtimeVersions());
    add("System.txt", systemData());
}

std::string ReportPackage::listing() const {
    std::string text;
    for (const ArchiveFile& file : m_files)
        text += file.name + " (" + number(kilobytes(file.bytes.size())) + " Kb)" + std::string(newLine);
    return text;
}

std::string ReportPackage::archive() const { return m_folder.path() + environment().application.exeName; }

bool ReportPackage::pack() {
    try {
        const std::string bytes = zipped(m_files);
        m_folder.write(environment().application.exeName + ".zip", bytes);
        m_archiveKb = kilobytes(bytes.size());
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

ReportMail ReportMail::about(const ReportPackage& package) {
    const Application& application = environment().application;
    ReportMail mail;
    mail.address = vbwCommon.vbwEmailRecipientAdress;
    mail.subject = "Error report for " + application.exeName + " " + versionOf(application);
    mail.attachment = package.archive() + ".zip";
    const std::string size = number(package.archiveKb());
    mail.body = withoutHome(vbwErrHandler.vbwMessageString + "\r\nCircumstances:\r\n" + vbwErrHandler.vbwCircumstancesString +
                "\r\n(Note to sender: the attached file is " + package.archive() + ".zip - Size: " + size + " Kb)\r\n" +
                "(Please attach: " + mail.attachment + " - Size: " + size + " Kb to this message.)");
    mail.attachment += " (Size: " + size + " Kb)";
    return mail;
}

std::string ReportMail::link() const {
    const std::string head = "mailto:" + encodedAddress(address) + "?subject=" + percentEncoded(subject) + "&body=";
    const std::string encoded = percentEncoded(body);
    // What the sender must know stands last, so the cut comes out of the middle: out of the message.
    const std::string_view note = body;
    const std::string tail = percentEncoded(note.substr(std::min(note.rfind("\r\n(Please attach: "), note.size())));
    if (head.size() + encoded.size() <= longestAddress) return head + encoded;
    if (head.size() + tail.size() > longestAddress) return std::string(fitting(head, longestAddress));
    const std::string_view message = std::string_view(encoded).substr(0, encoded.size() - tail.size());
    return head + std::string(fitting(message, longestAddress - head.size() - tail.size())) + tail;
}

std::string ReportMail::fallback() const {
    return "Impossible to send the error report automatically !\r\n\r\n"
           "Please open your email messenger and send a message with the following parameters:\r\n"
           "Address: " + address + "\r\n" +
           "Subject: " + subject + "\r\n" +
           "Message: Please open the attached file.\r\n"
           "Attached file: " + attachment + "\r\n\r\n" +
           "Would you like to copy this message to the clipboard ?";
}

}  // namespace canvas::tracing
