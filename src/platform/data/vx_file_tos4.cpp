#include "platform/data/vx_file_tos4.h"

#include "platform/basic/vx_fault.h"
#include "platform/data/detail/tos_file.h"
#include "platform/data/detail/tos_writer.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <cmath>
#include <limits>

struct Ivx_tos4_file
{
    std::shared_ptr<vx::tos::file> file;
};

struct Ivx_tos4_prop final : vx::tos::property
{
    using property::property;
};

struct Ivx_tos4_writer final : vx::tos::writer
{
};

namespace {
vx::fault &last_fault()
{
    static vx::fault fault;
    return fault;
}

bool tell(bool good, vx::fault const &fault)
{
    last_fault() = good ? vx::fault() : fault;
    return good;
}

vx::tos::property_names const *names_of(Ivx_tos4_file const *file, unsigned prop)
{
    return file && prop < file->file->properties().size() ? &file->file->properties()[prop] : nullptr;
}

std::wstring text_of(wchar_t const *text)
{
    return text ? text : L"";
}

vx::tos::cell_stat const *stat_of(Ivx_tos4_prop const *prop)
{
    return prop && prop->known().has_values() ? &*prop->known().stat : nullptr;
}

vx::tos::cell_histogram const *histogram_of(Ivx_tos4_prop const *prop)
{
    return prop && prop->known().histogram ? &*prop->known().histogram : nullptr;
}

unsigned as_unsigned(double value)
{
    constexpr double c_most = std::numeric_limits<unsigned>::max();
    return static_cast<unsigned>(std::clamp(value, 0.0, c_most));
}
} // namespace

// ---- file

bool vx_tos4_is_file_w(wchar_t const *name)
{
    return vx::tos::has_property_head(vx_path_to_native(text_of(name)));
}

Ivx_tos4_file *vx_tos4_file_open_w(wchar_t const *name, bool read_only)
{
    vx::fault fault;
    auto file = vx::tos::file::open(text_of(name), read_only, fault);
    return tell(bool(file), fault) ? new Ivx_tos4_file{std::move(file)} : nullptr;
}

void vx_tos4_file_close(Ivx_tos4_file *file)
{
    delete file;
}

void vx_tos4_get_werror(Ivx_string_adp *error)
{
    vx_string_adp_feed(error, vx_fault_reason(last_fault()).c_str());
}

unsigned vx_tos4_get_prop_count(Ivx_tos4_file const *file)
{
    return file ? static_cast<unsigned>(file->file->properties().size()) : 0;
}

unsigned long long vx_tos4_get_object_count_64(Ivx_tos4_file const *file)
{
    return file ? file->file->objects() : 0;
}

char const *vx_tos4_get_prop_name(Ivx_tos4_file const *file, unsigned prop)
{
    auto const *const names = names_of(file, prop);
    return names ? names->name_bytes.c_str() : "";
}

char const *vx_tos4_get_prop_caption(Ivx_tos4_file const *file, unsigned prop)
{
    auto const *const names = names_of(file, prop);
    return names ? names->caption_bytes.c_str() : "";
}

void vx_tos4_get_prop_name_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *name)
{
    auto const *const names = names_of(file, prop);
    vx_string_adp_feed(name, names ? names->name.c_str() : L"");
}

void vx_tos4_get_prop_caption_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *caption)
{
    auto const *const names = names_of(file, prop);
    vx_string_adp_feed(caption, names ? names->caption.c_str() : L"");
}

int vx_tos4_find_prop_w(Ivx_tos4_file const *file, wchar_t const *name)
{
    if (!file || !name)
        return -1;
    auto const &all = file->file->properties();
    auto const at = std::ranges::find(all, std::wstring_view(name), &vx::tos::property_names::name);
    return at == all.end() ? -1 : static_cast<int>(at - all.begin());
}

void vx_tos4_get_grid(Ivx_tos4_file const *file, Tvx_tos4_grid *grid)
{
    if (grid)
        *grid = file ? file->file->grid() : Tvx_tos4_grid();
}

void vx_tos4_get_proj4(Ivx_tos4_file const *file, Ivx_string_adp *text)
{
    vx_string_adp_feed(text, file ? file->file->proj4().c_str() : L"");
}

void vx_tos4_prop_get_prop_file_name_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *name)
{
    auto const *const names = names_of(file, prop);
    if (!names) {
        vx_string_adp_feed(name, L"");
        return;
    }
    std::wstring const &path = file->file->path();
    auto const folder_end = path.find_last_of(L"/\\") + 1; // npos + 1 is 0
    auto const dot = path.rfind(L'.');
    auto const base_end = dot != path.npos && dot > folder_end ? dot : path.size();
    std::wstring text = path.substr(0, base_end) + L'.';
    for (wchar_t const c : names->name)
        if (c == L'/')
            text += L"%2F";
        else if (c == L'\\')
            text += L"%5C";
        else
            text += c;
    // Whoever changes the extension must not cut the name of the property.
    text += base_end < path.size() ? path.substr(base_end) : L".tos4";
    vx_string_adp_feed(name, text.c_str());
}

// ---- property

Ivx_tos4_prop *vx_tos4_prop_open(Ivx_tos4_file *file, unsigned prop)
{
    return names_of(file, prop) ? new Ivx_tos4_prop(file->file, prop) : nullptr;
}

