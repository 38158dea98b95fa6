#pragma once

#include "controls/prop/prop_edit.h"

#include <string>
#include <vector>

struct Ivx_entities;
struct Ivx_entity;
struct Ivx_scn_2d;

/// A choice among the entities of several lists, by caption. Row 0 is a command: it asks for a scene file,
/// adds the scene in it to the first list, under a name that no other one has, and chooses it; where the
/// first list holds no scenes the command itself stays the choice. Giving up, or a file that cannot be read,
/// leaves the former choice and fires nothing.
class VX_API Tvx_entities_prop_edit : public Tvx_prop_edit
{
public:
    using Tvx_prop_edit::Tvx_prop_edit;

    void create() override;
    /// After the user's choice: does what row 0 stands for, then reports the change.
    void call_changed() override;

    /// Makes `list` the only one; null leaves none. The lists stay their owners' and outlive the control or
    /// are taken away from it. The control shows them at the next `update_controls`.
    void set_entities(Ivx_entities *list);
    /// Null is ignored.
    void add_entities(Ivx_entities *list);
    /// Of the layers in the lists only those of this type key are offered; entities of other kinds stay.
    /// Null or empty: all layers.
    void set_filter(char const *lr_type);
    /// Whether row 0 is offered; it is at first. The others keep their real indexes.
    [[nodiscard]] bool get_can_add() const { return f_can_add; }
    void set_can_add(bool value) { f_can_add = value; }

    /// Name of row 0.
    static wchar_t const *const c_add_scene_name;

private:
    [[nodiscard]] bool on_open(TObject *sender);
    void on_close(TObject *sender);
    unsigned on_get_np(TObject *sender);
    wchar_t const *on_get_wprop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    wchar_t const *on_get_capt_wprop(TObject *sender, unsigned prop);
    void on_combo_box_reselected(TObject *sender);
    void bind();
    [[nodiscard]] Ivx_entity *get_entity(unsigned prop) const;
    /// False when the user gave up or the file cannot be read.
    [[nodiscard]] bool add_scene();
    /// Scenes are told apart by their names.
    void give_free_name(Ivx_scn_2d *scene, unsigned row);

    std::vector<Ivx_entities *> f_lists;
    std::string f_filter;
    std::wstring f_name;
    bool f_can_add = true;
};
