#include "attributes/cam.h"

#include "attributes/gearing.h"
#include "host/convert.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/walk.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace cam {
using Self = clsBVTCAMOnOff;
constexpr std::string_view types[]{"Cyclical", "Reciprocal"};
constexpr List CAMType{"CAMType", types};
enum Number : std::int16_t { tableNumber = 1, feedForwardNumber = 5 };
constexpr Field fields[]{
    {FIELD(strCAMProfileTable), .property = "CAMProfileTable", .preset = "CWAddress", .row = 0,
     .label = "PositionData", .tip = "Returns/sets position data set.", .builder = brxDisableBuilder,
     .display = brxComboBox, .type = brxTableName, .cellChecked = false, .programChecked = false, .position = 1,
     .file = tableNumber},
    {FIELD(strMasterPosition), .property = "MasterPosition", .preset = "0", .row = 1, .label = "ExternalPosition",
     .tip = "Returns/sets an external position value.", .type = brxFloat, .position = 2, .file = 2},
    {FIELD(blnCAM), .property = "CAM", .preset = "True", .row = 2, .label = "Enabled",
     .tip = "Sets whether to enable or disable cam.", COMBO(brxChoice, choice), .position = 3, .file = 3},
    // never kept: its place in the file is a constant, its position empty
    {FIELD(blnAdvanced), .property = "Advanced", .preset = "False", .file = 4, .fileConstant = "0"},
    {FIELD(strSpeedFeedForwardAddress), .property = "SpeedFeedForwardAddress", .preset = "CWAddress",
     .file = feedForwardNumber},
    {FIELD(strFeedForwardGain), .property = "FeedForwardGain", .preset = "100.00", .programChecked = false,
     .position = 5, .file = 6},
    {FIELD(strMasterAxisMaxCycle), .property = "MasterAxisMaxCycle", .preset = "300", .file = 7},
    {FIELD(strLastCAM_X), .property = "LastCAM_X", .preset = "0", .file = 8},
    {FIELD(strLastCAM_Y), .property = "LastCAM_Y", .preset = "0", .file = 9},
    {FIELD(strFirstCAM_X), .property = "FirstCAM_X", .preset = "0", .file = 10},
    {FIELD(strFirstCAM_Y), .property = "FirstCAM_Y", .preset = "0", .file = 11},
};
constexpr Member operations[]{
    method<&Self::GetCAMTableList>("GetCAMTableList"),
    method<&Self::ValidateTableName>("ValidateTableName"),
    method<&Self::ComputeCAMData>("ComputeCAMData"),
};
}  // namespace cam
// Indexes 3 and 4 are exempt although the General tab has no such rows: they are those of the other tab.
const AttributeClass clsBVTCAMOnOff::table = canvas::attributeClass({.name = "clsBVTCAMOnOff",
                                                                     .fields = cam::fields,
                                                                     .operations = cam::operations,
                                                                     .exemptIndexes = 1U << 3 | 1U << 4});

/// The place of the feed forward holds the table's name once more: controllers load both from there.
void clsBVTCAMOnOff::appendValue(const Field& field, std::string& line) const {
    Attribute::appendValue(field.file == cam::feedForwardNumber ? *table.fileField(cam::tableNumber) : field, line);
}

void clsBVTCAMOnOff::storeAdvancedCell(std::int16_t row, std::string_view text) {
    if (row == 0) strFeedForwardGain = text;
}

void clsBVTCAMOnOff::storeAdvancedPanel(std::int16_t row, const std::string& text) {
    switch (row) {
        case 0: strSpeedFeedForwardAddress = text; break;
        case 1: strFeedForwardGain = gainInPercent(text); break;
        default: strMasterAxisMaxCycle = text; break;
    }
}

void clsBVTCAMOnOff::reportVariables(VariableSink& sink) const {
    Attribute::reportVariables(sink);
    sink.variable("colCAMTableList", Value(colCAMTableList));
    sink.variable(cam::CAMType.name, Value(arrayOf("String", cam::CAMType.items)));
}

bool clsBVTCAMOnOff::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    if (iIndex != 0) return Attribute::GetComboItem(iIndex, colItem);
    Procedure run(className(), "GetComboItem", this, [&](Locals& l) {
        l("iIndex", iIndex);
        l("colItem", colItem);
    });
    run([&] {
        for (std::size_t i = 0; colCAMTableList && i < colCAMTableList->size(); ++i)
            if (run([&] { invoke(required(colItem), "Add", (*colCAMTableList)[i]); }) == Flow::leave)
                return Flow::leave;
        return Flow::next;
    });
    return false;
}

bool clsBVTCAMOnOff::GetCAMTableList(Ref<Object> tableNameList) {
    Procedure run(className(), "GetCAMTableList", this, [&](Locals& l) { l("tableNameList", tableNameList); });
    run([&] { colCAMTableList = make<Collection>(); },
        [&] { return tracing::eachItem(run, tableNameList, [&](const Value& name) { colCAMTableList->Add(name); }); });
    return false;
}

