#pragma once

#include "data/connection/connection.h"
#include "data/connection/connection_params.h"
#include "data/connection/data_types.h"
#include "data/source/field_dict.h"
#include "data/source/statistic.h"
#include "extension/binding/data_source.h"
#include "extension/binding/stat_source.h"

#include "platform/base/export.h"
#include "platform/base/geometry.h"

#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

struct Tvx_stat_data;
struct Tvx_histogramm_data;

namespace vx::data {
/// How a data set is opened.
enum access_mode : int
{
    access_read = 0,
    access_update = 1,
    access_update_or_read = 2, ///< for update if possible, else for reading
};

/// Whether a driver may compute what it does not know at once.
enum force_type : int
{
    force_none = 0,
    force_compute = 1,
};

/// Numbers that go to the driver unchanged.
using driver_type = int;
using caps_type = int;
/// Single features are read quickly by their index.
inline constexpr caps_type c_caps_fast_index = 0;

/// Index of a field, from 0.
using field_index_type = std::uint64_t;
inline constexpr field_index_type c_no_field = std::numeric_limits<field_index_type>::max();
/// A limit that limits nothing.
inline constexpr std::uint64_t c_no_limit = std::numeric_limits<std::uint64_t>::max();

/// A data set of any kind, read through the component interface: opens a connection, answers questions about
/// the set and its fields, gives statistics, histograms, values and unique values.
///
/// Each statistic has two roads: the driver is asked first; if it does not answer, all features or cells are
/// walked here, and the result is kept for the field while the object lives. Make a new object for a new
/// source.
///
/// Nothing throws for a data failure: a closed object answers 0, false or an empty text. An object belongs to
/// one thread at a time.
class VX_API generic_datasource
{
public:
    generic_datasource();
    generic_datasource(generic_datasource const &) = delete;
    generic_datasource &operator=(generic_datasource const &) = delete;
    /// Detaches an owned handle. `close_data` is not run: a subclass that has something to close does it in
    /// its own destructor.
    virtual ~generic_datasource();

    // ---- the kind of source, for subclasses

    /// Takes what the subclass needs from the open handle; false when the set is not of its kind.
    virtual bool open_data(std::wstring const &source, access_mode mode);
    virtual void close_data();
    /// Fill the entry and set its flag; false, with the entry untouched, when the source cannot be walked.
    virtual bool compute_stat_common(field_index_type field, statistic &stat);
    /// Needs average and quantity in the entry.
    virtual bool compute_stat_stdev(field_index_type field, statistic &stat);
    virtual bool compute_stat_distinct(field_index_type field, statistic &stat);
    virtual bool fetch_values(field_index_type field, std::vector<std::wstring> &values);
    virtual bool fetch_values(field_index_type field, std::vector<double> &values);
    /// At most `limit` values.
    virtual bool fetch_unique_values(field_index_type field, std::uint64_t limit,
                                     std::set<std::wstring> &values);
    virtual bool fetch_unique_values(field_index_type field, std::uint64_t limit, std::set<double> &values);
    /// For each key its listed fields, as found at the first object with that key.
    virtual bool fetch_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                                     std::uint64_t limit,
                                     std::map<std::wstring, std::vector<std::wstring>> &values);

    // ---- opening and closing; an open object is closed first

    bool open(std::wstring const &source, access_mode mode);
    bool open(connection const &c, access_mode mode);
    bool open(std::wstring const &source, options const &o, access_mode mode);
    bool open(connection const &c, options const &o, access_mode mode);
    /// Through a connection object of the engine (`vx_datasource_connect_*`).
    bool open(void *connect, access_mode mode);
    bool create(std::wstring const &source, driver_type driver);
    bool create(std::wstring const &source, options const &o, driver_type driver);
    /// Takes over a foreign handle, which stays its owner's. True when it is not null.
    bool from_handle(t_vx_data_source_interface handle);
    void close();
    [[nodiscard]] bool is_open() const { return static_cast<bool>(f_source); }
    [[nodiscard]] t_vx_data_source_interface handle() const { return f_source.handle(); }

    // ---- the source

