#pragma once

#include "data/source/generic_datasource.h"
#include "data/vector/vector_definition.h"
#include "data/vector/vector_feature.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_random_request.h"
#include "extension/binding/vector_source.h"

namespace vx::data {
/// A data set of features, each with a geometry and attribute fields. There is one reading position per
/// source, so two walks on one object disturb each other; statistics and values honour the filter in force.
class VX_API vector_datasource : public generic_datasource
{
public:
    ~vector_datasource() override;

    bool open_data(std::wstring const &source, access_mode mode) override;
    void close_data() override;
    bool compute_stat_common(field_index_type field, statistic &stat) override;
    bool compute_stat_stdev(field_index_type field, statistic &stat) override;
    /// By the text of the cells, for numbers as well.
    bool compute_stat_distinct(field_index_type field, statistic &stat) override;
    bool fetch_values(field_index_type field, std::vector<std::wstring> &values) override;
    bool fetch_values(field_index_type field, std::vector<double> &values) override;
    bool fetch_unique_values(field_index_type field, std::uint64_t limit,
                             std::set<std::wstring> &values) override;
    bool fetch_unique_values(field_index_type field, std::uint64_t limit, std::set<double> &values) override;
    /// A null cell of a listed field gives an empty text in its place.
    bool fetch_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                             std::uint64_t limit,
                             std::map<std::wstring, std::vector<std::wstring>> &values) override;
    using generic_datasource::compute_stat_common;
    using generic_datasource::compute_stat_distinct;
    using generic_datasource::compute_stat_stdev;

    /// Works on the handle of another object, which stays its owner's; false when that is no vector source.
    bool from_generic(generic_datasource const &source);
    bool from_generic(vx::data_source source);
    bool from_handle(t_vx_data_source_interface handle);

    // ---- the source

    bool select_source(std::wstring const &name);
    /// `flags` goes to the driver unchanged.
    bool create_vector(std::wstring const &name, vector_definition &definition, vx::data::geom_type type,
                       long long flags);
    bool create_vector(std::wstring const &name, options const &o, vector_definition &definition,
                       vx::data::geom_type type, long long flags);
    /// The attribute fields; geometry fields, the field of feature ids and the projection stay empty.
    [[nodiscard]] vector_definition fetch_definition() const;
    [[nodiscard]] int field_width(field_index_type i) const;
    [[nodiscard]] int field_precision(field_index_type i) const;
    [[nodiscard]] vx::data::geom_type geom_type() const;
    [[nodiscard]] std::wstring fid_field_name() const;
    /// The largest number when the source does not know.
    [[nodiscard]] std::uint64_t feature_count(force_type force) const;
    [[nodiscard]] int geom_field_count() const;
    [[nodiscard]] std::wstring geom_field_name(int i) const;
    [[nodiscard]] vx::data::geom_type geom_field_type(int i) const;
    [[nodiscard]] std::wstring geom_field_proj(int i) const;
    bool create_field(vector_definition &definition);
    bool alter_field(field_index_type i, vector_definition &definition);
    bool remove_field(field_index_type i);
    bool remove_field(std::wstring const &name);
    /// `order[i]` is the present index of the field that comes to place `i`; false unless all fields are
    /// listed.
    bool reorder_fields(std::vector<field_index_type> const &order);

    // ---- features

    bool set_spatial_fitler(Tvx_box_d2 const &box);
    bool set_attribute_filter(std::wstring const &filter);
    /// Features from place `first` up to, not with, place `last`, by the paging filter
    /// "<fid field> >= 0 LIMIT <last - first> OFFSET <first>", which takes the place of any attribute filter.
    /// False when the source has no field of feature ids.
    bool set_index_filter(long long first, long long last);
    bool reset_reading();
    bool moveto_feature(long long i);
    /// False at the end, and when the source fails.
    bool fetch_next_feature(vector_feature &feature);
    bool fetch_feature(long long fid, vector_feature &feature);
    bool create_feature(long long fid, vector_feature &feature);
    bool delete_feature(long long fid);
    bool start_transaction();
    bool commit_transaction();
    bool rollback_transaction();

private:
    bool take_vector_handles();

    vx::vector_source f_vector;
    vx::feature_forward_request f_forward;
    vx::feature_random_request f_random;
};
} // namespace vx::data
