#pragma once

#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"

#include <memory>
#include <string>
#include <vector>

/// A row of a standard legend. Codes are -1 where the row has none. Its styles are new ones until a library
/// gives others.
class VX_API Tvx_stdleg_item
{
public:
    [[nodiscard]] bool get_marked() const { return f_marked; }
    void set_marked(bool marked) { f_marked = marked; }
    /// A legend style type (vx_style_keys.h): which of the styles came from a library.
    [[nodiscard]] int get_style_type() const { return f_style_type; }
    void set_style_type(int type) { f_style_type = type; }
    /// Number of the row, from 1.
    [[nodiscard]] int get_order() const { return f_order; }
    void set_order(int order) { f_order = order; }
    [[nodiscard]] int get_lcode() const { return f_lcode; }
    void set_lcode(int code) { f_lcode = code; }
    [[nodiscard]] int get_bcode() const { return f_bcode; }
    void set_bcode(int code) { f_bcode = code; }
    /// In the system code page.
    [[nodiscard]] std::string const &get_caption() const { return f_caption; }
    void set_caption(std::string const &caption) { f_caption = caption; }

    /// Made when it is first asked for; owned.
    [[nodiscard]] void *get_pnt_style_ptr();
    [[nodiscard]] void *get_pln_style_ptr();
    [[nodiscard]] void *get_pgn_style_ptr();

private:
    bool f_marked = false;
    int f_style_type = c_nil_legend_style_type;
    int f_order = 0;
    int f_lcode = -1;
    int f_bcode = -1;
    std::string f_caption;
    vx::owned<void, &vx_pnt_style_destroy> f_pnt_style;
    vx::owned<void, &vx_pln_style_destroy> f_pln_style;
    vx::owned<void, &vx_pgn_style_destroy> f_pgn_style;
};

/// The rows of a legend in their order, which it owns.
class VX_API Tvx_stdleg_items
{
public:
    void clear() { f_items.clear(); }
    [[nodiscard]] unsigned get_size() const { return static_cast<unsigned>(f_items.size()); }
    /// By place from 0; null for one that is not there.
    [[nodiscard]] Tvx_stdleg_item *get_ptr(unsigned index) const;
    /// A new one, at the end.
    Tvx_stdleg_item *add_ptr();
    void set_all_marked(bool marked);

private:
    std::vector<std::unique_ptr<Tvx_stdleg_item>> f_items;
};
