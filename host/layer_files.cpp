#include "host/layer_files.h"

#include "captions/driver_faults.h"
#include "data/connection/connection_params.h"
#include "extension/binding/codes.h"
#include "extension/binding/data_source.h"
#include "extension/binding/string_visitor.h"
#include "host/captions.h"
#include "host/layer_style.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <string>
#include <utility>

namespace {
/// At most so many files are named in one message.
constexpr std::size_t c_named_files = 8;

constexpr char c_vector_masks[] =
    "*.shp *.gpkg *.geojson *.json *.kml *.kmz *.gml *.gpx *.tab *.mif *.dxf *.dgn *.fgb "
    "*.csv *.sqlite *.db *.e00 *.shz *.zip";
constexpr char c_raster_masks[] =
    "*.tif *.tiff *.img *.asc *.vrt *.nc *.jp2 *.png *.jpg *.jpeg *.dem *.hgt *.grd *.bil";

QString filter_line(QString const &name, QString const &masks)
{
    return QStringLiteral("%1 (%2)").arg(name, masks);
}

class text_receiver final : public vx::string_visitor_impl
{
public:
    std::wstring text;
    void visit(wchar_t const *received) override { text = received ? received : L""; }
};

/// An open data set, ended with its scope.
class data_set
{
public:
    explicit data_set(std::wstring const &source, bool read_only = true)
    {
        t_vx_data_source_interface handle;
        vx_datasource_open(source.c_str(), read_only, &handle);
        f_source = vx::data_source(handle);
    }
    data_set(data_set &&other) noexcept : f_source(std::exchange(other.f_source, vx::data_source())) {}
    data_set(data_set const &) = delete;
    data_set &operator=(data_set const &) = delete;
    ~data_set()
    {
        if (f_source)
            vx_datasource_end(f_source);
    }

    [[nodiscard]] vx::data_source const &operator*() const { return f_source; }
    [[nodiscard]] vx::data_source const *operator->() const { return &f_source; }
    [[nodiscard]] explicit operator bool() const { return bool(f_source); }
    [[nodiscard]] std::optional<Tvx_map_unit> unit() const
    {
        text_receiver projection;
        f_source.with_proj4(projection);
        return vx_map_unit_from_proj4(projection.text);
    }
    /// What the driver has to say against it.
    [[nodiscard]] QString flaw() const
    {
        text_receiver reason;
        f_source.with_error(reason);
        return QString::fromStdWString(vx_reason_split(reason.text).sentence);
    }
    /// The handle is the caller's from now on.
    [[nodiscard]] t_vx_data_source_interface release() { return std::exchange(f_source, vx::data_source()); }

private:
    vx::data_source f_source;
};

/// A connection string that names just this file. A path with "&" in it would be split there, were it not
/// closed.
std::wstring source_of(QString const &path)
{
    std::wstring source = QDir::toNativeSeparators(path).toStdWString();
    if (source.find(L'&') != std::wstring::npos)
        source += L'|';
    return source;
}

/// What is wrong with the path itself; null when a driver may have a look.
QString refuse_path(QString const &path)
{
    if (vx_layer_files_is_server(path))
        return {};
    QFileInfo const info(path);
    if (!info.exists())
        return vx_host_caption(c_cap_err_not_found);
    if (!info.isDir() && !info.isFile())
        return vx_host_caption(c_cap_err_special_file);
    if (!info.isReadable())
        return vx_host_caption(c_cap_err_not_readable);
    if (info.isFile() && info.size() == 0)
        return vx_host_caption(c_cap_err_empty_file);
    return {};
}

/// Areas lie below lines, lines below points.
int height_of(Ivx_layer const *layer)
{
    std::string_view const key = vx_lr2d_get_lr_type(layer);
    if (key == c_lr_key_rtr)
        return 0;
    if (key == c_lr_key_shp_pgn)
        return 1;
    return key == c_lr_key_shp_pln ? 2 : 3;
}

void set_name(Ivx_layer *layer, QString const &path, std::wstring const &part, bool one_of_many)
{
    std::wstring const base = QFileInfo(path).completeBaseName().toStdWString();
    bool const by_part = one_of_many || vx_layer_files_is_server(path);
    vx_lr2d_set_wcaption(layer, by_part && !part.empty() ? part.c_str() : base.c_str());
}

/// The source of one part; the file's own where the driver names none.
std::wstring part_source(std::wstring const &given, std::wstring const &file)
{
    return given.empty() ? file : given;
}

void add_vector(Tvx_layer_list::layer_ptr layer, QString const &path, std::wstring const &name,
                bool one_of_many, Tvx_opened_file &result)
{
    set_name(layer.get(), path, name, one_of_many);
    vx_layer_set_default_style(layer.get());
    std::wstring projection;
    vx_attr_data_get_proj4(vx_shp_lr2d_get_attr_data_ptr(layer.get()), Tvx_std_wstring_adapter(projection));
    result.layers.push_back({std::move(layer), vx_map_unit_from_proj4(projection)});
}

/// A kind of layer that draws part of a table, and what the connection string calls its shapes.
struct kind_of_shapes
{
    Tvx_shape_kind kind;
    wchar_t const *type;
    Tvx_host_caption caption;
};
constexpr kind_of_shapes c_shape_kinds[] = {
    {c_shape_point, L"multipoint", c_cap_kind_points},
    {c_shape_polyline, L"polyline", c_cap_kind_lines},
    {c_shape_polygon, L"polygon", c_cap_kind_polygons},
};

bool has_shapes(Ivx_layer *layer)
{
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(
        vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer)));
    return !vx_shape_files_get_box(shapes.get()).is_empty();
}

