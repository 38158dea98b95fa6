#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/vector_source.h"

#include "platform/base/geometry.h"
#include "platform/base/vertex_list.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_datasource.h"

#include <chrono>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <variant>
#include <vector>

/// A data set in memory behind the component interface, for tests of what reads data sets.
namespace vx_test {
using cell = std::variant<std::monostate, std::wstring, double, int, long long>;

struct memory_field
{
    std::wstring name;
    int type; ///< of the interface: 1 string, 2 numeric, 3 integer, 4 bigint
    int subtype = 0;
};

struct memory_feature
{
    std::vector<cell> cells;
    int geom_type = 0;
    std::vector<std::vector<Tvx_pnt_d2>> parts = {};
};

struct memory_table
{
    std::vector<memory_field> fields;
    std::vector<memory_feature> features;
    int geom_type = 1;
    int vector_count = 1;
    int grid_count = 0;
    long long missing_features = 0; ///< features that the count tells and the walk does not give
    bool stores_extent = false;
    int delay_us = 0; ///< what the walk takes for each feature

    std::string_view throws_at = {}; ///< the call that throws, for good
    bool throws_memory = false;      ///< and what: lack of memory

    int opens = 0;  ///< sources opened so far
    int opened = 0; ///< sources opened and not yet ended
    int walks = 0;
    int held_features = 0;

    void enter(std::string_view call) const
    {
        if (call != throws_at)
            return;
        if (throws_memory)
            throw std::bad_alloc();
        throw std::runtime_error("out of order");
    }
};

/// One open source on a table; ends itself at detach.
class memory_source
{
public:
    explicit memory_source(memory_table &table)
        : f_table(table), f_source(*this), f_vector(*this), f_request(*this)
    {
        ++f_table.opens;
        ++f_table.opened;
    }
    [[nodiscard]] t_vx_data_source_interface handle() { return f_source; }

private:
    struct feature final : vx::feature_impl
    {
        feature(memory_table &t, std::size_t i) : table(t), index(i) { ++table.held_features; }
        void detach() override
        {
            memory_table const &kept = table;
            --table.held_features;
            delete this;
            kept.enter("feature.detach");
        }
        [[nodiscard]] memory_feature const &record() const { return table.features[index]; }
        int geom_type() override { return record().geom_type; }
        bool get_point(Tvx_vtx_d2 *vertex) override
        {
            if (record().parts.empty())
                return false;
            *vertex = {record().parts[0][0].x, record().parts[0][0].y};
            return true;
        }
        bool get_multipoint(Tvx_op2d *list) override { return fill(list); }
        bool get_polypoint(Tvx_op2d *list) override { return fill(list); }
        bool fill(Tvx_op2d *list) const
        {
            vx_ov_d2_clear(list);
            vx_ov_d2_set_size(list, record().parts.size());
            for (std::size_t p = 0; p < record().parts.size(); ++p) {
                auto const &points = record().parts[p];
                auto *const part = vx_ov_d2_get_pv_ptr(list, p);
                vx_pv_d2_set_size(part, points.size());
                for (std::size_t v = 0; v < points.size(); ++v) {
                    Tvx_vtx_d2 const vertex{points[v].x, points[v].y};
                    vx_pv_d2_set_vtx(part, v, &vertex);
                }
            }
            return true;
        }
        template <class T>
        T number(int field, bool *not_null) const
        {
            table.enter("cell");
            auto const &value = record().cells[static_cast<std::size_t>(field)];
            auto const *const held = std::get_if<T>(&value);
            *not_null = held != nullptr;
            return held ? *held : T{};
        }
        void get_string(int field, bool *not_null, vx::string_visitor visitor) override
        {
            auto const text = number<std::wstring>(field, not_null);
            if (*not_null)
                visitor.visit(text.c_str());
        }
        int get_integer(int field, bool *not_null) override { return number<int>(field, not_null); }
        long long get_bigint(int field, bool *not_null) override
        {
            return number<long long>(field, not_null);
        }
        double get_numeric(int field, bool *not_null) override { return number<double>(field, not_null); }

        memory_table &table;
        std::size_t index;
    };

