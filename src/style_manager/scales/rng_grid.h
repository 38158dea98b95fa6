#pragma once

#include "style_manager/scales/scale_grid.h"

/// A range scale: row 0 is the min row, row i + 1 is range i, the last one is the max row; the two outer rows
/// are always there. Columns of texts: lower bound, upper bound, caption. Numbers are shown, and begin to be
/// edited, under the round digits of the scale. Bounds are never compared with those of the neighbours.
class VX_API Tvx_rng_grid : public Tvx_scale_grid
{
public:
    explicit Tvx_rng_grid(TComponent *owner);

    void create();
    void load_res();

    /// What a row is; false behind the max row. `index` is written for a range only.
    [[nodiscard]] bool get_row_rng(unsigned row, bool &is_min, bool &is_max, unsigned &index) const;
    /// The ranges and the two outer rows; 0 without a scale.
    [[nodiscard]] unsigned get_n_row() const override;
    [[nodiscard]] bool get_row_marked(unsigned row) const override;
    void set_row_marked(unsigned row, bool marked) override;
    [[nodiscard]] void *get_row_scale_prm_ptr(unsigned row) const override;
    /// Copies the base or the selection style of `stl_prm` into the row.
    void set_row_stl_prm(unsigned row, void const *stl_prm, bool sel);

    /// The menu of the bounds or the captions, at a point of the screen.
    void call_name_menu(int x, int y, bool caption, bool is_min);

    /// The text of a number under the scale's round digits, with "." as decimal separator.
    [[nodiscard]] std::wstring dbl2str(double value) const;
    /// Takes the number that the text begins with; what stands behind it does not count, so a comma ends the
    /// number. False, with `value` as it was, where there is none or none that is finite.
    [[nodiscard]] static bool str2dbl(char const *text, double &value);
    /// The captions that the rows of a scale get by themselves, in the language of the captions.
    [[nodiscard]] std::wstring get_default_min_caption(void const *scale) const;
    [[nodiscard]] std::wstring get_default_max_caption(void const *scale) const;
    [[nodiscard]] std::wstring get_default_rng_caption(void const *scale, unsigned index) const;

protected:
    [[nodiscard]] void *scale_of(void *mngr) const override;
    void unmark_all() override;
    [[nodiscard]] bool can_delete() const override;
    [[nodiscard]] UnicodeString title(int col) const override;
    [[nodiscard]] std::wstring cell_text(unsigned row, int col) const override;
    void draw_text_cell(unsigned row, int col, TRect const &rect) override;
    [[nodiscard]] std::wstring row_hint(unsigned row) const override;
    [[nodiscard]] bool is_edit_col(int col) const override;
    [[nodiscard]] bool is_edit_cell(unsigned row, int col) const override;
    bool take_text(unsigned row, int col, char const *text) override;
    void run_gradient(Tvx_gradient_kind kind, unsigned first, unsigned last, bool sel) override;
    bool move_entry(int from, int to) override;
    void call_title_menu(int col, TPoint at) override;
    [[nodiscard]] int text_col_share(int col) const override;
    void on_ins_action_execute(TObject *sender) override;
    void on_del_action_execute(TObject *sender) override;

private:
    enum class row_kind
    {
        min,
        range,
        max,
        none
    };
    [[nodiscard]] row_kind kind_of(unsigned row) const;
    [[nodiscard]] double bound(unsigned row, bool lower) const;
    void draw_indef(TRect const &rect, bool plus);
    bool take_bound(unsigned row, bool lower, char const *text);
    void on_ins_action_update(TObject *sender);

    UnicodeString f_title_min;
    UnicodeString f_title_max;
    UnicodeString f_title_caption;
    std::wstring f_fmt_min_caption; ///< formats of `vx::strutil::format`, as the two others
    std::wstring f_fmt_max_caption;
    std::wstring f_fmt_rng_caption;
};
