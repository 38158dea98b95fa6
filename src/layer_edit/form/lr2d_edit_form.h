#pragma once

#include "platform/base/export.h"

#include <memory>
#include <string>

struct Ivx_layer;
class TComponent;
class TObject;
class TWinControl;
class Tvx_apply_form;
class Tvx_lr2d_edit;

/// The record behind one edit window: a form with an Apply button, the page set that fills it, and the host's
/// callback. Its pointer is the handle of the exported functions, which say what each operation does.
///
/// The record owns the page set, and the form unless it was handed in. Form and page set may also end by
/// other hands, with the window in which they lie: the record then lives on without them, and its operations
/// do nothing.
///
/// It must not be destroyed from inside the callback.
class VX_API Tvx_lr2d_edit_form
{
public:
    /// With a form of its own.
    Tvx_lr2d_edit_form();
    /// The same, with a form that ends with `owner` at the latest.
    explicit Tvx_lr2d_edit_form(TComponent *owner);
    /// On the caller's form, whose style and title stay as they are. A null form gives a record that does
    /// nothing.
    explicit Tvx_lr2d_edit_form(Tvx_apply_form *form);
    Tvx_lr2d_edit_form(Tvx_lr2d_edit_form const &) = delete;
    Tvx_lr2d_edit_form &operator=(Tvx_lr2d_edit_form const &) = delete;

    /// Makes the page set, without parent and not yet created. The record owns it.
    virtual Tvx_lr2d_edit *create_lr2d_edit();
    virtual ~Tvx_lr2d_edit_form();
    /// Fetches the texts of form and page set.
    virtual void load_res();

    /// Builds the page set and wires it. A second call does nothing.
    void create();
    /// Title and pages afresh; nothing while the host's callback of an Apply runs.
    void update_controls();
    /// Sets the title of an own form from the display name of the working copy; a host's form keeps its
    /// title.
    void update_caption();

    [[nodiscard]] Ivx_layer *get_lr2d() const;
    void set_lr2d(Ivx_layer *layer);
    void set_callback(void *data, void (*callback)(void *));

    void show();
    void hide();
    void dock(TWinControl *site);
    [[nodiscard]] bool showing() const;
    void show_apply(int x, int y);

    [[nodiscard]] int left() const;
    void left(int value);
    [[nodiscard]] int top() const;
    void top(int value);
    [[nodiscard]] int width() const;
    void width(int value);
    [[nodiscard]] int height() const;
    void height(int value);

    [[nodiscard]] Tvx_apply_form *get_form() const { return f_form; }
    [[nodiscard]] Tvx_lr2d_edit *get_lr2d_edit() const { return f_lr2d_edit; }

    void on_self_apply(TObject *sender);
    void on_lr2d_edit_changed(TObject *sender);

protected:
    Tvx_apply_form *f_form = nullptr;
    bool f_owns_form = false;
    std::wstring f_caption;  ///< format of the title, with one place "%s" for the layer's name
    bool f_in_apply = false; ///< true only while the host's callback of an Apply runs
    Tvx_lr2d_edit *f_lr2d_edit = nullptr;
    void *f_callback_data = nullptr;
    void (*f_callback)(void *) = nullptr;

private:
    class end_watch;
    friend class end_watch;

    void take_form(Tvx_apply_form *form);
    void call_callback();

    std::unique_ptr<end_watch> f_watch; ///< hears of the end of form and page set
};
