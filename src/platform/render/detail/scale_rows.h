#pragma once

#include "platform/render/detail/row_table.h"
#include "platform/styles/detail/mngr_model.h"

#include <memory>
#include <vector>

namespace vx::render {
/// Which row of a manager's scale in force a record falls in, and what that row draws with. This is the one
/// place that decides it: drawing and counting both ask here. Rows are 0 for a simple style, the only one;
/// the entries in order and behind them the other entry for value and rule scales; those of `rng_scale` for
/// range scales.
///
/// Every record falls in exactly one row: of value entries of the same text, of ranges that overlap and of
/// rules that match alike the first one counts. A record without a value, or of a table without the field,
/// is in the other row of value and range scales, whatever the entries. A rule whose text is no filter
/// matches nothing.
class row_source
{
public:
    /// Both must outlive the object.
    row_source(styles::stl_mngr const &mngr, row_table &table);
    row_source(row_source const &) = delete;
    row_source &operator=(row_source const &) = delete;
    ~row_source();

    /// Reads the columns that the rows go by for about so many milliseconds; false when nothing is left to
    /// read. Before, any of the questions reads them in one piece.
    bool read_on(int milliseconds);
    [[nodiscard]] unsigned row_count() const;
    [[nodiscard]] unsigned row_of(unsigned record) const;
    [[nodiscard]] styles::stl_prm const &style(unsigned row) const;
    [[nodiscard]] bool visible(unsigned row) const;
    /// Rotation of the record's symbol in degrees, counter-clockwise; 0 when the manager does not rotate.
    [[nodiscard]] double angle_of(unsigned record) const;

private:
    struct rules;
    [[nodiscard]] unsigned row_of_text(unsigned record) const;
    [[nodiscard]] styles::scale_prm const *entry(unsigned row) const;
    /// The scale in force if it is one of entries.
    [[nodiscard]] styles::val_scale const *entries() const;

    styles::stl_mngr const &f_mngr;
    row_table &f_table;
    std::unique_ptr<rules> f_rules;
    mutable std::vector<int> f_known_rows; ///< by the numbers of texts; -1 is not asked for yet
    int f_field = -1;
    int f_rotate_field = -1;
};
} // namespace vx::render