void vx_tos4_prop_close(Ivx_tos4_prop *prop)
{
    delete prop;
}

bool vx_tos4_prop_get_value_double(Ivx_tos4_prop *prop, unsigned long long object, double *value)
{
    double const cell = prop ? prop->value(object) : std::numeric_limits<double>::quiet_NaN();
    bool const has = cell == cell;
    if (value)
        *value = has ? cell : 0;
    return has;
}

unsigned long long vx_tos4_prop_get_values(Ivx_tos4_prop *prop, unsigned long long first,
                                           unsigned long long count, double *values)
{
    return prop && values ? prop->values(first, count, values) : 0;
}

bool vx_tos4_prop_is_damaged(Ivx_tos4_prop const *prop)
{
    return prop && prop->is_damaged();
}

bool vx_tos4_prop_get_statistic_exist(Ivx_tos4_prop const *prop)
{
    return stat_of(prop) != nullptr;
}

bool vx_tos4_prop_statistic_update(Ivx_tos4_prop *prop)
{
    vx::fault fault;
    return prop && tell(prop->update_stat(fault), fault);
}

double vx_tos4_prop_get_statistic_min(Ivx_tos4_prop const *prop)
{
    auto const *const stat = stat_of(prop);
    return stat ? stat->minimum : 0;
}

double vx_tos4_prop_get_statistic_max(Ivx_tos4_prop const *prop)
{
    auto const *const stat = stat_of(prop);
    return stat ? stat->maximum : 0;
}

double vx_tos4_prop_get_statistic_average(Ivx_tos4_prop const *prop)
{
    auto const *const stat = stat_of(prop);
    return stat ? stat->average : 0;
}

double vx_tos4_prop_get_statistic_stddev(Ivx_tos4_prop const *prop)
{
    auto const *const stat = stat_of(prop);
    return stat ? stat->deviation() : 0;
}

bool vx_tos4_prop_get_histogram_exist(Ivx_tos4_prop const *prop)
{
    return histogram_of(prop) != nullptr;
}

bool vx_tos4_prop_histogram_update(Ivx_tos4_prop *prop)
{
    vx::fault fault;
    return prop && tell(prop->update_histogram(fault), fault);
}

unsigned vx_tos4_prop_get_histogram_count(Ivx_tos4_prop const *prop)
{
    return histogram_of(prop) ? vx::tos::c_classes : 0;
}

double vx_tos4_prop_get_histogram_hgbndmin(Ivx_tos4_prop const *prop)
{
    auto const *const histogram = histogram_of(prop);
    return histogram ? histogram->low : 0;
}

double vx_tos4_prop_get_histogram_hgbndmax(Ivx_tos4_prop const *prop)
{
    auto const *const histogram = histogram_of(prop);
    return histogram ? histogram->high : 0;
}

unsigned vx_tos4_prop_get_histogram_hgmin(Ivx_tos4_prop const *prop)
{
    return as_unsigned(vx_tos4_prop_get_histogram_hgbndmin(prop));
}

unsigned vx_tos4_prop_get_histogram_hgmax(Ivx_tos4_prop const *prop)
{
    return as_unsigned(vx_tos4_prop_get_histogram_hgbndmax(prop));
}

int vx_tos4_prop_get_histogram_value(Ivx_tos4_prop const *prop, unsigned i)
{
    constexpr std::uint64_t c_most = std::numeric_limits<int>::max();
    auto const *const histogram = histogram_of(prop);
    if (!histogram || i >= histogram->counts.size())
        return 0;
    std::uint64_t const divisor = *std::ranges::max_element(histogram->counts) / (c_most + 1) + 1;
    return static_cast<int>(histogram->counts[i] / divisor);
}

// ---- making

Ivx_tos4_writer *vx_tos4_writer_create_w(wchar_t const *name, Tvx_tos4_grid const *grid, wchar_t const *proj4)
{
    if (!grid)
        return nullptr;
    vx::fault fault;
    auto writer = std::make_unique<Ivx_tos4_writer>();
    return tell(writer->begin(text_of(name), *grid, text_of(proj4), fault), fault) ? writer.release()
                                                                                   : nullptr;
}

bool vx_tos4_writer_add_prop_w(Ivx_tos4_writer *writer, wchar_t const *name, wchar_t const *caption)
{
    vx::fault fault;
    return writer && tell(writer->add_property(text_of(name), text_of(caption), fault), fault);
}

bool vx_tos4_writer_append(Ivx_tos4_writer *writer, double const *values, unsigned long long count)
{
    vx::fault fault;
    return writer && (count == 0 || values) && tell(writer->append(values, count, fault), fault);
}

bool vx_tos4_writer_take_props(Ivx_tos4_writer *writer, Ivx_tos4_file const *from)
{
    vx::fault fault;
    return writer && from && tell(writer->take_properties(*from->file, fault), fault);
}

void vx_tos4_writer_set_statistics(Ivx_tos4_writer *writer, bool made)
{
    if (writer)
        writer->set_statistics(made);
}

bool vx_tos4_writer_finish(Ivx_tos4_writer *writer)
{
    vx::fault fault;
    return writer && tell(writer->finish(fault), fault);
}

void vx_tos4_writer_destroy(Ivx_tos4_writer *writer)
{
    delete writer;
}
