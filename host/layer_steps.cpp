#include "host/layer_steps.h"

#include <QTimer>

#include <utility>

namespace {
constexpr std::size_t c_most_steps = 50;
/// Former layers are held with all their classes.
constexpr std::size_t c_most_classes = 200'000;
} // namespace

Tvx_layer_steps::Tvx_layer_steps(Tvx_layer_list &layers) : f_layers(layers), f_present(layers.remember())
{
    auto const note_layers = [this](QModelIndex const &parent) {
        if (!parent.isValid())
            note();
    };
    connect(&layers, &Tvx_layer_list::rowsInserted, this, note_layers);
    connect(&layers, &Tvx_layer_list::rowsRemoved, this, note_layers);
    connect(&layers, &Tvx_layer_list::rowsMoved, this, &Tvx_layer_steps::note);
    connect(&layers, &Tvx_layer_list::layer_replaced, this, &Tvx_layer_steps::note);
    connect(&layers, &Tvx_layer_list::layer_renamed, this, &Tvx_layer_steps::note);
}

void Tvx_layer_steps::forget()
{
    f_is_noted = false;
    f_done.clear();
    f_undone.clear();
    f_present = f_layers.remember();
    emit changed();
}

void Tvx_layer_steps::note()
{
    if (!f_is_going && !std::exchange(f_is_noted, true))
        QTimer::singleShot(0, this, &Tvx_layer_steps::take);
}

void Tvx_layer_steps::take()
{
    if (!std::exchange(f_is_noted, false))
        return;
    state const before = std::exchange(f_present, f_layers.remember());
    if (!Tvx_layer_list::differ(*before, *f_present))
        return;
    f_done.push_back(before);
    f_undone.clear();
    std::size_t classes = 0;
    std::size_t kept = 0;
    for (state const *after = &f_present; kept < f_done.size(); ++kept) {
        state const &step = f_done[f_done.size() - 1 - kept];
        classes += Tvx_layer_list::count_classes_only_in(*step, **after);
        if (kept > 0 && (kept == c_most_steps || classes > c_most_classes))
            break;
        after = &step;
    }
    f_done.erase(f_done.begin(), f_done.end() - std::ptrdiff_t(kept));
    emit changed();
}

void Tvx_layer_steps::go(std::vector<state> &from, std::vector<state> &to)
{
    take();
    if (from.empty())
        return;
    to.push_back(f_present);
    state const wanted = std::move(from.back());
    from.pop_back();
    f_is_going = true;
    f_layers.restore(*wanted);
    f_is_going = false;
    f_present = f_layers.remember();
    emit changed();
}
