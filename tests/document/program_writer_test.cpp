#include "document/program_writer.h"

#include "attributes/axis_motion.h"
#include "tests/document/fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct ProgramWriter : Drawing {
    const std::string name = "press.bpa";

    void SetUp() override { document->blnChanged = true; }
    std::string& file() const { return disk->contents[name]; }
    std::string written() const {
        document->WriteFile(name);
        return file();
    }
    std::string windowLine() const {
        const std::string text = written();
        const std::size_t begin = text.find("WINDOW");
        return text.substr(begin, text.find("\r\n", begin) - begin);
    }
};

/// The host's main window with an active editor form, as far as a save looks at it.
struct HostForm {
    Ref<Composed> main = make<Composed>("frmMain"), active = make<Composed>("frmEditor");

    explicit HostForm(std::int16_t windowState) {
        const auto editor = make<Composed>(), zoom = make<Composed>(), zoomForm = make<Composed>();
        editor->property("xScrollPos", std::int32_t{150}).property("yScrollPos", std::int32_t{-60});
        active->property("Left", std::int32_t{11}).property("Top", std::int32_t{-22});
        active->property("Height", std::int32_t{3300}).property("Width", std::int32_t{4400});
        active->property("WindowState", windowState).property("editor", editor);
        zoom->property("Text", "75%");
        zoomForm->property("cmbZoom", zoom);
        main->property("ActiveForm", active).property("formCmbZoom", zoomForm);
    }
};

