#include "field_table.h"

#include "desk_texts.h"

#include "platform/data/vx_attr_data.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {
constexpr unsigned c_looked_at = 2000; ///< records
constexpr std::size_t c_most_values = 50;

} // namespace

field_table::~field_table()
{
    vx_attr_files_close(f_files);
}

void field_table::set_data(Ivx_attr_data *data)
{
    if (data == f_data && f_files)
        return;
    vx_attr_files_close(f_files);
    f_files = nullptr;
    f_fields.clear();
    f_data = data;
    f_is_open = false;
}

void field_table::set_only_telling(bool only)
{
    f_only_telling = only;
}

void field_table::open()
{
    if (f_is_open)
        return;
    f_is_open = true;
    f_files = f_data ? vx_attr_files_open(f_data, 1, 0) : nullptr;
    for (unsigned i = 0; i < vx_attr_files_get_np(f_files); ++i) {
        switch (vx_attr_files_get_field_type(f_files, i)) {
        case c_attr_string:
        case c_attr_date:
        case c_attr_time:
        case c_attr_date_time:
            f_fields.push_back(judge(i, false));
            break;
        case c_attr_integer:
        case c_attr_numeric:
        case c_attr_bigint:
            f_fields.push_back(judge(i, true));
            break;
        default: // nothing that styles could go by
            break;
        }
    }
}

field_table::field field_table::judge(unsigned index, bool is_number)
{
    std::set<std::wstring> texts;
    double least = 0;
    double greatest = 0;
    double before = 0;
    bool is_running = true; // each number is the one before and one more
    unsigned const count = std::min(vx_attr_files_get_no(f_files), c_looked_at);
    unsigned defined = 0;
    for (unsigned record = 0; record < count; ++record) {
        bool ok = false;
        wchar_t const *const text = vx_attr_files_peek_wstr(f_files, index, record, &ok);
        if (!ok)
            continue;
        texts.insert(text);
        if (is_number) {
            double const value = std::wcstod(text, nullptr);
            least = defined == 0 ? value : std::min(least, value);
            greatest = defined == 0 ? value : std::max(greatest, value);
            is_running = is_running && (defined == 0 || value == before + 1);
            before = value;
        }
        ++defined;
    }
    std::wstring const name = vx_attr_files_get_field_name_w(f_files, index);
    if (is_number)
        return {index, true, texts.size() > 1 && !is_running,
                name + L": " + desk_say(desk_text::numbers, desk_number(least), desk_number(greatest))};
    bool const is_name = texts.size() > c_most_values || (defined > 10 && texts.size() > defined / 2);
    return {index, false, texts.size() > 1 && !is_name,
            name + L": " + desk_say(desk_text::values, std::to_wstring(texts.size()))};
}

unsigned field_table::record_count()
{
    open();
    return vx_attr_files_get_no(f_files);
}

unsigned field_table::field_count()
{
    open();
    return vx_attr_files_get_np(f_files);
}

unsigned field_table::telling_count()
{
    open();
    return static_cast<unsigned>(std::ranges::count(f_fields, true, &field::is_telling));
}

field_table::field const *field_table::shown(int property)
{
    open();
    for (field const &f : f_fields)
        if ((f.is_telling || !f_only_telling) && property-- == 0)
            return &f;
    return nullptr;
}

int field_table::property_count()
{
    return static_cast<int>(f_only_telling ? telling_count() : (open(), f_fields.size()));
}

bool field_table::property_floating(int property)
{
    field const *const f = shown(property);
    return f && f->is_number;
}

void field_table::with_property_name(int property, vx::string_visitor visitor)
{
    if (field const *const f = shown(property))
        visitor.visit(vx_attr_files_get_field_name_w(f_files, f->index));
}

void field_table::with_property_caption(int property, vx::string_visitor visitor)
{
    if (field const *const f = shown(property))
        visitor.visit(f->caption.c_str());
}

bool field_table::item_property_defined(int item, int property)
{
    bool ok = false;
    if (field const *const f = shown(property); f && item >= 0) {
        if (f->is_number)
            (void)vx_attr_files_get_dbl(f_files, f->index, static_cast<unsigned>(item), &ok);
        else
            (void)vx_attr_files_get_wstr(f_files, f->index, static_cast<unsigned>(item), &ok);
    }
    return ok;
}

void field_table::with_item_property_text(int item, int property, vx::string_visitor visitor)
{
    if (field const *const f = shown(property))
        visitor.visit(vx_attr_files_get_wstr(f_files, f->index, static_cast<unsigned>(item), nullptr));
}

double field_table::item_property_value(int item, int property)
{
    field const *const f = shown(property);
    return f ? vx_attr_files_get_dbl(f_files, f->index, static_cast<unsigned>(item), nullptr) : 0;
}

bool field_table::property_stats(int property, double *min, double *max, double *mean, double *deviation)
{
    field const *const f = shown(property);
    if (!f || !f->is_number)
        return false;
    double count = 0;
    double sum = 0;
    double squares = 0;
    for (unsigned record = 0; record < vx_attr_files_get_no(f_files); ++record) {
        bool ok = false;
        double const value = vx_attr_files_get_dbl(f_files, f->index, record, &ok);
        if (!ok || !std::isfinite(value))
            continue;
        *min = count == 0 ? value : std::min(*min, value);
        *max = count == 0 ? value : std::max(*max, value);
        ++count;
        double const step = value - sum;
        sum += step / count; // the mean so far
        squares += step * (value - sum);
    }
    *mean = sum;
    *deviation = count > 1 ? std::sqrt(squares / (count - 1)) : 0;
    return count > 0;
}
