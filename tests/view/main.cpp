// test_view CLASS [QTEST ARGUMENT...]: runs one class of tests; all of them without an argument.

#include <cstring>
#include <filesystem>
#include <memory>
#include <string_view>

#include "tests/view/driving.h"

int main(int count, char** words) {
    using namespace canvas::editors;
    static constexpr TestClass classes[] = {
        {"fields", makeFieldsTest}, {"lists", makeListsTest}, {"grid", makeGridTest},
        {"window", makeWindowTest}, {"boxes", makeBoxesTest},
    };
    // the view makes the application itself, as in a host without one
    if (!ownView()) qFatal("%s", ownViewTrouble().c_str());
    for (int i = 1; i < count; ++i) {  // reports go to "FILE,FORMAT"
        const std::string_view word = words[i];
        const auto comma = word.find(",junitxml");
        if (comma != word.npos)
            std::filesystem::create_directories(std::filesystem::path(word.substr(0, comma)).parent_path());
    }
    const char* chosen = count > 1 ? words[1] : nullptr;
    int failures = 0;
    for (const TestClass& one : classes) {
        if (chosen && std::strcmp(chosen, one.name) != 0) continue;
        const std::unique_ptr<QObject> test(one.make());
        if (chosen) words[1] = words[0];
        failures += chosen ? QTest::qExec(test.get(), count - 1, words + 1) : QTest::qExec(test.get());
    }
    return failures;
}
