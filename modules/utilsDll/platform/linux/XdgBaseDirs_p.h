#pragma once

// XDG base directories, read from the environment each time as the XDG rules say:
// a variable that is unset, empty or relative falls back to its default.

#include <QString>

namespace VexaPlatform {

QString xdgDataHome();          // $XDG_DATA_HOME, else ~/.local/share
QString xdgConfigHome();        // $XDG_CONFIG_HOME, else ~/.config
QString firstXdgConfigDir();    // first absolute entry of $XDG_CONFIG_DIRS, else /etc/xdg

} // namespace VexaPlatform
