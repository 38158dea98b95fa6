#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/lists.h"
#include "controls/forms/vcl_caption_panel.h"

#include "platform/base/closure.h"
#include "platform/toolkit/core/strings.h"

/// A list of files: their names without paths, and at the right of it buttons that add files, take the first
/// chosen one out, take all out, and move the first chosen one. All operations need `create`; setters fire
/// nothing, and the sender of the events is the panel.
class VX_API Tvx_vcl_many_file_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;
    /// Fills the list anew; the row that is active stays so, or the last one if there are less.
    void update_controls();

    [[nodiscard]] UnicodeString get_caption() const { return f_caption->get_caption(); }
    void set_caption(UnicodeString const &caption);
    /// Whole paths, in the order of the list.
    [[nodiscard]] TStrings const *get_filenames() const { return &f_filenames; }
    /// Copies the names. Null counts as none.
    void set_filenames(TStrings const *names);
    /// The row that the buttons take, from 0: the first one that is chosen; -1 for none.
    [[nodiscard]] int get_active_index() const;
    /// None for a row that is not there.
    void set_active_index(int index);
    /// Pairs of caption and masks between bars: L"Tables|*.dbf|Texts|*.txt;*.log". Empty: all files.
    [[nodiscard]] UnicodeString const &get_filter() const { return f_filter; }
    void set_filter(UnicodeString const &filter) { f_filter = filter; }
    [[nodiscard]] UnicodeString const &get_default_ext() const { return f_default_ext; }
    void set_default_ext(UnicodeString const &ext) { f_default_ext = ext; }

    [[nodiscard]] Tvx_vcl_list_box *get_list_box() const { return f_list; }
    [[nodiscard]] Tvx_vcl_button *get_add_btn() const { return f_add; }
    [[nodiscard]] Tvx_vcl_button *get_delete_btn() const { return f_delete; }
    [[nodiscard]] Tvx_vcl_button *get_clear_btn() const { return f_clear; }
    [[nodiscard]] Tvx_vcl_bit_button *get_up_btn() const { return f_up; }
    [[nodiscard]] Tvx_vcl_bit_button *get_down_btn() const { return f_down; }

    /// The user changed the list.
    closure<void(TObject *)> on_change;
    /// The user chose a row, or moved the one that is chosen.
    closure<void(TObject *)> on_active_change;

private:
    void move(int by);
    void call_on_change();
    void on_add_click(TObject *sender);
    void on_delete_click(TObject *sender);
    void on_clear_click(TObject *sender);
    void on_up_click(TObject *) { move(-1); }
    void on_down_click(TObject *) { move(+1); }
    void on_list_click(TObject *sender);

    TStringList f_filenames;
    UnicodeString f_filter;
    UnicodeString f_default_ext;
    Tvx_vcl_label_panel *f_caption = nullptr;
    Tvx_vcl_list_box *f_list = nullptr;
    Tvx_vcl_button *f_add = nullptr;
    Tvx_vcl_button *f_delete = nullptr;
    Tvx_vcl_button *f_clear = nullptr;
    Tvx_vcl_bit_button *f_up = nullptr;
    Tvx_vcl_bit_button *f_down = nullptr;
};
