#include "TemporarySettings.h"

#include "Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QUuid>

QString CTemporarySettings::s_settingsFilePath;

CTemporarySettings::CTemporarySettings(const char* anchorFilePath)
    : QObject(nullptr)
{
    m_tempDir = new QTemporaryDir(QDir::tempPath() + QDir::separator() + QUuid::createUuid().toString());
    m_tempDir->setAutoRemove(true);
    const bool folderMade = m_tempDir->isValid();
    ASSERT_X(folderMade, "Temporary folder is not valid!");

    if (folderMade) {
        s_settingsFilePath = QDir::toNativeSeparators(
            m_tempDir->path() + QDir::separator() + QString("%1.ini").arg("vrcv3"));
    } else {
        // Without its folder the store must write nowhere: not beside the file system's
        // root, where the next process would read it, nor in a folder that outlives the
        // store. A path among the resources cannot be written and has no folder to make.
        s_settingsFilePath = QString(":/temporary-settings-unavailable/%1/%2.ini")
                                 .arg(QUuid::createUuid().toString(QUuid::WithoutBraces), "vrcv3");
    }

    // Without a defaults file the store simply starts empty. Only a regular file is
    // copied: opening a pipe or a device in its place would wait for a writer forever.
    const QString defaults =
        QFileInfo(QString::fromUtf8(anchorFilePath)).dir().absoluteFilePath("DefaultTemporarySettings.ini");
    if (folderMade && QFileInfo(defaults).isFile())
        QFile::copy(defaults, s_settingsFilePath);

    m_settings = new QSettings(s_settingsFilePath, QSettings::IniFormat);
}

CTemporarySettings::~CTemporarySettings()
{
    // The folder goes first, then the store. Array writes are not flushed as they
    // go, so flush them now: the store's destructor must not write into (and so
    // re-create) the removed folder.
    m_settings->sync();
    m_sharedSettingsPath.clear();
    delete m_tempDir;
    delete m_settings;
}

QVariant CTemporarySettings::value(const QString& key, const QVariant& defaultValue) const
{
    return m_settings->value(key, defaultValue);
}

void CTemporarySettings::setValue(const QString& key, const QVariant& value)
{
    m_settings->setValue(key, value);
    sync();
}

void CTemporarySettings::remove(const QString& key)
{
    m_settings->remove(key);
    sync();
}

bool CTemporarySettings::contains(const QString& key) const
{
    return m_settings->contains(key);
}

void CTemporarySettings::clear()
{
    m_settings->clear();
    sync();
}

void CTemporarySettings::sync()
{
    m_settings->sync();
}

int CTemporarySettings::beginReadArray(const QString& prefix)
{
    return m_settings->beginReadArray(prefix);
}

void CTemporarySettings::beginWriteArray(const QString& prefix, int size)
{
    m_settings->beginWriteArray(prefix, size);
}

void CTemporarySettings::endArray()
{
    m_settings->endArray();
}

void CTemporarySettings::setArrayIndex(int i)
{
    m_settings->setArrayIndex(i);
}

const QString& CTemporarySettings::tempSettingsPath() const
{
    return m_sharedSettingsPath.isEmpty() ? s_settingsFilePath : m_sharedSettingsPath;
}

void CTemporarySettings::setSharedSettingsPath(const QString& path)
{
    m_sharedSettingsPath = path;
}
