#pragma once

#include "controls/forms/lists.h"
#include "controls/forms/vcl_caption_panel.h"

#include "platform/base/closure.h"

#include <vector>

/// A drop-down list of items with a text and an unsigned id. Ids need be neither dense nor in order; callers
/// work with ids, not with places in the list. Setters fire nothing.
class VX_API Tvx_vcl_select_box : public Tvx_vcl_combo_box
{
public:
    explicit Tvx_vcl_select_box(TComponent *owner);

    void clear();
    /// Adds at the end. The first item that comes into an empty list becomes the selected one.
    void add_item(UnicodeString const &text, unsigned id);
    /// True, and the item's id, if the text is in the list; else `id` stays. Texts compare exactly.
    [[nodiscard]] bool find_str(UnicodeString const &text, unsigned &id) const;

    /// The selected item's id; 0 when nothing is selected.
    [[nodiscard]] unsigned get_active_idx() const;
    /// Selects the first item of that id; nothing is selected if there is none.
    void set_active_idx(unsigned id);
    /// The selected item's text; empty when nothing is selected.
    [[nodiscard]] UnicodeString get_active_caption() const;
    /// Selects the first item of that text; nothing is selected if there is none.
    void set_active_caption(UnicodeString const &text);

    /// By place in the list, from 0. A place outside gives the empty text, and nothing happens.
    [[nodiscard]] UnicodeString get_item_captions(int position) const;
    void set_item_captions(int position, UnicodeString const &text);

    /// Runs `OnChange`.
    void call_on_change();

private:
    [[nodiscard]] int position_of(UnicodeString const &text) const;

    std::vector<unsigned> f_ids; ///< one for each item that came through `add_item`
};

/// A captioned select box with the same operations.
class VX_API Tvx_vcl_select_box_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void set_caption(UnicodeString const &caption) override;

    void clear() { f_box->clear(); }
    void add_item(UnicodeString const &text, unsigned id) { f_box->add_item(text, id); }
    [[nodiscard]] bool find_str(UnicodeString const &text, unsigned &id) const
    {
        return f_box->find_str(text, id);
    }
    [[nodiscard]] unsigned get_active_idx() const { return f_box->get_active_idx(); }
    void set_active_idx(unsigned id) { f_box->set_active_idx(id); }
    [[nodiscard]] UnicodeString get_active_caption() const { return f_box->get_active_caption(); }
    void set_active_caption(UnicodeString const &text) { f_box->set_active_caption(text); }
    [[nodiscard]] UnicodeString get_item_captions(int position) const
    {
        return f_box->get_item_captions(position);
    }
    void set_item_captions(int position, UnicodeString const &text)
    {
        f_box->set_item_captions(position, text);
    }
    void call_on_change() { f_on_change(this); }

    /// The user chose an item. The sender is the panel.
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] Tvx_vcl_select_box *get_select_box() const { return f_box; }

private:
    void on_box_change(TObject *) { call_on_change(); }

    Tvx_vcl_select_box *f_box = nullptr;
    closure<void(TObject *)> f_on_change;
};
