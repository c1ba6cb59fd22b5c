#pragma once
// The error dialog: abort, retry, ignore or report, and the handler that asks with it.

#include "editors/form.h"
#include "tracing/handler.h"
#include "tracing/report_package.h"

namespace canvas::editors {

/// Shown once before a report, and once after it.
class vbwFrmErrHandler final : public Form {
public:
    vbwFrmErrHandler();

    /// 3 abort, 4 retry, 5 ignore, 8 report; stands at ignore until a button is clicked, since a showing that ends
    /// without one goes on.
    std::int32_t vbwRetCode = 5;
    bool reported = false;  ///< set before the form is loaded

    std::span<const Member> ownMembers() const override;

protected:
    void loaded() override;
    void on(Event event, Control& control) override;
    /// There is no close box, and neither key stands for a button.
    bool onKey(char32_t) override { return false; }

private:
    void sendMail();
};

/// Asks with the dialog, makes the report package and the mail. Where nobody can show the dialog the error is handed
/// on. One per thread that asks; nested errors ask again.
class ErrorDialog final : public tracing::ErrorHandler {
public:
    tracing::Answer ask(const tracing::Failure& failure) override;

private:
    tracing::Answer show(bool reported);
    tracing::Answer askInsideReport(const tracing::Failure& failure);
    bool report();

    std::optional<tracing::ReportPackage> m_package;  ///< from the choice to report until the report is made
};

}  // namespace canvas::editors
