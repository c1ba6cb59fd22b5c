#pragma once
// What a block class shows, keeps and writes, row by row. A new class is one more case.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "attributes/attribute.h"

namespace canvas::testing {

/// One setting. The row's columns are left out where the setting has no row, as position and file place are; a row or
/// a position whose text the class works out has no property.
struct Setting {
    const char* property = "";
    Value preset{};
    int position = 0;
    int file = 0;
    const char* read = "";  ///< its text after the case's `line` was read back

    int row = -1;
    const char* label = "";
    const char* tip = "";
    int access = 1;
    int builder = 1;
    int display = 0;
    int type = 0;
    std::vector<std::string> items{};

    bool cellChecked = true;
    bool programChecked = true;
    bool storesTyped = false;  ///< a committed cell keeps the text as typed, not the checker's normal form

    /// A flag's two texts on the panel, that of True first, where they are not "True" and "False".
    std::vector<std::string> shows{};

    std::string shownAs(const std::string& text) const { return shows.empty() ? text : shows[text == "True" ? 0 : 1]; }
    std::string keptAs(const std::string& shown) const {
        return shows.empty() ? shown : shown == shows[0] ? "True" : "False";
    }
};

struct BlockCase {
    const char* name;
    Ref<AttributeObject> (*create)();
    std::vector<Setting> settings;
    const char* fresh;                  ///< file line of a new object
    std::vector<std::string> values{};  ///< given to AssignFromFile as numbers 1, 2, 3 ...
    const char* line;                   ///< file line after them

    bool panel = true;                      ///< false: the protocol's operations are empty
    bool wholePanel = true;                 ///< false: UpdateMatrix is empty
    bool anyFileNumber = false;             ///< AssignFromFile stores whatever the number
    std::vector<std::string> otherItems{};  ///< what GetComboItem gives for any row that has no items of its own
    bool plainRecord = false;               ///< true: offers nothing of the protocol
    bool ownRules = false;                  ///< true: edits and program check are its own way, tested beside it

    int rows() const { return highest(&Setting::row) + 1; }
    int properties() const { return highest(&Setting::position); }
    const Setting* at(int Setting::*place, int number) const {
        for (const Setting& setting : settings)
            if (setting.*place == number) return &setting;
        return nullptr;
    }

private:
    int highest(int Setting::*place) const {
        int most = place == &Setting::row ? -1 : 0;
        for (const Setting& setting : settings) most = std::max(most, setting.*place);
        return most;
    }
};

/// A row whose text comes from a list: no builder, a combo box, and nothing that a checker sees.
inline Setting combo(Setting setting) {
    setting.builder = 0;
    setting.display = 3;
    setting.cellChecked = setting.programChecked = false;
    setting.storesTyped = true;
    return setting;
}

inline const std::vector<std::string> trueFalse{"True", "False"};

template <class T>
Ref<AttributeObject> created() {
    return make<T>();
}

const std::vector<BlockCase>& axisMotionCases();
const std::vector<BlockCase>& couplingCases();
const std::vector<BlockCase>& flowCases();
const std::vector<BlockCase>& listCases();
const std::vector<BlockCase>& plainCases();
const std::vector<BlockCase>& programControlCases();
const std::vector<BlockCase>& recordCases();

/// Every class that there is.
inline std::vector<BlockCase> allCases() {
    std::vector<BlockCase> all;
    for (const auto* group : {&axisMotionCases(), &couplingCases(), &flowCases(), &listCases(), &plainCases(),
                              &programControlCases(), &recordCases()})
        all.insert(all.end(), group->begin(), group->end());
    return all;
}

}  // namespace canvas::testing
