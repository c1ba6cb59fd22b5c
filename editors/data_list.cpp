#include "editors/data_list.h"

#include "host/numbers.h"
#include "host/ports.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr ControlRow names(std::string_view name, std::string_view readOut, std::string_view tab) {
    return {.name = name, .kind = ControlKind::list, .caption = readOut, .in = tab};
}

constexpr ControlRow controls[] = {
    // blanks pad the tabs to a like width
    tabs("SSDataTab", "User Variable | System Variable |       I/O       |    Table     |    Network    ", 0),
    names("lstVariable(0)", "User Variable", "SSDataTab(0)"),
    names("lstVariable(1)", "System Variable", "SSDataTab(1)"),
    names("lstVariable(2)", "I/O", "SSDataTab(2)"),
    names("lstVariable(3)", "Table", "SSDataTab(3)"),
    names("lstVariable(4)", "Network", "SSDataTab(4)"),
    okButton("cmdOK"),
    cancelButton("cmdCancel"),
    helpButton("cmdHelp"),
};

constexpr Form::Design look{"frmDataList", "Data", controls};

std::string element(std::string_view table, std::int32_t index) {
    return std::string(table) + "[" + numbers::textOf(index) + "]";
}

}  // namespace

frmDataList::frmDataList() : PlainForm(look) {}

std::span<const Member> frmDataList::ownMembers() const {
    using F = frmDataList;
    static constexpr Member members[] = {
        method<&F::DisplayType>("DisplayType"),
        property<nullptr, &F::setData>("Data"),
        property<&F::Selected, nullptr>("Selected"),
        property<&F::TableIndex, nullptr>("TableIndex"),
        property<&F::VariableAddressList, &F::setVariableAddressList>("VariableAddressList"),
        property<&F::SystemIOAddressList, &F::setSystemIOAddressList>("SystemIOAddressList"),
        property<&F::bOKButtonClick>("bOKButtonClick"),
    };
    return members;
}

Choice& frmDataList::list(std::int32_t tab) {
    static constexpr std::string_view lists[] = {"lstVariable(0)", "lstVariable(1)", "lstVariable(2)", "lstVariable(3)",
                                                 "lstVariable(4)"};
    static_assert(std::size(lists) == tabCount);
    if (tab < 0 || tab >= tabCount) raise(Error::subscript);
    Load();
    return the<Choice>(lists[tab]);
}

bool frmDataList::DisplayType(std::int16_t iType) {
    if (iType < 0 || iType > 3) return true;
    Load();
    Tabs& tabs = the<Tabs>("SSDataTab");
    for (std::int32_t tab = 0; tab < tabCount; ++tab)
        tabs.setTabEnabled(tab, tab != tableTab || iType == 0 || iType == 3);
    return true;
}

Ref<Object> frmDataList::VariableAddressList() {
    if (!colVariableAddressList) colVariableAddressList = make<Collection>();
    return colVariableAddressList;
}

Ref<Object> frmDataList::SystemIOAddressList() {
    if (!colSystemIOAddressList) colSystemIOAddressList = make<Collection>();
    return colSystemIOAddressList;
}

void frmDataList::loaded() {
    bOKButtonClick = false;
    lngTableIndex = 0;
    strSelected.clear();
}

void frmDataList::closing() {
    colVariableAddressList = {};
    colSystemIOAddressList = {};
    Hide();
}

void frmDataList::terminated() {
    closing();
    clsData = {};
    for (const Ref<Control>& control : this->controls())
        if (control->row().kind == ControlKind::list) static_cast<Choice&>(*control).Clear();
    Tabs& tabs = the<Tabs>("SSDataTab");
    tabs.setTabEnabled(tableTab, true);
    tabs.setTab(0);
}

Flow frmDataList::askIndex(std::string_view table, std::int32_t size) {
    const std::string last = numbers::textOf(numbers::roundToLong(size - 1.0));
    const std::string answer =
        environment().interaction->inputBox("Please enter table index between 0 and " + last, "Index", "0");
    if (answer.empty()) return Flow::leave;
    const std::optional<double> index = numbers::parse(answer);
    // A fraction above -1 or below the size passes, and is rounded.
    if (!index || *index <= -1 || *index >= size) {
        tell("Range error.  Expecting an integer between 0 and " + last, Icon::exclamation);
        return Flow::leave;
    }
    lngTableIndex = numbers::roundToLong(*index);
    strSelected = element(table, lngTableIndex);
    return Flow::next;
}

void frmDataList::ok() {
    const std::string text = line();
    const bool table = tabInFront() == tableTab;
    std::int32_t size = 0;
    bool indexed = false;
    Procedure run(className(), "cmdOK_Click", this, [&](Locals& l) { l("size", size); });
    const Flow flow = run(
        [&] {
            if (table) indexed = invoke(required(clsData), "GetTableRange", text, std::ref(size)).toBoolean();
        },
        [&] {
            if (indexed) return askIndex(text, size);
            strSelected = text;
            return Flow::next;
        });
    if (flow == Flow::leave) return;
    bOKButtonClick = true;
    Hide();
}

void frmDataList::on(Event event, Control& control) {
    if (event == Event::doubleClick && control.row().kind == ControlKind::list) return ok();
    PlainForm::on(event, control);
}

void frmDataList::ownVariables(VariableSink& sink) const {
    sink.variable("bOKButtonClick", Value(bOKButtonClick));
    sink.variable("colVariableAddressList", Value(colVariableAddressList));
    sink.variable("colSystemIOAddressList", Value(colSystemIOAddressList));
    sink.variable("lngTableIndex", Value(lngTableIndex));
    sink.variable("strSelected", Value(strSelected));
    sink.variable("clsData", Value(clsData));
}

