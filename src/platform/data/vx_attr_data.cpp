#include "platform/data/vx_attr_data.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/data/detail/attr_data.h"
#include "platform/winapi/collation.h"
#include "platform/winapi/file.h"

#include <algorithm>

namespace {
constexpr wchar_t c_option_mark = L'|';
constexpr wchar_t c_option_join = L'&';
constexpr std::wstring_view c_driver_path = L"/vsi"; ///< paths that only drivers understand

/// Neighbouring records that were read by themselves.
struct record_page
{
    unsigned first;
    std::vector<vx::attr::column> cells;
};
constexpr unsigned c_page_records = 64;
constexpr std::size_t c_kept_pages = 16;

struct open_table
{
    Ivx_attr_data *data;
    std::shared_ptr<vx::attr::attr_set> set;
    std::vector<std::string> names;
    std::vector<vx::attr::column const *> columns; ///< of `set`; null until a cell is asked for
    std::string text;                              ///< behind `vx_attr_files_get_str`
    vx::attr::wide_buffer wide;                    ///< behind `vx_attr_files_get_wstr`
    std::vector<record_page> pages;                ///< the last one used comes last
    vx::attr::wide_buffer peeked;                  ///< behind `vx_attr_files_peek_wstr`
};

/// Null past the end. The first call for a field reads it.
vx::attr::column const *column_of(open_table *table, unsigned field)
{
    if (!table || field >= table->columns.size())
        return nullptr;
    auto const *&column = table->columns[field];
    if (!column)
        column = &table->set->cells(field);
    return column;
}

/// The page of a record; reads it if it is not kept.
record_page const &page_of(open_table &table, unsigned record)
{
    auto &pages = table.pages;
    unsigned const first = record / c_page_records * c_page_records;
    auto const kept = std::ranges::find(pages, first, &record_page::first);
    if (kept != pages.end()) {
        std::rotate(kept, kept + 1, pages.end());
        return pages.back();
    }
    record_page page{first, table.set->read_records(first, c_page_records)};
    if (pages.size() == c_kept_pages)
        pages.erase(pages.begin());
    return pages.emplace_back(std::move(page));
}

void tell(bool *ok, bool value)
{
    if (ok)
        *ok = value;
}
} // namespace

struct Ivx_attr_files final : open_table
{
};

// ---- data object

std::shared_ptr<vx::attr::attr_set> Ivx_attr_data::opened()
{
    if (!set) {
        set = vx::attr::attr_set::open(source, error);
        was_file = was_file || (set && vx_path_exists(file_name()));
    }
    return set;
}

std::wstring Ivx_attr_data::file_name() const
{
    std::wstring const text(vx::without_virtual_mark(source));
    auto const options = text.find(c_option_mark);
    if (options != std::wstring::npos)
        return text.substr(0, options);
    // "&" begins the options too, but it is also a lawful character of a file name.
    return vx_path_exists(text) ? text : text.substr(0, text.find(c_option_join));
}

bool Ivx_attr_data::is_missing() const
{
    auto const file = file_name();
    if (file.empty() || vx_path_exists(file))
        return false;
    return was_file || (file[0] == L'/' && !file.starts_with(c_driver_path));
}

Ivx_attr_data *vx_attr_data_create(wchar_t const *source)
{
    return new Ivx_attr_data(source ? source : L"");
}

Ivx_attr_data *vx_attr_data_create_open(wchar_t const *source, t_vx_data_source_interface const *opened,
                                        Ivx_string_adp *error)
{
    if (!opened)
        return nullptr;
    auto data = std::make_unique<Ivx_attr_data>(source ? source : L"");
    data->set = vx::attr::attr_set::take(*opened, data->source, data->error);
    data->was_file = data->set && vx_path_exists(data->file_name());
    vx_string_adp_feed(error, data->error.c_str());
    return data->set ? data.release() : nullptr;
}

Ivx_attr_data *vx_attr_data_retain(Ivx_attr_data *data)
{
    if (data)
        ++data->count;
    return data;
}

void vx_attr_data_release(Ivx_attr_data *data)
{
    if (data && --data->count == 0)
        delete data;
}

Ivx_attr_data *vx_attr_data_safe_downcast(Ivx_entity *entity)
{
    return dynamic_cast<Ivx_attr_data *>(entity);
}

Ivx_entity *vx_attr_data_safe_upcast(Ivx_attr_data *data)
{
    return data;
}

void vx_attr_data_get_wsource(Ivx_attr_data const *data, Ivx_string_adp *source)
{
    vx_string_adp_feed(source, data ? data->source.c_str() : nullptr);
}

void vx_attr_data_get_wfilename(Ivx_attr_data const *data, Ivx_string_adp *file_name)
{
    vx_string_adp_feed(file_name, data ? data->file_name().c_str() : nullptr);
}

