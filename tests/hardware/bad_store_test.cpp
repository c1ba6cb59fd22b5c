// Stores that are missing, damaged, held by others or out of room: a clear error, and a store as it was or as told.

#include <csignal>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include "fixture.h"
#include "hardware/sqlite_store.h"

namespace canvas {
namespace {

using namespace fixture;

struct BadStore : Hardware {
    static RuntimeError opening(const std::string& path) {
        return errorOf([&] { invoke(*make<clsBVTKX410>(), "SetDBPath", path); });
    }
    static void editAll(const Ref<Object>& module, int rows, const std::string& value) {
        for (int row = 0; row < rows; ++row) edit(module, row, value);
    }
    std::size_t written(int g, const std::string& value) const {
        return store.rows("SELECT 1 FROM tblSystemProperties WHERE Value = " + literal(value) +
                          " AND groupID = " + std::to_string(g)).size();
    }
};

TEST_F(BadStore, AMissingStoreIsNotMade) {
    const std::string missing = store.folder / "none.db";
    const RuntimeError error = opening(missing);
    EXPECT_EQ(error.number, 3024);
    EXPECT_EQ(error.source, "KX410::ReadFromDB");
    EXPECT_NE(opening(store.folder / "no folder/none.db").number, 0);
    EXPECT_EQ(opening("").number, 3024);
    EXPECT_EQ(store.folder.entries(), Texts{"machine.db"});
}

TEST_F(BadStore, TheExternalEncoderTellsOfAMissingStoreInItsBox) {
    const auto module = make<clsBVTExternalEncoder>();
    const std::string missing = store.folder / "none.db";
    EXPECT_EQ(invoke(*module, "SetDBPath", missing), Value());
    EXPECT_EQ(told(), Texts{opening(missing).description});
}

TEST_F(BadStore, WhatIsNoStoreIsAnUnknownFormat) {
    for (const std::string& bytes : {std::string("a text file\r\nof two lines\r\n"), std::string(5000, 'x'),
                                     std::string("SQLite format 3"), std::string(100'000, '\0')}) {
        const std::string path = file("text.db", bytes);
        EXPECT_EQ(opening(path).number, 3343) << bytes.size();
        EXPECT_EQ(scratch::bytesOf(path), bytes);
    }
}

TEST_F(BadStore, AnEmptyFileAndAFolderAreNoStores) {
    EXPECT_NE(opening(file("empty.db", "")).number, 0);
    EXPECT_NE(opening(store.folder.path()).number, 0);
    EXPECT_NE(opening("/dev/null").number, 0);
}

TEST_F(BadStore, ATruncatedStoreIsAnError) {
    const std::string bytes = scratch::bytesOf(store.path);
    for (const std::size_t size : {bytes.size() / 2, std::size_t{4096}, std::size_t{1000}, std::size_t{100}})
        EXPECT_NE(opening(file("short.db", bytes.substr(0, size))).number, 0) << size;
}

TEST_F(BadStore, ADamagedPageNeverEndsTheProcess) {
    const std::string sound = scratch::bytesOf(store.path);
    const std::size_t page = 4096;
    int failures = 0;
    for (std::size_t at = page; at < sound.size(); at += page) {
        std::string bytes = sound;
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), page, '\xA5');
        const std::string path = file("damaged.db", bytes);
        const auto module = make<clsBVTCOM1>();
        failures += raisedBy([&] { invoke(*module, "SetDBPath", path); }) == 3343 ? 1 : 0;
        failures += raisedBy([&] { invoke(*module, "SaveToDB"); }) == 3343 ? 1 : 0;
    }
    EXPECT_GT(failures, 0);
}

TEST_F(BadStore, ASaveThatMeetsADamagedPageTakesEverythingBack) {
    // The last leaf of the properties: rows before it are read, and written, first.
    const std::string leaf = store.one("SELECT MAX(pageno) FROM dbstat WHERE name = 'tblSystemProperties' AND pagetype = 'leaf'");
    if (leaf.find("rows") != std::string::npos || leaf == "null") GTEST_SKIP() << "this SQLite does not tell pages";
    const auto module = opened<clsBVTRVQD>();
    editAll(module, 71, "new");
    std::string bytes = scratch::bytesOf(store.path);
    const std::size_t at = (std::stoul(leaf) - 1) * 4096;
    const std::string original = bytes.substr(at, 4096);
    {
        std::fstream damaging(store.path, std::ios::in | std::ios::out | std::ios::binary);
        damaging.seekp(static_cast<std::streamoff>(at));
        damaging << std::string(4096, '\xA5');
    }
    // Another connection's change makes the library read the pages anew.
    store.run("CREATE TABLE another (a)");
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 3343);
    {
        std::fstream mending(store.path, std::ios::in | std::ios::out | std::ios::binary);
        mending.seekp(static_cast<std::streamoff>(at));
        mending << original;
    }
    EXPECT_TRUE(store.isSound());
    EXPECT_EQ(written(1, "new"), 0U);
}

TEST_F(BadStore, ATableThatIsMissingIsToldByNumber) {
    const auto module = opened<clsBVTKX410>();
    store.run("DROP TABLE tblSystemProperties");
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 3078);
    EXPECT_EQ(opening(store.path).number, 3078) << "its query cannot be run";
}