/// The kinds of shapes in a table that may hold any; nothing where all are of one kind.
struct mixed_kinds
{
    std::vector<kind_of_shapes> kinds;
    bool are_sure = true; ///< not with collections of several kinds, which may have any
};
mixed_kinds kinds_of_mixed(Ivx_layer *layer)
{
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer);
    if (vx_attr_data_get_geom_type(data) != vx::codes::plain::geom_unknown)
        return {};
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(vx_shape_files_open(data));
    std::vector<kind_of_shapes> kinds;
    for (kind_of_shapes const &kind : c_shape_kinds) {
        Tvx_shape_view view;
        for (unsigned i = 0; vx_shape_files_get(shapes.get(), i, &view); ++i)
            if (view.kind == kind.kind) {
                kinds.push_back(kind);
                break;
            }
    }
    if (vx_shape_files_has_more_kinds(shapes.get()))
        return {{std::begin(c_shape_kinds), std::end(c_shape_kinds)}, false};
    return {kinds.size() > 1 ? kinds : std::vector<kind_of_shapes>()};
}

/// The connection string with the option behind the place of the data: the name of a table, which stands
/// last, may hold whatever divides options.
std::wstring with_type(std::wstring const &source, wchar_t const *type)
{
    std::size_t at = source.find(L'|');
    at = std::min(at == std::wstring::npos ? source.find(L'&') : at, source.size());
    std::wstring const options = at < source.size() ? source.substr(at + 1) : std::wstring();
    return source.substr(0, at) + L"|geom_type=" + type + (options.empty() ? L"" : L"&") + options;
}

/// One layer, or one for each kind where the table mixes kinds of shapes: a layer draws one.
void add_table(Tvx_layer_list::layer_ptr layer, std::wstring const &source, QString const &path,
               std::wstring const &name, bool one_of_many, Tvx_opened_file &result)
{
    mixed_kinds const mixed = kinds_of_mixed(layer.get());
    if (mixed.kinds.empty())
        return add_vector(std::move(layer), path, name, one_of_many, result);
    for (kind_of_shapes const &kind : mixed.kinds) {
        std::wstring error;
        Tvx_layer_list::layer_ptr part(
            vx_shp_lr2d_open(with_type(source, kind.type).c_str(), Tvx_std_wstring_adapter(error)));
        if (!part) {
            result.error = QString::fromStdWString(error);
            continue;
        }
        if (!mixed.are_sure && !has_shapes(part.get()))
            continue;
        add_vector(std::move(part), path, name, one_of_many, result);
        Ivx_layer *const added = result.layers.back().layer.get();
        std::wstring caption;
        vx_lr2d_get_wcaption(added, Tvx_std_wstring_adapter(caption));
        caption += L" (" + vx_host_caption(kind.caption).toLower().toStdWString() + L")";
        vx_lr2d_set_wcaption(added, caption.c_str());
    }
}

/// The connection string of a server names the one table that is wanted.
bool names_table(QString const &path)
{
    return vx_layer_files_is_server(path) &&
           !vx::data::vector_connection_params(path.toStdWString()).layer.empty();
}

/// An only table is the file: it needs no name, and goes on with the data set that is open already.
void add_only_vector(data_set set, QString const &path, std::wstring const &file, Tvx_opened_file &result)
{
    text_receiver name;
    set->with_name(name);
    t_vx_data_source_interface const opened = set.release();
    std::wstring error;
    Tvx_layer_list::layer_ptr layer(vx_shp_lr2d_take(file.c_str(), &opened, Tvx_std_wstring_adapter(error)));
    if (layer)
        add_table(std::move(layer), file, path, name.text, false, result);
    else
        result.error = QString::fromStdWString(error);
}

