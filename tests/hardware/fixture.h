#pragma once
// What the tests of the hardware share: a store, a user who reads message boxes, the seven classes as a table, and short
// ways to call and to look.

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hardware/modules.h"
#include "host/composed.h"
#include "host/ports.h"
#include "store.h"
#include "tests/attributes/print.h"
#include "tests/host/raised.h"
#include "tests/tracing/fakes.h"

namespace canvas::fixture {

/// Keeps the message boxes and answers OK.
class Reader final : public Interaction {
public:
    std::vector<MessageBox> boxes;

    Reply messageBox(const MessageBox& box) override {
        boxes.push_back(box);
        return Reply::ok;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return false; }
};

/// One of the seven classes, with what is its own.
struct ModuleCase {
    std::string_view name;
    Ref<Object> (*create)();
    int group;
    std::string_view tag;
    bool saveAnswersTrue;
    /// Before SetDBPath its operations fail as on a store that is not there, since it opens the store in each.
    bool reopens = false;
    bool holdsNodes = false;

    int rows() const { return fixture::group(group).rows; }
    std::string query() const { return std::string(fixture::group(group).query); }
};

template <class T>
Ref<Object> created() {
    return make<T>();
}

inline const ModuleCase modules[]{
    {"clsBVTRVQD", &created<clsBVTRVQD>, 1, "RVQD", false},
    {"clsBVTKX410", &created<clsBVTKX410>, 2, "KX410", true},
    {"clsBVTCOM1", &created<clsBVTCOM1>, 3, "COM1", true, true},
    {"clsBVTCOM2", &created<clsBVTCOM2>, 4, "COM2", true},
    {"clsBVTNetwork", &created<clsBVTNetwork>, 5, "Network", false, false, true},
    {"clsBVTExternalEncoder", &created<clsBVTExternalEncoder>, 6, "ExternalEncoder", true},
    {"clsBVTRemoteIO", &created<clsBVTRemoteIO>, 7, "RemoteIO", false, false, true},
};

inline void PrintTo(const ModuleCase& module, std::ostream* out) { *out << module.name; }
inline std::string moduleName(const ::testing::TestParamInfo<ModuleCase>& info) { return std::string(info.param.name); }

/// "null", "empty", or the text of the value.
inline std::string shown(const Value& value) {
    return value.is(Kind::null) ? "null" : value.is(Kind::empty) ? "empty" : value.toText();
}

/// The error that a call raises; number 0 when it raises none.
template <class Call>
RuntimeError errorOf(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error;
    }
    return {0, "", ""};
}

/// A copy of a module's matrix.
inline Array matrixOf(Object& module) {
    Value matrix = Array::undimensioned("Variant");
    invoke(module, "GetBlockMatrix", std::ref(matrix));
    return matrix.toArray();
}

inline Value at(const Array& array, std::int32_t first, std::int32_t second) {
    const std::int32_t indexes[]{first, second};
    return array.at(indexes);
}

struct Hardware : ::testing::Test {
    Store store;
    std::shared_ptr<Reader> user = std::make_shared<Reader>();
    WithEnvironment inForce{{.interaction = user,
                             .files = nullptr,
                             .clock = nullptr,
                             .process = nullptr,
                             .utility = nullptr,
                             .application = {}}};

    /// A module on the store.
    template <class T>
    Ref<Object> opened() const {
        return opened(make<T>());
    }
    Ref<Object> opened(Ref<Object> module) const {
        invoke(*module, "SetDBPath", store.path);
        return module;
    }

    /// Column 1 of a row of the matrix, or another column.
    static std::string cell(const Ref<Object>& module, int row, int column = 1) {
        return shown(at(matrixOf(*module), column, row));
    }
    static void edit(const Ref<Object>& module, int row, const Value& value, int column = 1) {
        invoke(*module, "SetBlockMatrix", column, row, value);
    }

    /// The texts of the message boxes so far.
    Texts told() const {
        Texts texts;
        for (const MessageBox& box : user->boxes) texts.push_back(box.text);
        return texts;
    }

    std::string file(const std::string& name, const std::string& bytes) const {
        scratch::put(store.folder / name, bytes);
        return store.folder / name;
    }
};

/// A memory map of the host's: keeps what it was asked, "GetAddresses(W,8,0)", and answers from a list.
class FakeMap {
public:
    Texts calls;
    /// Answers of GetAddresses, one after the other; then "none".
    std::vector<Value> answers;
    /// While set, every operation fails.
    bool raises = false;

    explicit FakeMap(std::vector<Value> answersInOrder = {})
        : answers(std::move(answersInOrder)), m_object(make<Composed>("clsMemoryMap")) {
        m_object->method("GetAddresses", [this](Args args) { return addresses(args); });
        m_object->method("AllocateAddresses", [this](Args args) { return noted("AllocateAddresses", args, 3, 2); });
        m_object->method("FreeAddresses", [this](Args args) { return noted("FreeAddresses", args, 2, 1); });
        m_object->method("EmptyMap", [this](Args args) { return noted("EmptyMap", args, 0, 0); });
    }
    FakeMap(const FakeMap&) = delete;
    FakeMap& operator=(const FakeMap&) = delete;

    Value object() const { return Value(Ref<Object>(m_object)); }

private:
    Value noted(const std::string& operation, Args args, std::size_t count, std::size_t wordsAt) {
        EXPECT_EQ(args.size(), count) << operation;
        std::string call;
        for (std::size_t i = 0; i < args.size(); ++i) {
            EXPECT_EQ(args[i].kind(), i == 0 || i != wordsAt ? argumentKind(operation, i) : Kind::longInteger)
                << operation << " argument " << i;
            call += (i == 0 ? "" : ",") + shown(args[i]);
        }
        calls.push_back(operation + "(" + call + ")");
        if (raises) throw RuntimeError(1234, "The map is full", "Host");
        return {};
    }
    static Kind argumentKind(const std::string& operation, std::size_t i) {
        return operation == "GetAddresses" && i == 2 ? Kind::integer : Kind::text;
    }
    Value addresses(Args args) {
        noted("GetAddresses", args, 3, 1);
        if (answers.empty()) return "none";
        Value answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }

    Ref<Composed> m_object;
};

/// A node's list with both maps.
struct Nodes : Hardware {
    FakeMap inputs{{"IW0300", "IW0310", "IW0320", "IW0330"}};
    FakeMap outputs{{"OW0600", "OW0610", "OW0620", "OW0630"}};

    Ref<Object> withMaps(Ref<Object> module) const {
        module->put("InputMap", inputs.object());
        module->put("OutputMap", outputs.object());
        return module;
    }
    template <class T = clsBVTRemoteIO>
    Ref<Object> withMaps() const {
        return withMaps(opened<T>());
    }
    Texts asked() const {
        Texts all;
        for (const std::string& call : inputs.calls) all.push_back("in." + call);
        for (const std::string& call : outputs.calls) all.push_back("out." + call);
        return all;
    }
};

}  // namespace canvas::fixture
