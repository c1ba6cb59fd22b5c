#include "benchmarks/cases.h"
#include "benchmarks/samples.h"
#include "document/canvas.h"
#include "document/catalogue.h"

namespace canvas::bench {
namespace {

/// Makes edit records as a host does.
class Editor {
public:
    Ref<clsBVTUndoBuffer> record() const {
        auto record = make<clsBVTUndoBuffer>();
        record->Add(ActionBlockEdit, m_block);
        record->AddAttribute(m_attribute);
        return record;
    }
    std::vector<Ref<clsBVTUndoBuffer>> records(std::int64_t count) const {
        std::vector<Ref<clsBVTUndoBuffer>> records;
        for (std::int64_t i = 0; i < count; ++i) records.push_back(record());
        return records;
    }

private:
    Ref<clsBVTBlock> m_block = make<clsBVTBlock>();
    Ref<Object> m_attribute = newAttribute(MOVEAXIS);
};

}  // namespace

void pushRecords(benchmark::State& state) {
    const Editor editor;
    const auto document = make<clsBVTCanvas>();
    measure(state, [&] {
        for (std::int64_t i = 0; i < state.range(0); ++i)
            document->AddActionToUndoList(ActionBlockEdit, editor.record());
        document->history.undo.clear();
    });
}

void pushReadyRecords(benchmark::State& state) {
    const auto records = Editor().records(state.range(0));
    const auto document = make<clsBVTCanvas>();
    measure(state, [&] {
        for (const auto& record : records) document->AddActionToUndoList(ActionBlockEdit, record);
        document->history.undo.clear();
    });
}

void undoAndRedo(benchmark::State& state) {
    const auto document = make<clsBVTCanvas>();
    for (const auto& record : Editor().records(state.range(0))) document->AddActionToUndoList(ActionBlockEdit, record);
    measure(state, [&] {
        while (document->CanUndo()) benchmark::DoNotOptimize(document->UndoPerformed());
        while (document->CanRedo()) benchmark::DoNotOptimize(document->RedoPerformed());
    });
}

}  // namespace canvas::bench
