#pragma once

#include "host/plugin_check/module_report.h"

#include <string>
#include <vector>

/// Loads the module and takes it through what an editor does with it: made, shown, given layers or style
/// managers that come and go, sized, ended. Whatever it does wrong is a fault. `layers` are files that its
/// tabs are shown with too.
void drive_module(std::wstring const &path, module_kind kind, std::vector<std::wstring> const &layers,
                  module_report &report);
