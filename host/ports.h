#pragma once
// Ports: everything that touches the world. A host puts its own behind any of them; tests put fakes.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/files.h"
#include "host/object.h"
#include "host/utility.h"

namespace canvas {

enum class Buttons { ok, okCancel, yesNo, yesNoCancel, abortRetryIgnore };
enum class Icon { none, critical, question, exclamation, information };
enum class Reply { ok, cancel, yes, no, abort, retry, ignore };

struct MessageBox {
    std::string text;
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
    std::string title;
};

/// Asks and tells the user.
class Interaction {
public:
    virtual ~Interaction() = default;
    virtual Reply messageBox(const MessageBox& box) = 0;
    /// What was typed; empty for Cancel.
    virtual std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) = 0;
    virtual void beep() = 0;
    /// A number above 32 when something started.
    virtual std::int32_t openAddress(std::string_view address) = 0;
    virtual void setClipboard(std::string_view text) = 0;
    /// True when the host has dealt with the form itself.
    virtual bool showForm(Object& form) = 0;
};

/// The application that reports and log files speak of.
struct Application {
    std::string title = "Canvas";
    std::string exeName = "Canvas";
    /// Folder of the application, without a separator at its end; the numbered files of tracing lie here.
    std::string path;
    std::int16_t major = 1;
    std::int16_t minor = 0;
    std::int16_t revision = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since 1970-01-01T00:00:00Z (POSIX time).
    virtual double now() = 0;
};

/// A host's help, known by one operation.
class Help {
public:
    virtual ~Help() = default;
    virtual void show() = 0;
};

/// Makes dialogs by name ("frmMoveAxis"), for floors that stand below the dialogs.
class Forms {
public:
    virtual ~Forms() = default;
    /// Null for a name that is none.
    virtual Ref<Object> make(std::string_view name) = 0;
};

/// An application's timers, switched off while an error is being answered.
class Timers {
public:
    virtual ~Timers() = default;
    /// Names of those that are on.
    virtual std::vector<std::string> enabled() = 0;
    virtual void enable(const std::string& name, bool on) = 0;
};

/// Ends what runs. Tests replace it; it does not return otherwise.
class Process {
public:
    virtual ~Process() = default;
    virtual void exitProcess(int code) = 0;
    virtual void exitThread(int code) = 0;
};

/// The ports in force on a thread. Never null, but for help, forms and timers.
struct Environment {
    std::shared_ptr<Interaction> interaction = {};
    std::shared_ptr<Files> files = {};
    std::shared_ptr<Clock> clock = {};
    std::shared_ptr<Process> process = {};
    std::shared_ptr<UtilityLibrary> utility = {};
    std::shared_ptr<Help> help = {};    ///< null: a Help button does nothing
    std::shared_ptr<Forms> forms = {};  ///< null where the dialogs are not linked in
    std::shared_ptr<Timers> timers = {};  ///< null: there are none
    Application application = {};
};

/// The environment of this thread: the innermost `WithEnvironment`, else the process's own, which asks nobody:
/// message boxes go to standard error and answer with their first safe button (OK, Cancel, No, Abort), input boxes
/// give the empty text, the rest does nothing. Files, clock and process are the machine's.
Environment& environment();

/// Lets the process's own environment go, where the library is taken out of the process. Nothing may ask for it
/// afterwards.
void endOwnEnvironment() noexcept;

/// Puts an environment in force on this thread until the end of a scope. Null ports are filled from the one before.
class WithEnvironment {
public:
    explicit WithEnvironment(Environment environment);
    ~WithEnvironment();
    WithEnvironment(const WithEnvironment&) = delete;
    WithEnvironment& operator=(const WithEnvironment&) = delete;

private:
    Environment m_own;
    Environment* m_before;
};

/// A box with an OK button.
void tell(std::string text, Icon icon = Icon::none, std::string title = {});

}  // namespace canvas
