#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/menus.h"
#include "controls/forms/panels.h"

#include <string>

class Tvx_file_panel;
class Tvx_path_view;

/// The menu of a file panel: how it shows the name, and the name for the clipboard.
class VX_API Tvx_menu_file_panel_item : public Tvx_popup_menu
{
public:
    explicit Tvx_menu_file_panel_item(Tvx_file_panel *panel);

    virtual void load_res();

protected:
    void DoPopup(TObject *sender) override;

private:
    void on_item_click(TObject *sender);

    Tvx_file_panel *f_panel;
};

/// A label, the name of a file, and a button that asks for another one; 20 high. Narrow names are in the
/// system code page.
///
/// A *filter* is a list of captions and masks between bars: "Tables|*.dbf|Texts|*.txt;*.log". Its pairs are
/// counted from 1.
class VX_API Tvx_file_panel : public Tvx_children_enabled_panel
{
public:
    explicit Tvx_file_panel(TComponent *owner);

    virtual void load_res();
    /// Shows the name anew.
    void update_controls();

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    /// Room of the label where it stands beside the name; 120 at first.
    [[nodiscard]] int get_caption_width() const;
    void set_caption_width(int width);
    [[nodiscard]] std::string get_filename() const;
    [[nodiscard]] std::wstring const &get_wfilename() const { return f_filename; }
    /// Shows the name and fires nothing. Null counts as empty.
    void set_filename(char const *name);
    void set_wfilename(wchar_t const *name);
    /// What is shown: the name by `type_visual_file_name`.
    [[nodiscard]] UnicodeString make_text() const;

    /// False, at first: the button opens an existing file; true: it asks where to save.
    [[nodiscard]] bool get_save_flag() const { return f_save_flag; }
    void set_save_flag(bool value) { f_save_flag = value; }
    /// Whether the user is asked before a file is named that exists; true at first.
    [[nodiscard]] bool get_overwrite_prompt() const { return f_overwrite_prompt; }
    void set_overwrite_prompt(bool value) { f_overwrite_prompt = value; }
    /// Given to a name without extension, with or without its point.
    [[nodiscard]] UnicodeString const &get_default_ext() const { return f_default_ext; }
    void set_default_ext(UnicodeString const &ext) { f_default_ext = ext; }
    [[nodiscard]] UnicodeString const &get_filter() const { return f_filter; }
    void set_filter(UnicodeString const &filter) { f_filter = filter; }
    [[nodiscard]] int get_top_location() const { return f_top_location; }
    /// 0: the label beside the name; 1: above it, in a panel that grows to 38 where it is lower. Back at 0 it
    /// is 20 high again.
    void set_top_location(int location);
    [[nodiscard]] int get_type_visual_file_name() const { return f_type_visual_file_name; }
    /// 0: the name is shown with its path; 1: without.
    void set_type_visual_file_name(int type);
    [[nodiscard]] bool get_pop_menu() const { return f_menu != nullptr; }
    /// Gives the panel its menu, or takes it away. There is none at first.
    void set_pop_menu(bool value);
    /// Label, name and button.
    void set_enabled(bool enabled);
    /// The button alone; label and name are enabled.
    void set_enabled_select(bool enabled);

    /// The filter pair, from 1, whose first equal mask is the name's extension; case counts. 0: none.
    [[nodiscard]] int get_filter_index() const;
    /// `name` with its extension replaced by that of the first mask of filter pair `index`; unchanged if the
    /// filter has no such pair.
    [[nodiscard]] UnicodeString pretty_filename(UnicodeString const &name, int index) const;

    [[nodiscard]] Tvx_button *get_button() const { return f_button; }
    /// What shows the name; its text is the whole of `make_text`.
    [[nodiscard]] TControl *get_name_view() const;
    [[nodiscard]] Tvx_menu_file_panel_item *get_menu() const { return f_menu; }

    /// The user chose a file of another name; names that differ in case alone are the same one.
    TNotifyEvent on_changed;

protected:
    void Resize() override;

private:
    void on_button_click(TObject *sender);
    void ask_open();
    void ask_save();
    void on_filter_changed(int filter_index, UnicodeString &name);
    void on_complete_name(int filter_index, UnicodeString &name);
    void take(UnicodeString const &name);
    void place_name();

    Tvx_caption_panel *f_caption_panel;
    Tvx_panel *f_name_panel;
    Tvx_path_view *f_name;
    Tvx_button *f_button;
    Tvx_menu_file_panel_item *f_menu = nullptr;
    std::wstring f_filename;
    UnicodeString f_default_ext;
    UnicodeString f_filter;
    int f_caption_width = 120;
    int f_top_location = 0;
    int f_type_visual_file_name = 0;
    bool f_save_flag = false;
    bool f_overwrite_prompt = true;
};
