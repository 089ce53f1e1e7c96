#pragma once

#include "UtilsDllGlobal.h"
#include "TemporarySettings.h"

#include <QObject>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QVariant>

/// \file
/// \brief The product's settings store.

namespace VEXA_NAMESPACE {

/// \brief The product's key-value store.
///
/// The system store ("Vexa Labs" / "Vexa Rectivo 3") by default, or the process's
/// CTemporarySettings while one is installed. The backend is chosen anew on every call.
/// Objects are meant to be short-lived locals, each used by one thread. Installing or
/// removing the temporary store is not locked: do it before other threads use settings.
class UTILSDLL_EXPORT CSettings : public QObject
{
    Q_OBJECT
public:
    /// \p parent goes to the inner QSettings, not to this object. With
    /// \p ignoreTemporary the object always uses the system store.
    explicit CSettings(QObject* parent = nullptr, bool ignoreTemporary = false);
    ~CSettings() override;

    /// \brief The value of \p key, or \p defaultValue when it is absent.
    ///
    /// With the temporary store the key is looked up as given, without the group prefix
    /// that setValue(), contains() and remove() apply. Callers rely on this asymmetry.
    QVariant value(const QString& key, const QVariant& defaultValue = QVariant()) const;
    /// Stores \p value under \p key in the current group.
    void setValue(const QString& key, const QVariant& value);
    /// Removes \p key of the current group, and the keys below it.
    void remove(const QString& key);
    /// Whether \p key of the current group is stored.
    bool contains(const QString& key) const;

    /// Starts the group \p prefix. With the temporary store a group replaces the
    /// previous one; it does not nest.
    void beginGroup(const QString& prefix);
    /// Ends the current group.
    void endGroup();
    /// The current group.
    QString group() const;

    /// As QSettings::beginReadArray(): the size of the array \p prefix.
    int beginReadArray(const QString& prefix);
    /// As QSettings::beginWriteArray().
    void beginWriteArray(const QString& prefix, int size = -1);
    /// As QSettings::setArrayIndex().
    void setArrayIndex(int i);
    /// As QSettings::endArray().
    void endArray();
    /// Writes pending changes of the backend in use to its file or registry.
    void sync();

    /// \p key behind the current group and a slash, as setValue() stores it.
    QString localKey(const QString& key) const;
    /// Whether this object's calls go to the temporary store now.
    bool usingTemporarySettings() const;

    /// \brief Installs the process's temporary store; the caller keeps ownership.
    ///
    /// CSettings only watches it: deleting it returns every CSettings to the system
    /// store. Pass a null reference (*static_cast<CTemporarySettings*>(nullptr)) to
    /// return to the system store at once.
    static void setTemporarySettings(CTemporarySettings& settings);
    /// \brief Reads \p key from the preferences ini file directly.
    ///
    /// An empty value, or a file that is not a regular file, reads as \p defaultValue.
    /// \throws std::runtime_error while the preferences file path is unset
    /// (CStorageLocation::setPreferencesFilePath()).
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
