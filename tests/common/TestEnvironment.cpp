#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
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

QString IsolatedEnvironment::home() { return QString::fromLocal8Bit(qgetenv("HOME")); }

} // namespace UtilsDllTest
