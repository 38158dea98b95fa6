#pragma once

#include "host/layer_list.h"

#include <QString>

#include <optional>
#include <vector>

/// What opening one file gave: its layers in the order of the file, or a reason (platform/basic/vx_fault.h)
/// why there are none.
struct Tvx_opened_file
{
    struct layer
    {
        Tvx_layer_list::layer_ptr layer;
        std::optional<Tvx_map_unit> unit;
        /// What of the data cannot be used; empty when all can.
        QString flaw = {};
    };
    std::vector<layer> layers;
    QString error;
};

/// True for the connection string of a database server, such as "PG:host=localhost", that names no file.
[[nodiscard]] bool vx_layer_files_is_server(QString const &path);

/// The connection string that names just this file, or the server.
[[nodiscard]] std::wstring vx_layer_files_source(QString const &path);

/// Opens a vector, raster or property file, a folder that is a data set, or a database server, with every
/// layer in it; of a server that is followed by "|layer=" and a name only that table. Nothing is shown or
/// printed, and no file is changed.
[[nodiscard]] Tvx_opened_file vx_layer_files_open(QString const &path);

/// The reason is that the file's last writer was broken off, which an opening for changes puts right.
[[nodiscard]] bool vx_layer_files_wants_repair(QString const &reason);
/// Opens the data set, named by a path or connection string, for changes, and closes it. Empty when that went
/// well, else a reason.
[[nodiscard]] QString vx_layer_files_repair(QString const &source);

/// Reads what the first picture of a vector layer needs, while the user sees that something is being read.
/// Where a server tells what is in `view`, the part that the map shows, nothing is read yet: the map draws
/// that first. The unit of its coordinates, where the data tell.
std::optional<Tvx_map_unit> vx_layer_files_read(Ivx_layer *layer, std::optional<Tvx_box_d2> const &view = {});
/// The unit of a raster's coordinates, where it tells; a reason in `error` when it cannot be opened, and in
/// `flaw` what of it cannot be used.
[[nodiscard]] std::optional<Tvx_map_unit> vx_layer_files_raster_unit(QString const &source, QString &error,
                                                                     QString &flaw);

/// What a file or server is called where there is little room: no folders, no passwords.
[[nodiscard]] QString vx_layer_files_name(QString const &path);

/// The message for files that could not be opened; `failed` holds paths and reasons and is not empty. Each
/// path stands in it once.
struct Tvx_failed_file
{
    QString path;
    QString reason;
};
[[nodiscard]] QString vx_layer_files_message(std::vector<Tvx_failed_file> const &failed);
/// What is behind the message for those who ask for details: the words of the formats' libraries.
[[nodiscard]] QString vx_layer_files_details(std::vector<Tvx_failed_file> const &failed);

/// Filters for the open dialog.
[[nodiscard]] QString vx_layer_files_dialog_filter();
/// The same for what becomes a property file.
[[nodiscard]] QString vx_layer_files_import_filter();
