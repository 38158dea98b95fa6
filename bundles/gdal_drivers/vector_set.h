#pragma once

#include "column.h"
#include "dataset.h"
#include "distinct.h"
#include "extension/binding/column_source.h"
#include "extension/binding/data_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_random_request.h"
#include "extension/binding/polymorphic.h"
#include "extension/binding/question_source.h"
#include "extension/binding/shape_source.h"
#include "extension/binding/stat_source.h"
#include "extension/binding/vector_source.h"
#include "feature.h"
#include "field_stat.h"
#include "kept_columns.h"
#include "server_table.h"
#include "shape_walk.h"

#include <ogrsf_frmts.h>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace vx::gdal {
/// A data set with tables: one of them is selected and read, changed and counted. Made by `open_source`,
/// ended by its `detach`.
///
/// The attribute filter takes the language of the driver, with `LIMIT n` and `OFFSET n` at its end as an
/// addition for every driver: the filtered sequence from feature `OFFSET`, `LIMIT` features long.
class vector_set final : public polymorphic<data_source_impl, vector_source_impl, stat_source_impl,
                                            feature_forward_request_impl, feature_random_request_impl,
                                            column_source_impl, question_source_impl, shape_source_impl>,
                         private feature_store
{
public:
    /// Null with a reason in `error` when the connection names a table that is not there.
    [[nodiscard]] static vector_set *make(std::unique_ptr<dataset> set, std::wstring &error);

    // data_source
    void detach() override;
    int driver_id() override;
    bool has_capability(int capability) override;
    bool with_extent(Tvx_box_d2 *box, bool force) override;
    bool with_extent_z(Tvx_box_d3 *box, bool force) override;
    void with_proj4(vx::string_visitor visitor) override;
    int field_count() override;
    void field_name(int field, vx::string_visitor visitor) override;
    void field_alias(int field, vx::string_visitor visitor) override;
    int field_type(int field) override;
    int field_subtype(int field) override;
    bool field_nullable(int field) override;
    bool field_readonly(int field) override;
    void field_default(int field, vx::string_visitor visitor) override;
    bool field_dict(int field, vx::dict_visitor visitor) override;
    bool field_index(wchar_t const *name, int *index) override;
    bool make_field_name(wchar_t const *name, vx::string_visitor visitor) override;
    int vector_count() override { return f_set->vector_count(); }
    void vector_source(int index, vx::string_visitor visitor) override
    {
        f_set->vector_source(index, visitor);
    }
    void vector_name(int index, vx::string_visitor visitor) override { f_set->vector_name(index, visitor); }
    int grid_count() override { return f_set->grid_count(); }
    void grid_source(int index, vx::string_visitor visitor) override { f_set->grid_source(index, visitor); }
    void grid_name(int index, vx::string_visitor visitor) override { f_set->grid_name(index, visitor); }
    void with_name(vx::string_visitor visitor) override;
    void with_description(vx::string_visitor visitor) override { f_set->with_description(visitor); }
    void with_files(vx::string_visitor visitor) override { f_set->with_files(visitor); }
    void with_error(vx::string_visitor visitor) override;

    // vector_source
    bool create_vector(wchar_t const *name, int geom_type, long long flags,
                       vx::vector_definition definition) override;
    bool select_vector(wchar_t const *name) override;
    bool select_geom_field(wchar_t const *name) override;
    int geom_type() override;
    unsigned long long feature_count(bool force) override;
    void fid_field_name(vx::string_visitor visitor) override;
    int field_width(int field) override;
    int field_precision(int field) override;
    int geom_field_count() override;
    void geom_field_name(int field, vx::string_visitor visitor) override;
    int geom_field_type(int field) override;
    void geom_field_proj4(int field, vx::string_visitor visitor) override;
    bool create_field(vx::vector_definition definition) override;
    bool delete_field(int field) override;
    bool alter_field(int field, vx::vector_definition definition) override;
    bool reorder_fields(int *order) override;
    bool create_geom_field(vx::vector_definition definition) override;
    bool delete_geom_field(int field) override;
    bool transaction_start() override;
    bool transaction_commit() override;
    bool transaction_rollback() override;
    bool flush_changes() override;
    bool create_feature(long long fid, vx::feature_visitor visitor) override;
    bool delete_feature(long long fid) override;

    // stat_source: answers for the whole table; with a filter in force it leaves the question to the caller
    bool has_stat(int field) override;
    bool minimum(int field, double *value) override;
    bool maximum(int field, double *value) override;
    bool average(int field, double *value) override;
    bool stdev(int field, double *value) override;
    bool sum(int field, double *value) override;
    bool count_nonnull(int field, long long *count) override;
    bool count_distinct(int field, long long *count) override;
    bool compute_stats(int field, bool force) override;
    bool with_unique_numerics(int field, int limit, vx::floatings_visitor visitor) override;
    bool with_unique_strings(int field, int limit, vx::string_visitor visitor) override;
    bool has_histogram(int field) override;
    bool with_custom_histogram(int field, double minimum, double maximum, int count, long long *counts,
                               bool force) override;
    bool with_default_histogram(int field, bool force, vx::histogram_visitor visitor) override;

    // feature_forward_request
    bool set_spatial_filter(Tvx_box_d2 *box) override;
    bool set_attribute_filter(wchar_t const *text) override;
    bool reset_reading() override;
    bool with_next_feature(vx::feature_visitor visitor) override;

    // feature_random_request
    bool has_random_read() override;
    bool with_feature(long long fid, vx::feature_visitor visitor) override;
    bool has_moveto_index() override;
    bool moveto_index(long long index) override;

    // column_source: the whole table; with a filter in force columns are not offered, and a reading neither
    // of a set that can be changed
    bool with_column(int field, vx::column_visitor visitor) override;
    bool read_column(int field, vx::column_reading_visitor visitor) override;

    // question_source: of servers, about what the filters let pass
    bool with_sample(int field, unsigned long long count, double minimum, double maximum,
                     vx::floatings_visitor visitor) override;
    bool with_numbers(int field, vx::floatings_visitor visitor) override;
    bool with_texts(int field, vx::string_visitor visitor) override;
    bool with_first_features(int key, int const *fields, int count, unsigned long long limit,
                             vx::string_visitor visitor) override;

    // shape_source: the whole table; with a filter in force, and in a set that can be changed, not offered
    bool read_shapes(Tvx_box_d2 *window, vx::shape_reading_visitor visitor) override;

private:
    class position_keeper;
    /// Below what GDAL takes for "none".
    static constexpr long long c_first_new_fid = -2;

    /// What has become of the numbers of rows since the table was saved.
    struct row_numbers
    {
        long long last = 0;
        std::vector<long long> deleted;
    };

    /// The end of an attribute filter.
    struct page
    {
        long long limit = -1; ///< -1: none
        long long offset = 0;
    };

    explicit vector_set(std::unique_ptr<dataset> set) : f_set(std::move(set)) {}
    ~vector_set() override;

    // feature_store
    bool store(OGRLayer &table, OGRFeature &record, bool is_new) override;
    bool can_store(OGRLayer &table, bool is_new) override;
    cell_rules const &rules() const override { return f_rules; }
    void ended(gdal_feature *feature) override;
    void left_behind(gdal_feature *feature) override;
    void refuse(std::wstring const &reason) override { f_set->error() = reason; }

    bool store_in(OGRLayer &table, OGRFeature &record, bool is_new, error_guard &guard);
    void select(OGRLayer *layer);
    [[nodiscard]] OGRFieldDefn const *field_at(int field) const;
    [[nodiscard]] OGRGeomFieldDefn const *geom_field_at(int field) const;
    [[nodiscard]] OGRFeatureUniquePtr next_record();
    /// Names of fields that differ in case alone are two names.
    [[nodiscard]] bool minds_case_of_names() const;
    static void start_session(GDALDataset &server);
    void renew_connection();
    /// What may take the server a while, and fail without harm to what is open.
    [[nodiscard]] OGRFeatureUniquePtr read_by_server(std::function<OGRFeature *()> const &read);
    /// The next one of the wanted type.
    [[nodiscard]] OGRFeatureUniquePtr read_next();
    /// Reads on from feature `index` of those that the layer gives.
    [[nodiscard]] bool seek(long long index);
    /// Where records are found by their identifiers, which have no gaps.
    [[nodiscard]] std::optional<fid_span> fids_in_a_row();
    /// Numbers of the deleted records that are still in the file, ascending; such formats count them as
    /// features.
    [[nodiscard]] std::vector<long long> const &deleted_records();
    [[nodiscard]] bool is_wanted(OGRFeature const &record) const;
    [[nodiscard]] bool has_filter() const;
    void hand_out(OGRFeatureUniquePtr record, vx::feature_visitor visitor);
    [[nodiscard]] long long believable_count(bool force);
    bool install_filter(std::string const &text, error_guard &guard);
    /// The page as a condition that the database works out; empty where this object pages.
    [[nodiscard]] std::string pushed_page(std::string const &filter, page const &wanted) const;
    /// A box as a condition, in the way of a server.
    [[nodiscard]] std::string box_condition(Tvx_box_d2 const &box) const;
    /// What this object has to page.
    [[nodiscard]] page own_page() const { return f_is_pushed ? page() : f_page; }
    /// Makes the layer give what the filter and the page say, after one of them or the box changed.
    bool apply_filter(std::string const &filter, page const &wanted, error_guard &guard);
    /// Stores what is changed in the table, without which it would be read as it was. New features stay
    /// outside, and so does what the format refused: it is told of when the changes are flushed.
    void store_changes();
    /// Stores everything, new features in the order of their making. False when something was refused, with
    /// the reasons; it stays to be mended.
    [[nodiscard]] bool store_all(error_guard &guard);
    /// Before the fields change: stores what is to be stored and lets the features outside go. False when
    /// something was refused.
    [[nodiscard]] bool release_features(error_guard &guard);
    /// One that the format refused when it ended; null when there is none of this identifier.
    [[nodiscard]] gdal_feature *left_behind_at(long long fid) const;
    /// The source forgets the feature; one that was left behind ends.
    void forget(gdal_feature *feature);
    [[nodiscard]] bool finish_save(error_guard &guard);
    /// Of formats whose identifiers are numbers of rows, which GDAL does not tell for a new row.
    [[nodiscard]] long long next_row(OGRLayer &table);
    void renumber_rows();
    [[nodiscard]] bool may_change(error_guard &guard) const;
    void content_changed();
    /// Reads one field of all features, by columns where that is faster. False when the table cannot be read
    /// whole, and with a filter in force.
    bool scan(int field, column_sink const &sink);
    /// Columns come in the form in which cells are read: dates and lists do not.
    [[nodiscard]] static bool has_plain_cells(OGRFieldDefn const &field);
    /// To read a cell of the format all before it has to be read.
    [[nodiscard]] bool is_read_as_text() const;
    /// Where several columns of such a table are asked for; null where each is walked for.
    [[nodiscard]] kept_columns const *columns_of_one_walk();
    column_result walk_column(int field, column_sink const &sink);
    column_result server_column(int field, column_sink const &sink);
    /// Lets the database count; false where there is none, or it refuses.
    bool ask_database(int field, field_stat &stat);
    bool ask_sqlite(int field, field_stat &stat);
    /// The server, set to the features that the filters let pass; null where there is none, or no statement
    /// says which those are.
    [[nodiscard]] server_table const *server();
    /// The statistics are about what the filters let pass.
    [[nodiscard]] bool answers_filtered() { return !has_filter() || server(); }
    /// What was worked out is about other features from now on.
    void filter_changed();
    /// A sample of a table in a database file by its identifiers; false where it is better drawn on a walk.
    bool draw_from_file(int field, unsigned long long count, double minimum, double maximum,
                        vx::floatings_visitor visitor);
    /// The texts of the cells; stops when there are `limit` of them, with -1 never.
    bool collect_texts(int field, long long limit, distinct_texts &texts);
    /// Statistics of a number field by reading it.
    bool scan_numbers(int field, field_stat &stat);
    field_stat const *stat_of(int field);

    std::unique_ptr<dataset> f_set;
    OGRLayer *f_layer = nullptr; ///< null: a new set without tables
    int f_geom_field = 0;
    int f_only_type = 100; ///< geometry type that the connection asks for; 100: all
    std::optional<server_table> f_server;
    Tvx_box_d2 f_box; ///< where `f_has_box`
    std::string f_filter;
    page f_page;
    bool f_is_pushed = false; ///< the database pages
    bool f_has_box = false;
    std::optional<std::vector<long long>> f_deleted;
    bool f_started = false;       ///< the offset is passed
    bool f_is_stuck = false;      ///< the connection to a server has to be made anew
    bool f_is_broken_off = false; ///< the server gives nothing more before reading begins anew
    /// Those that are to come, where a place was found by its identifier; nothing where the layer goes on.
    std::optional<fid_span> f_coming;
    long long f_position = 0;  ///< features that the layer gave since its start
    long long f_delivered = 0; ///< features handed out since the start
    bool f_in_transaction = false;
    static constexpr long long c_never_kept = -1'000'000'000;
    std::unique_ptr<kept_columns> f_kept;
    long long f_walked_columns =
        0; ///< questions about columns since the table was selected; below 0: not kept
    std::map<int, field_stat> f_stats;
    std::map<int, long long> f_distinct;   ///< number of different values by field
    std::vector<gdal_feature *> f_outside; ///< of a set that can be changed; new ones in the order of making
    gdal_feature *f_making = nullptr;      ///< the new feature that a caller fills right now
    bool f_was_made = false;               ///< what became of it when it ended
    long long f_next_new_fid = c_first_new_fid;
    cell_rules f_rules;
    std::map<OGRLayer *, row_numbers> f_rows;
};

/// Keeps the reading position over a pass over the whole table.
class vector_set::position_keeper
{
public:
    explicit position_keeper(vector_set &set) : f_set(set) {}
    ~position_keeper();
    position_keeper(position_keeper const &) = delete;
    position_keeper &operator=(position_keeper const &) = delete;

private:
    vector_set &f_set;
};
} // namespace vx::gdal
