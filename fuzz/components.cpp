#include "data/grid/grid_datasource.h"
#include "data/vector/vector_datasource.h"
#include "extension/binding/column_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_random_request.h"
#include "extension/binding/grid_source.h"
#include "extension/binding/stat_source.h"
#include "extension/binding/vector_source.h"
#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/base/vertex_list.h"
#include "platform/basic/vx_stat.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>

// A data set of a module that answers by chance: some families of it are missing, some methods are not
// answered, others give numbers, texts and objects that cannot be, or throw. Whoever reads it must end, and
// every object that it handed out must be ended once.

namespace {
/// The bytes of a case as decisions; all 0 behind the end.
class chance
{
public:
    chance(std::uint8_t const *data, std::size_t size) : f_data(data), f_end(data + size) {}
    std::uint8_t byte() { return f_data == f_end ? 0 : *f_data++; }
    /// True in one of `n` cases.
    bool one_in(int n) { return byte() % n == 1; }
    long long number()
    {
        constexpr long long c_odd[] = {0,        1, 2, 3, 7, -1, 255, 65536, 2'000'000'000, -2147483648LL,
                                       1LL << 62};
        return c_odd[byte() % std::size(c_odd)];
    }
    int small_number() { return static_cast<int>(number()); }
    double real()
    {
        constexpr double c_odd[] = {0, 1, -0.0, 0.5, 1e300, -1e308, INFINITY, NAN, -9999, 3.63};
        return c_odd[byte() % std::size(c_odd)];
    }
    void text(vx::string_visitor visitor)
    {
        constexpr wchar_t const *c_odd[] = {L"", L"a", L"Name", L"12", L"1e999", L"\xD800", nullptr};
        for (int i = byte() % 3; i > 0; --i)
            visitor.visit(c_odd[byte() % std::size(c_odd)]);
    }
    /// A method that is not answered gives its default; a few throw.
    bool answers()
    {
        auto const way = byte();
        if (way == 0xEE)
            throw std::runtime_error("no licence");
        return way % 4 != 3;
    }

private:
    std::uint8_t const *f_data;
    std::uint8_t const *f_end;
};

int g_open = 0; ///< objects that were handed out and not ended

struct odd_feature final : vx::feature_impl
{
    explicit odd_feature(chance &c) : by(c) { ++g_open; }
    void detach() override
    {
        --g_open;
        bool const throws = by.byte() == 0xEE;
        delete this;
        if (throws)
            throw std::runtime_error("ended badly");
    }
    long long fid() override { return by.number(); }
    int geom_type() override { return by.answers() ? by.byte() % 20 : 0; }
    bool get_point(Tvx_vtx_d2 *v) override
    {
        *v = {by.real(), by.real()};
        return by.answers();
    }
    bool get_multipoint(Tvx_op2d *list) override { return fill(list); }
    bool get_polypoint(Tvx_op2d *list) override { return fill(list); }
    bool fill(Tvx_op2d *list)
    {
        vx_ov_d2_set_size(list, by.byte() % 3);
        for (unsigned i = 0; i < vx_ov_d2_get_size(list); ++i) {
            auto *const part = vx_ov_d2_get_pv_ptr(list, i);
            vx_pv_d2_set_size(part, by.byte() % 4);
            for (unsigned k = 0; k < vx_pv_d2_get_size(part); ++k) {
                Tvx_vtx_d2 const at{by.real(), by.real()};
                vx_pv_d2_set_vtx(part, k, &at);
            }
        }
        return by.answers();
    }
    int field_type(int) override { return by.small_number(); }
    void get_string(int, bool *not_null, vx::string_visitor visitor) override
    {
        *not_null = by.answers();
        by.text(visitor);
    }
    int get_integer(int, bool *not_null) override { return *not_null = by.answers(), by.small_number(); }
    long long get_bigint(int, bool *not_null) override { return *not_null = by.answers(), by.number(); }
    double get_numeric(int, bool *not_null) override { return *not_null = by.answers(), by.real(); }
    void get_binary(int, bool *not_null, vx::bytes_visitor visitor) override
    {
        *not_null = by.answers();
        visitor.visit(by.byte() % 3, "ab");
    }
    chance &by;
};

struct odd_source final : vx::data_source_impl,
                          vx::vector_source_impl,
                          vx::grid_source_impl,
                          vx::stat_source_impl,
                          vx::feature_forward_request_impl,
                          vx::feature_random_request_impl,
                          vx::column_source_impl
{
    explicit odd_source(chance &c) : by(c), families(by.byte()) { ++g_open; }

    template <class Impl>
    void answer(int bit, char const *name, void **table, void **self)
    {
        if (families >> bit & 1)
            return;
        Impl::specialize(name, table, self);
        if (*self == static_cast<Impl *>(this) && by.one_in(16))
            *(by.one_in(2) ? table : self) = nullptr;
    }
    void specialize(char const *name, void **table, void **self) override
    {
        vx::data_source_impl::specialize(name, table, self);
        struct family
        {
            char const *name;
            void (odd_source::*answer)(int, char const *, void **, void **);
        } const all[] = {
            {vx::vector_source_impl::interface_name(), &odd_source::answer<vx::vector_source_impl>},
            {vx::grid_source_impl::interface_name(), &odd_source::answer<vx::grid_source_impl>},
            {vx::stat_source_impl::interface_name(), &odd_source::answer<vx::stat_source_impl>},
            {vx::feature_forward_request_impl::interface_name(),
             &odd_source::answer<vx::feature_forward_request_impl>},
            {vx::feature_random_request_impl::interface_name(),
             &odd_source::answer<vx::feature_random_request_impl>},
            {vx::column_source_impl::interface_name(), &odd_source::answer<vx::column_source_impl>},
        };
        int bit = 0;
        for (auto const &one : all)
            if (std::strcmp(name, one.name) == 0)
                return (this->*one.answer)(bit, name, table, self);
            else
                ++bit;
    }
    operator t_vx_interface() override { return vx::data_source_impl::operator t_vx_interface(); }
    [[nodiscard]] t_vx_data_source_interface handle()
    {
        return {vx::data_source_impl::family_table(), static_cast<vx::data_source_impl *>(this)};
    }

    // data_source
    void detach() override
    {
        --g_open;
        bool const throws = by.byte() == 0xEE;
        delete this;
        if (throws)
            throw std::runtime_error("ended badly");
    }
    bool with_extent(Tvx_box_d2 *box, bool) override
    {
        *box = {by.real(), by.real(), by.real(), by.real()};
        return by.answers();
    }
    void with_proj4(vx::string_visitor v) override { by.text(v); }
    int field_count() override { return by.answers() ? by.small_number() : 0; }
    void field_name(int, vx::string_visitor v) override { by.text(v); }
    int field_type(int) override { return by.byte() % 6; }
    int field_subtype(int) override { return by.byte() % 9; }
    bool field_index(wchar_t const *, int *index) override
    {
        *index = by.small_number();
        return by.answers();
    }
    bool make_field_name(wchar_t const *, vx::string_visitor v) override { return by.text(v), by.answers(); }
    int vector_count() override { return by.answers() ? by.small_number() : 1; }
    int grid_count() override { return by.small_number(); }
    void with_files(vx::string_visitor v) override { by.text(v); }
    void with_error(vx::string_visitor v) override { by.text(v); }

    // vector_source
    int geom_type() override { return by.byte() % 20; }
    unsigned long long feature_count(bool) override
    {
        return by.answers() ? static_cast<unsigned long long>(by.number()) : 3;
    }
    void fid_field_name(vx::string_visitor v) override { by.text(v); }
    int geom_field_count() override { return by.byte() % 3; }

    // grid_source
    bool with_dimensions(int *counts) override
    {
        for (int i = 0; i < 3; ++i)
            counts[i] = by.small_number();
        return by.answers();
    }
    int field_datatype(int) override { return by.byte() % 20; }

    // stat_source
    bool has_stat(int) override { return by.answers(); }
    bool minimum(int, double *v) override { return *v = by.real(), by.answers(); }
    bool maximum(int, double *v) override { return *v = by.real(), by.answers(); }
    bool average(int, double *v) override { return *v = by.real(), by.answers(); }
    bool stdev(int, double *v) override { return *v = by.real(), by.answers(); }
    bool count_nonnull(int, long long *v) override { return *v = by.number(), by.answers(); }
    bool count_distinct(int, long long *v) override { return *v = by.number(), by.answers(); }
    bool with_unique_numerics(int, int, vx::floatings_visitor visitor) override
    {
        double some[] = {by.real(), by.real()};
        visitor.visit(by.byte() % 3, some);
        return by.answers();
    }
    bool with_unique_strings(int, int, vx::string_visitor visitor) override
    {
        return by.text(visitor), by.answers();
    }

    // reading
    bool set_attribute_filter(wchar_t const *) override { return by.answers(); }
    bool reset_reading() override
    {
        left = by.byte() % 8;
        return by.answers();
    }
    bool with_next_feature(vx::feature_visitor visitor) override { return left-- > 0 && bring(visitor); }
    bool with_feature(long long, vx::feature_visitor visitor) override { return bring(visitor); }
    bool has_moveto_index() override { return by.answers(); }
    bool moveto_index(long long) override { return by.answers(); }
    bool bring(vx::feature_visitor visitor)
    {
        for (int i = by.byte() % 4 == 3 ? by.byte() % 3 : 1; i > 0; --i)
            if (by.one_in(8))
                visitor.visit({});
            else
                visitor.visit(static_cast<vx::feature>(*new odd_feature(by)));
        return by.byte() % 8 != 7;
    }
    bool with_column(int, vx::column_visitor visitor) override
    {
        int const starts[] = {0, 1, 3};
        int const whole[] = {1, 2};
        double const real[] = {by.real(), by.real()};
        unsigned char const defined[] = {by.byte()};
        for (int i = by.byte() % 4; i > 0; --i)
            switch (by.byte() % 3) {
            case 0:
                visitor.visit_texts(2, "abc", starts, by.one_in(2) ? defined : nullptr);
                break;
            case 1:
                visitor.visit_integers(2, whole, by.one_in(2) ? defined : nullptr);
                break;
            default:
                visitor.visit_floatings(2, real, nullptr);
            }
        return by.answers();
    }

    chance &by;
    int families;
    int left = 0;
};

/// What the library asks of data sets.
template <class Source>
void ask(Source &set)
{
    Tvx_box_d2 box;
    (void)set.extent(box, vx::data::force_compute);
    (void)set.files_list();
    (void)set.projection();
    auto const field = set.field_index(L"name");
    for (auto const f : {field, vx::data::field_index_type{0}, vx::data::c_no_field}) {
        (void)set.field_name(f);
        (void)set.field_minimum(f);
        (void)set.field_stdev(f);
        (void)set.field_quantity(f);
        (void)set.field_distinct(f);
        std::vector<double> numbers;
        (void)set.field_values(f, numbers);
        std::vector<std::wstring> texts;
        (void)set.field_values(f, texts);
        std::set<std::wstring> unique;
        if (set.field_unique_values(f, 2, unique) && !set.field_has_statistics(f))
            unique.clear();
        std::set<double> others;
        (void)set.field_unique_values(f, 2, others);
    }
}

template <class Call>
void allowed_to_throw(Call call)
{
    try {
        call();
    } catch (std::exception const &) { // what a driver throws passes through the tasks
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    chance by(data, size);
    {
        odd_source set(by);
        allowed_to_throw([&] {
            vx::data::vector_datasource d;
            if (d.from_handle(set.handle()))
                ask(d);
        });
        allowed_to_throw([&] {
            vx::data::grid_datasource d;
            if (d.from_handle(set.handle())) {
                (void)d.dimensions();
                (void)d.obj_count();
                ask(d);
            }
        });
        --g_open; // this one is the case's own
    }
    must(g_open == 0);
    // The engine's own reading throws nothing, and ends the set.
    auto const handle = (new odd_source(by))->handle();
    if (vx::owned<Ivx_attr_data, &vx_attr_data_release> const set{
            vx_attr_data_create_open(L"odd", &handle, nullptr)}) {
        (void)vx_attr_data_get_geom_type(set.get());
        Tvx_box_d2 box;
        (void)vx_attr_data_get_extent(set.get(), &box);
        vx::owned<Ivx_attr_files, &vx_attr_files_close> const table(vx_attr_files_open(set.get(), 1, 0));
        auto const fields = std::min(vx_attr_files_get_np(table.get()), 3U);
        for (unsigned f = 0; f < fields; ++f)
            for (unsigned r : {0U, 1U, 2'000'000'000U}) {
                bool ok = false;
                must(vx_attr_files_get_wstr(table.get(), f, r, &ok) != nullptr);
            }
        if (vx_attr_files_get_no(table.get()) < 2000)
            vx_shape_files_close(vx_shape_files_open(set.get()));
    }
    must(g_open == 0);
    return 0;
}