/// Members that give the tabs' names: the data's, but for the controller's system variables. Empty: the tab stays
/// empty.
struct clsBVTDataList::Lists {
    std::string_view members[frmDataList::tabCount];
    std::int16_t displayType;

    static constexpr std::int32_t systemVariables = 1;
};

template <class Run>
Flow clsBVTDataList::browse(Run& run, const Lists& lists, const Ref<Object>& data, const Ref<Object>& controller) {
    const auto fillTab = [&](std::int32_t tab) {
        const std::string_view member = lists.members[tab];
        if (member.empty()) return Flow::next;
        const Ref<Object>& source = tab == Lists::systemVariables ? controller : data;
        Ref<Object> collection;
        return run([&] { collection = required(source).get(member).toObject(); },
                   [&] { return m_form->fill(run, tab, collection); });
    };
    return run(
        [&] {
            if (m_form->Visible()) raise(Error::invalidCall);
            m_form->Unload();  // what an earlier call left behind that failed
        },
        [&] {
            for (std::int32_t tab = 0; tab < frmDataList::tabCount; ++tab)
                if (fillTab(tab) == Flow::leave) return Flow::leave;
            return Flow::next;
        },
        [&] {
            m_form->DisplayType(lists.displayType);
            m_form->setData(data);
        },
        [&] { m_form->Show(); });
}

bool clsBVTDataList::show(std::string_view procedure, const Lists& lists, const Ref<Object>& data,
                          const Ref<Object>& controller, std::string& strNewData) {
    bool result = false;
    Procedure run(name, procedure, this, [&](Locals& l) {
        l("clsData", data);
        l("clsController", controller);
        l("strNewData", strNewData);
    });
    run([&] { return browse(run, lists, data, controller); },
        [&] {
            result = m_form->picked();
            if (result) strNewData = m_form->line();
        },
        [&] { m_form->Unload(); });
    return result;
}

bool clsBVTDataList::Show_Output(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData) {
    static constexpr Lists lists{
        {"getuserdefinedbitvariablecol", "GetReadableSystemBitVariablecol", "GetBitSystemIOCol", "", ""}, 2};
    return show("Show_Output", lists, clsData, clsController, strNewData);
}

bool clsBVTDataList::Show_LSMV(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData) {
    static constexpr Lists lists{{"getuserdefinedvariablecol", "GetRWSystemVariableCol", "GetSystemIOCol", "", ""}, 2};
    return show("Show_LSMV", lists, clsData, clsController, strNewData);
}

bool clsBVTDataList::Show_Data(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData) {
    static constexpr Lists lists{{"getuserdefinedvariablecol", "GetRWSystemVariableCol", "GetSystemIOCol",
                                  "GetUserDefinedTableCol", "GetUserDefinedNetworkCol"},
                                 0};
    return show("Show_Data", lists, clsData, clsController, strNewData);
}

void clsBVTDataList::readAddress(const Ref<Object>& data, const Ref<Object>& controller, std::string& strNewData,
                                 std::string& strNewAddress) {
    const auto listed = [&](Object& owner, std::string_view member) {
        return invoke(*objectAt(owner, member), "Item", strNewData).toText();
    };
    switch (m_form->tabInFront()) {
        case 0:
            strNewAddress = invoke(required(data), "GetUserDefinedVariableAddress", std::ref(strNewData)).toText();
            return;
        case 1: strNewAddress = listed(required(controller), "GetAllSystemVariableAddressCol"); return;
        case 2: strNewAddress = listed(required(data), "GetSystemIOAddressCol"); return;
        case frmDataList::tableTab: {
            std::string address;
            if (invoke(required(data), "GetTableElementAddress", std::ref(strNewData), std::ref(address)).toBoolean())
                strNewAddress = address;
            return;
        }
        default: return;
    }
}

bool clsBVTDataList::Show_Scope(Ref<Object> clsController, Ref<Object> clsData, std::string& strNewData,
                                std::string& strNewAddress, std::int16_t iType) {
    static constexpr Lists bits{{"getuserdefinedbitvariablecol", "GetRWSystemBitVariableCol", "GetBitSystemIOCol", "",
                                 "GetUserDefinedBitNetworkCol"},
                                3};
    static constexpr Lists others{
        {"GetUserDefinedNotBitVariableCol", "GetRWSystemNotBitVariableCol", "GetNotBitSystemIOCol",
         "GetUserDefinedTableNonConCol", "GetUserDefinedNotBitNetworkCol"},
        3};
    bool result = false;
    Procedure run(name, "Show_Scope", this, [&](Locals& l) {
        l("clsController", clsController);
        l("clsData", clsData);
        l("strNewData", strNewData);
        l("strNewAddress", strNewAddress);
        l("iType", iType);
    });
    run([&] { return browse(run, iType == 0 ? others : bits, clsData, clsController); },
        [&] {
            result = m_form->picked();
            if (!result) return;
            strNewData = m_form->line();
            if (m_form->tabInFront() == frmDataList::tableTab) strNewData = element(strNewData, m_form->TableIndex());
        },
        [&] {
            if (result) readAddress(clsData, clsController, strNewData, strNewAddress);
        },
        [&] { m_form->Unload(); });
    return result;
}

void clsBVTDataList::reportVariables(VariableSink& sink) const { sink.variable("frmDataList", Value(m_form)); }

std::span<const Member> clsBVTDataList::table() noexcept {
    using C = clsBVTDataList;
    static constexpr Member members[] = {
        method<&C::Show_Output>("Show_Output"),
        method<&C::Show_LSMV>("Show_LSMV"),
        method<&C::Show_Data>("Show_Data"),
        method<&C::Show_Scope>("Show_Scope"),
    };
    return members;
}

}  // namespace canvas::editors
