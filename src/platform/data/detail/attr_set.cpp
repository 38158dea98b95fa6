#include "platform/data/detail/attr_set.h"

#include "captions/engine.h"
#include "extension/binding/codes.h"
#include "extension/binding/column_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_random_request.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/flag_scope.h"
#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/base/vertex_list.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <type_traits>
#include <utility>

namespace vx::attr {
namespace {
using namespace codes::plain;

// Types with z have the number of the flat one and this; a patch of surfaces has no flat form.
constexpr int c_geom_z = geom_point_z - geom_point;

constexpr std::size_t c_max_records = std::numeric_limits<int>::max();

int field_type(int type, int subtype)
{
    switch (subtype) {
    case subtype_date:
        return c_attr_date;
    case subtype_time:
        return c_attr_time;
    case subtype_date_time:
        return c_attr_date_time;
    case subtype_binary:
        return c_attr_binary;
    default:
        break;
    }
    switch (type) {
    case field_string:
        return c_attr_string;
    case field_numeric:
        return c_attr_numeric;
    case field_integer:
        return c_attr_integer;
    case field_bigint:
        return c_attr_bigint;
    default:
        return c_attr_unknown;
    }
}

class text_receiver final : public vx::string_visitor_impl
{
public:
    void visit(wchar_t const *text) override { f_text = text ? text : L""; }
    std::wstring f_text;
};

/// Receives the features of a walk; each is ended as soon as it was looked at.
class feature_reader : public vx::feature_visitor_impl
{
public:
    void visit(vx::feature item) final
    {
        struct ending
        {
            vx::feature const &item;
            ~ending() { vx_datasource_end(item); }
        } const ends{item};
        read(item);
    }

protected:
    ~feature_reader() = default;
    virtual void read(vx::feature const &item) = 0;
};

class complaint_listener final : public vx::string_visitor_impl
{
public:
    void visit(wchar_t const *) override { f_is_heard = true; }
    bool f_is_heard = false;
};

template <class T>
T number_cell(vx::feature const &item, int field, bool *defined)
{
    if constexpr (std::is_same_v<T, double>)
        return item.get_numeric(field, defined);
    else if constexpr (std::is_same_v<T, std::int64_t>)
        return item.get_bigint(field, defined);
    else
        return item.get_integer(field, defined);
}

template <class T>
class number_reader final : public feature_reader
{
public:
    number_reader(int field, std::size_t records) : f_cells(records), f_field(field) {}
    number_cells<T> f_cells;

private:
    void read(vx::feature const &item) override
    {
        bool defined = false;
        auto const value = number_cell<T>(item, f_field, &defined);
        f_cells.append(value, defined);
    }
    int f_field;
};

class text_reader final : public feature_reader
{
public:
    text_reader(int field, std::size_t records) : f_cells(records), f_field(field) {}
    text_cells f_cells;

private:
    void read(vx::feature const &item) override
    {
        bool defined = false;
        f_receiver.f_text.clear();
        item.get_string(f_field, &defined, f_receiver);
        if (defined)
            f_cells.append(vx::text::wide_to_utf8(f_receiver.f_text));
        else
            f_cells.append_none();
    }
    int f_field;
    text_receiver f_receiver;
};

/// The cells of records that come one by one, for all fields.
class record_reader final : public feature_reader
{
public:
    record_reader(std::vector<field> const &fields, std::size_t records)
    {
        for (field const &f : fields)
            f_cells.push_back(empty_column(f.type, records));
    }
    std::vector<column> f_cells;
    std::size_t f_size = 0;

private:
    static column empty_column(int type, std::size_t records)
    {
        switch (type) {
        case c_attr_string:
        case c_attr_date:
        case c_attr_time:
        case c_attr_date_time:
            return text_cells(records);
        case c_attr_integer:
            return number_cells<std::int32_t>(records);
        case c_attr_bigint:
            return number_cells<std::int64_t>(records);
        case c_attr_numeric:
            return number_cells<double>(records);
        default:
            return {};
        }
    }
    void read(vx::feature const &item) override
    {
        for (std::size_t i = 0; i < f_cells.size(); ++i)
            std::visit([&](auto &cells) { append(cells, item, static_cast<int>(i)); }, f_cells[i]);
        ++f_size;
    }
    void append(std::monostate &, vx::feature const &, int) {}
    void append(text_cells &cells, vx::feature const &item, int field)
    {
        bool defined = false;
        f_receiver.f_text.clear();
        item.get_string(field, &defined, f_receiver);
        if (defined)
            cells.append(vx::text::wide_to_utf8(f_receiver.f_text));
        else
            cells.append_none();
    }
    template <class T>
    void append(number_cells<T> &cells, vx::feature const &item, int field)
    {
        bool defined = false;
        auto const value = number_cell<T>(item, field, &defined);
        cells.append(value, defined);
    }
    text_receiver f_receiver;
};

/// Receives the runs of a whole column of one kind; another kind, and what is past the records, is refused.
template <class Cells>
class column_reader final : public vx::column_visitor_impl
{
public:
    explicit column_reader(std::size_t records) : f_cells(records), f_left(records) {}
    Cells f_cells;
    bool f_is_good = true;

