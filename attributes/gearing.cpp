#include "attributes/gearing.h"

#include <cmath>

#include "host/numbers.h"

namespace canvas {

std::string gainInPercent(const std::string& text) {
    const auto number = numbers::parse(text);
    if (!number) return text;
    const double percent = *number * 100;
    if (!std::isfinite(percent)) raise(Error::overflow);
    return numbers::textOf(percent);
}

namespace gear_ratio {
using Self = clsBVTGearRatio;
constexpr Field fields[]{
    {FIELD(strMaster), .property = "Master", .preset = "1", .row = 0, .label = "External",
     .tip = "Returns/sets an External value.", .type = brxWord, .position = 1, .file = 1},
    {FIELD(strSlave), .property = "Slave", .preset = "1", .row = 1, .label = "Main",
     .tip = "Returns/sets a Main value.", .type = brxWord, .position = 2, .file = 2},
};
}  // namespace gear_ratio
const AttributeClass clsBVTGearRatio::table =
    canvas::attributeClass({.name = "clsBVTGearRatio", .fields = gear_ratio::fields});

namespace gearing {
using Self = clsBVTGearingOnOff;
constexpr Field fields[]{
    {FIELD(blnGearing), .property = "Gearing", .preset = "True", .row = 0, .label = "Enabled",
     .tip = "Sets whether to enable or disable Gearing.", COMBO(brxBool, choice), .position = 1, .file = 1},
    // never kept: its place in the file is a constant, its position empty
    {FIELD(blnAdvanced), .property = "Advanced", .preset = "False", .file = 2, .fileConstant = "0"},
    {FIELD(strFeedForwardGain), .property = "FeedForwardGain", .preset = "100", .position = 3, .file = 3},
};
}  // namespace gearing
// Index 1 is exempt although the General tab has no such row: it is the gain's on the other tab.
const AttributeClass clsBVTGearingOnOff::table = canvas::attributeClass({.name = "clsBVTGearingOnOff",
                                                                         .fields = gearing::fields,
                                                                         .exemptIndexes = 1U << 1,
                                                                         .listElsewhere = &choice});

/// As typed: only the whole panel hands the gain in as a factor.
void clsBVTGearingOnOff::storeAdvancedCell(std::int16_t, std::string_view text) { strFeedForwardGain = text; }

void clsBVTGearingOnOff::storeAdvancedPanel(std::int16_t, const std::string& text) {
    strFeedForwardGain = gainInPercent(text);
}

namespace advanced_gearing {
using Self = clsBVTAdvancedGearing;
constexpr Field fields[]{{FIELD(strFeedForwardGain), .property = "FeedForwardGain", .preset = "100", .file = 1}};
}  // namespace advanced_gearing
const AttributeClass clsBVTAdvancedGearing::table = canvas::attributeClass({.name = "clsBVTAdvancedGearing",
                                                                            .fields = advanced_gearing::fields,
                                                                            .panel = false,
                                                                            .offersInterface = false});

}  // namespace canvas
