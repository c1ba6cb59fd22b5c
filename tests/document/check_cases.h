#pragma once
// Faulty programs, each one edit away from a good one, and what the check must say of them.

#include <optional>
#include <string>
#include <vector>

namespace canvas::check_cases {

/// A line's new text, or nothing for a line that is taken out. Line 0 puts the text behind the last line.
struct Edit {
    int line;
    std::optional<std::string> text;
};

struct Case {
    std::string title;
    std::vector<Edit> edits;
    std::vector<std::string> findings;  ///< "line block rule", all of them in order
};

/// Start (line 4), End (5), an If Event that waits for itself (6), Change Dynamics (7).
inline std::vector<std::string> goodLines() {
    return {
        "VERSION_NUMBER 200",
        "NUM_BLOCKS 4",
        "WINDOW_PARAMS_DEFINE 0 0 6000 8000 100% 0 0 0",
        R"(BLOCK_DEFINE 1 17 "Start" 3 -1 0 "" 0 1 0 0 1 "")",
        R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 1 4 1 "")",
        R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 2 1 3 1 "Part > 0")",
        R"(BLOCK_DEFINE 4 0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1.5" "Decel" "20" "255")",
    };
}

inline std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

inline std::string edited(const std::vector<Edit>& edits) {
    const std::vector<std::string> good = goodLines();
    std::vector<std::optional<std::string>> lines(good.begin(), good.end());
    for (const Edit& edit : edits) {
        if (edit.line == 0) lines.push_back(edit.text);
        else lines[static_cast<std::size_t>(edit.line - 1)] = edit.text;
    }
    std::vector<std::string> left;
    for (const auto& line : lines)
        if (line) left.push_back(*line);
    return joined(left);
}

/// One more block line, counted.
inline std::vector<Edit> withBlock(std::string line) { return {{2, "NUM_BLOCKS 5"}, {0, std::move(line)}}; }

/// The last block with other text.
inline std::vector<Edit> block4(std::string rest) { return {{7, "BLOCK_DEFINE 4 " + std::move(rest)}}; }

