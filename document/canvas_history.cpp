// Undo and redo of the canvas: records move between two stacks, and sinks may veto each step.

#include <algorithm>

#include "document/canvas.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::onFailure;

std::int32_t clsBVTCanvas::advise(std::shared_ptr<CanvasEvents> sink) {
    m_sinks.push_back({++m_lastCookie, std::move(sink)});
    return m_lastCookie;
}

void clsBVTCanvas::unadvise(std::int32_t cookie) {
    std::erase_if(m_sinks, [&](const Advised& advised) { return advised.cookie == cookie; });
}

/// Walks by cookie: a sink may take itself or another away, and one advised during the walk is not called yet.
template <class Call>
void clsBVTCanvas::eachSink(Call&& call) {
    const std::int32_t last = m_lastCookie;
    std::int32_t done = 0;
    for (;;) {
        const auto next = std::find_if(m_sinks.begin(), m_sinks.end(),
                                       [&](const Advised& a) { return a.cookie > done && a.cookie <= last; });
        if (next == m_sinks.end()) return;
        done = next->cookie;
        const std::shared_ptr<CanvasEvents> sink = next->sink;
        call(*sink);
    }
}

bool clsBVTCanvas::vetoed(void (CanvasEvents::*event)(bool&)) {
    bool vetoed = false;
    eachSink([&](CanvasEvents& sink) {
        bool Cancel = vetoed;
        (sink.*event)(Cancel);
        vetoed = vetoed || Cancel;
    });
    return vetoed;
}

void clsBVTCanvas::AddActionToUndoList(std::int16_t ActionMode, Ref<Object> Actionobject) {
    onFailure(
        [&] {
            if (!vetoed(&CanvasEvents::PreAddtoUndo)) history.push(ActionMode, Actionobject);
            eachSink([&](CanvasEvents& sink) { sink.PostAddtoUndo(Actionobject); });
        },
        [](const RuntimeError& error) { tell("Canvas.AddActionToUndoList: " + bracketed(error)); });
}

Ref<Object> clsBVTCanvas::UndoPerformed() {
    Ref<Object> result;
    onFailure(
        [&] {
            if (!vetoed(&CanvasEvents::PreUndo)) result = History::move(history.undo, history.redo);
            eachSink([](CanvasEvents& sink) { sink.PostUndo(); });
        },
        [](const RuntimeError& error) { tell("Canvas.UndoPerformed: " + bracketed(error)); });
    return result;
}

Ref<Object> clsBVTCanvas::RedoPerformed() {
    Ref<Object> result;
    onFailure(
        [&] {
            if (!vetoed(&CanvasEvents::PreRedo)) result = History::move(history.redo, history.undo);
            eachSink([](CanvasEvents& sink) { sink.PostRedo(); });
        },
        [](const RuntimeError& error) { tell("Canvas.RedoPerformed: " + bracketed(error)); });
    return result;
}

}  // namespace canvas
