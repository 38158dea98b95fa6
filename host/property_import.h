#pragma once

#include "host/command_line.h"

#include <QStringList>

#include <functional>

/// Makes property files of other data, for the window and for the command line.
enum Tvx_import_outcome
{
    c_import_done,
    c_import_failed,
    c_import_given_up,
};
enum Tvx_import_way
{
    c_import_makes, ///< a new file, in the place of a former one
    c_import_adds,  ///< further properties of a file that is there
};
/// Paths are those that `vx_layer_files_open` takes; several are sorted by their names, numbers in them by
/// their values, and are slices in that order, the lowest first. `goes_on` gets what is done, in percent, and
/// gives false to end it. After a failure `error` is a reason (platform/basic/vx_fault.h).
[[nodiscard]] Tvx_import_outcome vx_property_import(QStringList paths, QString const &target,
                                                    Tvx_import_way way,
                                                    std::function<bool(int percent)> const &goes_on,
                                                    QString &error);

/// The work of `--import-property-file`, which needs no display: the exit code, 0 when the file is made, 1
/// when it is not, 130 when the user broke it off. A terminal is shown the progress.
[[nodiscard]] int vx_property_import_run(Tvx_command_line const &line);
