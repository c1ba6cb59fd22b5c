#include "document/project_check.h"

#include <algorithm>
#include <map>
#include <set>

#include "host/numbers.h"
#include "host/text.h"

namespace canvas {
namespace {

constexpr std::string_view separators = "/\\";

bool isDevice(std::string_view component) {
    static constexpr std::string_view plain[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"};
    static constexpr std::string_view numbered[] = {"COM", "LPT"};
    static constexpr std::string_view digits[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};
    // what stands before the first "." tells, blanks behind it do not count
    const std::string stem = text::upper(text::trimmed(component.substr(0, component.find('.'))));
    if (std::find(std::begin(plain), std::end(plain), stem) != std::end(plain)) return true;
    for (const std::string_view port : numbered)
        for (const std::string_view digit : digits)
            if (stem.starts_with(port) && std::string_view(stem).substr(port.size()) == digit) return true;
    return false;
}

bool isLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// The parts of a name between separators, without "." and empty ones.
std::vector<std::string_view> componentsOf(std::string_view name) {
    std::vector<std::string_view> parts;
    while (!name.empty()) {
        const std::size_t end = name.find_first_of(separators);
        const std::string_view part = name.substr(0, end);
        if (!part.empty() && part != ".") parts.push_back(part);
        name.remove_prefix(end == std::string_view::npos ? name.size() : end + 1);
    }
    return parts;
}

/// The file that a name inside the folder means: its parts with "/" between them.
std::string fileOf(std::string_view name) {
    std::string file;
    for (const std::string_view part : componentsOf(name)) {
        if (!file.empty()) file += '/';
        file += part;
    }
    return file;
}

class Project {
public:
    Project(std::span<const ProjectProgram> programs, const HasFile& hasFile) : m_programs(programs), m_hasFile(hasFile) {
        for (const ProjectProgram& program : programs) m_byName.emplace(text::lower(program.fileName), &program);
        for (const ProjectProgram& program : programs)
            for (const SubroutineCall& call : program.links->calls)
                if (whyOutside(call.name).empty()) m_calls[&program].insert(find(fileOf(call.name)));
    }

    void checkCalls(const ProjectProgram& program) const {
        for (const SubroutineCall& call : program.links->calls) checkCall(program, call);
    }

    void checkTasks(const TaskFiles& tasks) const {
        for (std::int16_t task = 1; task <= taskCount; ++task) checkTaskFile(tasks, task);
        for (const ProjectProgram& program : m_programs)
            for (const TaskUse& use : program.links->tasks) checkUse(program, use, tasks);
    }

private:
    static void tell(const ProjectProgram& program, int line, std::int16_t block, Rule rule, std::string reason) {
        program.findings->push_back({line, block, rule, std::move(reason)});
    }

    const ProjectProgram* find(std::string_view file) const {
        const auto found = m_byName.find(text::lower(file));
        return found == m_byName.end() ? nullptr : found->second;
    }

    void checkCall(const ProjectProgram& program, const SubroutineCall& call) const {
        const auto found = [&](Rule rule, std::string reason) { tell(program, call.line, call.block, rule, std::move(reason)); };
        if (call.name.empty() || call.title.empty()) return found(Rule::noSubroutine, "no subroutine is chosen");
        const std::string_view outside = whyOutside(call.name);
        if (!outside.empty())
            return found(Rule::outsideFolder, "the name " + quoted(call.name) + " " + std::string(outside));
        const std::string file = fileOf(call.name);
        const auto parts = componentsOf(call.name);
        if (text::lower(parts.empty() ? std::string_view() : parts.back()) != text::lower(call.title))
            found(Rule::title, "the title " + quoted(call.title) + " is not that of the file " + quoted(call.name));
        const ProjectProgram* target = find(file);
        if (!target && (file.empty() || !m_hasFile(file)))
            return found(Rule::missingSubroutine, "calls " + quoted(file) + ", which is not in the folder");
        if (const std::string circle = circleTo(target, program); !circle.empty())
            found(Rule::recursiveSubroutine, target == &program ? "the program calls itself" : "calls lead back here: " + circle);
    }

    /// The shortest way of calls from a program to another, as "a.bpa > b.bpa"; empty when there is none.
    std::string circleTo(const ProjectProgram* from, const ProjectProgram& to) const {
        if (!from) return {};
        std::map<const ProjectProgram*, const ProjectProgram*> cameFrom{{from, nullptr}};
        std::vector<const ProjectProgram*> queue{from};
        for (std::size_t next = 0; next < queue.size(); ++next) {
            const ProjectProgram* present = queue[next];
            if (present == &to) return wayTo(present, cameFrom);
            const auto calls = m_calls.find(present);
            if (calls == m_calls.end()) continue;
            for (const ProjectProgram* called : calls->second)
                if (called && cameFrom.emplace(called, present).second) queue.push_back(called);
        }
        return {};
    }

    static std::string wayTo(const ProjectProgram* last,
                             const std::map<const ProjectProgram*, const ProjectProgram*>& cameFrom) {
        std::string way;
        for (const ProjectProgram* p = last; p; p = cameFrom.at(p))
            way = way.empty() ? std::string(p->fileName) : std::string(p->fileName) + " > " + way;
        return way;
    }

    void checkTaskFile(const TaskFiles& tasks, std::int16_t task) const {
        const std::string& file = taskFile(tasks, task);
        if (file.empty()) return;
        const auto found = [&](Rule rule, std::string reason) { tasks.findings->push_back({task, 0, rule, std::move(reason)}); };
        const std::string_view outside = whyOutside(file);
        const std::string name = "task " + numbers::textOf(std::int32_t{task}) + "'s program " + quoted(file);
        if (!outside.empty()) found(Rule::outsideFolder, name + " " + std::string(outside));
        else if (!find(fileOf(file)) && !m_hasFile(fileOf(file)))
            found(Rule::missingTask, name + " is not in the folder");
    }

    static const std::string& taskFile(const TaskFiles& tasks, std::int16_t task) {
        return tasks.files[static_cast<std::size_t>(task - 1)];
    }

    /// Block numbers of all defined tasks are looked at, ticked or not, as the block itself checks them in its host.
    void checkUse(const ProjectProgram& program, const TaskUse& use, const TaskFiles& tasks) const {
        const std::string& file = taskFile(tasks, use.task);
        const std::string task = "task " + numbers::textOf(std::int32_t{use.task});
        if (file.empty()) {
            if (use.ticked)
                tell(program, use.line, use.block, Rule::missingTask,
                     std::string(use.launches ? "launches " : "suspends ") + task + ", which is not defined");
            return;
        }
        if (!use.launches) return;
        const ProjectProgram* target = whyOutside(file).empty() ? find(fileOf(file)) : nullptr;
        // a program that is not there is told of in the task list; one outside those checked cannot be judged
        if (!target || target->links->hasBlock(use.blockNumber)) return;
        tell(program, use.line, use.block, Rule::launchBlock,
             "block " + numbers::textOf(std::int32_t{use.blockNumber}) + ", where " + task + " is launched, does not exist in " +
                 quoted(file));
    }

    std::span<const ProjectProgram> m_programs;
    const HasFile& m_hasFile;
    std::map<std::string, const ProjectProgram*, std::less<>> m_byName;
    std::map<const ProjectProgram*, std::set<const ProjectProgram*>> m_calls;
};

}  // namespace

std::string_view whyOutside(std::string_view name) {
    if (name.empty()) return "names no file";
    for (const char c : name)
        if (static_cast<unsigned char>(c) < 0x20) return "holds a control character, which no file name does";
    if (name.size() >= 2 && isLetter(name[0]) && name[1] == ':') return "names a drive";
    if (separators.find(name[0]) != std::string_view::npos)
        return name.size() > 1 && separators.find(name[1]) != std::string_view::npos ? "names another computer"
                                                                                     : "begins at the root";
    for (const std::string_view part : componentsOf(name)) {
        if (text::trimmed(part) == "..") return "leads out of the folder";
        if (part.find(':') != std::string_view::npos) return "names a stream of a file";
        if (isDevice(part)) return "names a device";
    }
    return {};
}

void checkProject(std::span<const ProjectProgram> programs, const std::optional<TaskFiles>& tasks, const HasFile& hasFile) {
    const Project project(programs, hasFile);
    for (const ProjectProgram& program : programs) project.checkCalls(program);
    if (tasks) project.checkTasks(*tasks);
    const auto byLine = [](const Finding& a, const Finding& b) { return a.line < b.line; };
    for (const ProjectProgram& program : programs)
        std::stable_sort(program.findings->begin(), program.findings->end(), byLine);
}

}  // namespace canvas
