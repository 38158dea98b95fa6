#pragma once

#include "controls/prop/prop_edit.h"

#include "platform/data/vx_dbf.h"

/// A choice among the fields of a dBase file. The file is open only while the list is read. Narrow names are
/// in the system code page.
class VX_API Tvx_dbf_prop_panel : public Tvx_panel
{
public:
    explicit Tvx_dbf_prop_panel(TComponent *owner);

    /// Reads the list anew.
    void update_controls();

    [[nodiscard]] std::string get_dbf_filename() const;
    [[nodiscard]] std::wstring const &get_dbf_wfilename() const { return f_dbf_filename; }
    /// The list shows the file's fields at the next `update_controls` or when it drops down. Null counts as
    /// empty.
    void set_dbf_filename(char const *name);
    void set_dbf_filename(wchar_t const *name);
    [[nodiscard]] bool get_dbf_dos_flag() const { return f_dbf_dos_flag; }
    /// True: the names in the file are in code page 866.
    void set_dbf_dos_flag(bool value) { f_dbf_dos_flag = value; }

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_capt_width() const;
    void set_capt_width(int width);
    [[nodiscard]] std::string get_prop_name() const;
    [[nodiscard]] std::wstring const &get_wprop_name() const;
    /// Fires nothing.
    void set_prop_name(char const *name);
    void set_prop_name(wchar_t const *name);
    /// Number of the field in the file, -1 for none.
    [[nodiscard]] int get_real_index() const;
    [[nodiscard]] bool get_only_numeric() const;
    void set_only_numeric(bool value);
    [[nodiscard]] bool get_forbid_empty() const;
    void set_forbid_empty(bool value);
    [[nodiscard]] bool get_enabled() const;
    void set_enabled(bool enabled);

    [[nodiscard]] Tvx_prop_edit *get_prop_edit() const { return f_prop_edit; }

    /// The user chose a field; the sender is the panel.
    TNotifyEvent on_changed;

private:
    bool on_open(TObject *sender);
    void on_close(TObject *sender);
    unsigned on_get_np(TObject *sender);
    wchar_t const *on_get_wprop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    void on_prop_edit_changed(TObject *sender);

    Tvx_prop_edit *f_prop_edit;
    std::wstring f_dbf_filename;
    vx::dbf_handle f_table;
    bool f_dbf_dos_flag = false;
};
