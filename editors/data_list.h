#pragma once
// The data list browser: five tabs of names, of which the user picks one.
//
//     const Ref<frmDataList> list = make<frmDataList>();
//     Procedure run(className(), "SelectVariable", this, [](Locals&) {});
//     run([&] { return list->fill(run, 0, objectAt(required(clsData), "getuserdefinedvariablecol")); }, ...
//         [&] { list->DisplayType(0); }, [&] { list->setData(clsData); }, [&] { list->Show(); },
//         [&] { if (list->bOKButtonClick) name = list->Selected(); }, [&] { list->Unload(); });

#include "editors/plain_form.h"
#include "host/collection.h"
#include "tracing/walk.h"

namespace canvas::editors {

/// Names of a program's data, a tab for each sort: user variables 0, system variables 1, I/O 2, tables 3, network
/// data 4.
class frmDataList final : public PlainForm {
public:
    static constexpr std::int32_t tableTab = 3;
    static constexpr std::int32_t tabCount = 5;

    frmDataList();

    /// Inside a step of `run`: adds the items of a host's collection to the tab's list, each a statement of its own.
    /// Nothing is error 91, an item that has no text error 13 or 94.
    template <class Run>
    tracing::Flow fill(Run& run, std::int32_t tab, const Ref<Object>& collection) {
        Choice& names = list(tab);
        return tracing::eachItem(run, collection, [&](const Value& item) { names.AddItem(item.toText()); });
    }
    /// 0 and 3 offer all tabs, 1 and 2 all but the tables; any other type changes nothing. True.
    bool DisplayType(std::int16_t iType);
    /// The object that is asked for a table's range.
    void setData(Ref<Object> data) { clsData = std::move(data); }
    /// What OK was pressed on: the line of the tab in front, a table's with its index ("Speeds[3]").
    const std::string& Selected() const noexcept { return strSelected; }
    /// Of the table element that was picked.
    std::int32_t TableIndex() const noexcept { return lngTableIndex; }
    /// Kept for callers; the form itself does not use them. Made on demand, gone once the form is closed.
    Ref<Object> VariableAddressList();
    void setVariableAddressList(Ref<Object> list) { colVariableAddressList = std::move(list); }
    Ref<Object> SystemIOAddressList();
    void setSystemIOAddressList(Ref<Object> list) { colSystemIOAddressList = std::move(list); }

    /// The tab's list box; loads the form.
    Choice& list(std::int32_t tab);
    std::int32_t tabInFront() const { return the<Tabs>("SSDataTab").Tab(); }
    /// The selected line of the tab in front, a table's without index; empty when none is.
    std::string line() { return list(tabInFront()).Text(); }
    /// OK was pressed, on a line.
    bool picked() { return bOKButtonClick && list(tabInFront()).ListIndex() >= 0; }

    /// OK was pressed in this showing.
    bool bOKButtonClick = false;
    Ref<Object> colVariableAddressList;
    Ref<Object> colSystemIOAddressList;
    std::int32_t lngTableIndex = 0;
    std::string strSelected;
    Ref<Object> clsData;

    std::span<const Member> ownMembers() const override;

protected:
    void loaded() override;
    void terminated() override;
    void closing() override;
    void on(Event event, Control& control) override;
    void ownVariables(VariableSink& sink) const override;

private:
    void ok() override;
    tracing::Flow askIndex(std::string_view table, std::int32_t size);
};

/// Lets the user pick one data item. True when OK was pressed on a line; what goes by reference is left alone
/// otherwise.
class clsBVTDataList final : public Tabled<clsBVTDataList> {
public:
    static constexpr std::string_view name = "clsBVTDataList";
    static std::span<const Member> table() noexcept;

    /// Bits that can be read.
    bool Show_Output(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData);
    /// Variables, system variables and I/O.
    bool Show_LSMV(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData);
    /// All data; of a table its plain name.
    bool Show_Data(Ref<Object> clsData, Ref<Object> clsController, std::string& strNewData);
    /// What an oscilloscope can trace, with its address: bits, or with `iType` 0 what is no bit. A table's element has
    /// its index; the address of network data is left alone. The controller comes first here.
    bool Show_Scope(Ref<Object> clsController, Ref<Object> clsData, std::string& strNewData, std::string& strNewAddress,
                    std::int16_t iType);

    void reportVariables(VariableSink& sink) const override;

private:
    struct Lists;
    template <class Run>
    tracing::Flow browse(Run& run, const Lists& lists, const Ref<Object>& data, const Ref<Object>& controller);
    bool show(std::string_view procedure, const Lists& lists, const Ref<Object>& data, const Ref<Object>& controller,
              std::string& strNewData);
    void readAddress(const Ref<Object>& data, const Ref<Object>& controller, std::string& strNewData,
                     std::string& strNewAddress);

    Ref<frmDataList> m_form = make<frmDataList>();
};

}  // namespace canvas::editors
