#pragma once

#include "extension/vxk_extension.h"

#include "platform/base/owned.h"
#include "platform/base/vertex_list.h"
#include "platform/basic/vx_datasource.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vx_test {
using vertex_list = vx::owned<Tvx_op2d, &vx_ov_d2_destroy>;

[[nodiscard]] inline std::wstring example(char const *name)
{
    return vx::text::utf8_to_wide(std::string(VX_EXAMPLE_DATA "/") + name);
}

/// The text that a call visits.
template <class Call>
[[nodiscard]] std::wstring text_of(Call call)
{
    std::wstring text;
    vx::stdwstring_visitor visitor(text);
    call(visitor);
    return text;
}

template <class Call>
[[nodiscard]] std::vector<std::wstring> texts_of(Call call)
{
    std::vector<std::wstring> texts;
    vx::stdwstring_list_visitor visitor(texts);
    call(visitor);
    return texts;
}

/// A data set, held as the library holds it: by the handles of its families.
class source
{
public:
    source(std::wstring const &text, bool read_only = true)
    {
        t_vx_data_source_interface handle;
        vx_datasource_open(text.c_str(), read_only, &handle);
        take(handle);
    }
    /// A new one.
    source(std::wstring const &text, int driver)
    {
        t_vx_data_source_interface handle;
        vx_datasource_create(text.c_str(), driver, &handle);
        take(handle);
    }
    ~source() { data.detach(); }
    source(source const &) = delete;
    source &operator=(source const &) = delete;

    [[nodiscard]] bool is_open() const { return static_cast<bool>(data); }
    /// Why it is not open.
    [[nodiscard]] static std::wstring refusal()
    {
        std::wstring text;
        Tvx_std_wstring_adapter const adapter(text);
        vx_datasource_get_error(adapter);
        return text;
    }
    [[nodiscard]] std::wstring error() const
    {
        return text_of([&](vx::string_visitor v) { data.with_error(v); });
    }
    [[nodiscard]] int field(wchar_t const *name) const
    {
        int index = -1;
        return data.field_index(name, &index) ? index : -1;
    }

    vx::data_source data;
    vx::vector_source table;
    vx::stat_source stat;
    vx::feature_forward_request forward;
    vx::feature_random_request random;

private:
    void take(t_vx_data_source_interface handle)
    {
        data = handle;
        t_vx_interface const general = vx_data_source_interface_generalize(handle);
        table = vx_vector_source_interface_specialize(general);
        stat = vx_stat_source_interface_specialize(general);
        forward = vx_feature_forward_request_interface_specialize(general);
        random = vx_feature_random_request_interface_specialize(general);
    }
};

/// Keeps the last feature that it was given.
class keeper final : public vx::feature_visitor_impl
{
public:
    keeper() = default;
    ~keeper() { item.detach(); }
    keeper(keeper const &) = delete;
    keeper &operator=(keeper const &) = delete;
    void visit(vx::feature feature) override
    {
        item.detach();
        item = feature;
    }
    [[nodiscard]] std::wstring text(int field) const
    {
        return text_of([&](vx::string_visitor v) { item.get_string(field, nullptr, v); });
    }
    void end()
    {
        item.detach();
        item = {};
    }
    vx::feature item;
};

/// Identifiers of all features that are still to be read.
[[nodiscard]] inline std::vector<long long> rest_of(source const &from)
{
    std::vector<long long> fids;
    for (keeper k; from.forward.with_next_feature(k);)
        fids.push_back(k.item.fid());
    return fids;
}
} // namespace vx_test