inline std::vector<Case> faults() {
    const std::string nul(1, '\0');
    return {
        {"TopTargetIsNoNumber", block4(R"(0 "Fast" 2x -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"), {"7 4 unreadable"}},
        {"EmptyFile", {{1, {}}, {2, {}}, {3, {}}, {4, {}}, {5, {}}, {6, {}}, {7, {}}}, {"1 0 unreadable"}},
        {"EndsBeforeLine3", {{3, {}}, {4, {}}, {5, {}}, {6, {}}, {7, {}}}, {"3 0 unreadable"}},
        {"VersionIsMissing", {{1, "VERSION_NUMBER"}}, {"1 0 unreadable"}},
        {"VersionIsNoNumber", {{1, "VERSION_NUMBER 1x"}}, {"1 0 unreadable"}},
        {"HeightIsNoNumber", {{3, "WINDOW_PARAMS_DEFINE 0 0 tall 8000 100% 0 0 0"}}, {"3 0 unreadable"}},
        {"WindowLineIsMissing", {{3, {}}}, {"3 0 unreadable"}},
        {"IdIsAboveTheHighest",
         withBlock(R"(BLOCK_DEFINE 1024 14 "Far" 4 1024 0 "" 1 0 0 0 1 "")"),
         {"8 1024 unreadable"}},
        {"IdDoesNotFit", withBlock(R"(BLOCK_DEFINE 70000 14 "Far" -1 -1 0 "" 1 0 0 0 1 "")"), {"8 0 unreadable"}},
        {"FlagIsNoBoolean", block4(R"(0 "Fast" 2 -1 0 "" no 0 0 1 3 4 "1" "1" "1" "1")"), {"7 4 unreadable"}},
        {"SourceIsNoNumber", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 three 4 "1" "1" "1" "1")"), {"7 4 unreadable"}},
        {"ConditionIsNotInItsList", block4(R"(31 "Sensor" 2 -1 0 "" 0 0 0 1 3 2 "In1" 5)"), {"7 4 unreadable"}},
        {"NewerVersion", {{1, "VERSION_NUMBER 201"}}, {"1 0 newer-version"}},
        {"VersionsCompareAsText", {{1, "VERSION_NUMBER 99"}}, {"1 0 newer-version"}},
        {"CountOfBlocksIsWrong", {{2, "NUM_BLOCKS 5"}}, {"2 0 block-count"}},
        {"CountOfBlocksIsMissing", {{2, "NUM_BLOCKS"}}, {"2 0 block-count"}},
        {"WindowLineIsShort", {{3, "WINDOW_PARAMS_DEFINE 0 0 6000 8000 100%"}}, {"3 0 window"}},
        {"WindowLineIsLong", {{3, "WINDOW_PARAMS_DEFINE 0 0 6000 8000 100% 0 0 0 1"}}, {"3 0 window"}},
        {"FirstLineHasAnotherKeyword", {{1, "VERSION 200"}}, {"1 0 keyword"}},
        {"SecondLineHasAnotherKeyword", {{2, "BLOCKS 4"}}, {"2 0 keyword"}},
        {"BlockIsWrittenAsNote",
         {{7, R"(TEXT_DEFINE 4 0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}},
         {"7 4 keyword"}},
        {"NoteIsWrittenAsBlock", withBlock(R"(BLOCK_DEFINE 5 27 "¶Note" -1 -1 0 "" 0 1 1 0 0 )"), {"8 5 keyword"}},
        {"KeywordIsMisspelt",
         {{7, R"(BLOCK_DEFIN 4 0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}},
         {"7 4 keyword"}},
        {"IdIsZero", withBlock(R"(BLOCK_DEFINE 0 14 "If" -1 -1 0 "" 1 0 0 0 1 "")"), {"8 0 id-zero"}},
        {"IdIsMissing", {{0, "======="}}, {"8 0 id-zero"}},
        {"LineBehindIdZeroIsReadAskew",
         {{2, "NUM_BLOCKS 6"},
          {0, R"(BLOCK_DEFINE 0 14 "If" -1 -1 0 "" 1 0 0 0 1 "")"},
          {0, R"(BLOCK_DEFINE 5 14 "If" 4 5 0 "" 1 0 0 1 5 1 "")"}},
         {"7 4 in-port", "8 0 id-zero", "9 0 unreadable"}},
        {"TypeHasNoClass", withBlock(R"(BLOCK_DEFINE 5 28 "What" -1 -1 0 "" 0 0 0 0 0)"), {"8 5 unknown-type"}},
        {"TypeWithoutClassHasValues",
         withBlock(R"(BLOCK_DEFINE 5 33 "What" -1 -1 0 "" 0 0 0 0 1 "a")"),
         {"8 5 unknown-type", "8 5 unreadable"}},
        {"TypeIsMissing", withBlock("BLOCK_DEFINE 5"), {"8 5 unknown-type"}},
        {"IdStandsTwice", withBlock(goodLines()[6]), {"8 4 duplicate-id"}},
        {"FlagsDifferFromTheType", block4(R"(0 "Fast" 2 -1 0 "" 1 0 0 1 3 4 "1" "1" "1" "1")"), {"7 4 port-flags"}},
        {"MoreSourcesThanAnnounced",
         {{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 1 1 3 1 "Part > 0")"}},
         {"6 3 in-port-count"}},
        {"FewerSourcesThanAnnounced",
         {{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 3 1 3 1 "Part > 0")"}},
         {"6 3 in-port-count"}},
        {"NegativeNumberOfSources",
         {{4, R"(BLOCK_DEFINE 1 17 "Start" 3 -1 0 "" 0 1 0 -1 1 "")"}},
         {"4 1 in-port-count"}},
        {"DeclaredValuesDiffer", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 5 "1" "1" "1" "1")"), {"7 4 value-count"}},
        {"ValueIsMissing", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1")"), {"7 4 value-count"}},
        {"ValueTooMany", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1" "1")"), {"7 4 value-count"}},
        {"LineEndsEarly", block4(R"(0 "Fast" 2)"), {"7 4 value-count"}},
        {"SCurveAboveItsLimit", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "256")"), {"7 4 value-range"}},
        {"TwoValuesOutOfRange",
         block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "-1" "1" "-0.5" "1")"),
         {"7 4 value-range", "7 4 value-range"}},
        {"SwitchOutOfRange",
         block4(R"(24 "Cams" 2 -1 0 "" 0 0 0 1 3 2 "Enc" "10,20,Out1,1;1E39,5,Out2,0;")"),
         {"7 4 value-range"}},
        {"LaunchAtNegativeBlock",
         block4(R"(16 "Go" 2 -1 0 "" 0 0 0 1 3 16 0 0 1 -3 0 0 0 0 0 0 0 0 0 0 0 0)"),
         {"7 4 value-range"}},
        {"ChoiceIsNotInItsList",
         block4(R"(2 "Go" 2 -1 0 "" 0 0 0 1 3 6 "1" "1" "1" "1" "Sideways" 1)"),
         {"7 4 value-list"}},
        {"ChoicesCompareWithCase",
         block4(R"(2 "Go" 2 -1 0 "" 0 0 0 1 3 6 "1" "1" "1" "1" "absolute" 1)"),
         {"7 4 value-list"}},
        {"QuoteInsideALabel", block4(R"(0 "a"b"c" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"), {"7 4 label"}},
        {"QuotesDoNotPairUp", block4(R"(0 "12"" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"), {"7 4 label"}},
        {"LineEndInAUserName", block4("0 \"Fast\" 2 -1 0 \"a\rb\" 0 0 0 1 3 4 \"1\" \"1\" \"1\" \"1\""), {"7 4 label"}},
        {"NulInAValue", block4("0 \"Fast\" 2 -1 0 \"\" 0 0 0 1 3 4 \"1\" \"a" + nul + "\" \"1\" \"1\""), {"7 4 label"}},
        {"TargetIsNotThere",
         block4(R"(0 "Fast" 9 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"),
         {"5 2 in-port", "7 4 dangling-target"}},
        {"BothPortsLeadToOneBlock",
         {{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 4 0 "" 1 0 0 1 1 1 "Part > 0")"}},
         {"6 3 same-target"}},
        {"BottomTargetOfASinglePort",
         {{7, R"(BLOCK_DEFINE 4 0 "Fast" 2 3 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}},
         {"7 4 missing-port"}},
        {"TargetOfEnd", {{5, R"(BLOCK_DEFINE 2 20 "End" 3 -1 0 "" 0 0 1 1 4 1 "")"}}, {"5 2 missing-port"}},
        {"TargetHasNoInPort",
         {{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 1 0 "" 1 0 0 1 1 1 "Part > 0")"}},
         {"6 3 missing-port"}},
        {"StartHasASource", {{4, R"(BLOCK_DEFINE 1 17 "Start" 3 -1 0 "" 0 1 0 1 4 1 "")"}}, {"4 1 missing-port"}},
        {"SourceLeadsElsewhere", {{5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 2 4 3 1 "")"}}, {"5 2 in-port"}},
        {"SourceIsNotThere", {{5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 2 4 9 1 "")"}}, {"5 2 in-port"}},
        {"SourceStandsTwice", {{5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 2 4 4 1 "")"}}, {"5 2 in-port"}},
        {"SourceIsNotListed", {{5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 0 1 "")"}}, {"5 2 in-port"}},
        {"BlockIsNotConnected", withBlock(R"(BLOCK_DEFINE 5 10 "Reset" -1 -1 0 "" 0 0 0 0 0 )"), {"8 5 connection"}},
        {"NothingLeadsToABlock",
         {{2, "NUM_BLOCKS 5"},
          {5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 2 4 5 1 "")"},
          {0, R"(BLOCK_DEFINE 5 10 "Reset" 2 -1 0 "" 0 0 0 0 0 )"}},
         {"8 5 connection"}},
        {"DualBlockHasOneTarget",
         {{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 -1 0 "" 1 0 0 1 1 1 "Part > 0")"}},
         {"6 3 connection"}},
        {"SingleBlockLeadsToItself",
         withBlock(R"(BLOCK_DEFINE 5 10 "Reset" 5 -1 0 "" 0 0 0 1 5 0 )"),
         {"8 5 connection"}},
        {"StartLeadsNowhere",
         {{4, R"(BLOCK_DEFINE 1 17 "Start" -1 -1 0 "" 0 1 0 0 1 "")"},
          {6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 1 3 1 "Part > 0")"}},
         {"4 1 connection"}},
        {"StartHasAnotherId",
         {{4, R"(BLOCK_DEFINE 5 17 "Start" 3 -1 0 "" 0 1 0 0 1 "")"},
          {6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 2 5 3 1 "Part > 0")"}},
         {"4 5 no-start"}},
        {"StartIsMissing",
         {{2, "NUM_BLOCKS 3"}, {4, {}}, {6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 3 0 "" 1 0 0 1 3 1 "Part > 0")"}},
         {"0 0 no-start"}},
        {"EndHasAnotherId",
         {{5, R"(BLOCK_DEFINE 5 20 "End" -1 -1 0 "" 0 0 1 1 4 1 "")"},
          {7, R"(BLOCK_DEFINE 4 0 "Fast" 5 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}},
         {"5 5 no-end"}},
        {"NoBlocks", {{2, "NUM_BLOCKS 0"}, {4, {}}, {5, {}}, {6, {}}, {7, {}}}, {"0 0 no-start", "0 0 no-end"}},
    };
}

/// Near a fault, and none.
inline std::vector<Case> goods() {
    return {
        {"Unchanged", {}, {}},
        {"OlderVersion", {{1, "VERSION_NUMBER 150"}}, {}},
        {"EmptyLines", {{0, ""}, {0, ""}}, {}},
        {"LinesEndInABlank", {{6, goodLines()[5] + " "}}, {}},
        {"Note", withBlock(R"(TEXT_DEFINE 5 27 "¶Two¶lines" -1 -1 0 "" 0 1 1 0 0 )"), {}},
        {"LabelWithBlanks", block4(R"(0 "Fast and far" 2 -1 0 "a user" 0 0 0 1 3 4 "1" "1" "1" "1")"), {}},
        {"HighestId",
         {{2, "NUM_BLOCKS 5"},
          {7, R"(BLOCK_DEFINE 4 0 "Fast" 1023 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"},
          {5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 1 1023 1 "")"},
          {0, R"(BLOCK_DEFINE 1023 10 "Reset" 2 -1 0 "" 0 0 0 1 4 0 )"}},
         {}},
        {"ExpressionsHaveNoRange", block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "-A" "b - 1" "" "300 + x")"), {}},
        {"NegativeVelocityOfAMove", block4(R"(2 "Go" 2 -1 0 "" 0 0 0 1 3 6 "1" "1" "-1" "1" "Rotary Shortest" 0)"), {}},
        {"FourthCondition", block4(R"(31 "Sensor" 2 -1 0 "" 0 0 0 1 3 2 "In1" 4)"), {}},
        {"ListsAndTasks", block4(R"(24 "Cams" 2 -1 0 "" 0 0 0 1 3 2 "Enc" "10,20,Out1,1;30,25,Out2,0;")"), {}},
        {"Launch", block4(R"(16 "Go" 2 -1 0 "" 0 0 0 1 3 16 0 0 1 3 0 0 0 0 0 0 0 0 0 0 0 0)"), {}},
        {"Suspend", block4(R"(19 "Halt" 2 -1 0 "" 0 0 0 1 3 8 0 1 0 0 0 0 0 0)"), {}},
        {"Subroutine", block4(R"(25 "Call" 2 -1 0 "" 0 0 0 1 3 2 ".\park.bpa" "park.bpa")"), {}},
        {"Cam", block4(R"(6 "Cam" 2 -1 0 "" 0 0 0 1 3 11 "Tab" "0" 1 0 "Tab" "100.00" "300" "0" "0" "0" "0")"), {}},
    };
}

}  // namespace canvas::check_cases
