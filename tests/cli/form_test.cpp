// canvas form, as far as it comes without a screen. tests/tools/view_screen.sh goes on from there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/cli/program.h"

using namespace canvas;
using program::run;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

struct NoScreen : ::testing::Test {
    NoScreen() {
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(name);
        scratch::put(m_folder / "homing.bpa", scratch::bytesOf(CANVAS_SOURCE_DIR "/examples/homing.bpa"));
    }
    program::Said form(std::vector<std::string> words) {
        words.insert(words.begin(), "form");
        return run(words, {.folder = m_folder.path()});
    }
    const scratch::Folder m_folder;
};

using Form = NoScreen;

TEST_F(Form, AnUnknownDialogIsWrongUsageAndTheOthersAreNamed) {
    const auto said = form({"frmNothing"});
    EXPECT_EQ(said.code, 2);
    EXPECT_THAT(said.err, HasSubstr("no dialog of the name frmNothing"));
    EXPECT_THAT(said.err, HasSubstr("frmMoveAxis"));
}

TEST(Commands, AnUnknownOneIsNamedBesideThoseThatThereAre) {
    const auto said = program::run({"bogus"});
    EXPECT_EQ(said.code, 2);
    EXPECT_THAT(said.err, HasSubstr("canvas: no command 'bogus'; there are check, show, describe, store, form, report"));
}

TEST_F(Form, AFileNeedsABlock) { EXPECT_EQ(form({"MoveAxis", "homing.bpa"}).code, 2); }

TEST_F(Form, TheBlockMustBeThere) {
    const auto said = form({"MoveAxis", "homing.bpa", "99"});
    EXPECT_EQ(said.code, 2);
    EXPECT_THAT(said.err, HasSubstr("no block 99"));
}

TEST_F(Form, TheDialogMustBeTheBlocksOwn) {
    const auto said = form({"MoveAxis", "homing.bpa", "6"});
    EXPECT_EQ(said.code, 2);
    EXPECT_THAT(said.err, HasSubstr("frmHomeAxis"));
    const auto none = form({"MoveAxis", "homing.bpa", "1"});
    EXPECT_EQ(none.code, 2);
    EXPECT_THAT(none.err, HasSubstr("has no dialog"));
}

TEST_F(Form, AFileThatIsNotThereIsUnreadable) { EXPECT_EQ(form({"MoveAxis", "none.bpa", "1"}).code, 3); }

TEST_F(Form, AFileOfWhichReadingLosesSomethingIsRefused) {
    const std::string damaged = scratch::bytesOf(CANVAS_SOURCE_DIR "/examples/labeler_merge_damage.bpa");
    scratch::put(m_folder / "damaged.bpa", damaged);
    const auto said = form({"MoveAxis", "damaged.bpa", "8"});
    EXPECT_EQ(said.code, 1);
    EXPECT_THAT(said.err, HasSubstr("duplicate-id"));
    EXPECT_THAT(said.err, HasSubstr("'damaged.bpa' is left as it is"));
    EXPECT_EQ(scratch::bytesOf(m_folder / "damaged.bpa"), damaged);
}

TEST_F(Form, AnUnreadableFileIsToldWithItsReason) {
    scratch::put(m_folder / "text.bpa", "no program\r\n");
    const auto said = form({"MoveAxis", "text.bpa", "8"});
    EXPECT_EQ(said.code, 3);
    EXPECT_THAT(said.err, HasSubstr("text.bpa:"));
}

TEST_F(Form, WithoutAScreenItSaysSoAndLeavesTheFileAlone) {
    const std::string before = scratch::bytesOf(m_folder / "homing.bpa");
    const auto said = form({"moveaxis", "homing.bpg", "8"});
    EXPECT_EQ(said.code, 5);
    EXPECT_THAT(said.err, HasSubstr("dialogs cannot be shown here"));
    EXPECT_THAT(said.out, IsEmpty());
    EXPECT_EQ(scratch::bytesOf(m_folder / "homing.bpa"), before);
}

}  // namespace