    bool visit_integers(unsigned long long count, int const *values, unsigned char const *defined) override
    {
        return take<number_cells<std::int32_t>>(count, values, defined);
    }
    bool visit_bigints(unsigned long long count, long long const *values,
                       unsigned char const *defined) override
    {
        return take<number_cells<std::int64_t>>(count, values, defined);
    }
    bool visit_floatings(unsigned long long count, double const *values,
                         unsigned char const *defined) override
    {
        return take<number_cells<double>>(count, values, defined);
    }
    bool visit_texts(unsigned long long count, char const *bytes, int const *starts,
                     unsigned char const *defined) override
    {
        if constexpr (std::is_same_v<Cells, text_cells>)
            return for_each(count, defined, [&](std::size_t i, bool is_defined) {
                if (is_defined)
                    f_cells.append({bytes + starts[i], static_cast<std::size_t>(starts[i + 1] - starts[i])});
                else
                    f_cells.append_none();
            });
        return f_is_good = false;
    }

private:
    template <class Wanted, class T>
    bool take(unsigned long long count, T const *values, unsigned char const *defined)
    {
        if constexpr (std::is_same_v<Cells, Wanted>)
            return for_each(count, defined,
                            [&](std::size_t i, bool is_defined) { f_cells.append(values[i], is_defined); });
        return f_is_good = false;
    }
    template <class Append>
    bool for_each(unsigned long long count, unsigned char const *defined, Append append)
    {
        auto const taken = std::min<std::size_t>(count, f_left);
        for (std::size_t i = 0; i < taken; ++i)
            append(i, !defined || (defined[i / 8] >> (i % 8) & 1) != 0);
        f_left -= taken;
        return f_left > 0;
    }

    std::size_t f_left;
};

/// Asks the one who waits for data sets, if there is one, now and then whether to go on.
class patience
{
public:
    [[nodiscard]] bool is_over()
    {
        if (!f_waiting || std::chrono::steady_clock::now() < f_next)
            return false;
        bool const goes_on = f_waiting();
        f_next = std::chrono::steady_clock::now() + c_between_questions;
        return !goes_on;
    }

private:
    static constexpr std::chrono::milliseconds c_between_questions{20};
    closure<bool()> f_waiting = vx_datasource_get_waiting();
    std::chrono::steady_clock::time_point f_next = std::chrono::steady_clock::now() + c_between_questions;
};

class shape_reader final : public feature_reader
{
public:
    explicit shape_reader(std::size_t records) : f_shapes(std::make_shared<shape_set>(records)) {}

