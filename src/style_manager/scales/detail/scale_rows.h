#pragma once

#include "style_manager/api/style_mode.h"

#include <vector>

/// The rows of the scale that a style manager has in force: the entries of a value or a rule scale, or the
/// min row, the ranges and the max row of a range scale. The other row is none of them. In the other modes,
/// and of null, there are no rows.
class Tvx_scale_rows
{
public:
    explicit Tvx_scale_rows(void *mngr);

    /// Whether the manager draws by a scale.
    [[nodiscard]] bool has_scale() const { return f_scale != nullptr; }
    [[nodiscard]] bool is_range() const { return f_mode == c_style_mode_range; }
    [[nodiscard]] void *get_scale() const { return f_scale; }
    [[nodiscard]] unsigned get_size() const;
    [[nodiscard]] bool get_marked(unsigned row) const;
    void set_marked(unsigned row, bool marked);
    [[nodiscard]] bool has_marked() const;
    [[nodiscard]] void *get_scale_prm_ptr(unsigned row) const;
    [[nodiscard]] void *get_stl_prm_ptr(unsigned row) const;
    /// Copies the base or the selection style of `stl_prm` into the row.
    void set_stl_prm(unsigned row, void const *stl_prm, bool sel);
    /// The first row, or the first marked one; -1 for none.
    [[nodiscard]] int find_first(bool only_marked) const;
    /// All rows, or the marked ones, from the top down.
    [[nodiscard]] std::vector<unsigned> select(bool only_marked) const;

private:
    Tvx_style_mode f_mode;
    void *f_scale = nullptr;
};
