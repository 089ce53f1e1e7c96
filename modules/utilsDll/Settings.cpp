#include "Settings.h"

#include "Log.h"
#include "storageLocation.h"

#include <QFileInfo>

namespace VEXA_NAMESPACE {

namespace {

const QString kOrganisation = QStringLiteral("Vexa Labs");
const QString kApplication = QStringLiteral("Vexa Rectivo 3");

// Opening a pipe or a device for reading can wait for a writer forever, and QSettings
// opens its files as soon as it is made. Such a path reads as a file that cannot be read.
bool isNeitherAbsentNorRegular(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

bool readNothing(QIODevice&, QSettings::SettingsMap&)
{
    return false;
}

bool writeNothing(QIODevice&, const QSettings::SettingsMap&)
{
    return false;
}

// A file format that neither reads nor writes anything. Its files lie where the system
// store's lie, under an extension of their own: a store in this format tells where the
// system store's files are without opening them, and stands in for a store whose files
// cannot be read.
QSettings::Format unreadableFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("unreadable-settings"), readNothing, writeNothing);
    return format;
}

// The user files of the system store: the application's and the organisation's. A
// store in the format above tells where they lie without opening them. QSettings fixes
// its folders at its first use in the process, so they are looked up once.
const QStringList& systemStoreUserFiles()
{
    static const QStringList files = [] {
        const QString probe =
            QSettings(unreadableFormat(), QSettings::UserScope, kOrganisation, kApplication).fileName();
        const QString nativeSuffix = QStringLiteral(".conf");
        const int probeSuffixSize = QFileInfo(probe).suffix().size() + 1;
        return QStringList{probe.chopped(probeSuffixSize) + nativeSuffix, QFileInfo(probe).absolutePath() + nativeSuffix};
    }();
    return files;
}

// The system store, unless one of its user files is there and is not a regular file:
// then a store that reads as empty and loses what is written, as for any store that
// cannot be read. The system-wide files are left out: only the administrator can put
// something in their place.
QSettings::Format systemStoreFormat()
{
    for (const QString& file : systemStoreUserFiles()) {
        if (isNeitherAbsentNorRegular(file))
            return unreadableFormat();
    }
    return QSettings::NativeFormat;
}

} // namespace

QPointer<CTemporarySettings> CSettings::m_tempSettings;

CSettings::CSettings(QObject* parent, bool ignoreTemporary)
    : QObject(nullptr)
    , m_settings(systemStoreFormat(), QSettings::UserScope, kOrganisation, kApplication, parent)
    , m_ignoreTemporary(ignoreTemporary)
{
    connectSlots();
}

CSettings::~CSettings() = default;

bool CSettings::usingTemporarySettings() const
{
    return !m_ignoreTemporary && !m_tempSettings.isNull();
}

QSettings& CSettings::temporaryStore() const
{
    return *m_tempSettings->m_settings;
}

QString CSettings::localKey(const QString& key) const
{
    return m_group.isEmpty() ? key : QString("%1/%2").arg(m_group, key);
}

QVariant CSettings::value(const QString& key, const QVariant& defaultValue) const
{
    if (usingTemporarySettings())
        return temporaryStore().value(key, defaultValue);
    return m_settings.value(localKey(key), defaultValue);
}

void CSettings::setValue(const QString& key, const QVariant& value)
{
    if (usingTemporarySettings()) {
        temporaryStore().setValue(localKey(key), value);
        temporaryStore().sync();
    } else {
        m_settings.setValue(key, value);
    }
}

void CSettings::remove(const QString& key)
{
    if (usingTemporarySettings()) {
        temporaryStore().remove(localKey(key));
        temporaryStore().sync();
    } else {
        m_settings.remove(key);
    }
}

bool CSettings::contains(const QString& key) const
{
    if (usingTemporarySettings())
        return temporaryStore().contains(localKey(key));
    return m_settings.contains(key);
}

void CSettings::beginGroup(const QString& prefix)
{
    if (usingTemporarySettings())
        m_group = prefix;
    else
        m_settings.beginGroup(prefix);
}

void CSettings::endGroup()
{
    if (usingTemporarySettings())
        m_group.clear();
    else
        m_settings.endGroup();
}

QString CSettings::group() const
{
    return usingTemporarySettings() ? m_group : m_settings.group();
}

int CSettings::beginReadArray(const QString& prefix)
{
    return usingTemporarySettings() ? temporaryStore().beginReadArray(prefix) : m_settings.beginReadArray(prefix);
}

void CSettings::beginWriteArray(const QString& prefix, int size)
{
    if (usingTemporarySettings())
        temporaryStore().beginWriteArray(prefix, size);
    else
        m_settings.beginWriteArray(prefix, size);
}

void CSettings::setArrayIndex(int i)
{
    if (usingTemporarySettings())
        temporaryStore().setArrayIndex(i);
    else
        m_settings.setArrayIndex(i);
}

void CSettings::endArray()
{
    if (usingTemporarySettings())
        temporaryStore().endArray();
    else
        m_settings.endArray();
}

void CSettings::sync()
{
    if (usingTemporarySettings())
        temporaryStore().sync();
    else
        m_settings.sync();
}

void CSettings::setTemporarySettings(CTemporarySettings& settings)
{
    // A reference whose address may be null: that is how callers go back to the
    // system store. The volatile read keeps the compiler from assuming the address
    // of a reference is never null and dropping the test.
    CTemporarySettings* volatile address = &settings;
    CTemporarySettings* store = address;
    m_tempSettings = store;
    if (store)
        LOG_D("Info: settings are now stored in file: " << store->tempSettingsPath());
    else
        LOG_D("Info: settings are now stored in system");
}

QString CSettings::getStringFromPreferencesFile(const QString& key, const QString& defaultValue)
{
    const QString path = CStorageLocation::getCurrentPreferencesFilePath();
    if (isNeitherAbsentNorRegular(path))
        return defaultValue;
    const QString text = QSettings(path, QSettings::IniFormat).value(key, defaultValue).toString();
    return text.isEmpty() ? defaultValue : text;
}

void CSettings::connectSlots()
{
    if (!m_tempSettings.isNull())
        connect(m_tempSettings.data(), &QObject::destroyed, this, &CSettings::logWhenTempSettingsDeleted);
}

void CSettings::logWhenTempSettingsDeleted()
{
    // By the time destroyed() is emitted the weak pointer is already null; the file
    // of the most recent store stands in.
    const QString path = m_tempSettings ? m_tempSettings->tempSettingsPath() : CTemporarySettings::s_settingsFilePath;
    LOG_D("Temporary settings file is to be destoyed: " << path);
    LOG_D("Persistent settings will be used");
}

} // namespace VEXA_NAMESPACE