void vx_attr_data_get_werror(Ivx_attr_data const *data, Ivx_string_adp *error)
{
    vx_string_adp_feed(error, data ? data->error.c_str() : nullptr);
}

bool vx_attr_data_is_missing(Ivx_attr_data const *data)
{
    return data && data->is_missing();
}

bool vx_attr_data_open(Ivx_attr_data *data)
{
    return data && data->opened();
}

void vx_attr_data_reload(Ivx_attr_data *data)
{
    if (!data)
        return;
    data->set.reset();
    data->error.clear();
}

int vx_attr_data_get_geom_type(Ivx_attr_data *data)
{
    auto const set = data ? data->opened() : nullptr;
    return set && set->has_vector() ? set->geom_type() : 0;
}

int vx_attr_data_get_grid_count(Ivx_attr_data *data)
{
    auto const set = data ? data->opened() : nullptr;
    return set ? set->grid_count() : 0;
}

void vx_attr_data_get_proj4(Ivx_attr_data *data, Ivx_string_adp *text)
{
    auto const set = data ? data->opened() : nullptr;
    vx_string_adp_feed(text, set ? set->proj4().c_str() : L"");
}

bool vx_attr_data_get_extent(Ivx_attr_data *data, Tvx_box_d2 *box)
{
    if (!box)
        return false;
    *box = {};
    auto const set = data ? data->opened() : nullptr;
    return set && set->extent(*box) && !box->is_empty();
}

bool vx_attr_data_get_known_extent(Ivx_attr_data *data, Tvx_box_d2 *box)
{
    if (!box)
        return false;
    *box = {};
    auto const set = data ? data->opened() : nullptr;
    return set && set->known_extent(*box) && !box->is_empty();
}

namespace {
/// Number of the text field of this name; -1 for none.
int text_field(Ivx_attr_data *data, char const *field_name)
{
    auto const set = data && field_name ? data->opened() : nullptr;
    if (!set)
        return -1;
    auto const name = vx::text::to_wide(field_name);
    auto const &fields = set->fields();
    auto const at = std::ranges::find_if(
        fields, [&](auto const &f) { return f.name == name && f.type == c_attr_string; });
    return at == fields.end() ? -1 : static_cast<int>(at - fields.begin());
}

/// Cyrillic letters of the code page 1251 are the accented ones of Latin-1, which are few among the letters
/// of every language that is written with them.
bool reads_as_latin1_accents(Ivx_attr_data *data, unsigned field)
{
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const table(vx_attr_files_open(data, 1, 0));
    unsigned const records = std::min(vx_attr_files_get_no(table.get()), c_page_records);
    unsigned accented = 0;
    unsigned plain = 0;
    for (unsigned i = 0; i < records; ++i)
        for (wchar_t const c : std::wstring_view(vx_attr_files_peek_wstr(table.get(), field, i, nullptr))) {
            constexpr wchar_t c_first_accented = 0xC0;
            constexpr wchar_t c_last_latin1 = 0xFF;
            if (c > c_last_latin1)
                return false;
            accented += c >= c_first_accented;
            plain += (c | 0x20) >= L'a' && (c | 0x20) <= L'z';
        }
    return accented > plain;
}
} // namespace

bool vx_attr_data_is_field_unicode(Ivx_attr_data *data, char const *field_name)
{
    int const field = text_field(data, field_name);
    return field >= 0 && !reads_as_latin1_accents(data, static_cast<unsigned>(field));
}

bool vx_attr_data_is_field_morvel(Ivx_attr_data *data, char const *field_name)
{
    int const field = text_field(data, field_name);
    return field >= 0 && reads_as_latin1_accents(data, static_cast<unsigned>(field));
}

// ---- table

Ivx_attr_files *vx_attr_files_open(Ivx_attr_data *data, int read_only, int /*flags*/)
{
    auto const set = data && read_only ? data->opened() : nullptr;
    if (!set || !set->has_vector())
        return nullptr;
    auto *const files = new Ivx_attr_files{{vx_attr_data_retain(data), set, {}, {}, {}, {}, {}, {}}};
    files->columns.resize(set->fields().size());
    for (auto const &field : set->fields())
        files->names.push_back(vx::text::to_bytes(field.name));
    return files;
}

void vx_attr_files_close(Ivx_attr_files *files)
{
    if (!files)
        return;
    auto *const data = files->data;
    delete files;
    vx_attr_data_release(data);
}

Ivx_attr_data *vx_attr_files_get_data(Ivx_attr_files const *files)
{
    return files ? files->data : nullptr;
}

unsigned vx_attr_files_get_np(Ivx_attr_files const *files)
{
    return files ? static_cast<unsigned>(files->set->fields().size()) : 0;
}

