// The library's one symbol, and the view as the library asks for it: forms, message boxes, input boxes.

#include <clocale>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QThread>
#include <QUrl>

#include "editors/qt/form_window.h"
#include "editors/qt/screen.h"
#include "editors/qt/text.h"
#include "editors/view_contract.h"

namespace canvas::view {
namespace {

struct ReplyRow {
    Reply reply;
    QMessageBox::StandardButton button;
};
constexpr ReplyRow replies[] = {
    {Reply::ok, QMessageBox::Ok},         {Reply::cancel, QMessageBox::Cancel}, {Reply::yes, QMessageBox::Yes},
    {Reply::no, QMessageBox::No},         {Reply::abort, QMessageBox::Abort},   {Reply::retry, QMessageBox::Retry},
    {Reply::ignore, QMessageBox::Ignore},
};

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::ok: return QMessageBox::Ok;
        case Buttons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::yesNo: return QMessageBox::Yes | QMessageBox::No;
        case Buttons::yesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::abortRetryIgnore: return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

/// What closing the box counts as.
QMessageBox::StandardButton safeButton(Buttons buttons) {
    switch (buttons) {
        case Buttons::ok: return QMessageBox::Ok;
        case Buttons::okCancel:
        case Buttons::yesNoCancel: return QMessageBox::Cancel;
        case Buttons::yesNo: return QMessageBox::No;
        case Buttons::abortRetryIgnore: return QMessageBox::Abort;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
        case Icon::none: return QMessageBox::NoIcon;
        case Icon::critical: return QMessageBox::Critical;
        case Icon::question: return QMessageBox::Question;
        case Icon::exclamation: return QMessageBox::Warning;
        case Icon::information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

class View final : public Interaction {
public:
    Reply messageBox(const MessageBox& asked) override {
        QMessageBox box;
        box.setAttribute(Qt::WA_QuitOnClose, false);
        box.setWindowModality(Qt::ApplicationModal);
        box.setIcon(iconOf(asked.icon));
        box.setTextFormat(Qt::PlainText);
        box.setText(shownLines(asked.text));
        box.setWindowTitle(asked.title.empty() ? QApplication::applicationDisplayName() : shown(asked.title));
        box.setStandardButtons(buttonsOf(asked.buttons));
        box.setEscapeButton(safeButton(asked.buttons));
        const InFront here(box);
        const int answer = box.exec();
        for (const ReplyRow& row : replies)
            if (row.button == answer) return row.reply;
        return Reply::cancel;
    }

    std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) override {
        QInputDialog box;
        box.setAttribute(Qt::WA_QuitOnClose, false);
        box.setWindowModality(Qt::ApplicationModal);
        box.setWindowTitle(title.empty() ? QApplication::applicationDisplayName() : shown(title));
        box.setLabelText(shownLines(prompt));
        box.setTextValue(shown(preset));
        if (auto* label = box.findChild<QLabel*>()) label->setTextFormat(Qt::PlainText);
        if (auto* field = box.findChild<QLineEdit*>()) field->setAccessibleName(shownLines(prompt));
        const InFront here(box);
        return box.exec() == QDialog::Accepted ? taken(box.textValue()) : std::string();
    }

    void beep() override { QApplication::beep(); }

    std::int32_t openAddress(std::string_view address) override {
        return QDesktopServices::openUrl(QUrl::fromUserInput(shown(address))) ? 33 : 0;
    }

    void setClipboard(std::string_view text) override { QGuiApplication::clipboard()->setText(shown(text)); }

    bool showForm(Object& object) override {
        auto* form = dynamic_cast<Form*>(&object);
        if (!form) return false;
        if (QThread::currentThread() != QApplication::instance()->thread())
            raise(Error::actionNotSupported, "Dialogs are shown on the thread of the user interface only.");
        FormWindow(*form).run();
        return true;
    }
};

}  // namespace
}  // namespace canvas::view

extern "C" __attribute__((visibility("default"))) canvas::Interaction* canvasView(std::uint64_t contract) {
    if (contract != canvas::editors::viewContract() || !canvas::view::haveApplication()) return nullptr;
    static canvas::view::View view;
    return &view;
}