TEST_F(BadStore, AQueryThatIsMissingIsToldByNumber) {
    store.run("DROP VIEW qryKX410");
    EXPECT_EQ(opening(store.path).number, 3265);
}

TEST_F(BadStore, AColumnThatIsMissingIsToldByNumber) {
    store.run("DROP VIEW qryKX410; CREATE VIEW qryKX410 AS SELECT Value FROM tblSystemProperties");
    EXPECT_EQ(opening(store.path).number, 3265);
    for (const bool used : {false, true}) {
        const Store other;
        const auto module = make<clsBVTCOM2>();
        invoke(*module, "SetDBPath", other.path);
        if (used) invoke(*module, "SaveToDB");
        for (const Group& g : groups) other.run("DROP VIEW " + std::string(g.query));
        other.run("ALTER TABLE tblSystemProperties DROP COLUMN Dirty");
        EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 3265) << used;
    }
}

TEST_F(BadStore, ATableThatIsMadeAnewInAnotherOrderIsReadByItsNames) {
    const auto module = opened<clsBVTKX410>();
    invoke(*module, "SaveToDB");
    const Texts expected = store.properties(6);
    store.run("ALTER TABLE tblSystemProperties RENAME TO old; CREATE TABLE tblSystemProperties (DisplayFormat TEXT, Dirty "
              "INTEGER, more TEXT, \"Default\" TEXT, Value TEXT, PropertyNumber INTEGER, groupID INTEGER); INSERT INTO "
              "tblSystemProperties SELECT DisplayFormat, Dirty, 'more', \"Default\", Value, PropertyNumber, groupID FROM old");
    edit(module, 0, "new");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(2, 1), "new,1");
    EXPECT_EQ(store.property(2, 15), "2015,1");
    EXPECT_EQ(store.properties(6), expected);
}

/// Makes the library wait shortly for a store that is held.
struct Impatient {
    std::unique_ptr<store::Engine> own = store::makeSqliteEngine({.busyTimeout = 50});
    store::WithEngine inForce{*own};
};

TEST_F(BadStore, AStoreThatAnotherUserHoldsIsAnErrorAndCanBeTriedAgain) {
    const Impatient impatient;
    const auto module = opened<clsBVTRVQD>();
    editAll(module, 71, "new");
    {
        Sqlite other(store.path);
        other.run("BEGIN EXCLUSIVE");
        EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 70);
        EXPECT_EQ(raisedBy([&] { invoke(*module, "ReadFromDB"); }), 70);
        other.run("ROLLBACK");
    }
    EXPECT_EQ(written(1, "new"), 0U);
    invoke(*module, "SaveToDB");
    EXPECT_EQ(written(1, "new"), 70U);
}