unsigned vx_attr_files_get_no(Ivx_attr_files const *files)
{
    return files ? static_cast<unsigned>(files->set->record_count()) : 0;
}

int vx_attr_files_get_field_type(Ivx_attr_files const *files, unsigned field)
{
    return field < vx_attr_files_get_np(files) ? files->set->fields()[field].type : c_attr_unknown;
}

char const *vx_attr_files_get_field_name(Ivx_attr_files const *files, unsigned field)
{
    return field < vx_attr_files_get_np(files) ? files->names[field].c_str() : "";
}

wchar_t const *vx_attr_files_get_field_name_w(Ivx_attr_files const *files, unsigned field)
{
    return field < vx_attr_files_get_np(files) ? files->set->fields()[field].name.c_str() : L"";
}

int vx_attr_files_get_field_index_w(Ivx_attr_files const *files, wchar_t const *name)
{
    if (!files || !name)
        return -1;
    auto const &fields = files->set->fields();
    auto at = std::find_if(fields.begin(), fields.end(), [&](auto const &f) { return f.name == name; });
    if (at == fields.end())
        at = std::find_if(fields.begin(), fields.end(),
                          [&](auto const &f) { return vx_compare_text(f.name, name) == 0; });
    return at == fields.end() ? -1 : static_cast<int>(at - fields.begin());
}

bool vx_attr_files_read_on(Ivx_attr_files *files, unsigned field, int milliseconds)
{
    return field < vx_attr_files_get_np(files) && files->set->read_cells(field, milliseconds);
}

double vx_attr_files_get_read_part(Ivx_attr_files const *files, unsigned field)
{
    return field < vx_attr_files_get_np(files) ? files->set->read_part(field) : 0;
}

wchar_t const *vx_attr_files_get_wstr(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    tell(ok, false);
    auto const *const cells = column_of(files, field);
    if (!cells)
        return L"";
    bool has = false;
    auto const *const text = vx::attr::wide_text_of(*cells, record, files->wide, has);
    tell(ok, has);
    return text;
}

wchar_t const *vx_attr_files_peek_wstr(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    tell(ok, false);
    if (field >= vx_attr_files_get_np(files) || record >= vx_attr_files_get_no(files))
        return L"";
    if (files->columns[field] || files->set->has_cells(field) || !files->set->finds_records_fast())
        return vx_attr_files_get_wstr(files, field, record, ok);
    record_page const &page = page_of(*files, record);
    if (!files->set->finds_records_fast())
        return vx_attr_files_get_wstr(files, field, record, ok);
    if (field >= page.cells.size()) {
        // Nothing is kept of a refusal, as while the source is being read: the next question tries again.
        files->pages.pop_back();
        return L"";
    }
    bool has = false;
    auto const *const text =
        vx::attr::wide_text_of(page.cells[field], record - page.first, files->peeked, has);
    tell(ok, has);
    return text;
}

char const *vx_attr_files_get_str(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    tell(ok, false);
    auto const *const cells = column_of(files, field);
    if (!cells)
        return "";
    tell(ok, vx::attr::text_of(*cells, record, files->text));
    if (vx::text::system_code_page() != vx::text::c_cp_utf8)
        files->text = vx::text::to_bytes(vx::text::utf8_to_wide(files->text));
    return files->text.c_str();
}

std::string_view vx_attr_files_get_utf8(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    tell(ok, false);
    auto const *const cells = column_of(files, field);
    if (!cells)
        return {};
    if (auto const *texts = std::get_if<vx::attr::text_cells>(cells)) {
        bool const has = record < texts->size() && texts->has(record);
        tell(ok, has);
        return has ? texts->get(record) : std::string_view();
    }
    tell(ok, vx::attr::text_of(*cells, record, files->text));
    return files->text;
}

int vx_attr_files_get_text_number(Ivx_attr_files *files, unsigned field, unsigned record)
{
    auto const *const cells = column_of(files, field);
    auto const *texts = cells ? std::get_if<vx::attr::text_cells>(cells) : nullptr;
    return texts && record < texts->size() ? texts->number(record) : -1;
}

double vx_attr_files_get_dbl(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    double value = 0;
    auto const *const cells = column_of(files, field);
    bool const defined = cells && vx::attr::number_of(*cells, record, value);
    tell(ok, defined);
    return defined ? value : 0;
}

int vx_attr_files_get_int(Ivx_attr_files *files, unsigned field, unsigned record, bool *ok)
{
    int value = 0;
    auto const *const cells = column_of(files, field);
    bool const defined = cells && vx::attr::integer_of(*cells, record, value);
    tell(ok, defined);
    return defined ? value : 0;
}
