#include "editors/qt/screen.h"

#include <clocale>
#include <string>

#include <dlfcn.h>

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>

namespace canvas::view {
namespace {

/// Whether the X server named by DISPLAY answers.
bool haveX() {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) return false;
    void* library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library) return false;
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(dlsym(library, "xcb_connect"));
    const auto failed = reinterpret_cast<int (*)(void*)>(dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(dlsym(library, "xcb_disconnect"));
    if (!connect || !failed || !disconnect) return false;
    void* connection = connect(nullptr, nullptr);
    const bool answers = failed(connection) == 0;
    disconnect(connection);
    return answers;
}

bool haveWayland() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           !QDir(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"))
                .entryList({QStringLiteral("libqwayland*")})
                .isEmpty();
}

/// Asked first, since the toolkit ends the process when it finds no screen.
bool haveScreen() { return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || haveX() || haveWayland(); }

}  // namespace

bool haveApplication() {
    if (QCoreApplication::instance()) return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
    if (!haveScreen()) return false;
    // the toolkit takes over the user's locale, and numbers of the host would read and print by it
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);  // banned-ok: kept as it was
    static int count = 1;
    static char name[] = "Canvas";
    static char* words[] = {name, nullptr};
    static QApplication* const application = new QApplication(count, words);  // toolkits do not survive static ends
    application->setQuitOnLastWindowClosed(false);
    std::setlocale(LC_NUMERIC, numbers.c_str());  // banned-ok: kept as it was
    return true;
}

}  // namespace canvas::view
