#pragma once

#include "controls/files/vcl_file_panels.h"
#include "controls/forms/buttons.h"
#include "controls/forms/vcl_select_box.h"
#include "controls/prop/dbf_prop_panel.h"

class Tvx_val_params_rebuild_with_legend;

/// Panels for the mode that builds by a standard legend. All operations need `create`; setters fire nothing.

/// The name of a dBase file, and a button that shows what is in it.
class VX_API Tvx_vcl_dbf_open_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    [[nodiscard]] UnicodeString get_caption() const { return f_file->get_caption(); }
    void set_caption(UnicodeString const &caption) { f_file->set_caption(caption); }
    [[nodiscard]] UnicodeString const &get_filename() const { return f_file->get_filename(); }
    void set_filename(UnicodeString const &name) { f_file->set_filename(name); }
    /// The user chose a file; the sender is the panel of the name.
    [[nodiscard]] closure<void(TObject *)> get_on_changed() const { return f_file->get_on_change(); }
    void set_on_changed(closure<void(TObject *)> event) { f_file->set_on_change(event); }

    [[nodiscard]] Tvx_vcl_file_open_panel *get_file_panel() const { return f_file; }
    [[nodiscard]] Tvx_vcl_bit_button *get_show_btn() const { return f_show; }

private:
    void on_show_click(TObject *sender);

    Tvx_vcl_file_open_panel *f_file = nullptr;
    Tvx_vcl_bit_button *f_show = nullptr;
};

/// A part of the captions: whether it is taken, and the field that it is in. The choice of the field is
/// enabled while it is.
class VX_API Tvx_vcl_legdbf_text_prop : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;

    [[nodiscard]] bool get_use_flag() const { return f_use_box->GetChecked(); }
    void set_use_flag(bool use);
    /// In the system code page.
    [[nodiscard]] std::string get_propname() const { return f_prop->get_prop_name(); }
    /// Reads the list of fields anew too.
    void set_propname(char const *name);
    [[nodiscard]] std::string get_dbf_filename() const { return f_prop->get_dbf_filename(); }
    void set_dbf_filename(char const *name) { f_prop->set_dbf_filename(name); }
    [[nodiscard]] UnicodeString get_caption() const { return f_prop->get_caption(); }
    void set_caption(UnicodeString const &caption);
    /// The user chose a field or ticked the box; the sender is the panel.
    [[nodiscard]] closure<void(TObject *)> get_on_changed() const { return f_on_changed; }
    void set_on_changed(closure<void(TObject *)> event) { f_on_changed = event; }

    [[nodiscard]] Tvx_vcl_check_box *get_use_box() const { return f_use_box; }
    [[nodiscard]] Tvx_dbf_prop_panel *get_prop_panel() const { return f_prop; }

private:
    void on_use_box_click(TObject *sender);
    void on_prop_changed(TObject *) { f_on_changed(this); }

    Tvx_vcl_check_box *f_use_box = nullptr;
    Tvx_dbf_prop_panel *f_prop = nullptr;
    closure<void(TObject *)> f_on_changed;
};

/// The style libraries of the process; ids are their places in the list of libraries.
class VX_API Tvx_vcl_stdlib_combobox : public Tvx_vcl_select_box_panel
{
public:
    using Tvx_vcl_select_box_panel::Tvx_vcl_select_box_panel;

    void create() override;

    /// 0 where there is no library.
    [[nodiscard]] int get_libidx() const { return static_cast<int>(get_active_idx()); }
    /// Nothing is chosen for a place that the list does not have.
    void set_libidx(int index) { set_active_idx(static_cast<unsigned>(index)); }
};

/// The legend, its fields and the library. It begins with what the last accepted dialog of the process had,
/// at first with nothing.
class VX_API Tvx_vcl_val_rebuild_with_legend_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// Shows the settings that are remembered.
    void set_params();
    /// Writes what was chosen into the record and remembers it; always true.
    bool fill_params(Tvx_val_params_rebuild_with_legend *params) const;
    /// What is remembered, for the life of the process.
    [[nodiscard]] static Tvx_val_params_rebuild_with_legend &last_params();

    [[nodiscard]] Tvx_vcl_dbf_open_panel *get_dbf_open_panel() const { return f_dbf; }
    [[nodiscard]] Tvx_dbf_prop_panel *get_lcode_panel() const { return f_lcode; }
    [[nodiscard]] Tvx_dbf_prop_panel *get_bcode_panel() const { return f_bcode; }
    /// Of the three parts of the captions, from 0.
    [[nodiscard]] Tvx_vcl_legdbf_text_prop *get_text_panel(int part) const { return f_texts[part]; }
    [[nodiscard]] Tvx_vcl_stdlib_combobox *get_stdlib_box() const { return f_stdlib; }

private:
    void on_dbf_open_panel_changed(TObject *sender);

    TWinControl *f_group = nullptr;
    Tvx_vcl_dbf_open_panel *f_dbf = nullptr;
    Tvx_dbf_prop_panel *f_lcode = nullptr;
    Tvx_dbf_prop_panel *f_bcode = nullptr;
    Tvx_vcl_legdbf_text_prop *f_texts[3] = {};
    Tvx_vcl_stdlib_combobox *f_stdlib = nullptr;
};
