// The shared library as hosts load it, several times in one process.

#include <csignal>
#include <cstdlib>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "component/identifiers.h"
#include "tests/component/fake_host.h"

namespace canvas::component::testing {
namespace {

class Loaded {
public:
    Loaded() : m_handle(dlopen(CANVAS_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {}
    ~Loaded() {
        if (m_handle) dlclose(m_handle);
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    explicit operator bool() const { return m_handle != nullptr; }
    HRESULT canUnload() const { return function<HRESULT()>("DllCanUnloadNow")(); }
    Com<IDispatch> create(std::string_view name) const {
        Com<IClassFactory> factory;
        Com<IDispatch> object;
        function<HRESULT(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            identifiersOf(name)->clsid, IID_IClassFactory, reinterpret_cast<void**>(factory.out()));
        if (factory) factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.out()));
        return object;
    }

    /// One call of an entry point, which fails where it would change something.
    void callAlone(const std::string& entry) const {
        void* none = nullptr;
        if (entry == "DllGetClassObject")
            function<HRESULT(REFCLSID, REFIID, void**)>("DllGetClassObject")(IID_NULL, IID_IClassFactory, &none);
        else function<HRESULT()>(entry.c_str())();
    }

private:
    template <class Signature>
    Signature* function(const char* name) const {
        return reinterpret_cast<Signature*>(dlsym(m_handle, name));
    }
    void* m_handle;
};

bool isMapped() {
    void* const handle = dlopen(CANVAS_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

using Handlers = std::vector<const void*>;

/// Registration has nowhere to write to.
struct NoDataFolder : ::testing::Test {
    void SetUp() override { setenv("XDG_DATA_HOME", "/dev/null", 1); }
    void TearDown() override { unsetenv("XDG_DATA_HOME"); }
};
using LoadedLibrary = NoDataFolder;

Handlers handlers() {
    Handlers found;
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP}) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        found.push_back(reinterpret_cast<const void*>(action.sa_sigaction));
    }
    found.push_back(reinterpret_cast<const void*>(std::get_terminate()));
    return found;
}

TEST_F(LoadedLibrary, ComesAndGoesSeveralTimes) {
    const Handlers before = handlers();
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(i);
        ASSERT_FALSE(isMapped());
        {
            const Loaded library;
            ASSERT_TRUE(library) << dlerror();
            EXPECT_EQ(library.canUnload(), S_OK);
            auto canvas = library.create("clsBVTCanvas");
            EXPECT_EQ(library.canUnload(), S_FALSE);
            EXPECT_EQ(call(canvas.get(), "BlockName", {2}).value, Value("Move Axis"));
            EXPECT_EQ(call(canvas.get(), "BlockName", {99}).result, DISP_E_EXCEPTION);
            EXPECT_NE(handlers(), before) << "its own are in force";
            const auto host = makeHost();
            EXPECT_EQ(put(canvas.get(), "frmParentForm", Value(asObject(host))).result, S_OK);
            EXPECT_EQ(call(canvas.get(), "frmParentForm").value, Value(asObject(host)));
            canvas = {};
            EXPECT_EQ(library.canUnload(), S_OK);
        }
        EXPECT_FALSE(isMapped());
        EXPECT_EQ(handlers(), before) << "none is left behind";
    }
}

TEST_F(LoadedLibrary, LeavesNoHandlerBehindWhateverItsOneCallWas) {
    const Handlers before = handlers();
    for (const char* entry : {"DllCanUnloadNow", "DllRegisterServer", "DllUnregisterServer", "DllGetClassObject"}) {
        SCOPED_TRACE(entry);
        {
            const Loaded library;
            ASSERT_TRUE(library) << dlerror();
            library.callAlone(entry);
        }
        EXPECT_FALSE(isMapped());
        EXPECT_EQ(handlers(), before);
    }
}

TEST_F(LoadedLibrary, StaysForWhateverIsHeld) {
    const Loaded library;
    ASSERT_TRUE(library) << dlerror();
    auto blocks = library.create("clsBVTBlockCol");
    DISPPARAMS none{};
    OwnedVariant walk;
    ASSERT_EQ(blocks->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, &walk, nullptr, nullptr), S_OK);
    blocks = {};
    EXPECT_EQ(library.canUnload(), S_FALSE) << "a walk is held";
    clear(walk);
    EXPECT_EQ(library.canUnload(), S_OK);
}

}  // namespace
}  // namespace canvas::component::testing
