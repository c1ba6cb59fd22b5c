#include "editors/advanced_tab_form.h"

namespace canvas::editors {
namespace {

constexpr std::int32_t generalTab = 0, advancedTab = 1;

}  // namespace

void AdvancedTabForm::loaded() {
    AttributeForm::loaded();
    showAdvanced(the<Toggle>("chkAdvanced").value());
}

void AdvancedTabForm::showAdvanced(bool shown) {
    Tabs& tabs = the<Tabs>(m_tabs);
    tabs.setTabEnabled(advancedTab, shown);
    if (!shown) tabs.setTab(generalTab);
}

void AdvancedTabForm::on(Event event, Control& control) {
    if (event == Event::click && control.row().name == "chkAdvanced")
        showAdvanced(static_cast<Toggle&>(control).value());
    else AttributeForm::on(event, control);
}

}  // namespace canvas::editors
