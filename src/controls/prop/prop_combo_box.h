#pragma once

#include "controls/forms/lists.h"
#include "controls/prop/data_events.h"

#include <string>
#include <vector>

/// A list of the properties of a data set, read anew from the owner's events each time it drops down.
///
/// Properties are counted by two numbers: rows of the list, and the real index, by which the data set counts
/// all properties, those included that the list leaves out. Both start at 0, and -1 means none. The *active
/// name* is the chosen property's name; it may name one that the list does not hold, and is found again, in
/// another case if need be, when a later list brings it. Narrow texts are in the system code page.
class VX_API Tvx_prop_combo_box : public Tvx_combo_box
{
public:
    explicit Tvx_prop_combo_box(TComponent *owner);

    /// Reads the list anew and selects the row of the active name. Without one, and with `forbid_empty`, row
    /// 0 takes over with its name. The list is empty if an event is missing or the data cannot be opened. A
    /// property whose name comes as null is left out. What an event throws passes through; the list is empty
    /// then. Fires nothing.
    void update_controls();

    [[nodiscard]] std::string get_prop_name() const;
    [[nodiscard]] std::wstring const &get_wprop_name() const { return f_active_name; }
    /// The active name, whether a row has it or not; no row is selected then. Null counts as empty.
    void set_prop_name(wchar_t const *name);
    void set_prop_name(char const *name);
    [[nodiscard]] int get_prop_index() const { return GetItemIndex(); }
    /// A number outside the list selects nothing, with an empty active name.
    void set_prop_index(int row);
    [[nodiscard]] int get_real_index() const;
    /// The same by the real index.
    void set_real_index(int real_index);
    /// Rows of the list.
    [[nodiscard]] int get_prop_count() const { return static_cast<int>(f_names.size()); }
    /// Name of a row; empty outside the list.
    [[nodiscard]] std::wstring get_row_name(int row) const;

    [[nodiscard]] bool get_only_numeric() const { return f_only_numeric; }
    /// Takes effect when the list is next read; so does `set_forbid_empty`.
    void set_only_numeric(bool value) { f_only_numeric = value; }
    [[nodiscard]] bool get_forbid_empty() const { return f_forbid_empty; }
    void set_forbid_empty(bool value) { f_forbid_empty = value; }
    /// The active name before the user's last choice.
    [[nodiscard]] std::wstring const &get_former_wname() const { return f_former_name; }

    Tvx_data_open_event on_data_open;
    Tvx_data_close_event on_data_close;
    Tvx_data_get_np_event on_data_get_np;
    /// One of the two is needed; with both the wide one wins.
    Tvx_data_get_prop_event on_data_get_prop;
    Tvx_data_get_wprop_event on_data_get_wprop;
    /// What is shown in place of the name, if set; here the narrow one wins. Null leaves the name.
    Tvx_data_get_capt_prop_event on_data_get_capt_prop;
    Tvx_data_get_capt_wprop_event on_data_get_capt_wprop;
    /// The user chose a row.
    TNotifyEvent on_changed;
    /// The user chose the row again that was chosen already.
    TNotifyEvent on_reselected;

protected:
    void Change() override;
    void Reselect() override;
    void DropDown() override;

private:
    struct row_list;

    [[nodiscard]] bool can_read() const;
    void read_rows(row_list &rows);
    [[nodiscard]] int find_row(std::wstring const &name) const;

    std::vector<std::wstring> f_names;
    std::vector<int> f_real_index;
    std::wstring f_active_name;
    std::wstring f_former_name;
    bool f_only_numeric = false;
    bool f_forbid_empty = true;
    bool f_reading = false;
};