void add_vectors(data_set const &set, QString const &path, std::wstring const &file, Tvx_opened_file &result)
{
    int const count = set->vector_count();
    for (int i = 0; i < count; ++i) {
        text_receiver source, name;
        set->vector_source(i, source);
        set->vector_name(i, name);
        std::wstring error;
        std::wstring const part = part_source(source.text, file);
        Tvx_layer_list::layer_ptr layer(vx_shp_lr2d_open(part.c_str(), Tvx_std_wstring_adapter(error)));
        if (layer)
            add_table(std::move(layer), part, path, name.text, count > 1, result);
        else
            result.error = QString::fromStdWString(error);
    }
}

void add_grids(data_set const &set, QString const &path, std::wstring const &file, Tvx_opened_file &result)
{
    int const count = set->grid_count();
    for (int i = 0; i < count; ++i) {
        text_receiver source, name;
        set->grid_source(i, source);
        set->grid_name(i, name);
        std::wstring const part = part_source(source.text, file);
        Tvx_layer_list::layer_ptr layer(vx_rtr_lr2d_create(part.c_str()));
        if (!layer)
            continue;
        set_name(layer.get(), path, name.text, count > 1);
        std::optional<data_set> apart;
        if (part != file)
            apart.emplace(part);
        data_set const &raster = apart ? *apart : set;
        result.layers.push_back({std::move(layer), raster.unit(), raster.flaw()});
    }
}

Tvx_opened_file open_property_file(QString const &path, std::wstring const &name)
{
    Tvx_opened_file result;
    std::wstring error;
    Tvx_layer_list::layer_ptr layer(vx_tos_lr2d_open(name.c_str(), Tvx_std_wstring_adapter(error)));
    result.error = QString::fromStdWString(error);
    if (!layer)
        return result;
    set_name(layer.get(), path, {}, false);
    std::wstring projection;
    vx_tos_lr2d_get_proj4(layer.get(), Tvx_std_wstring_adapter(projection));
    result.layers.push_back({std::move(layer), vx_map_unit_from_proj4(projection)});
    return result;
}

/// The shapes of a format that does not store where they lie, and of a server, which estimates it, while the
/// user sees that something is being read. Those of others are read as the map shows them.
void read_shapes(Ivx_layer *layer)
{
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer);
    std::wstring source;
    vx_attr_data_get_wsource(data, Tvx_std_wstring_adapter(source));
    Tvx_box_d2 box;
    if (vx_layer_files_is_server(QString::fromStdWString(source)) ||
        !vx_attr_data_get_known_extent(data, &box))
        vx_shape_files_close(vx_shape_files_open(data));
}

QString open_error(QString const &path)
{
    if (QFileInfo(path).isDir())
        return vx_host_caption(c_cap_err_directory);
    std::wstring error;
    vx_datasource_get_error(Tvx_std_wstring_adapter(error));
    return error.empty() ? vx_host_caption(c_cap_err_no_layers) : QString::fromStdWString(error);
}
/// A path or connection string as the user may see it.
QString shown_path(QString const &path)
{
    return QString::fromStdWString(vx_mask_passwords(QDir::toNativeSeparators(path).toStdWString()));
}

QString sentence_of(Tvx_failed_file const &file)
{
    return QString::fromStdWString(vx_reason_split(file.reason.toStdWString()).sentence);
}

bool names_path(QString const &sentence, Tvx_failed_file const &file)
{
    return sentence.contains(shown_path(file.path)) ||
           sentence.contains(shown_path(QFileInfo(file.path).absoluteFilePath()));
}
} // namespace

bool vx_layer_files_is_server(QString const &path)
{
    static QRegularExpression const scheme(QStringLiteral("^[A-Za-z]{2,}:"));
    return scheme.match(path).hasMatch() && !QFileInfo::exists(path);
}

std::wstring vx_layer_files_source(QString const &path)
{
    return vx_layer_files_is_server(path) ? path.toStdWString()
                                          : source_of(QFileInfo(path).absoluteFilePath());
}

Tvx_opened_file vx_layer_files_open(QString const &path)
{
    Tvx_opened_file result;
    result.error = refuse_path(path);
    if (!result.error.isEmpty())
        return result;
    if (std::wstring const name = QFileInfo(path).absoluteFilePath().toStdWString();
        vx_tos4_is_file_w(name.c_str()))
        return open_property_file(path, name);
    std::wstring const file = vx_layer_files_source(path);
    data_set set(file);
    if (!set) {
        result.error = open_error(path);
        return result;
    }
    add_grids(set, path, file, result);
    if (names_table(path) || set->vector_count() == 1)
        add_only_vector(std::move(set), path, file, result);
    else
        add_vectors(set, path, file, result);
    if (result.layers.empty()) {
        if (result.error.isEmpty())
            result.error = vx_host_caption(c_cap_err_no_layers);
        return result;
    }
    result.error.clear();
    for (auto &opened : result.layers)
        read_shapes(opened.layer.get());
    std::stable_sort(result.layers.begin(), result.layers.end(), [](auto const &a, auto const &b) {
        return height_of(a.layer.get()) < height_of(b.layer.get());
    });
    return result;
}

