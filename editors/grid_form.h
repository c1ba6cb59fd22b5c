#pragma once
// What the two dialogs with a grid have in common: the block keeps a list in one text ("Speed=100;Torque=2;"), the grid
// shows an entry a row, and each cell is checked when it is left.

#include <string>
#include <string_view>
#include <vector>

#include "editors/attribute_form.h"
#include "editors/data_list.h"

namespace canvas::editors {

/// What the host's checker found in one text.
struct Finding {
    bool good = false;
    std::string strError;
    std::int32_t selStart = 0;
    std::int32_t selLength = 0;
    std::int32_t dataType = 0;
    bool isLValue = false;
    Value value;
    std::string FormattedText;

    // Two statements of a procedure, in this order; the checker may be Nothing, which is error 91.
    void check(Ref<Object> checker, std::string_view text);
    void take(Ref<Object> checker);
    /// The value carries a message of the checker's; "ô" marks it.
    bool carriesMessage() const;
    void report(tracing::Locals& locals) const;
};

class GridForm : public AttributeForm {
public:
    GridForm(const Spec& spec, std::string_view gridName, std::int32_t leastRows);

    /// The list split at ";", as texts.
    Value ParseList(std::string_view strList) const;
    /// Shows the attribute's list.
    void FillGrid();
    /// The list that the grid shows. Rows that are not complete are left out without a word.
    std::string SaveGridContent();
    /// Whether the cell is good: the text of its editor, or its own when it is not in edit.
    virtual bool Validation(std::int32_t Row, std::int32_t Col) = 0;

    std::int16_t iDataTypeStatus = 0;

protected:
    // Background colours, red-green-blue
    static constexpr std::int32_t red = 255;
    static constexpr std::int32_t yellow = 65535;
    static constexpr std::int32_t white = 16777215;

    // Hooks: how a form shows and writes one entry, and what its grid's events do.

    virtual std::vector<std::string> rowOf(std::string_view entry) const = 0;
    /// With its ";"; empty for a row that is not complete.
    virtual std::string entryOf(std::int32_t row) const = 0;
    virtual bool validateEdit(std::int32_t row, std::int32_t col) = 0;
    virtual void cellButton(std::int32_t row, std::int32_t col) = 0;
    virtual void cellClicked(std::int32_t, std::int32_t) {}
    virtual void cellDoubleClicked(std::int32_t, std::int32_t) {}

    void fill() override;
    bool onGrid(GridEvent event, Grid& grid, std::int32_t row, std::int32_t col) override;

    Grid& grid() const noexcept { return m_grid; }
    std::string checkedText(std::int32_t row, std::int32_t col) const;
    std::string trimmedCell(std::int32_t row, std::int32_t col) const;

    /// Inside a procedure `run`: lets the user pick a name. `collection(tab)` gives the host's list of each tab named.
    /// After Cancel the name is what it was.
    template <class Run, class Collection>
    void pickName(Run& run, std::string& name, std::int16_t type, std::initializer_list<std::int32_t> tabs,
                  Collection&& collection);

private:
    void emptyRows();
    bool blank(std::int32_t row) const;
    void keyDown(std::int32_t row);

    Grid& m_grid;
    std::int32_t m_leastRows;
};

template <class Run, class Collection>
void GridForm::pickName(Run& run, std::string& name, std::int16_t type, std::initializer_list<std::int32_t> tabs,
                        Collection&& collection) {
    using tracing::Flow;
    const Ref<frmDataList> list = make<frmDataList>();
    run(
        [&] {
            for (const std::int32_t tab : tabs) {
                Ref<Object> names;
                const Flow flow = run([&] { names = collection(tab); }, [&] { return list->fill(run, tab, names); });
                if (flow == Flow::leave) return Flow::leave;
            }
            return Flow::next;
        },
        [&] { list->DisplayType(type); }, [&] { list->setData(clsData); }, [&] { list->Show(); },
        [&] {
            if (list->bOKButtonClick) name = list->Selected();
        },
        [&] { list->Unload(); });
}

}  // namespace canvas::editors
