#pragma once
// A host's project with its eight tasks, as far as blocks that launch and suspend them ask for it.

#include <array>
#include <string>
#include <vector>

#include "host/composed.h"

namespace canvas::testing {

struct TaskProject {
    Ref<Composed> project = make<Composed>("clsProject"), list = make<Composed>("clsTaskList");
    std::array<Ref<Composed>, 8> tasks;
    std::vector<std::int32_t> asked;  ///< arguments of GetTaskAt

    TaskProject() {
        for (auto& task : tasks) {
            task = make<Composed>("clsTask");
            task->property("IsTaskDefined", false);
        }
        project->property("TaskList", list).property("WorkingDirectory", "C:\\Job");
        list->method("GetTaskAt", [this](Args args) {
            if (args.size() != 1) raise(Error::argumentCount);
            asked.push_back(args[0].toLong());
            return Value(tasks.at(static_cast<std::size_t>(asked.back())));
        });
    }
    TaskProject(const TaskProject&) = delete;
    TaskProject& operator=(const TaskProject&) = delete;

    /// The task at a place from 0 is there, with its file.
    Composed& define(std::size_t place, std::string name, std::string title) {
        return tasks.at(place)
            ->property("IsTaskDefined", true)
            .property("TaskName", std::move(name))
            .property("TaskTitle", std::move(title));
    }
};

}  // namespace canvas::testing
