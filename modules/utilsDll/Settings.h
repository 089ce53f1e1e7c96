#pragma once

#include "UtilsDllGlobal.h"
#include "TemporarySettings.h"

#include <QObject>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QVariant>

namespace VEXA_NAMESPACE {

// The product's key-value store: the system store ("Vexa Labs" / "Vexa Rectivo 3")
// by default, or the process's CTemporarySettings while one is installed. The
// backend is chosen anew on every call. Objects are meant to be short-lived locals.
class UTILSDLL_EXPORT CSettings : public QObject
{
    Q_OBJECT
public:
    // parent goes to the inner QSettings, not to this object. With ignoreTemporary
    // the object always uses the system store.
    explicit CSettings(QObject* parent = nullptr, bool ignoreTemporary = false);
    ~CSettings() override;

    // With the temporary store the key is looked up as given, without the group
    // prefix that setValue/contains/remove apply. Callers rely on this asymmetry.
    QVariant value(const QString& key, const QVariant& defaultValue = QVariant()) const;
    void setValue(const QString& key, const QVariant& value);
    void remove(const QString& key);
    bool contains(const QString& key) const;

    // With the temporary store a group replaces the previous one; it does not nest.
    void beginGroup(const QString& prefix);
    void endGroup();
    QString group() const;

    int beginReadArray(const QString& prefix);
    void beginWriteArray(const QString& prefix, int size = -1);
    void setArrayIndex(int i);
    void endArray();
    void sync();

    QString localKey(const QString& key) const;
    bool usingTemporarySettings() const;

    // Installs the process's temporary store. Pass a null reference
    // (*static_cast<CTemporarySettings*>(nullptr)) to return to the system store.
    static void setTemporarySettings(CTemporarySettings& settings);
    // Reads the preferences ini file directly; an empty value reads as the default.
    // Throws std::runtime_error while the preferences file path is unset.
    static QString getStringFromPreferencesFile(const QString& key, const QString& defaultValue = QString());

private:
    void connectSlots();
    void logWhenTempSettingsDeleted();
    QSettings& temporaryStore() const;

    mutable QSettings m_settings;
    QString m_group;
    bool m_ignoreTemporary;

    static QPointer<CTemporarySettings> m_tempSettings;
};

} // namespace VEXA_NAMESPACE