bool clsBVTCAMOnOff::ValidateTableName(Ref<Object> tableNameList, std::int16_t iIndex) {
    bool result = false;
    Procedure run(className(), "ValidateTableName", this, [&](Locals& l) {
        l("tableNameList", tableNameList);
        l("iIndex", iIndex);
    });
    bool foundTable = false;
    bool foundFeedForward = false;
    const auto compare = [&](const Value& item) {
        const std::string name = item.toText();
        foundTable |= text::trimmed(name) == text::trimmed(strCAMProfileTable);
        foundFeedForward |= text::trimmed(name) == text::trimmed(strSpeedFeedForwardAddress);
    };
    run([&] {
        if (tracing::eachItem(run, tableNameList, compare) == Flow::leave) return Flow::leave;
        if (iIndex == cam::tableNumber) result = foundTable;
        if (iIndex == cam::feedForwardNumber) result = foundFeedForward;
        return Flow::next;
    });
    return result;
}

bool clsBVTCAMOnOff::readPoints(Object& project, Object& controller, Object& userTable) {
    std::string fileName = project.get("WorkingDirectory").toText() + "\\" +
                           environment().utility->FileTitleOf(userTable.get("TableIncludeFilename").toText());
    return invoke(controller, "getCAMdata", std::ref(fileName), userTable.get("tablebaseaddress"),
                  std::ref(strFirstCAM_X), std::ref(strFirstCAM_Y), std::ref(strLastCAM_X), std::ref(strLastCAM_Y))
        .toBoolean();
}

Value clsBVTCAMOnOff::ComputeCAMData(Ref<Object>& clsProject, Ref<Object>& clsController) {
    Value result;
    tracing::onFailure(
        [&] {
            Object& project = required(clsProject);
            const Ref<Object> userTables = objectAt(*objectAt(project, "Data"), "UserTable");
            forEach(*objectAt(*userTables, "TableList"), [&](const Value& item) {
                Object& userTable = required(item.toObject());
                if (userTable.get("TableName").toText() == strCAMProfileTable &&
                    readPoints(project, required(clsController), userTable))
                    result = true;
                return true;  // a later table of the same name overwrites the points
            });
        },
        [](const RuntimeError& error) {
            throw RuntimeError(error.number, "Cannot Compute Cam Data", "clsBVTCAMOnOff::ComputeCAMData");
        });
    return result;
}

namespace scale_cam {
using Self = clsBVTScaleCAM;
constexpr Field fields[]{
    {FIELD(strScaleFactor), .property = "ScaleFactor", .preset = "100.00", .row = 0, .label = "ScaleFactor",
     .tip = "Returns/sets a scale factor value.", .type = brxFloat, .position = 1, .file = 1},
};
}  // namespace scale_cam
const AttributeClass clsBVTScaleCAM::table =
    canvas::attributeClass({.name = "clsBVTScaleCAM", .fields = scale_cam::fields});

namespace cam_shift {
using Self = clsBVTCAMShift;
constexpr Field fields[]{
    {FIELD(strOffset), .property = "Offset", .preset = "0.0", .row = 0, .label = "Shift",
     .tip = "Returns/sets an offset value.", .type = brxFloat, .position = 1, .file = 1},
    {FIELD(strTime), .property = "Time", .preset = "0", .row = 1, .label = "Duration",
     .tip = "Returns/sets a duration value.", .type = brxPositiveWord, .position = 2, .file = 2},
    {FIELD(blnWaitForCompletion), .property = "WaitForCompletion", .preset = "True", .row = 2,
     .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.", COMBO(brxBool, choice),
     .position = 3, .file = 3},
};
}  // namespace cam_shift
const AttributeClass clsBVTCAMShift::table = canvas::attributeClass(
    {.name = "clsBVTCAMShift", .fields = cam_shift::fields, .wholePanel = false});

namespace advanced_cam {
using Self = clsBVTAdvancedCAM;
constexpr Field fields[]{
    {FIELD(strSpeedFeedForwardAddress), .property = "SpeedFeedForwardAddress", .preset = "CW Address", .file = 1},
    {FIELD(strFeedForwardGain), .property = "FeedForwardGain", .preset = "0", .file = 2},
    {FIELD(strMasterAxisMaxCycle), .property = "MasterAxisMaxCycle", .preset = "300", .file = 3},
    {FIELD(strAngleUnit), .property = "AngleUnit", .preset = "36000", .file = 4},
    {FIELD(blnCyclical), .property = "Cyclical", .preset = "False", .file = 5},
};
}  // namespace advanced_cam
const AttributeClass clsBVTAdvancedCAM::table = canvas::attributeClass(
    {.name = "clsBVTAdvancedCAM", .fields = advanced_cam::fields, .panel = false, .offersInterface = false});

}  // namespace canvas