bool vx_layer_files_wants_repair(QString const &reason)
{
    return vx_reason_split(reason.toStdWString()).sentence.find(vx_res_get_wstr(c_drv_not_closed)) !=
           std::wstring::npos;
}

QString vx_layer_files_repair(QString const &source)
{
    data_set const set(vx_layer_files_is_server(source) || source.contains('|')
                           ? source.toStdWString()
                           : source_of(QFileInfo(source).absoluteFilePath()),
                       false);
    return set ? QString() : open_error(source);
}

std::optional<Tvx_map_unit> vx_layer_files_read(Ivx_layer *layer, std::optional<Tvx_box_d2> const &view)
{
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer);
    std::wstring source;
    vx_attr_data_get_wsource(data, Tvx_std_wstring_adapter(source));
    bool const is_server = vx_layer_files_is_server(QString::fromStdWString(source));
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const seen(
        view && is_server ? vx_shape_files_begin_window(data, &*view) : nullptr);
    if (!seen)
        read_shapes(layer);
    std::wstring projection;
    vx_attr_data_get_proj4(vx_shp_lr2d_get_attr_data_ptr(layer), Tvx_std_wstring_adapter(projection));
    return vx_map_unit_from_proj4(projection);
}

std::optional<Tvx_map_unit> vx_layer_files_raster_unit(QString const &source, QString &error, QString &flaw)
{
    data_set const set(source.toStdWString());
    if (set && set->grid_count() > 0) {
        flaw = set.flaw();
        return set.unit();
    }
    error = set ? vx_host_caption(c_cap_err_no_layers) : open_error(source);
    return {};
}

QString vx_layer_files_name(QString const &path)
{
    return vx_layer_files_is_server(path) ? shown_path(path) : QFileInfo(path).fileName();
}

QString vx_layer_files_message(std::vector<Tvx_failed_file> const &failed)
{
    if (failed.size() == 1) {
        QString const path = shown_path(failed.front().path);
        QString const sentence = sentence_of(failed.front());
        return names_path(sentence, failed.front())
                   ? sentence
                   : vx_host_caption(c_cap_err_one_file).arg(path) + "\n\n" + sentence;
    }
    QString text = vx_host_caption(c_cap_err_many_files) + "\n";
    for (std::size_t i = 0; i < std::min(failed.size(), c_named_files); ++i) {
        QString const sentence = sentence_of(failed[i]);
        text += names_path(sentence, failed[i]) ? "\n" + sentence
                                                : "\n" + shown_path(failed[i].path) + "\n    " + sentence;
    }
    if (failed.size() > c_named_files)
        text += "\n\n" + vx_host_caption(c_cap_err_more_files).arg(failed.size() - c_named_files);
    return text;
}

QString vx_layer_files_details(std::vector<Tvx_failed_file> const &failed)
{
    QStringList all;
    for (auto const &file : failed)
        if (auto const reason = vx_reason_split(file.reason.toStdWString()); !reason.details.empty())
            all += shown_path(file.path) + "\n" + QString::fromStdWString(reason.details);
    return all.join("\n\n");
}

QString vx_layer_files_dialog_filter()
{
    QString const vectors = c_vector_masks;
    QString const rasters = c_raster_masks;
    auto const line = filter_line;
    return QStringList{line(vx_host_caption(c_cap_filter_maps), vectors + " " + rasters + " *.tos4 *.sn"),
                       line(vx_map_caption(c_map_filter_scenes), "*.sn"),
                       line(vx_host_caption(c_cap_filter_vectors), vectors),
                       line(vx_host_caption(c_cap_filter_rasters), rasters),
                       line(vx_map_caption(c_map_filter_property), "*.tos4"),
                       line(vx_host_caption(c_cap_filter_all), "*")}
        .join(";;");
}

QString vx_layer_files_import_filter()
{
    return QStringList{
        filter_line(vx_map_caption(c_map_filter_import), QString(c_raster_masks) + " " + c_vector_masks),
        filter_line(vx_host_caption(c_cap_filter_rasters), c_raster_masks),
        filter_line(vx_host_caption(c_cap_filter_all), "*")}
        .join(";;");
}
