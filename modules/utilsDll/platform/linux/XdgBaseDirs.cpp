#include "XdgBaseDirs_p.h"

#include <QDir>
#include <QStringList>

namespace VexaPlatform {

namespace {

QString homeFolder()
{
    const QString home = qEnvironmentVariable("HOME");
    return home.isEmpty() ? QDir::homePath() : home;
}

QString absoluteVariable(const char* name)
{
    const QString value = qEnvironmentVariable(name);
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : QString();
}

} // namespace

QString xdgDataHome()
{
    const QString value = absoluteVariable("XDG_DATA_HOME");
    return value.isEmpty() ? homeFolder() + "/.local/share" : value;
}

QString xdgConfigHome()
{
    const QString value = absoluteVariable("XDG_CONFIG_HOME");
    return value.isEmpty() ? homeFolder() + "/.config" : value;
}

QString firstXdgConfigDir()
{
    const QStringList dirs = qEnvironmentVariable("XDG_CONFIG_DIRS").split(':', Qt::SkipEmptyParts);
    for (const QString& dir : dirs) {
        if (QDir::isAbsolutePath(dir))
            return QDir::cleanPath(dir);
    }
    return QStringLiteral("/etc/xdg");
}

} // namespace VexaPlatform
