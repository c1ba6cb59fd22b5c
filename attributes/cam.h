#pragma once
// Cam blocks.

#include "attributes/attribute.h"
#include "host/collection.h"

namespace canvas {

struct clsBVTCAMOnOff final : Attribute<clsBVTCAMOnOff> {
    std::string strCAMProfileTable, strMasterPosition;
    bool blnCAM = false, blnAdvanced = false;
    std::string strSpeedFeedForwardAddress, strFeedForwardGain, strMasterAxisMaxCycle;
    /// The last and the first point of the cam table. Numbers, whatever the prefix says.
    std::int32_t strLastCAM_X = 0, strLastCAM_Y = 0, strFirstCAM_X = 0, strFirstCAM_Y = 0;
    Ref<Collection> colCAMTableList;  ///< names offered in row 0; none until GetCAMTableList
    static const AttributeClass table;

    bool GetCAMTableList(Ref<Object> tableNameList);
    /// Whether a list of table names holds the block's table (`iIndex` 1) or its speed feed forward (5), both without
    /// the blanks around; any other index is False.
    bool ValidateTableName(Ref<Object> tableNameList, std::int16_t iIndex);
    /// Takes the end points from the table's file through the host's project and controller. True when the table was
    /// found and read, else Empty. Any failure is raised with its number, the source
    /// "clsBVTCAMOnOff::ComputeCAMData" and the description "Cannot Compute Cam Data".
    Value ComputeCAMData(Ref<Object>& clsProject, Ref<Object>& clsController);

    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    std::int16_t advancedRows() const override { return 3; }
    void storeAdvancedCell(std::int16_t row, std::string_view text) override;
    void storeAdvancedPanel(std::int16_t row, const std::string& text) override;
    void appendValue(const Field& field, std::string& line) const override;

private:
    bool readPoints(Object& project, Object& controller, Object& userTable);
};

struct clsBVTScaleCAM final : Attribute<clsBVTScaleCAM> {
    std::string strScaleFactor;
    static const AttributeClass table;
};

struct clsBVTCAMShift final : Attribute<clsBVTCAMShift> {
    std::string strOffset, strTime;
    bool blnWaitForCompletion = false;
    static const AttributeClass table;
};

/// A plain record of cam options.
struct clsBVTAdvancedCAM final : Attribute<clsBVTAdvancedCAM> {
    std::string strSpeedFeedForwardAddress, strFeedForwardGain, strMasterAxisMaxCycle, strAngleUnit;
    bool blnCyclical = false;
    static const AttributeClass table;
};

}  // namespace canvas
