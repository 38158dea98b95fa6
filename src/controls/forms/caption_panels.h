#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/lists.h"
#include "controls/forms/panels.h"

#include "platform/base/closure.h"

#include <string>

/// A panel with a label over its whole area. Controls that are aligned to an edge take their room from the
/// label.
class VX_API Tvx_caption_panel : public Tvx_panel
{
public:
    explicit Tvx_caption_panel(TComponent *owner);

    [[nodiscard]] UnicodeString get_caption() const;
    virtual void set_caption(UnicodeString const &caption);
    /// A click on the caption, or its accelerator, leads to this control.
    void set_focus_control(TWinControl *control) { f_label->SetFocusControl(control); }
    [[nodiscard]] Tvx_label *get_label() const { return f_label; }

protected:
    /// The caption is enabled and disabled with the panel.
    void EnabledChanged() override;

private:
    Tvx_label *f_label;
};

/// A caption and, at its right, a text that the user edits. At first the caption is 100 wide and the edit has
/// the rest.
class VX_API Tvx_string_panel : public Tvx_panel
{
public:
    explicit Tvx_string_panel(TComponent *owner);

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    /// Fires nothing. Narrow text is in the system code page; null counts as empty.
    void set_string(wchar_t const *text);
    void set_string(char const *text);
    /// In the system code page.
    [[nodiscard]] std::string get_string() const;
    [[nodiscard]] std::wstring get_wstring() const;
    [[nodiscard]] int get_edit_width() const;
    /// Fixes the edit; the caption takes the rest.
    void set_edit_width(int width);
    [[nodiscard]] int get_caption_width() const;
    /// Fixes the caption; the edit takes the rest.
    void set_caption_width(int width);
    [[nodiscard]] bool get_read_only() const;
    void set_read_only(bool read_only);
    [[nodiscard]] Tvx_edit *get_edit() const { return f_edit; }

    /// The user changed the text. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    void on_edit_change(TObject *sender);

    Tvx_caption_panel *f_caption;
    Tvx_edit *f_edit;
};

/// A caption and a text to read. The text can be selected and copied.
class VX_API Tvx_str_info_panel : public Tvx_panel
{
public:
    explicit Tvx_str_info_panel(TComponent *owner);

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] UnicodeString get_text() const;
    void set_text(UnicodeString const &text);
    [[nodiscard]] int get_caption_width() const;
    void set_caption_width(int width);

private:
    Tvx_caption_panel *f_caption;
    Tvx_edit *f_text;
};

/// A caption and, at its right, a combo box. At first the caption is 100 wide and the box has the rest.
class VX_API Tvx_combo_box_panel : public Tvx_panel
{
public:
    explicit Tvx_combo_box_panel(TComponent *owner);

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_box_width() const;
    /// Fixes the box; the caption takes the rest.
    virtual void set_box_width(int width);
    [[nodiscard]] int get_caption_width() const;
    /// Fixes the caption; the box takes the rest.
    virtual void set_caption_width(int width);
    [[nodiscard]] Tvx_combo_box *get_combo_box() const { return f_box; }

protected:
    Tvx_caption_panel *f_caption;
    Tvx_combo_box *f_box;
};

/// With the caption above the box, 48 high. Both have the panel's width at first; a width that is set is
/// counted from the left and leaves the other alone.
class VX_API Tvx_combo_box_vert_panel : public Tvx_combo_box_panel
{
public:
    explicit Tvx_combo_box_vert_panel(TComponent *owner);

    void set_box_width(int width) override;
    void set_caption_width(int width) override;

private:
    Tvx_panel *f_top;
};