    struct source final : vx::data_source_impl
    {
        explicit source(memory_source &o) : owner(o) {}
        void specialize(char const *name, void **table, void **self) override
        {
            owner.specialize(name, table, self);
        }
        void detach() override
        {
            memory_table const &kept = owner.f_table;
            --owner.f_table.opened;
            delete &owner;
            kept.enter("detach");
        }
        int field_count() override { return static_cast<int>(owner.f_table.fields.size()); }
        void field_name(int field, vx::string_visitor visitor) override
        {
            visitor.visit(at(field).name.c_str());
        }
        int field_type(int field) override { return at(field).type; }
        int field_subtype(int field) override { return at(field).subtype; }
        int vector_count() override { return owner.f_table.vector_count; }
        int grid_count() override { return owner.f_table.grid_count; }
        bool with_extent(Tvx_box_d2 *box, bool force) override
        {
            owner.f_table.enter("with_extent");
            if (!force && !owner.f_table.stores_extent)
                return false;
            owner.f_table.walks += !owner.f_table.stores_extent;
            for (auto const &feature : owner.f_table.features)
                for (auto const &part : feature.parts)
                    for (auto const &point : part)
                        box->add(point.x, point.y);
            return !box->is_empty();
        }
        memory_field const &at(int field) { return owner.f_table.fields[static_cast<std::size_t>(field)]; }
        memory_source &owner;
    };
    struct vector final : vx::vector_source_impl
    {
        explicit vector(memory_source &o) : owner(o) {}
        void specialize(char const *name, void **table, void **self) override
        {
            owner.specialize(name, table, self);
        }
        int geom_type() override { return owner.f_table.geom_type; }
        decltype(std::declval<vx::vector_source>().feature_count(true)) feature_count(bool) override
        {
            owner.f_table.enter("feature_count");
            return owner.f_table.features.size() + static_cast<std::size_t>(owner.f_table.missing_features);
        }
        memory_source &owner;
    };
    struct request final : vx::feature_forward_request_impl
    {
        explicit request(memory_source &o) : owner(o) {}
        void specialize(char const *name, void **table, void **self) override
        {
            owner.specialize(name, table, self);
        }
        bool reset_reading() override
        {
            ++owner.f_table.walks;
            next = 0;
            return true;
        }
        bool with_next_feature(vx::feature_visitor visitor) override
        {
            owner.f_table.enter("with_next_feature");
            if (next >= owner.f_table.features.size())
                return false;
            std::this_thread::sleep_for(std::chrono::microseconds(owner.f_table.delay_us));
            visitor.visit(static_cast<vx::feature>(*new feature(owner.f_table, next++)));
            return true;
        }
        memory_source &owner;
        std::size_t next = 0;
    };

    void specialize(char const *name, void **table, void **self)
    {
        f_source.data_source_impl::specialize(name, table, self);
        f_vector.vector_source_impl::specialize(name, table, self);
        f_request.feature_forward_request_impl::specialize(name, table, self);
    }

    memory_table &f_table;
    source f_source;
    vector f_vector;
    request f_request;
};

/// While it lives, every source that begins with `name` opens the table.
class memory_driver
{
public:
    memory_driver(std::wstring name, memory_table &table) : f_name(std::move(name)), f_table(table)
    {
        f_driver = {"vx_test_memory", 100'000, this, &can_open, &open, nullptr};
        EXPECT_TRUE(vx_datasource_add_driver(&f_driver));
    }
    memory_driver(memory_driver const &) = delete;
    memory_driver &operator=(memory_driver const &) = delete;
    ~memory_driver() { vx_datasource_remove_driver(&f_driver); }

private:
    static bool can_open(void *context, wchar_t const *source)
    {
        return std::wstring_view(source).starts_with(static_cast<memory_driver *>(context)->f_name);
    }
    static void open(void *context, wchar_t const *, bool, t_vx_data_source_interface *result,
                     Ivx_string_adp *)
    {
        *result = (new memory_source(static_cast<memory_driver *>(context)->f_table))->handle();
    }

    std::wstring f_name;
    memory_table &f_table;
    Tvx_datasource_driver f_driver{};
};
} // namespace vx_test
