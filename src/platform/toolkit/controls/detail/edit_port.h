#pragma once

#include "platform/toolkit/core/types.h"

#include <memory>

class TControl;
class QLineEdit;

/// How an edit reaches the widget behind it: one line, plain text or rich text. Positions count characters
/// from 0.
class vx_edit_port
{
public:
    virtual ~vx_edit_port() = default;

    [[nodiscard]] virtual vx_native_widget *widget() const = 0;
    /// Lets `changed` run after every change of the text; the connection ends with the control.
    virtual void connect(TControl *control, closure<void()> changed) = 0;
    [[nodiscard]] virtual UnicodeString text() const = 0;
    virtual void set_text(UnicodeString const &text) = 0;
    [[nodiscard]] virtual int sel_start() const = 0;
    [[nodiscard]] virtual int sel_length() const = 0;
    virtual void select(int start, int length) = 0;
    [[nodiscard]] virtual UnicodeString sel_text() const = 0;
    virtual void replace_selection(UnicodeString const &text) = 0;
    virtual void copy() = 0;
    virtual void cut() = 0;
    virtual void paste() = 0;
    virtual void undo() = 0;
    [[nodiscard]] virtual bool can_undo() const = 0;
    [[nodiscard]] virtual bool read_only() const = 0;
    virtual void set_read_only(bool value) = 0;
    virtual void set_max_length(int length) = 0;
    virtual void set_password(bool hidden, wchar_t character) = 0;
    virtual void set_alignment(TAlignment alignment) = 0;
    virtual void set_frame(bool frame) = 0;
    [[nodiscard]] virtual UnicodeString hint() const = 0;
    virtual void set_hint(UnicodeString const &text) = 0;
};

/// Selects in a line by characters; what lies outside of the text is left out.
void vx_select_in_line(QLineEdit *line, int start, int length);

[[nodiscard]] std::unique_ptr<vx_edit_port> vx_make_line_port();
/// With a spin box round the line.
[[nodiscard]] std::unique_ptr<vx_edit_port> vx_make_spin_port();
[[nodiscard]] std::unique_ptr<vx_edit_port> vx_make_plain_text_port();
[[nodiscard]] std::unique_ptr<vx_edit_port> vx_make_rich_text_port();
