#pragma once

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>
#include <string>

class Tvx_layer_list;
class QWidget;
class Tvx_lr2d_edit_form;

/// What a layer editor edits: layers known by their ids, in a form of their kind.
class Tvx_edited_layers
{
public:
    using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

    virtual ~Tvx_edited_layers() = default;
    /// Null when there is none; the layer stays its owner's.
    [[nodiscard]] virtual Ivx_layer *find(int id) const = 0;
    /// Puts an edited layer in the place of the one with this id; false when there is none.
    virtual bool replace(int id, layer_ptr layer) = 0;
    /// Whether nothing was changed that Apply would bring to the layer.
    [[nodiscard]] virtual bool are_alike(Ivx_layer *copy, Ivx_layer *unchanged) const = 0;
    [[nodiscard]] virtual Tvx_lr2d_edit_form *create_form() const = 0;
    virtual void destroy_form(Tvx_lr2d_edit_form *form) const = 0;
    /// Whether the first tab is what layers of one kind have of their own, and is shown of another kind
    /// unless the user had turned to another one. Else a tab that both have stays.
    [[nodiscard]] virtual bool has_own_tab_first() const { return false; }
    /// The form is about to show one of the layers, or to show it anew.
    virtual void become_current() const {}
};

/// The editor of layers: one window, made when it is first needed, that shows the layer selected in the
/// list.
///
/// The editor works on a copy. At Apply the layer in the list is replaced by a clone of that copy, so
/// whatever becomes of the list, the editor and the map never share a layer. Changes that were not applied
/// are not given up unasked while the window is seen; who closes it gives them up.
class Tvx_layer_editor : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive the editor. Questions are asked over `window`.
    Tvx_layer_editor(Tvx_layer_list &layers, QWidget *window);
    /// For other layers than those of a map; who owns them tells by `forget` of those that go.
    Tvx_layer_editor(std::unique_ptr<Tvx_edited_layers> layers, QWidget *window);
    ~Tvx_layer_editor() override;

    /// Shows the window on this layer, at `where` on the screen unless it is on the screen already.
    void open(int id, QPoint where);
    /// While the window is seen, it shows this layer from now on; none for -1. Where the one before has
    /// changes that were not applied the user is asked as soon as nothing else is being done, and may stay.
    void follow(int id);
    /// Asks whether changes that were not applied are to be, if the layer is the one in the window; any layer
    /// for -1. False, with everything as it was, when the user wants to go on with them.
    bool may_lose_changes(int id = -1);
    /// Shows the layer anew if it is the one in the window; changes that were not applied are given up.
    void refresh(int id);
    /// Takes over into the copy, whatever was changed there, that a class has been shown or hidden.
    void take_class(int id, int place);
    /// Takes the layer's name over in the same way.
    void take_name(int id);
    /// Takes over what else was changed: `take` brings it to a copy from the layer, which was like `former`
    /// when it came or last changed so.
    using taker = std::function<void(Ivx_layer *copy, Ivx_layer *former, Ivx_layer *layer)>;
    void take(int id, taker const &take);
    /// The layer is gone.
    void forget(int id);
    /// Brings the window in line with settings of the program.
    void update();
    /// Ends the window. `open` makes a new one.
    void close();

    [[nodiscard]] bool is_showing() const;
    /// The layer shown, -1 without one.
    [[nodiscard]] int layer_id() const { return f_layer_id; }
    /// Null until the first `open`. For who drives the window in the user's place.
    [[nodiscard]] Tvx_lr2d_edit_form *handle() const { return f_form; }

signals:
    void applied(int id);
    /// The user has stayed with this layer.
    void stayed(int id);

private:
    void ensure_window();
    void show_layer(int id);
    void on_apply();
    void ask_to_follow();
    [[nodiscard]] bool has_changes() const;

    std::unique_ptr<Tvx_edited_layers> f_layers;
    QWidget *f_window;
    /// The copy as it was when it came.
    vx::owned<Ivx_layer, &vx_lr2d_destroy> f_unchanged;
    int f_wanted = -1;
    bool f_asks = false;
    Tvx_lr2d_edit_form *f_form = nullptr;
    int f_layer_id = -1;
    std::string f_kind;         ///< of the layer shown last
    bool f_at_first_tab = true; ///< when that layer left
};
