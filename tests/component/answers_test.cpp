// Abort, Retry and Ignore reach the failing statement, whatever failed: a host's object, a file, the record store or the
// machine itself, in the procedures of every floor.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "editors/error_form.h"
#include "editors/forms.h"
#include "hardware/modules.h"
#include "hardware/schema.h"
#include "host/composed.h"
#include "host/convert.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

struct Ended {};

struct NoEnd final : Process {
    void exitProcess(int) override { throw Ended(); }
    void exitThread(int) override {}
};

/// Answers each error dialog with the same button, and counts.
struct User final : Interaction {
    const char* button = nullptr;
    int asked = 0;
    Reply messageBox(const MessageBox&) override { return Reply::ok; }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object& form) override {
        if (form.className() != "vbwFrmErrHandler") {
            invoke(*invoke(form, "Control", "btnOK").toObject(), "Click");
            return true;
        }
        ++asked;
        invoke(*invoke(form, "Control", button).toObject(), "Click");
        return true;
    }
};

/// Faults of the machine itself, which no sanitizer may tell first.
[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] int readThroughNull() {
    int* volatile nowhere = nullptr;
    return *nowhere;
}
[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] int divideByZero() {
    volatile int none = 0;
    return 1 / none;
}

/// Fails the first time it is reached.
struct Fails {
    enum class By { error, nullAccess, division } by = By::error;
    int reached = 0;
    void operator()() {
        if (++reached > 1) return;
        switch (by) {
            case By::error: raise(Error::deviceIO);
            case By::nullAccess: static_cast<void>(readThroughNull()); return;
            case By::division: static_cast<void>(divideByZero()); return;
        }
    }
};

/// The disk, but that asking whether a file is there fails.
class FailingDisk final : public Files {
public:
    FailingDisk(std::shared_ptr<Files> disk, Fails& fails) : m_disk(std::move(disk)), m_fails(fails) {}
    std::string read(const std::string& path, std::uint64_t limit) override { return m_disk->read(path, limit); }
    std::unique_ptr<Replacement> replace(const std::string& path) override { return m_disk->replace(path); }
    int open(const std::string& path, OpenMode mode) override { return m_disk->open(path, mode); }
    void close(int number) override { m_disk->close(number); }
    std::string readLine(int number) override { return m_disk->readLine(number); }
    bool atEnd(int number) override { return m_disk->atEnd(number); }
    void writeLine(int number, std::string_view line) override { m_disk->writeLine(number, line); }
    bool exists(const std::string& path) override {
        m_fails();
        return m_disk->exists(path);
    }
    bool isFolder(const std::string& path) override { return m_disk->isFolder(path); }
    void remove(const std::string& path) override { m_disk->remove(path); }
    void rename(const std::string& from, const std::string& to) override { m_disk->rename(from, to); }
    void makeFolder(const std::string& path) override { m_disk->makeFolder(path); }
    std::string currentFolder() override { return m_disk->currentFolder(); }

private:
    std::shared_ptr<Files> m_disk;
    Fails& m_fails;
};

/// One procedure with a statement that fails.
struct Case {
    const char* name;
    void (*work)(Fails& fails);
};

void documentCallsAHost(Fails& fails) {
    auto editor = make<Composed>("Editor");
    editor->method("WriteModelFile", [&](Args) { return fails(), Value(); });
    make<clsBVTCanvas>()->WriteModelFile(Value(Ref<Object>(editor)), "model.txt");
}

void attributeCallsAHost(Fails& fails) {
    auto checker = make<Composed>("Checker");
    checker->method("checkexpression", [&](Args) { return fails(), Value(std::int16_t{0}); });
    checker->method("GetResult", [](Args) { return Value(); });
    std::string said;
    invoke(*newAttribute(MOVEAXIS), "PropertiesSyntaxCheck", Ref<Object>(checker), std::int32_t{1}, std::ref(said));
}

Ref<Composed> projectWithATask() {
    auto task = make<Composed>("Task");
    task->property("IsTaskDefined", Value(true));
    task->property("TaskName", Value("nowhere.bpg"));
    task->property("TaskTitle", Value("nowhere"));
    auto list = make<Composed>("TaskList");
    list->method("GetTaskAt", [task](Args) { return Value(Ref<Object>(task)); });
    auto project = make<Composed>("Project");
    project->property("TaskList", Value(Ref<Object>(list)));
    project->property("WorkingDirectory", Value("/nowhere"));
    return project;
}

void attributeAsksForAFile(Fails& fails) {
    const WithEnvironment disk{Environment{.files = std::make_shared<FailingDisk>(environment().files, fails)}};
    std::string said;
    invoke(*newAttribute(RESTARTPROGRAM), "PropertiesSyntaxCheck", Ref<Object>(projectWithATask()), std::int32_t{1},
           std::ref(said));
}

