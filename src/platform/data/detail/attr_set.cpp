#include "platform/data/detail/attr_set.h"

#include "captions/engine.h"
#include "extension/binding/codes.h"
#include "extension/binding/column_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_random_request.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/flag_scope.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace vx::attr {
namespace {
using namespace codes::plain;

constexpr std::size_t c_max_records = std::numeric_limits<int>::max();
/// More than any format has, and few enough to ask for each.
constexpr int c_max_fields = 1 << 16;

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

class feature_dropper final : public vx::feature_visitor_impl
{
public:
    void visit(vx::feature item) override { vx_datasource_end(item); }
};

/// A field of that type has cells to be read.
bool has_cells_of(int type)
{
    return !std::holds_alternative<std::monostate>(empty_column(type, 0));
}

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
    std::wstring const shown = vx_mask_passwords(source);
    std::shared_ptr<attr_set> opened(new attr_set(handle));
    if (!opened->attempt([&] { opened->read_head(); })) {
        error = vx_res_format_w(c_capt_file_not_read, shown);
        return nullptr;
    }
    if (!opened->has_vector() && opened->grid_count() <= 0) {
        error = vx_res_format_w(c_capt_no_vector_data, shown);
        return nullptr;
    }
    if (opened->f_record_count > c_max_records) {
        // What does not know its count says why, or it was given up.
        bool const is_known = opened->f_record_count != std::numeric_limits<unsigned long long>::max();
        text_receiver why;
        if (!is_known)
            opened->f_source.with_error(why);
        error = why.f_text.empty() ? vx_res_format_w(c_capt_too_many_records, shown) : why.f_text;
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
    f_column_feeds.clear();
    f_feed.reset();
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

bool attr_set::known_extent(Tvx_box_d2 &box) const
{
    bool is_known = false;
    // What has been read already is known better than a server's estimate, and need not be read once more.
    bool const is_read = f_feed && f_feed->is_over();
    if (is_read && !f_feed->shapes()->is_damaged() && !f_feed->shapes()->box().is_empty()) {
        box = f_feed->shapes()->box();
        return true;
    }
    if (attempt([&] { is_known = f_source.with_extent(&box, false) && !box.is_empty(); }) && is_known)
        return true;
    if (is_read)
        box = f_feed->shapes()->box();
    return is_read;
}

bool attr_set::extent(Tvx_box_d2 &box) const
{
    if (known_extent(box))
        return true;
    bool is_known = false;
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
    int const count = std::min(f_source.field_count(), c_max_fields);
    for (int i = 0; i < count; ++i) {
        text_receiver name;
        f_source.field_name(i, name);
        f_fields.push_back({name.f_text, field_type(f_source.field_type(i), f_source.field_subtype(i))});
    }
    f_columns.resize(f_fields.size());
}

void attr_set::walk(vx::feature_visitor visitor) const
{
    vx::flag_scope const walking(f_is_walking);
    take_place(nullptr);
    attempt([&] {
        vx::feature_forward_request const request(
            vx_feature_forward_request_interface_specialize(vx_data_source_interface_generalize(f_source)));
        bool goes_on = request.reset_reading();
        patience patience;
        for (std::size_t i = 0; goes_on && i < f_record_count; ++i)
            goes_on = !patience.is_over() && request.with_next_feature(visitor);
        // A server holds the table as it was, for whoever has not come to its end.
        feature_dropper last;
        if (goes_on)
            (void)request.with_next_feature(last);
    });
}

column attr_set::read_column(std::size_t index) const
{
    auto const field = static_cast<int>(index);
    int const type = f_fields[index].type;
    vx::column_source const columns(
        vx_column_source_interface_specialize(vx_data_source_interface_generalize(f_source)));
    if (columns) {
        column_cells reader(type, f_record_count);
        if (columns.with_column(field, reader) && reader.f_is_good)
            return std::move(reader.f_cells);
    }
    feature_cells reader(f_record_count);
    reader.add_field(field, type);
    walk(reader);
    return std::move(reader.f_cells.front());
}

column const &attr_set::cells(std::size_t index)
{
    constexpr int c_at_once_ms = 1000;
    while (f_column_feeds.contains(index) && read_cells(index, c_at_once_ms)) {
    }
    auto &held = f_columns[index];
    if (!held)
        attempt([&] {
            column cells = has_cells_of(f_fields[index].type) ? read_column(index) : column();
            finish(cells);
            held = std::move(cells);
        });
    if (!held)
        held.emplace();
    return *held;
}

bool attr_set::read_cells(std::size_t index, int milliseconds)
{
    auto &held = f_columns[index];
    if (held || f_is_walking || !has_cells_of(f_fields[index].type))
        return false;
    bool is_more = false;
    bool const is_good = attempt([&] {
        auto &feed = f_column_feeds[index];
        if (!feed)
            feed = std::make_unique<column_feed>(f_source, static_cast<int>(index), f_fields[index].type,
                                                 f_record_count);
        if (feed->walks_features())
            take_place(feed.get());
        is_more = feed->read_on(milliseconds);
        if (!is_more)
            held = feed->take();
    });
    if (!is_more) {
        if (!is_good)
            held.emplace();
        f_column_feeds.erase(index);
    }
    return is_more;
}

double attr_set::read_part(std::size_t index) const
{
    auto const feed = f_column_feeds.find(index);
    return feed == f_column_feeds.end() ? double(has_cells(index)) : feed->second->part();
}

void attr_set::take_place(void const *by) const
{
    if (f_place_of == by && by)
        return;
    f_place_of = by;
    if (f_feed)
        f_feed->lose_place();
    for (auto const &[index, feed] : f_column_feeds)
        feed->lose_place();
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
    feature_cells reader(count);
    for (std::size_t i = 0; i < f_fields.size(); ++i)
        reader.add_field(static_cast<int>(i), f_fields[i].type);
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
    take_place(nullptr);
    f_finds_records_fast = is_there && std::chrono::steady_clock::now() - began < c_slow;
    for (column &cells : reader.f_cells)
        finish(cells);
    return std::move(reader.f_cells);
}

shape_feed *attr_set::feed()
{
    if (!f_feed)
        attempt([&] { f_feed = std::make_unique<shape_feed>(f_source, f_record_count); });
    return f_feed.get();
}

std::shared_ptr<shape_set const> attr_set::shapes()
{
    constexpr int c_slice_ms = 20;
    patience patience;
    while (read_shapes(c_slice_ms))
        if (patience.is_over())
            return nullptr;
    return f_feed && !f_feed->is_broken() ? f_feed->shapes() : nullptr;
}

std::shared_ptr<shape_set const> attr_set::shapes_so_far()
{
    shape_feed *const all = feed();
    return all ? all->shapes() : nullptr;
}

bool attr_set::read_shapes(int milliseconds)
{
    shape_feed *const all = f_is_walking ? nullptr : feed();
    return all && read_on(*all, milliseconds);
}

bool attr_set::read_on(shape_feed &from, int milliseconds)
{
    bool is_more = false;
    if (from.walks_features())
        take_place(&from);
    if (!attempt([&] { is_more = from.read_on(milliseconds); }))
        from.give_up();
    return is_more;
}

std::unique_ptr<shape_feed> attr_set::shapes_in(Tvx_box_d2 const &window)
{
    constexpr double c_small_part = 1.0 / 4; // of the area; a larger one is not found faster than all is read
    std::unique_ptr<shape_feed> found;
    attempt([&] {
        Tvx_box_d2 whole;
        if (f_is_walking || (f_feed && !f_feed->has_runs()) || window.is_empty() ||
            !f_source.with_extent(&whole, false) || whole.is_empty())
            return;
        auto const share = [](double from, double to, double whole_from, double whole_to) {
            return whole_to > whole_from
                       ? std::max(0.0, std::min(to, whole_to) - std::max(from, whole_from)) /
                             (whole_to - whole_from)
                       : 1.0;
        };
        double const part = share(window.min_x, window.max_x, whole.min_x, whole.max_x) *
                            share(window.min_y, window.max_y, whole.min_y, whole.max_y);
        if (part <= c_small_part)
            found = shape_feed::in_window(f_source, f_record_count, window);
    });
    return found;
}
} // namespace vx::attr