TEST_F(ProgramWriter, AnEmptyDocumentIsThreeLines) {
    document->dblZoom = 1;
    EXPECT_EQ(written(), "VERSION_NUMBER 200\r\nNUM_BLOCKS 0\r\nWINDOW_PARAMS_DEFINE 0 0 0 0 100% 0 0 0\r\n");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(ProgramWriter, AWholeProgramIsTheseBytes) {
    document->lngLeft = 120, document->lngTop = -30, document->lngHeight = 7000, document->lngWidth = 9000;
    document->dblZoom = 0.5, document->lngXPos = 15, document->lngYPos = 60, document->lngWindowState = 2;
    add(1, PROGRAMSTART, "Start").BVTAttribute()->put("Name", "Main");
    add(2, PROGRAMEND, "End");
    clsBVTBlock& move = add(3, MOVEAXIS, "To the press");
    move.lngBlockUserID = 7;
    move.strBlockUserName = "Station A";
    move.BVTAttribute()->put("Acceleration", "250.0");
    move.BVTAttribute()->put("Deceleration", "300.0");
    move.BVTAttribute()->put("Velocity", "80.0");
    move.BVTAttribute()->put("Position", "Press_Pos + 2");
    add(14, IFEVENT, "Part there?").BVTAttribute()->put("EventK", "Part == true");
    add(5, NodeText, "First line\rSecond");
    join(1, 3), join(3, 14), join(14, 2, true), join(14, 3, false);
    EXPECT_EQ(written(),
              "VERSION_NUMBER 200\r\n"
              "NUM_BLOCKS 5\r\n"
              "WINDOW_PARAMS_DEFINE 120 -30 7000 9000 50% 15 60 2\r\n"
              "BLOCK_DEFINE 1 17 \"Start\" 3 -1 0 \"\" 0 1 0 0 1 \"Main\"\r\n"
              "BLOCK_DEFINE 2 20 \"End\" -1 -1 0 \"\" 0 0 1 1 14 1 \"\"\r\n"
              "BLOCK_DEFINE 3 2 \"To the press\" 14 -1 7 \"Station A\" 0 0 0 2 1 14 6 \"250.0\" \"300.0\" \"80.0\" "
              "\"Press_Pos + 2\" \"Absolute\" 1\r\n"
              "BLOCK_DEFINE 14 14 \"Part there?\" 2 3 0 \"\" 1 0 0 1 3 1 \"Part == true\"\r\n"
              "TEXT_DEFINE 5 27 \"\xB6"
              "First line\xB6Second\" -1 -1 0 \"\" 0 1 1 0 0 \r\n");
}

TEST_F(ProgramWriter, TheLineOfAMoveReadsAsItWasWritten) {
    clsBVTBlock& block = add(5, MOVEAXIS, "Move Axis");
    block.intToFirstBlockID = 6;
    block.AddFromBlockID(3, true);
    const char* values[]{"a", "b", "c", "d", "e", "1"};
    for (std::int16_t i = 0; i < 6; ++i)
        faceOf<AttributeObject>(*block.BVTAttribute())->AssignFromFile(static_cast<std::int16_t>(i + 1), values[i]);
    EXPECT_TRUE(written().ends_with(
        "BLOCK_DEFINE 5 2 \"Move Axis\" 6 -1 0 \"\" 0 0 0 1 3 6 \"a\" \"b\" \"c\" \"d\" \"e\" 1\r\n"));
}

TEST_F(ProgramWriter, BlocksComeInCollectionOrder) {
    for (const std::int16_t id : Ids{9, 2, 5}) add(id, IFFAULT, "f");
    EXPECT_TRUE(
        written().ends_with("BLOCK_DEFINE 9 18 \"f\" -1 -1 0 \"\" 1 0 0 0 0 \r\n"
                            "BLOCK_DEFINE 2 18 \"f\" -1 -1 0 \"\" 1 0 0 0 0 \r\n"
                            "BLOCK_DEFINE 5 18 \"f\" -1 -1 0 \"\" 1 0 0 0 0 \r\n"));
}

TEST_F(ProgramWriter, EveryLineEndOfANoteBecomesAPilcrow) {
    add(5, NodeText, "a\r\nb\rc\nd");
    EXPECT_NE(written().find("TEXT_DEFINE 5 27 \"\xB6"
                             "a\xB6"
                             "b\xB6"
                             "c\xB6"
                             "d\" "),
              std::string::npos);
}

TEST_F(ProgramWriter, AnOrdinaryLabelIsWrittenAsItStands) {
    add(5, IFFAULT, "say \"a\" \xC2\xB6 b");
    EXPECT_NE(written().find("BLOCK_DEFINE 5 18 \"say \"a\" \xB6 b\" "), std::string::npos) << "no quote is escaped";
}

TEST_F(ProgramWriter, TheNameOnDiskEndsInBpa) {
    const std::pair<std::string, std::string> names[] = {
        {"press.bpg", "press.bpa"},
        {"press.bpa", "press.bpa"},
        {"press", "press.bpa"},
        {"press.BPG", "press.BPG.bpa"},
        {"press.BPA", "press.BPA.bpa"},
        {"press.bpg.txt", "press.bpg.txt.bpa"},
        {".bpg", ".bpa"},
        {"bpg", "bpg.bpa"},
        {"a\\b.bpg", "a\\b.bpa"},
        {"", ".bpa"},
        {"m\xC3\xA4rz.bpg", "m\xC3\xA4rz.bpa"},
    };
    for (const auto& [given, onDisk] : names) {
        EXPECT_EQ(nameOnDisk(given), onDisk);
        document->WriteFile(given);
        EXPECT_EQ(disk->calls.back(), "commit " + onDisk);
    }
}

TEST_F(ProgramWriter, ASaveLowersChangedAndKeepsTheName) {
    document->strName = "drawing";
    written();
    EXPECT_FALSE(document->blnChanged);
    EXPECT_EQ(document->strName, "drawing");
}

TEST_F(ProgramWriter, ANormalWindowGivesItsOwnPlaceAndSize) {
    document->frmParentForm = HostForm(0).main;
    EXPECT_EQ(windowLine(), "WINDOW_PARAMS_DEFINE 11 -22 3300 4400 75% 150 -60 0");
}

TEST_F(ProgramWriter, AnyOtherWindowGivesTheSizeBefore) {
    document->put("FormPreviousHeight", std::int32_t{5100});
    document->put("FormPreviousWidth", std::int32_t{6200});
    for (const std::int16_t state : Ids{1, 2}) {
        document->frmParentForm = HostForm(state).main;
        EXPECT_EQ(windowLine(), "WINDOW_PARAMS_DEFINE 0 0 5100 6200 75% 150 -60 " + std::to_string(state));
    }
}

TEST_F(ProgramWriter, WithoutAnActiveFormTheCanvasTells) {
    document->lngLeft = 1, document->lngTop = 2, document->lngHeight = 3, document->lngWidth = 4;
    document->lngXPos = 5, document->lngYPos = 6, document->lngWindowState = 7;
    const std::pair<double, std::string_view> zooms[] = {
        {1.1, "110%"}, {0.075, "7.5%"}, {1, "100%"}, {0, "0%"}, {4, "400%"}, {1.0 / 3, "33.3333333333333%"},
    };
    for (const auto& [zoom, text] : zooms) {
        document->dblZoom = zoom;
        EXPECT_EQ(windowLine(), "WINDOW_PARAMS_DEFINE 1 2 3 4 " + std::string(text) + " 5 6 7");
    }
    HostForm host(0);
    host.main->property("ActiveForm", Ref<Object>());
    document->frmParentForm = host.main;
    EXPECT_EQ(windowLine(), "WINDOW_PARAMS_DEFINE 1 2 3 4 33.3333333333333% 5 6 7");
}

TEST_F(ProgramWriter, TheZoomIsLookedForOnTheActiveFormWhenTheMainFormHasNone) {
    HostForm host(0);
    host.active->property("formCmbZoom", host.main->get("formCmbZoom"));
    host.main->without("formCmbZoom");
    document->frmParentForm = host.main;
    EXPECT_EQ(windowLine(), "WINDOW_PARAMS_DEFINE 11 -22 3300 4400 75% 150 -60 0");
}

TEST_F(ProgramWriter, AHostWithoutAMemberFailsTheSave) {
    file() = "old";
    HostForm host(0);
    host.active->without("editor");
    document->frmParentForm = host.main;
    document->WriteFile(name);
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Object doesn't support this property or method"});
    EXPECT_EQ(file(), "old");
    EXPECT_TRUE(document->blnChanged);
}

struct CamWriter : ProgramWriter {
    Ref<Composed> attribute = foreignAttribute(), host = make<Composed>("frmMain");
    const Ref<Object> project = make<Composed>("project"), controller = make<Composed>("controller");
    int computed = 0;
    std::vector<Value> given;

    void SetUp() override {
        ProgramWriter::SetUp();
        host->property("ActiveForm", Ref<Object>()).property("currentproject", project);
        host->property("MPController", controller);
        attribute->method("ComputeCAMData", [this](Args args) {
            given.assign(args.begin(), args.end());
            ++computed;
            return Value(false);
        });
        attribute->method("OutputToFile",
                          [this](Args args) { return Value(args[0].toText() + "1 " + std::to_string(computed)); });
        document->frmParentForm = host;
    }
};

TEST_F(CamWriter, ACamIsBroughtUpToDateBeforeItsLineIsWritten) {
    addForeign(5, CAMONOFF, attribute);
    EXPECT_TRUE(written().ends_with("BLOCK_DEFINE 5 6 \"\" -1 -1 0 \"\" 0 0 0 0 1 1\r\n"));
    EXPECT_EQ(given, (std::vector<Value>{project, controller}));
    EXPECT_EQ(computed, 1);
    EXPECT_FALSE(document->blnChanged) << "its result is not looked at";
}

TEST_F(CamWriter, OnlyACamIsAsked) {
    addForeign(5, CAMSHIFT, attribute), addForeign(6, SCALECAM, attribute);
    written();
    EXPECT_EQ(computed, 0);
}

TEST_F(CamWriter, ACamThatCannotBeComputedFailsTheSave) {
    file() = "old";
    attribute->method("ComputeCAMData", [](Args) -> Value { throw RuntimeError(1000, "no table"); });
    addForeign(5, CAMONOFF, attribute);
    document->WriteFile(name);
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|no table"});
    EXPECT_EQ(file(), "old");
    EXPECT_TRUE(document->blnChanged);
}

TEST_F(CamWriter, TheFileIsOpenedBeforeACamIsAsked) {
    disk->replaceError = Error::pathNotFound;
    addForeign(5, CAMONOFF, attribute);
    document->WriteFile(name);
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Path not found"});
    EXPECT_EQ(computed, 0);
    EXPECT_TRUE(document->blnChanged);
}

TEST_F(ProgramWriter, AFailureAtTheBeginningOrTheEndLeavesTheOldFile) {
    const std::pair<Error, std::string_view> failures[] = {
        {Error::outOfMemory, "Out of memory"},          {Error::badFileNumber, "Bad file name or number"},
        {Error::fileNotFound, "File not found"},        {Error::fileAlreadyOpen, "File already open"},
        {Error::deviceIO, "Device I/O error"},          {Error::diskFull, "Disk full"},
        {Error::permissionDenied, "Permission denied"}, {Error::pathFileAccess, "Path/File access error"},
        {Error::pathNotFound, "Path not found"},
    };
    for (const auto& [error, text] : failures)
        for (Error MemoryDisk::*at : {&MemoryDisk::replaceError, &MemoryDisk::commitError}) {
            file() = "old";
            disk.get()->*at = error;
            document->WriteFile(name);
            disk.get()->*at = Error{};
            EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|" + std::string(text)});
            EXPECT_EQ(file(), "old");
            EXPECT_TRUE(document->blnChanged);
        }
}

TEST_F(ProgramWriter, ABlockWithoutAttributeFailsTheSave) {
    file() = "old";
    add(5, MOVEAXIS).setBVTAttribute(nullptr);
    document->WriteFile(name);
    ASSERT_FALSE(user->boxes.empty());
    EXPECT_EQ(boxes().back(), "information|Canvas.WriteFile|Object variable not set");
    EXPECT_EQ(file(), "old");
    EXPECT_TRUE(document->blnChanged);
}

TEST_F(ProgramWriter, TheStatusArrayIsNotLookedAt) {
    std::vector<Value> args{name, Value(arrayOf("Boolean", std::vector<bool>{true}))};
    document->call("WriteFile", args);
    EXPECT_EQ(told(), Texts{});
    EXPECT_TRUE(disk->contents.contains(name));
}

TEST_F(ProgramWriter, TheModelFileIsTheEditorsBusiness) {
    const auto editor = make<Composed>("editor");
    Texts names;
    editor->method("WriteModelFile", [&](Args args) {
        names.push_back(args[0].toText());
        return Value(true);
    });
    EXPECT_FALSE(document->WriteModelFile(editor, "press.mdl")) << "in any case";
    EXPECT_EQ(names, Texts{"press.mdl"});
}

TEST_F(ProgramWriter, TheVersionIsTheLibrarys) {
    document->strVersionNumber = "150";
    EXPECT_TRUE(programText(*document).starts_with("VERSION_NUMBER 200\r\n"));
}

}  // namespace
}  // namespace canvas
