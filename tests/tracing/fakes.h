#pragma once
// Stand-ins for what surrounds a failing procedure: the handler that is asked, the process, the disk.

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/errors.h"
#include "host/ports.h"
#include "host/value.h"
#include "tracing/handler.h"
#include "tracing/options.h"

namespace canvas::tracing {

/// In force while it lives. Gives its answers in their order, then hands on; keeps what it was asked.
class ScriptedHandler final : public ErrorHandler {
public:
    explicit ScriptedHandler(std::vector<Answer> answers = {}) : m_answers(std::move(answers)), m_inForce(*this) {}

    Answer ask(const Failure& failure) override {
        asked.push_back(failure);
        return asked.size() <= m_answers.size() ? m_answers[asked.size() - 1] : Answer::handOn;
    }

    std::vector<Failure> asked;

private:
    std::vector<Answer> m_answers;
    WithErrorHandler m_inForce;
};

/// Notes an end that would have been, and goes on.
class ImmortalProcess final : public Process {
public:
    void exitProcess(int code) override { processEnds.push_back(code); }
    void exitThread(int code) override { threadEnds.push_back(code); }

    std::vector<int> processEnds;
    std::vector<int> threadEnds;
};

/// Files that can only be written, line by line. `room` is how many lines fit before the disk is full.
class LineDisk final : public Files {
public:
    std::map<std::string, std::string> contents;
    std::size_t room = SIZE_MAX;
    bool refuses = false;

    bool isOpen() const { return !m_open.empty(); }

    int open(const std::string& path, OpenMode) override {
        if (refuses) raise(Error::permissionDenied);
        if (path.empty()) raise(Error::badFileNumber);
        if (isOpen()) raise(Error::fileAlreadyOpen);
        m_open = path;
        contents[path].clear();
        return 1;
    }
    void close(int number) override {
        check(number);
        m_open.clear();
    }
    void writeLine(int number, std::string_view line) override {
        check(number);
        if (room == 0) raise(Error::diskFull);
        --room;
        contents[m_open].append(line).append("\r\n");
    }

    std::string read(const std::string&, std::uint64_t) override { raise(Error::fileNotFound); }
    std::unique_ptr<Replacement> replace(const std::string&) override { raise(Error::permissionDenied); }
    std::string readLine(int) override { raise(Error::badFileNumber); }
    bool atEnd(int) override { return true; }
    bool exists(const std::string& path) override { return contents.contains(path); }
    bool isFolder(const std::string&) override { return false; }
    void remove(const std::string& path) override { contents.erase(path); }
    void rename(const std::string&, const std::string&) override { raise(Error::permissionDenied); }
    void makeFolder(const std::string&) override { raise(Error::permissionDenied); }
    std::string currentFolder() override { return "/"; }

private:
    void check(int number) const {
        if (number != 1 || !isOpen()) raise(Error::badFileNumber);
    }
    std::string m_open;
};

/// An environment with a dump "report.dmp" on a disk of lines, and options at their defaults.
struct Surroundings {
    Surroundings() {
        vbwInitialize();  // which the first procedure would run otherwise, over what is set here
        vbwSetOptions();
        vbwErrHandler = {};
        vbwCommon.vbwDumpFile = "report.dmp";
    }
    ~Surroundings() { vbwSetOptions(); }

    const std::string& dump() const { return disk->contents["report.dmp"]; }
    bool wrote(std::string_view text) const { return dump().find(text) != std::string::npos; }

    std::shared_ptr<LineDisk> disk = std::make_shared<LineDisk>();
    std::shared_ptr<ImmortalProcess> process = std::make_shared<ImmortalProcess>();

private:
    WithEnvironment m_environment{{.interaction = nullptr,
                                   .files = disk,
                                   .clock = nullptr,
                                   .process = process,
                                   .utility = nullptr,
                                   .application = {.title = "Brevant+",
                                                   .exeName = "Editor",
                                                   .path = "C:\\Brevant",
                                                   .major = 2,
                                                   .minor = 5,
                                                   .revision = 17}}};
};

}  // namespace canvas::tracing
