#pragma once

#include "controls/files/vcl_file_panels.h"
#include "controls/numeric/vcl_edit_panels.h"

/// A directory that is to be made: the one above it, which exists, and its own name, in two rows. All
/// operations need `create`; setters fire nothing.
class VX_API Tvx_vcl_new_dir_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    [[nodiscard]] UnicodeString get_dircaption() const { return f_dir->get_caption(); }
    void set_dircaption(UnicodeString const &caption) { f_dir->set_caption(caption); }
    [[nodiscard]] UnicodeString get_sub_dircaption() const { return f_sub_dir->get_caption(); }
    void set_sub_dircaption(UnicodeString const &caption) { f_sub_dir->set_caption(caption); }
    [[nodiscard]] UnicodeString const &get_dirname() const { return f_dir->get_dirname(); }
    void set_dirname(UnicodeString const &name) { f_dir->set_dirname(name); }
    /// As the user has typed it: not checked, and no directory is made.
    [[nodiscard]] UnicodeString get_sub_dirname() const { return f_sub_dir->get_text(); }
    void set_sub_dirname(UnicodeString const &name) { f_sub_dir->set_text(name); }

    [[nodiscard]] Tvx_vcl_dir_panel *get_dir_panel() const { return f_dir; }
    [[nodiscard]] Tvx_vcl_text_edit_panel *get_sub_dir_panel() const { return f_sub_dir; }

private:
    Tvx_vcl_dir_panel *f_dir = nullptr;
    Tvx_vcl_text_edit_panel *f_sub_dir = nullptr;
};
