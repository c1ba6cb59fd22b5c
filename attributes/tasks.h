#pragma once
// What the two task blocks share.

#include "attributes/program_control.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "tracing/branch.h"

namespace canvas::tasks {

inline constexpr std::string_view programWord = "Program ";

inline std::string decimal(std::int32_t number) { return numbers::textOf(number); }

inline std::string_view flagText(bool flag) { return choiceItems[flag ? 0 : 1]; }

/// A statement about one entry, with an error branch of its own.
template <class Statement>
void entry(const Object& self, std::string_view procedure, std::int16_t Index, Statement&& statement) {
    tracing::Procedure run(self.className(), procedure, &self, [&](tracing::Locals& l) { l("Index", Index); });
    run(statement);
}

/// Runs a statement for each task, from `first` on; each is a statement of its own.
template <class Run, class Statement>
tracing::Flow eachTask(Run& run, std::int16_t& i, std::int16_t first, Statement&& statement) {
    for (i = first; i < first + taskCount; ++i)
        if (run(statement) == tracing::Flow::leave) return tracing::Flow::leave;
    return tracing::Flow::next;
}

/// "Program 1" and so on for the tasks that are there, onto a host's collection.
template <class IsThere>
void addPrograms(const Object& self, const Ref<Object>& colItem, IsThere&& isThere) {
    std::int16_t i = 1;
    tracing::Procedure run(self.className(), "GetComboItem", &self, [&](tracing::Locals& l) {
        l("colItem", colItem);
        l("i", i);
    });
    run([&] {
        return eachTask(run, i, 1, [&] {
            if (isThere(i)) invoke(required(colItem), "Add", std::string(programWord) + decimal(i));
        });
    });
}

/// Takes the host's task names 1 to 8: `take` is given each place and name.
template <class Take>
void takeNames(const Object& self, const Ref<Object>& names, Take&& take) {
    std::int16_t i = 1;
    tracing::Procedure run(self.className(), "TaskName", &self, [&](tracing::Locals& l) {
        l("names", names);
        l("i", i);
    });
    run([&] {
        return eachTask(run, i, 1, [&] { take(i, invoke(required(names), "Item", std::int32_t{i}).toText()); });
    });
}

/// A task of the host's project, by its place from 0.
inline Ref<Object> taskAt(Object& project, std::int16_t zeroBased) {
    const Ref<Object> task = invoke(*objectAt(project, "TaskList"), "GetTaskAt", zeroBased).toObject();
    required(task);
    return task;
}

}  // namespace canvas::tasks