    [[nodiscard]] int driver_id() const;
    [[nodiscard]] bool has_capability(caps_type caps) const;
    bool extent(Tvx_box_d2 &box, force_type force) const;
    bool extent(Tvx_box_d3 &box, force_type force) const;
    [[nodiscard]] std::wstring name() const;
    [[nodiscard]] std::wstring desription() const;
    /// In the notation of proj4.
    [[nodiscard]] std::wstring projection() const;
    bool set_projection(std::wstring const &proj4);
    [[nodiscard]] std::vector<std::wstring> files_list() const;
    [[nodiscard]] int vector_count() const;
    /// Connection string of vector part `i`.
    [[nodiscard]] std::wstring vector_source(int i) const;
    [[nodiscard]] std::wstring vector_name(int i) const;
    [[nodiscard]] int grid_count() const;
    [[nodiscard]] std::wstring grid_source(int i) const;
    [[nodiscard]] std::wstring grid_name(int i) const;
    [[nodiscard]] std::wstring error_message() const;

    // ---- fields

    [[nodiscard]] field_index_type field_count() const;
    [[nodiscard]] std::wstring field_name(field_index_type i) const;
    [[nodiscard]] std::wstring field_alias(field_index_type i) const;
    bool set_field_alias(field_index_type i, std::wstring const &alias);
    [[nodiscard]] vx::data::field_type field_type(field_index_type i) const;
    [[nodiscard]] int field_subtype(field_index_type i) const;
    [[nodiscard]] bool field_readonly(field_index_type i) const;
    [[nodiscard]] std::wstring field_default(field_index_type i) const;
    [[nodiscard]] bool field_nullable(field_index_type i) const;
    bool field_dict(field_index_type i, vx::data::field_dict &dict) const;
    /// The driver's answer, or `find_field_index`; `c_no_field` for an empty name.
    [[nodiscard]] field_index_type field_index(std::wstring const &name) const;
    /// The first field of that name without regard to case, -1 when there is none.
    [[nodiscard]] int find_field_index(std::wstring const &name) const;
    /// A name that no field has: the driver's proposal, or `make_field_unique_name`.
    [[nodiscard]] std::wstring field_unique_name(std::wstring const &name) const;
    /// `name`, or the first free one of `name1`, `name2`, ...
    [[nodiscard]] std::wstring make_field_unique_name(std::wstring const &name) const;

    // ---- statistics

    [[nodiscard]] bool field_has_statistics(field_index_type i) const;
    [[nodiscard]] bool field_has_histogram(field_index_type i) const;
    [[nodiscard]] double field_minimum(field_index_type i);
    [[nodiscard]] double field_maximum(field_index_type i);
    [[nodiscard]] double field_average(field_index_type i);
    [[nodiscard]] double field_stdev(field_index_type i);
    /// Values that are neither null nor no-data.
    [[nodiscard]] std::uint64_t field_quantity(field_index_type i);
    [[nodiscard]] std::uint64_t field_distinct(field_index_type i);
    /// Fills the four values of the record.
    void field_statistics(field_index_type i, Tvx_stat_data *stat);
    /// The driver's histogram into the record; false, and marked so there, when it has none.
    bool field_histogram(field_index_type i, Tvx_stat_data *stat);
    bool field_histogram(field_index_type i, Tvx_histogramm_data *histogram);
    /// These never ask the driver.
    statistic const &compute_stat_common(field_index_type i);
    statistic const &compute_stat_stdev(field_index_type i);
    statistic const &compute_stat_distinct(field_index_type i);

    // ---- values

    /// All values that are neither null nor no-data, in the order of the source.
    bool field_values(field_index_type i, std::vector<std::wstring> &values);
    bool field_values(field_index_type i, std::vector<double> &values);
    /// At most `limit` different values: the driver's, or those of a walk. What the set held is gone.
    bool field_unique_values(field_index_type i, std::uint64_t limit, std::set<std::wstring> &values);
    /// The same as numbers. A driver and a walk of cells add their values to what the set holds; a walk of
    /// features begins with an empty set.
    bool field_unique_values(field_index_type i, std::uint64_t limit, std::set<double> &values);
    /// See `fetch_unique_values`; always a walk.
    bool field_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                             std::uint64_t limit, std::map<std::wstring, std::vector<std::wstring>> &values);

protected:
    /// Keeps the handle and derives the statistics interface of the same object.
    void take_handle(vx::data_source source, bool owned);

    vx::data_source f_source;
    vx::stat_source f_stat_source;
    bool f_owned = false;
    std::map<field_index_type, statistic> f_stats;

private:
    /// Lets a temporary of the kind that the handle offers do the work; false when it offers none.
    template <class Work>
    bool with_kind(Work work) const;
    bool finish_open(t_vx_data_source_interface handle, std::wstring const &source, access_mode mode);
    void release_handle();
    statistic const &common_of(field_index_type i);
};
} // namespace vx::data