TEST_F(BadStore, AReaderWhoStaysHoldsUpTheSaveButNothingIsTorn) {
    const Impatient impatient;
    const auto module = opened<clsBVTRVQD>();
    editAll(module, 71, "new");
    {
        Sqlite other(store.path);
        other.run("BEGIN");
        EXPECT_FALSE(other.rows("SELECT * FROM tblSystemProperties").empty());
        EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 70);
        other.run("ROLLBACK");
    }
    EXPECT_EQ(written(1, "new"), 0U);
    EXPECT_TRUE(store.isSound());
    invoke(*module, "SaveToDB");
    EXPECT_EQ(written(1, "new"), 70U);
}

TEST_F(BadStore, NoOperationKeepsTheStoreLocked) {
    const auto module = opened<clsBVTRVQD>();
    Sqlite other(store.path);
    for (const std::string_view operation : {"ReadFromDB", "SaveToDB", "RestoreDefault", "ResetDirtyBits"}) {
        invoke(*module, operation);
        EXPECT_NO_THROW(other.run("BEGIN EXCLUSIVE; ROLLBACK")) << operation;
    }
    other.run("UPDATE tblSystemProperties SET PropertyNumber = 200 WHERE groupID = 1 AND PropertyNumber = 3");
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 9);
    EXPECT_NO_THROW(other.run("BEGIN EXCLUSIVE; ROLLBACK"));
}

TEST_F(BadStore, AReadOnlyStoreCanBeReadAndNotWritten) {
    std::filesystem::permissions(store.path, std::filesystem::perms::owner_read | std::filesystem::perms::others_read |
                                                 std::filesystem::perms::group_read);
    std::filesystem::permissions(store.folder.path(), std::filesystem::perms(0755));
    const std::string path = store.path;
    EXPECT_EQ(scratch::errorWithoutRights([&] {
                  invoke(*make<clsBVTKX410>(), "SetDBPath", path);
              }),
              0);
    const int error = scratch::errorWithoutRights([&] {
        const auto module = make<clsBVTKX410>();
        invoke(*module, "SetDBPath", path);
        invoke(*module, "SaveToDB");
    });
    EXPECT_TRUE(error == 70 || error == 75) << error;
    EXPECT_EQ(written(2, "2001"), 1U);
}

TEST_F(BadStore, AReadOnlyFolderIsAnErrorAndLeavesTheStoreAlone) {
    std::filesystem::permissions(store.path, std::filesystem::perms(0666));
    std::filesystem::permissions(store.folder.path(), std::filesystem::perms(0555));
    const std::string path = store.path;
    const Texts before = store.properties(2);
    const int error = scratch::errorWithoutRights([&] {
        const auto module = make<clsBVTKX410>();
        invoke(*module, "SetDBPath", path);
        editAll(module, 15, "new");
        invoke(*module, "SaveToDB");
    });
    std::filesystem::permissions(store.folder.path(), std::filesystem::perms::all);
    EXPECT_TRUE(error == 70 || error == 75) << error;
    EXPECT_EQ(store.properties(2), before);
    EXPECT_TRUE(store.isSound());
}

TEST_F(BadStore, AStoreThatMayNotBeReadIsAnError) {
    std::filesystem::permissions(store.path, std::filesystem::perms::none);
    const std::string path = store.path;
    const int error = scratch::errorWithoutRights([&] { invoke(*make<clsBVTKX410>(), "SetDBPath", path); });
    std::filesystem::permissions(store.path, std::filesystem::perms(0644));
    EXPECT_TRUE(error == 70 || error == 75) << error;
}

/// Values that the store has no room for.
const std::string large(2000, 'v');