void hardwareCallsAHost(Fails& fails) {
    const scratch::Folder folder;
    createStore(folder / "plant.db");
    auto map = make<Composed>("Map");
    map->method("GetAddresses", [&](Args) { return fails(), Value("IW0256"); });
    const auto nodes = make<clsBVTRemoteIO>();
    nodes->SetDBPath(folder / "plant.db");
    nodes->put("InputMap", Value(Ref<Object>(map)));
    nodes->put("OutputMap", Value(Ref<Object>(map)));
    nodes->SaveData("7", "Seven", "Type", "8", "", "1", 0, "N/A");
    EXPECT_TRUE(nodes->IsInList("7"));
}

void hardwareMeetsAStoreWithoutItsTable(Fails& fails) {
    const scratch::Folder folder;
    createStore(folder / "plant.db");
    const auto port = make<clsBVTCOM1>();
    port->SetDBPath(folder / "plant.db");
    const std::filesystem::path store = folder / "plant.db", aside = folder / "aside.db";
    // The store is away until the user has been asked: the failing statement is the one that opens it.
    struct Away final : Interaction {
        std::shared_ptr<Interaction> user;
        std::filesystem::path store, aside;
        Reply messageBox(const MessageBox& box) override { return user->messageBox(box); }
        std::string inputBox(std::string_view a, std::string_view b, std::string_view c) override {
            return user->inputBox(a, b, c);
        }
        void beep() override {}
        std::int32_t openAddress(std::string_view) override { return 0; }
        void setClipboard(std::string_view) override {}
        bool showForm(Object& form) override {
            if (std::filesystem::exists(aside)) std::filesystem::rename(aside, store);
            return user->showForm(form);
        }
    };
    const auto away = std::make_shared<Away>();
    away->user = environment().interaction;
    away->store = store, away->aside = aside;
    const WithEnvironment asked{Environment{.interaction = away}};
    std::filesystem::rename(store, aside);
    fails.reached = 1;
    port->ResetDirtyBits();
    ++fails.reached;
}

void editorCallsAHost(Fails& fails) {
    auto checker = make<Composed>("Checker");
    checker->method("ValidateUserInput", [&](Args) { return fails(), Value(true); });
    const Ref<editors::Form> form = editors::makeForm("frmTorque");
    invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker));
    form->Show();
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
}

void editorAsksForAFile(Fails& fails) {
    const WithEnvironment disk{Environment{.files = std::make_shared<FailingDisk>(environment().files, fails)}};
    const Ref<editors::Form> form = editors::makeForm("frmSuperBlock");
    auto main = make<Composed>("frmMain");
    main->property("currentproject", Value(Ref<Object>(projectWithATask())));
    form->put("MainForm", Value(Ref<Object>(main)));
    form->put("BVTAttribute", Value(newAttribute(SUPERBLOCK)));
    invoke(*form, "Control", "txbName").toObject()->put("Text", Value("pick"));
    form->Show();
}

constexpr Case hostCases[] = {{"document", documentCallsAHost},
                              {"attribute", attributeCallsAHost},
                              {"hardware", hardwareCallsAHost},
                              {"editor", editorCallsAHost},
                              {"attributeFile", attributeAsksForAFile},
                              {"editorFile", editorAsksForAFile}};

struct Answers : testing::TestWithParam<std::tuple<Case, Fails::By>> {
    std::shared_ptr<User> user = std::make_shared<User>();
    WithEnvironment with{Environment{.interaction = user, .process = std::make_shared<NoEnd>()}};
    editors::ErrorDialog dialog;
    tracing::WithErrorHandler asking{dialog};
    Fails fails{std::get<1>(GetParam())};
    void work(const char* button) {
        user->button = button;
        std::get<0>(GetParam()).work(fails);
    }
};

TEST_P(Answers, RetryRepeatsTheFailingStatement) {
    work("cmdAction(1)");
    EXPECT_EQ(user->asked, 1);
    EXPECT_GE(fails.reached, 2);
}

TEST_P(Answers, IgnoreGoesOnBehindIt) {
    work("cmdAction(2)");
    EXPECT_GE(user->asked, 1);  // behind a store that was not opened the next statement fails too
}

TEST_P(Answers, AbortEndsTheProcess) {
    EXPECT_THROW(work("cmdAction(0)"), Ended);
    EXPECT_EQ(user->asked, 1);
    EXPECT_EQ(fails.reached, 1);
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Case, Fails::By>>& info) {
    static constexpr const char* by[] = {"Error", "NullAccess", "Division"};
    return std::string(std::get<0>(info.param).name) + by[static_cast<int>(std::get<1>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Hosts, Answers,
                         testing::Combine(testing::ValuesIn(hostCases),
                                          testing::Values(Fails::By::error, Fails::By::nullAccess, Fails::By::division)),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(Store, Answers,
                         testing::Combine(testing::Values(Case{"store", hardwareMeetsAStoreWithoutItsTable}),
                                          testing::Values(Fails::By::error)),
                         nameOf);

}  // namespace
}  // namespace canvas
