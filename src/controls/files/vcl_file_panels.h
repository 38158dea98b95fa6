#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/vcl_caption_panel.h"

#include "platform/base/closure.h"

class Tvx_path_view;

/// Base of the panels that take the name of a file or a directory: a caption of width 130, the name with the
/// middle left out where it is too long, and a button that asks for another one. All operations of these
/// panels need `create`; setters fire nothing, and the sender of `on_change` is the panel.
class VX_API Tvx_vcl_path_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void load_rc() override;
    void set_caption(UnicodeString const &caption) override;
    void set_enabled(bool enabled) override;

    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] Tvx_vcl_button *get_button() const { return f_button; }
    /// What shows the name; its text is the whole of it.
    [[nodiscard]] TControl *get_name_view() const;

protected:
    /// Asks the user; true when there is something to report.
    [[nodiscard]] virtual bool ask() = 0;
    /// What the button does, as its hint says it.
    [[nodiscard]] virtual UnicodeString action() const = 0;
    void show_path(UnicodeString const &path);

private:
    void on_button_click(TObject *sender);

    Tvx_path_view *f_view = nullptr;
    Tvx_vcl_button *f_button = nullptr;
    closure<void(TObject *)> f_on_change;
};

/// The name of a file. `on_change` runs when the user has chosen one, also the same one again.
class VX_API Tvx_vcl_file_panel : public Tvx_vcl_path_panel
{
public:
    using Tvx_vcl_path_panel::Tvx_vcl_path_panel;

    [[nodiscard]] UnicodeString const &get_filename() const { return f_filename; }
    void set_filename(UnicodeString const &name);
    /// Shows the name anew.
    void filename2control();
    /// Pairs of caption and masks between bars: L"Tables|*.dbf|Texts|*.txt;*.log". Empty: all files.
    [[nodiscard]] UnicodeString const &get_filter() const { return f_filter; }
    void set_filter(UnicodeString const &filter) { f_filter = filter; }
    /// Given to a name without extension where a file is saved, with or without its point.
    [[nodiscard]] UnicodeString const &get_default_ext() const { return f_default_ext; }
    void set_default_ext(UnicodeString const &ext) { f_default_ext = ext; }
    /// False, at first: a file that exists is asked for; true: one to write.
    [[nodiscard]] bool get_save() const { return f_save; }
    void set_save(bool save) { f_save = save; }

protected:
    [[nodiscard]] bool ask() override;
    [[nodiscard]] UnicodeString action() const override;

private:
    UnicodeString f_filename;
    UnicodeString f_filter;
    UnicodeString f_default_ext;
    bool f_save = false;
};

class VX_API Tvx_vcl_file_open_panel : public Tvx_vcl_file_panel
{
public:
    using Tvx_vcl_file_panel::Tvx_vcl_file_panel;
};

class VX_API Tvx_vcl_file_save_panel : public Tvx_vcl_file_panel
{
public:
    explicit Tvx_vcl_file_save_panel(TComponent *owner) : Tvx_vcl_file_panel(owner) { set_save(true); }
};

/// A directory. `on_change` runs when the user has chosen another one; those that differ in case alone are
/// the same.
class VX_API Tvx_vcl_dir_panel : public Tvx_vcl_path_panel
{
public:
    using Tvx_vcl_path_panel::Tvx_vcl_path_panel;

    [[nodiscard]] UnicodeString const &get_dirname() const { return f_dirname; }
    void set_dirname(UnicodeString const &name);
    /// Shows the name anew.
    void dirname2control();

protected:
    [[nodiscard]] bool ask() override;
    [[nodiscard]] UnicodeString action() const override;

private:
    UnicodeString f_dirname;
};
