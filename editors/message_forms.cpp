#include "editors/message_forms.h"

namespace canvas::editors {
namespace {

constexpr ControlRow messageIn[] = {
    caption("lblUserVariable", "User variable:", 0),
    text("txbUserVariable", "UserVariable", 0).writes(1),
    caption("lblTimeOut", "Time out:", 1),
    text("txbTimeOut", "TimeOut", 1).writes(2),
    caption("lblTimeOutUnit", "msec", 1, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};

constexpr ControlRow messageOut[] = {
    caption("lblString", "Message:", 0),
    text("txbString", "Message", 0).writes(1),
    check("chkSendCRLF", "Send CR/LF:", "SendCR", 1).writes(2),
    okButton(),
    cancelButton(),
    helpButton(),
};

}  // namespace

const AttributeForm::Spec frmMessageIn{
    .design = {"frmMessageIn", "Message In", messageIn}, .type = MESSAGEIN, .checks = false, .data = 2};
const AttributeForm::Spec frmMessageOut{
    .design = {"frmMessageOut", "Message Out", messageOut}, .type = MESSAGEOUT, .checks = false, .data = 2};

}  // namespace canvas::editors
