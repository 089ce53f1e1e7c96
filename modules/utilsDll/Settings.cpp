#include "Settings.h"

#include "Log.h"
#include "storageLocation.h"

namespace VEXA_NAMESPACE {

QPointer<CTemporarySettings> CSettings::m_tempSettings;

CSettings::CSettings(QObject* parent, bool ignoreTemporary)
    : QObject(nullptr)
    , m_settings("Vexa Labs", "Vexa Rectivo 3", parent)
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
