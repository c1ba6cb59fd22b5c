// clsBVTSuperBlock: the call of a subroutine file.

#include "attributes/program_control.h"
#include "attributes/validation.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/walk.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace super_block {
using Self = clsBVTSuperBlock;
enum Number : std::int16_t { nameNumber = 1, titleNumber = 2 };
constexpr Field fields[]{
    {FIELD(strName), .property = "Name", .file = nameNumber},
    {FIELD(strTitle), .property = "title", .row = 0, .label = "Title",
     .tip = "Returns/sets a subroutine file title.", .builder = brxDisableBuilder, .display = brxComboBox,
     .type = brxFilename, .position = 1, .file = titleNumber},
};
constexpr Member operations[]{
    property<nullptr, &Self::setDocumentName>("DocumentName"),
    property<nullptr, &Self::setSubroutineFilename>("SubroutineFilename"),
    method<&Self::IsRecursive>("IsRecursive"),
};

/// Names end in "g" for the user (".bpg") and in "a" on disk (".bpa"). An empty name stays empty.
std::string withLastLetter(std::string_view name, char letter) {
    if (name.empty()) return {};
    return std::string(text::withoutLast(name, 1)) + letter;
}
}  // namespace super_block
const AttributeClass clsBVTSuperBlock::table = canvas::attributeClass(
    {.name = "clsBVTSuperBlock", .fields = super_block::fields, .operations = super_block::operations});

void clsBVTSuperBlock::setSubroutineFilename(Ref<Object> names) {
    Ref<Collection> titles = make<Collection>();
    Procedure run(className(), "SubroutineFilename", this, [&](Locals& l) { l("names", names); });
    run(
        [&] {
            SubroutineFilenameCol = names;
            SubroutineFiletitleCol = titles;
        },
        [&] {
            return tracing::eachItem(run, names, [&](const Value& name) {
                titles->Add(Value(environment().utility->FileTitleOf(name.toText())));
            });
        });
}

bool clsBVTSuperBlock::IsRecursive() const {
    return text::upper(text::trimmed(strTitle)) == text::upper(text::trimmed(strDocumentName));
}

/// The name lies in the file relative to the project's folder: whoever opens it puts its own folder before it.
void clsBVTSuperBlock::appendValue(const Field& field, std::string& line) const {
    const bool isName = field.file == super_block::nameNumber;
    std::string value = super_block::withLastLetter(isName ? environment().utility->FileTitleOf(strName) : strTitle, 'a');
    if (isName && !value.empty()) value.insert(0, ".\\");
    line += '"';
    line += value;
    line += '"';
}

void clsBVTSuperBlock::AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) {
    Procedure run(className(), "AssignFromFile", this, [&](Locals& l) {
        l("intVarNum", intVarNum);
        l("strNewValue", strNewValue);
    });
    const std::string shown = super_block::withLastLetter(strNewValue, 'g');
    // a name begins with ".", which stands for the current folder
    if (intVarNum == super_block::nameNumber) {
        run([&] {
            strName = shown;
            if (!shown.empty()) strName = environment().files->currentFolder() + shown.substr(text::left(shown, 1).size());
        });
    } else if (intVarNum == super_block::titleNumber) {
        if (shown.empty()) strName.clear();  // a call without a title calls nothing; the title shown stays
        else strTitle = shown;
    }
}

bool clsBVTSuperBlock::GetComboItem(std::int16_t&, Ref<Object>& colItem) {
    colItem = SubroutineFiletitleCol;
    return false;
}

bool clsBVTSuperBlock::PropertiesSyntaxCheck(Ref<Object>, std::int32_t lngBlockID, std::string& strSyntaxMessage) {
    const auto append = [&](std::string_view reason) {
        strSyntaxMessage += "Error:  (" + numbers::textOf(lngBlockID) + ",1) " + std::string(reason) + "@";
    };
    if (text::trimmed(strTitle).empty()) append("Empty Expression");
    else if (IsRecursive())
        append("This block calls the program or subroutine contains it, creating a recursive reference.");
    return true;
}

bool clsBVTSuperBlock::updateCell(CellEdit& edit) {
    if (text::trimmed(edit.strNewData).empty()) {
        edit.strError = "Empty Expression!";
        return false;
    }
    if (edit.iCurrentIndex == 0) {
        strTitle = edit.strNewData;
        edit.FormattedText = edit.strNewData;
    }
    return true;
}

bool clsBVTSuperBlock::updatePanel(PanelEdit& edit) {
    if (edit.iCurrentIndex < 0) return true;
    bool result = false;
    std::string title;
    Procedure run(className(), "UpdateMatrix", this, [&](Locals& l) { edit.report(l); });
    run([&] { title = edit.general(0); },
        [&] {
            if (!validate(title, rowType(0), edit.strError)) {
                edit.iIndex = 1;
                return Flow::leave;
            }
            strTitle = title;
            result = true;
            return Flow::next;
        });
    return result;
}

void clsBVTSuperBlock::reportVariables(VariableSink& sink) const {
    Attribute::reportVariables(sink);
    sink.variable("strDocumentName", strDocumentName);
    sink.variable("SubroutineFilenameCol", Value(SubroutineFilenameCol));
    sink.variable("SubroutineFiletitleCol", Value(SubroutineFiletitleCol));
}

}  // namespace canvas
