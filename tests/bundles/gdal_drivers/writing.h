#pragma once

#include "source.h"

#include <functional>

/// What tests make new tables and features with.
namespace vx_test {
struct field
{
    std::wstring name;
    int type;
    int subtype = 0;
    int width = 0;
    int precision = 0;
};

class definition final : public vx::vector_definition_impl
{
public:
    definition(std::vector<field> fields, std::wstring proj4 = L"")
        : f_fields(std::move(fields)), f_proj4(proj4)
    {
    }
    int field_count() override { return static_cast<int>(f_fields.size()); }
    void field_name(int i, vx::string_visitor v) override { v.visit(at(i).name.c_str()); }
    int field_type(int i) override { return at(i).type; }
    int field_subtype(int i) override { return at(i).subtype; }
    int field_width(int i) override { return at(i).width; }
    int field_precision(int i) override { return at(i).precision; }
    bool field_nullable(int) override { return true; }
    void with_proj4(vx::string_visitor v) override { v.visit(f_proj4.c_str()); }

private:
    field const &at(int i) const { return f_fields.at(static_cast<std::size_t>(i)); }
    std::vector<field> f_fields;
    std::wstring f_proj4;
};

/// Fills a feature through its handle; keeps it when asked to.
class filler final : public vx::feature_visitor_impl
{
public:
    explicit filler(std::function<void(vx::feature)> fill) : f_fill(std::move(fill)) {}
    void visit(vx::feature feature) override
    {
        f_fill(feature);
        feature.detach();
    }

private:
    std::function<void(vx::feature)> f_fill;
};

inline bool add(source const &to, std::function<void(vx::feature)> fill, long long fid = 0)
{
    filler f(std::move(fill));
    return to.table.create_feature(fid, f);
}
} // namespace vx_test
