#include "host/map_application.h"

#include "host/layout_printing.h"
#include "host/map_scene.h"
#include "host/map_window.h"
#include "host/offscreen.h"
#include "host/style_sheets.h"
#include "host/tour.h"
#include "scale_builders/range/rng_type_dlg.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_options.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/toolkit/bridge/qt_application.h"

#include <QDir>
#include <QSettings>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {
bool is_set(char const *variable)
{
    char const *value = std::getenv(variable);
    return value && *value;
}

/// Without this the window system would end the process with an abort.
bool has_display(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        if (QByteArray(argv[i]).endsWith("-platform"))
            return true;
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM");
}

QStringList file_names(Tvx_command_line const &line)
{
    QStringList names;
    for (std::string const &file : line.files)
        names.append(QFile::decodeName(file.c_str()));
    return names;
}

/// A folder that came with the program: beside it in an install, in the source tree of a build.
QString find_example_data(Tvx_command_line const &line)
{
    if (!line.data_directory.empty())
        return QFile::decodeName(line.data_directory.c_str());
    QDir const program(QCoreApplication::applicationDirPath());
    for (char const *place : {VX_MAP_EXAMPLE_DATA, "../share/vxk_lr2d_edit_form/examples/data"}) {
        QString const path = program.absoluteFilePath(QLatin1String(place));
        if (QFile::exists(path + "/nc.shp"))
            return QDir::cleanPath(path);
    }
    return QStringLiteral(VX_MAP_EXAMPLE_DATA);
}

int run_tour(Tvx_command_line const &line)
{
    Tvx_map_window window;
    Tvx_tour tour(window, find_example_data(line), QFile::decodeName(line.shot_directory.c_str()));
    return tour.run(file_names(line)) ? 0 : 1;
}

/// Empty where the user has no storage.
QString kept_folder()
{
    vx::owned<Ivx_ini_data, &vx_ini_data_destroy> const ini(vx_ini_data_create());
    std::wstring folder;
    vx_ini_data_get_storage_path(ini.get(), L"unsaved_maps", Tvx_std_wstring_adapter(folder));
    return QString::fromStdWString(folder);
}

int run_window(Tvx_command_line const &line)
{
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vxk"),
                       QStringLiteral("vx_map"));
    // At the first opening, the window would stand still for as long as the drivers' libraries take to load.
    vx_bundles_load();
    Tvx_map_window window(&settings);
    window.show();
    QTimer::singleShot(0, &window, [&window, files = file_names(line), folder = kept_folder()]() mutable {
        if (!folder.isEmpty()) {
            window.keep_copies(folder);
            // The map that was asked for may be the one whose copy is open now.
            if (window.offer_kept_copy())
                files.removeIf(&vx_map_scene_is_name);
        }
        if (!files.isEmpty())
            window.open_files(files);
    });
    return QApplication::exec();
}
} // namespace

namespace {
/// Bundles beside those of the installation, plug-ins in their place.
void use_extensions(QDir const &folder)
{
    vx_bundles_add_directory(folder.absolutePath().toStdWString().c_str());
    auto const mask = folder.absoluteFilePath("*.so").toStdWString();
    vx_options_set_lr_2d_editor_plugin_mask(mask.c_str());
    vx_options_set_style_editor_plugin_mask(mask.c_str());
}
} // namespace

int vx_map_application_run(int argc, char **argv, Tvx_command_line const &line)
{
    std::optional<Tvx_offscreen> screen;
    bool const sheets = !line.sheet_directory.empty();
    bool const prints = !line.pdf_file.empty();
    if (line.headless || sheets || prints) {
        screen.emplace("vx_map");
    } else if (!has_display(argc, argv)) {
        std::fputs("vx_map: there is no display. Use --headless --shot DIR for pictures without one.\n",
                   stderr);
        return 1;
    }
    vx_qt_application application(argc, argv);
    screen.reset();
    QApplication::setApplicationName(QStringLiteral("vx_map"));
    if (!line.language.empty())
        vx_options_set_language(line.language.c_str());
    if (!line.extension_directory.empty())
        use_extensions(QDir(QFile::decodeName(line.extension_directory.c_str())));
    if (sheets)
        return vx_style_sheets_write(file_names(line), QFile::decodeName(line.sheet_directory.c_str())) ? 0
                                                                                                        : 1;
    // The style dialogs come from one of the bundles, which nothing else asks for.
    vx_bundles_load();
    if (prints)
        return vx_layout_print(file_names(line).front(), QFile::decodeName(line.layout_name.c_str()),
                               QFile::decodeName(line.pdf_file.c_str()));
    vx_rng_type_set_offer_natural(true);
    return line.shot_directory.empty() ? run_window(line) : run_tour(line);
}