TEST_F(BadStore, AFileThatMayNotGrowIsAFullDiskAndTheSaveIsTakenBack) {
    const Texts before = store.properties(1);
    const std::string path = store.path;
    const int error = scratch::inChild([&] {
        const auto module = make<clsBVTRVQD>();
        invoke(*module, "SetDBPath", path);
        editAll(module, 71, large);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlim_t size = static_cast<rlim_t>(std::filesystem::file_size(path)) + 8192;
        const rlimit limit{size, size};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return raisedBy([&] { invoke(*module, "SaveToDB"); });
    });
    EXPECT_TRUE(error == 61 || error == 57) << error;  // the limit of a file is no full disk to every engine
    EXPECT_EQ(store.properties(1), before);
    EXPECT_TRUE(store.isSound());
    EXPECT_EQ(store.folder.entries(), Texts{"machine.db"});
}

TEST_F(BadStore, AnExportThatMayNotGrowIsAFullDisk) {
    const std::string path = store.path, out = store.folder / "out.csv";
    const int error = scratch::inChild([&] {
        const auto module = make<clsBVTRVQD>();
        invoke(*module, "SetDBPath", path);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{300, 300};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return raisedBy([&] { invoke(*module, "ExportToCSV", out); });
    });
    EXPECT_EQ(error, 61);
}

TEST_F(BadStore, ADiskThatIsFullIsToldAndTheSaveIsTakenBack) {
    const std::string folder = store.folder.path(), path = folder + "/full/machine.db";
    std::filesystem::create_directory(folder + "/full");
    constexpr int notAllowed = 250, torn = 251;
    const int error = scratch::inChild([&] {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", (folder + "/full").c_str(), "tmpfs", 0, "size=256k") != 0)
            return notAllowed;
        std::filesystem::copy_file(store.path, path);
        const auto module = make<clsBVTRVQD>();
        invoke(*module, "SetDBPath", path);
        editAll(module, 71, large + large);
        const int number = raisedBy([&] { invoke(*module, "SaveToDB"); });
        const bool same = Sqlite(path).rows("SELECT * FROM tblSystemProperties") ==
                          store.rows("SELECT * FROM tblSystemProperties");
        return same ? number : torn;
    });
    if (error == notAllowed) GTEST_SKIP() << "a small disk cannot be mounted here";
    EXPECT_EQ(error, 61);
}

TEST_F(BadStore, AnImportOntoAFullDiskIsTakenBackAndRaisedUnderItsSource) {
    std::string text = "\"RVQD\"\r\n\"\",\"\",\"\",\"\"\r\n";
    for (int n = 1; n <= 71; ++n) text += "1," + std::to_string(n) + ",\"" + large + "\",1\r\n";
    const std::string csv = file("in.csv", text), path = store.path;
    const Texts before = store.properties(1);
    const int error = scratch::inChild([&] {
        const auto module = make<clsBVTRVQD>();
        invoke(*module, "SetDBPath", path);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlim_t size = static_cast<rlim_t>(std::filesystem::file_size(path)) + 8192;
        const rlimit limit{size, size};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const RuntimeError raised = errorOf([&] { invoke(*module, "ImportFromCSV", csv); });
        return raised.source == "RVQD::ImportFromCSV" ? raised.number : 255;
    });
    EXPECT_TRUE(error == 61 || error == 57) << error;
    EXPECT_EQ(store.properties(1), before);
    EXPECT_TRUE(store.isSound());
}

TEST_F(BadStore, AJournalOfAnInterruptedWriterIsPlayedBack) {
    // A writer dies with its change half in the file.
    const std::string path = store.path;
    const Texts before = store.properties(1);
    scratch::inChild([&] {
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_exec(db, "PRAGMA cache_size = 1; BEGIN; UPDATE tblSystemProperties SET Value = hex(randomblob(800))",
                     nullptr, nullptr, nullptr);
        return 0;
    });
    EXPECT_TRUE(std::filesystem::exists(path + "-journal"));
    const auto module = opened<clsBVTRVQD>();
    EXPECT_EQ(cell(module, 0), "1001");
    EXPECT_EQ(store.properties(1), before);
}

}  // namespace
}  // namespace canvas
