#include "cli/check_folders.h"

#include <filesystem>
#include <map>
#include <optional>

#include "document/project_check.h"
#include "document/tokens.h"
#include "host/encoding.h"
#include "host/ports.h"

namespace canvas::cli {
namespace {

constexpr std::string_view taskList = "tasks.txt";
constexpr std::uint64_t largestTaskList = 64U << 10U;

std::optional<TaskFiles> readTasks(const std::string& path, FileReport& report) {
    if (!environment().files->exists(path)) return {};
    TaskFiles tasks{.files = {}, .findings = &report.findings};
    try {
        const std::string text = encoding::decode(environment().files->read(path, largestTaskList));
        Lines lines(text);
        std::string_view line;
        for (std::size_t task = 0; task < tasks.files.size() && lines.next(line); ++task) tasks.files[task] = line;
    } catch (const RuntimeError& error) {
        report.findings.push_back({0, 0, Rule::unreadable, "the task list cannot be read: " + error.description});
        report.readable = false;
        return {};
    }
    return tasks;
}

std::string folderOf(const std::string& file) { return std::filesystem::path(file).parent_path().string(); }

std::string inFolder(const std::string& folder, std::string_view name) {
    return (std::filesystem::path(folder) / name).string();
}

}  // namespace

void checkFolders(std::vector<FileReport>& reports) {
    std::map<std::string, std::vector<std::size_t>> folders;
    for (std::size_t i = 0; i < reports.size(); ++i) folders[folderOf(reports[i].file)].push_back(i);
    std::vector<FileReport> lists;
    for (const auto& [folder, places] : folders) {
        FileReport list;
        list.file = inFolder(folder, taskList);
        std::vector<std::string> names;
        for (const std::size_t i : places) names.push_back(std::filesystem::path(reports[i].file).filename().string());
        std::vector<ProjectProgram> programs;
        for (std::size_t i = 0; i < places.size(); ++i)
            programs.push_back({names[i], &reports[places[i]].links, &reports[places[i]].findings});
        const std::string here = folder;
        checkProject(programs, readTasks(list.file, list), [&](const std::string& name) {
            std::error_code unknown;
            return std::filesystem::is_regular_file(inFolder(here, name), unknown);
        });
        if (!list.isGood()) lists.push_back(std::move(list));
    }
    reports.insert(reports.end(), std::make_move_iterator(lists.begin()), std::make_move_iterator(lists.end()));
    std::stable_sort(reports.begin(), reports.end(), [](const FileReport& a, const FileReport& b) { return a.file < b.file; });
}

}  // namespace canvas::cli
