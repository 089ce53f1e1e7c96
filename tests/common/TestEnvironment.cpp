#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <stdexcept>

namespace UtilsDllTest {

namespace {

// Under TMPDIR (or /tmp) on Linux, in the user's temporary folder on Windows.
QByteArray makeRoot()
{
    QTemporaryDir root(QDir::tempPath() + "/utilsdll-test-XXXXXX");
    if (!root.isValid())
        throw std::runtime_error("cannot create the test's own folder");
    root.setAutoRemove(false);
    return root.path().toLocal8Bit();
}

// What would otherwise come from the machine rather than from the test: the locale and
// time zone, and the graphics stack. Qt's xcb and offscreen plug-ins load OpenGL drivers
// for their GL integration even when nothing draws with GL, and what those drivers
// allocate or leak differs from machine to machine.
void pinMachineDependentSettings()
{
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    qputenv("TZ", "UTC");
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    qputenv("QT_QPA_OFFSCREEN_NO_GLX", "1");
}

// Text is drawn with the fonts that scripts/packages.txt installs, and with no others that
// the machine happens to have: another machine's extra fonts would change which face
// stands in for a family and so every picture a test compares. The system's rendering
// settings (its conf.d) still apply.
void pinFonts(const QByteArray& root)
{
#ifndef Q_OS_WIN
    const QByteArray file = root + "/etc/fonts.conf";
    QFile config(QString::fromLocal8Bit(file));
    if (!config.open(QIODevice::WriteOnly))
        return;
    config.write("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n"
                 "  <dir>/usr/share/fonts/truetype/dejavu</dir>\n"
                 "  <dir>/usr/share/fonts/truetype/wqy</dir>\n"
                 "  <cachedir>" + root + "/cache/fontconfig</cachedir>\n"
                 "  <include ignore_missing=\"yes\">/etc/fonts/conf.d</include>\n"
                 "</fontconfig>\n");
    qputenv("FONTCONFIG_FILE", file);
#else
    Q_UNUSED(root)
#endif
}

} // namespace

IsolatedEnvironment::IsolatedEnvironment()
    : m_root(makeRoot())
{
    const QByteArray home = m_root + "/home";
    const QList<QPair<const char*, QByteArray>> folders = {
        {"HOME", home}, {"XDG_CONFIG_HOME", home + "/.config"}, {"XDG_DATA_HOME", home + "/.local/share"},
        {"XDG_CACHE_HOME", home + "/.cache"}, {"XDG_CONFIG_DIRS", m_root + "/etc/xdg"},
        {"XDG_DATA_DIRS", m_root + "/usr/share"}, {"XDG_RUNTIME_DIR", m_root + "/run"}, {"TMPDIR", m_root + "/tmp"},
#ifdef Q_OS_WIN
        // Windows takes the temporary folder from TMP or TEMP. The known folders and the
        // registry stay the user's: under Wine each test runs in a fresh prefix instead.
        {"TMP", m_root + "/tmp"}, {"TEMP", m_root + "/tmp"},
#endif
    };
    for (const auto& [name, path] : folders) {
        QDir().mkpath(QString::fromLocal8Bit(path));
        qputenv(name, path);
    }
    pinMachineDependentSettings();
    QDir().mkpath(QString::fromLocal8Bit(m_root + "/etc"));
    pinFonts(m_root);
    QFile::setPermissions(QString::fromLocal8Bit(m_root + "/run"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile userDirs(QString::fromLocal8Bit(home + "/.config/user-dirs.dirs"));
    if (userDirs.open(QIODevice::WriteOnly))
        userDirs.write("XDG_PICTURES_DIR=\"$HOME/Pictures\"\n");
}

IsolatedEnvironment::~IsolatedEnvironment()
{
    if (qEnvironmentVariableIntValue("UTILSDLL_KEEP_TEST_HOME") == 0)
        QDir(QString::fromLocal8Bit(m_root)).removeRecursively();
}

QString IsolatedEnvironment::root() { return QDir::cleanPath(home() + "/.."); }

QStringList IsolatedEnvironment::loadedGraphicsDrivers()
{
    static const QRegularExpression driver(
        QStringLiteral("(libGLX_|libEGL_|_dri\\.so|-gl[x]?-integration|-egl-integration)[^/]*$"));
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly | QIODevice::Text))
        return {}; // not Linux: nothing to look at
    QStringList drivers;
    for (const QString& line : QString::fromLocal8Bit(maps.readAll()).split('\n')) {
        const int pathStart = line.indexOf('/');
        const QString path = pathStart < 0 ? QString() : line.mid(pathStart).trimmed();
        if (!path.isEmpty() && driver.match(path).hasMatch() && !drivers.contains(path))
            drivers << path;
    }
    return drivers;
}

int IsolatedEnvironment::failIfGraphicsDriverLoaded(int result)
{
    const QStringList drivers = loadedGraphicsDrivers();
    if (drivers.isEmpty())
        return result;
    qCritical("FAIL: the test loaded graphics drivers, which makes it depend on the machine: %s",
              qPrintable(drivers.join(QStringLiteral(", "))));
    return result == 0 ? 1 : result;
}

QString IsolatedEnvironment::home() { return QString::fromLocal8Bit(qgetenv("HOME")); }

} // namespace UtilsDllTest
