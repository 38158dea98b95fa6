#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/vector_source.h"

#include "platform/data/detail/attr_column.h"
#include "platform/data/detail/column_feed.h"
#include "platform/data/detail/shape_feed.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// An open vector data set: its source, its fields, and the columns and shapes that were asked for so far.
/// What a driver throws ends here: it is told of (`vx_datasource_failed`), and the answer is as of an empty
/// set.
namespace vx::attr {
struct field
{
    std::wstring name;
    int type; ///< a `Tvx_attr_field_type`
};

class attr_set
{
public:
    /// Opens the connection string read-only; null, with one sentence in `error`, when that fails.
    [[nodiscard]] static std::shared_ptr<attr_set> open(std::wstring const &source, std::wstring &error);
    /// The same over a data set that `source` has opened already; it is ended when it cannot be used.
    [[nodiscard]] static std::shared_ptr<attr_set> take(t_vx_data_source_interface opened,
                                                        std::wstring const &source, std::wstring &error);
    attr_set(attr_set const &) = delete;
    attr_set &operator=(attr_set const &) = delete;
    ~attr_set();

    [[nodiscard]] bool has_vector() const { return f_has_vector; }
    [[nodiscard]] int geom_type() const;
    [[nodiscard]] int grid_count() const;
    [[nodiscard]] bool extent(Tvx_box_d2 &box) const;
    /// False when it would have to be read.
    [[nodiscard]] bool known_extent(Tvx_box_d2 &box) const;
    [[nodiscard]] std::wstring proj4() const;
    [[nodiscard]] std::vector<field> const &fields() const { return f_fields; }
    [[nodiscard]] std::size_t record_count() const { return f_record_count; }

    /// The column of a field, read from the source at the first call. `index` must be one of `fields`.
    [[nodiscard]] column const &cells(std::size_t index);
    /// Reads the column of a field for about so long. False when there is nothing left to read; `cells` gives
    /// it at once then.
    bool read_cells(std::size_t index, int milliseconds);
    /// How much of the column of a field has been read, from 0 to 1.
    [[nodiscard]] double read_part(std::size_t index) const;
    /// The cells of some records, all fields: what lies `first` from the beginning, `count` or less. Without
    /// reading columns; empty where the source is being read already or cannot be.
    [[nodiscard]] std::vector<column> read_records(std::size_t first, std::size_t count);
    /// False when the last `read_records` took so long that reading whole columns pays.
    [[nodiscard]] bool finds_records_fast() const { return f_finds_records_fast; }
    /// Whether the column of a field has been read.
    [[nodiscard]] bool has_cells(std::size_t index) const { return f_columns[index].has_value(); }
    /// The shapes, read from the source at the first call; held by whoever asks, so they outlive the set.
    /// Null when whoever waits for data sets gave the reading up, or there is no memory for them.
    [[nodiscard]] std::shared_ptr<shape_set const> shapes();
    /// The shapes as far as they were read; nothing is read for it. Null when they cannot be.
    [[nodiscard]] std::shared_ptr<shape_set const> shapes_so_far();
    /// Reads shapes for about so long. False when there is nothing left to read.
    bool read_shapes(int milliseconds);
    /// The same of some of its shapes.
    bool read_on(shape_feed &from, int milliseconds);
    /// The shapes of a small part of the extent, where the driver finds them faster than it reads all that is
    /// left to read; null elsewhere. It has to end before the set.
    [[nodiscard]] std::unique_ptr<shape_feed> shapes_in(Tvx_box_d2 const &window);

private:
    explicit attr_set(t_vx_data_source_interface source);
    /// Runs what calls the driver; false when it threw.
    template <class Call>
    bool attempt(Call call) const;
    void read_head();
    void read_fields();
    [[nodiscard]] std::vector<column> read_page(std::size_t first, std::size_t count);
    /// Hands each feature to `visitor`, in record order, not more than there are records.
    void walk(vx::feature_visitor visitor) const;
    /// Null when the source cannot be read.
    [[nodiscard]] shape_feed *feed();
    /// All cells of a field in one piece: by the driver's columns if it offers them, else by a walk.
    [[nodiscard]] column read_column(std::size_t index) const;
    /// To be called by whoever goes over the features of the source: the others lose their places.
    void take_place(void const *by) const;

    vx::data_source f_source;
    vx::vector_source f_vector;
    std::vector<field> f_fields;
    std::vector<std::optional<column>> f_columns;
    std::unique_ptr<shape_feed> f_feed; ///< null before the first question for shapes
    std::map<std::size_t, std::unique_ptr<column_feed>> f_column_feeds; ///< of columns that are being read
    mutable void const *f_place_of = nullptr; ///< the feed that last went over the features
    std::size_t f_record_count = 0;
    bool f_has_vector = false;
    mutable bool f_is_walking = false;
    bool f_finds_records_fast = true;
};
} // namespace vx::attr
