#pragma once

#include "host/layer_list.h"

#include <QObject>

#include <cstddef>
#include <memory>
#include <vector>

/// The way back through what was done to the layers of a map: layers that came, went, moved, or got another
/// name or style. What is done in one turn of the event loop is one step. To show or hide a layer is none.
class Tvx_layer_steps : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive this.
    explicit Tvx_layer_steps(Tvx_layer_list &layers);

    /// The way begins here.
    void forget();
    [[nodiscard]] bool can_undo() const { return !f_done.empty(); }
    [[nodiscard]] bool can_redo() const { return !f_undone.empty(); }
    void undo() { go(f_done, f_undone); }
    void redo() { go(f_undone, f_done); }

signals:
    void changed();

private:
    using state = std::shared_ptr<Tvx_layer_list::state const>;
    void note();
    void take();
    void go(std::vector<state> &from, std::vector<state> &to);

    Tvx_layer_list &f_layers;
    state f_present;
    std::vector<state> f_done;
    std::vector<state> f_undone;
    bool f_is_noted = false;
    bool f_is_going = false;
};