    std::shared_ptr<shape_set> f_shapes;

private:
    void read(vx::feature const &item) override
    {
        int const type = item.geom_type();
        switch (type > c_geom_z ? type - c_geom_z : type) {
        case geom_point: {
            Tvx_vtx_d2 point;
            if (item.get_point(&point))
                return f_shapes->append_point({point.x, point.y});
            break;
        }
        case geom_multipoint:
            if (item.get_multipoint(f_list.get()))
                return f_shapes->append(c_shape_point, f_list.get());
            break;
        case geom_polyline:
            if (item.get_polypoint(f_list.get()))
                return f_shapes->append(c_shape_polyline, f_list.get());
            break;
        case geom_polygon:
            if (item.get_polypoint(f_list.get()))
                return f_shapes->append(c_shape_polygon, f_list.get());
            break;
        default:
            break;
        }
        f_shapes->append_none();
    }
    vx::owned<Tvx_op2d, &vx_ov_d2_destroy> f_list{vx_ov_d2_create()};
};
} // namespace

std::shared_ptr<attr_set> attr_set::open(std::wstring const &source, std::wstring &error)
{
    t_vx_data_source_interface handle{};
    vx_datasource_open(source.c_str(), true, &handle);
    if (vx_data_source_interface_is_null(handle)) {
        vx_datasource_get_error(Tvx_std_wstring_adapter(error));
        return nullptr;
    }
    return take(handle, source, error);
}

std::shared_ptr<attr_set> attr_set::take(t_vx_data_source_interface handle, std::wstring const &source,
                                         std::wstring &error)
{
    std::shared_ptr<attr_set> opened(new attr_set(handle));
    if (!opened->attempt([&] { opened->read_head(); })) {
        error = vx_res_format_w(c_capt_file_not_read, source);
        return nullptr;
    }
    if (!opened->has_vector() && opened->grid_count() <= 0) {
        error = vx_res_format_w(c_capt_no_vector_data, source);
        return nullptr;
    }
    if (opened->f_record_count > c_max_records) {
        error = vx_res_format_w(c_capt_too_many_records, source);
        return nullptr;
    }
    error.clear();
    return opened;
}

attr_set::attr_set(t_vx_data_source_interface source)
    : f_source(source),
      f_vector(vx_vector_source_interface_specialize(vx_data_source_interface_generalize(source)))
{
}

template <class Call>
bool attr_set::attempt(Call call) const
{
    try {
        call();
        return true;
    } catch (...) {
        vx_datasource_failed(f_source.handle().table);
        return false;
    }
}

void attr_set::read_head()
{
    f_has_vector = f_vector && f_source.vector_count() > 0;
    if (f_has_vector) {
        f_record_count = f_vector.feature_count(true);
        read_fields();
    }
}

attr_set::~attr_set()
{
    vx_datasource_end(f_source);
}

int attr_set::geom_type() const
{
    int type = 0;
    attempt([&] { type = f_vector.geom_type(); });
    return type;
}

int attr_set::grid_count() const
{
    int count = 0;
    attempt([&] { count = f_source.grid_count(); });
    return count;
}

bool attr_set::extent(Tvx_box_d2 &box) const
{
    bool is_known = false;
    if (attempt([&] { is_known = f_source.with_extent(&box, false) && !box.is_empty(); }) && is_known)
        return true;
    // What would be read once more for it has been read already.
    if (f_shapes) {
        box = f_shapes->box();
        return true;
    }
    return attempt([&] { is_known = f_source.with_extent(&box, true); }) && is_known;
}

std::wstring attr_set::proj4() const
{
    text_receiver text;
    attempt([&] { f_source.with_proj4(text); });
    return text.f_text;
}

void attr_set::read_fields()
{
    int const count = f_source.field_count();
    for (int i = 0; i < count; ++i) {
        text_receiver name;
        f_source.field_name(i, name);
        f_fields.push_back({name.f_text, field_type(f_source.field_type(i), f_source.field_subtype(i))});
    }
    f_columns.resize(f_fields.size());
}

attr_set::walk_result attr_set::walk(vx::feature_visitor visitor) const
{
    vx::flag_scope const walking(f_is_walking);
    complaint_listener complaints;
    bool is_given_up = false;
    bool const is_good = attempt([&] {
        vx::feature_forward_request const request(
            vx_feature_forward_request_interface_specialize(vx_data_source_interface_generalize(f_source)));
        bool const is_ready = request.reset_reading();
        complaints.f_is_heard = !is_ready;
        patience patience;
        for (std::size_t i = 0; is_ready && i < f_record_count; ++i) {
            is_given_up = patience.is_over();
            bool const is_read = !is_given_up && request.with_next_feature(visitor);
            // It holds the complaints of its last call only.
            f_source.with_error(complaints);
            if (!is_read)
                break;
        }
    });
    if (is_given_up)
        return c_walk_given_up;
    return is_good && !complaints.f_is_heard ? c_walk_done : c_walk_complained;
}

template <class Cells, class Reader>
Cells attr_set::read_column(int field) const
{
    vx::column_source const columns(
        vx_column_source_interface_specialize(vx_data_source_interface_generalize(f_source)));
    if (columns) {
        column_reader<Cells> reader(f_record_count);
        if (columns.with_column(field, reader) && reader.f_is_good)
            return std::move(reader.f_cells);
    }
    Reader reader(field, f_record_count);
    walk(reader);
    return std::move(reader.f_cells);
}

column const &attr_set::cells(std::size_t index)
{
    auto &held = f_columns[index];
    if (!held && !attempt([&] { read_cells(index); }))
        held.emplace();
    return *held;
}

void attr_set::read_cells(std::size_t index)
{
    auto &held = f_columns[index];
    auto const field = static_cast<int>(index);
    switch (f_fields[index].type) {
    case c_attr_string:
    case c_attr_date:
    case c_attr_time:
    case c_attr_date_time: {
        auto texts = read_column<text_cells, text_reader>(field);
        texts.finish();
        held = std::move(texts);
        break;
    }
    case c_attr_integer:
        held = read_column<number_cells<std::int32_t>, number_reader<std::int32_t>>(field);
        break;
    case c_attr_bigint:
        held = read_column<number_cells<std::int64_t>, number_reader<std::int64_t>>(field);
        break;
    case c_attr_numeric:
        held = read_column<number_cells<double>, number_reader<double>>(field);
        break;
    default:
        held.emplace();
        break;
    }
}

std::vector<column> attr_set::read_records(std::size_t first, std::size_t count)
{
    std::vector<column> cells;
    attempt([&] { cells = read_page(first, count); });
    return cells;
}

std::vector<column> attr_set::read_page(std::size_t first, std::size_t count)
{
    constexpr std::chrono::milliseconds c_slow{100};
    auto const source = vx_data_source_interface_generalize(f_source);
    vx::feature_forward_request const walk(vx_feature_forward_request_interface_specialize(source));
    vx::feature_random_request const places(vx_feature_random_request_interface_specialize(source));
    if (f_is_walking || !walk)
        return {};
    auto const began = std::chrono::steady_clock::now();
    record_reader reader(f_fields, count);
    // Where a place is found by walking to it, a database still steps faster than its driver.
    bool const by_page = !places.has_moveto_index();
    bool good =
        by_page ? walk.set_attribute_filter(
                      (L"LIMIT " + std::to_wstring(count) + L" OFFSET " + std::to_wstring(first)).c_str()) &&
                      walk.reset_reading()
                : places.moveto_index(static_cast<long long>(first));
    bool const is_there = good;
    while (good && reader.f_size < count)
        good = walk.with_next_feature(reader);
    if (by_page)
        walk.set_attribute_filter(nullptr);
    walk.reset_reading();
    f_finds_records_fast = is_there && std::chrono::steady_clock::now() - began < c_slow;
    for (column &cells : reader.f_cells)
        if (auto *const texts = std::get_if<text_cells>(&cells))
            texts->finish();
    return std::move(reader.f_cells);
}

std::shared_ptr<shape_set const> attr_set::shapes()
{
    if (!f_shapes)
        attempt([&] { read_shapes(); });
    return f_shapes;
}

void attr_set::read_shapes()
{
    shape_reader reader(f_record_count);
    walk_result const result = walk(reader);
    if (result == c_walk_given_up)
        return;
    if (result == c_walk_complained)
        reader.f_shapes->set_damaged();
    // A driver that gives fewer features than it counts leaves the rest without geometry.
    while (reader.f_shapes->size() < f_record_count)
        reader.f_shapes->append_none();
    reader.f_shapes->finish();
    f_shapes = reader.f_shapes;
}
} // namespace vx::attr
