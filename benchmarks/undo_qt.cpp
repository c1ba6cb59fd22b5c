// Qt's undo stack, where Qt is there when the build is configured.
#ifdef CANVAS_BENCH_QT

#include <QUndoCommand>
#include <QUndoStack>

#include <memory>
#include <vector>

#include "benchmarks/cases.h"
#include "benchmarks/samples.h"

namespace canvas::bench {
namespace {

/// What an edit record holds, as Qt would have it; like the record it leaves the edit to others.
class Command final : public QUndoCommand {
public:
    Command(std::shared_ptr<int> block, std::shared_ptr<int> attribute)
        : m_block(std::move(block)), m_attribute(std::move(attribute)) {}
    void undo() override {}
    void redo() override {}

private:
    std::shared_ptr<int> m_block;
    std::shared_ptr<int> m_attribute;
};

class Editor {
public:
    std::unique_ptr<Command> command() const { return std::make_unique<Command>(m_block, m_attribute); }

private:
    std::shared_ptr<int> m_block = std::make_shared<int>();
    std::shared_ptr<int> m_attribute = std::make_shared<int>();
};

}  // namespace

void pushCommands(benchmark::State& state) {
    const Editor editor;
    QUndoStack stack;
    measure(state, [&] {
        for (std::int64_t i = 0; i < state.range(0); ++i) stack.push(editor.command().release());
        stack.clear();
    });
}

void makeCommands(benchmark::State& state) {
    const Editor editor;
    std::vector<std::unique_ptr<Command>> commands;
    measure(state, [&] {
        for (std::int64_t i = 0; i < state.range(0); ++i) commands.push_back(editor.command());
        commands.clear();
    });
}

void undoAndRedoCommands(benchmark::State& state) {
    const Editor editor;
    QUndoStack stack;
    for (std::int64_t i = 0; i < state.range(0); ++i) stack.push(editor.command().release());
    measure(state, [&] {
        while (stack.canUndo()) stack.undo();
        while (stack.canRedo()) stack.redo();
    });
}

}  // namespace canvas::bench

#endif
