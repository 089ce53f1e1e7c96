#pragma once

#include "UtilsDllGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

class QSettings;
class QTemporaryDir;

namespace VEXA_NAMESPACE {
class CSettings;
}

/// \file
/// \brief The temporary settings store.

/// \brief A private ini store in a fresh temporary folder.
///
/// Seeded from the file "DefaultTemporarySettings.ini" beside the anchor file. Install
/// it with Vexa::CSettings::setTemporarySettings(); its creator owns it, and deleting it
/// returns every CSettings to the system store and removes the folder. Every change is
/// flushed before returning. When the folder cannot be made, the store writes nowhere.
class UTILSDLL_EXPORT CTemporarySettings : public QObject
{
    Q_OBJECT
public:
    /// Makes the folder and the store; only the folder of \p anchorFilePath is used.
    explicit CTemporarySettings(const char* anchorFilePath);
    /// Removes the folder and its store.
    ~CTemporarySettings() override;

    /// The value of \p key, or \p defaultValue when it is absent.
    QVariant value(const QString& key, const QVariant& defaultValue = QVariant()) const;
    /// Stores \p value under \p key.
    void setValue(const QString& key, const QVariant& value);
    /// Removes \p key and the keys below it.
    void remove(const QString& key);
    /// Whether \p key is stored.
    bool contains(const QString& key) const;
    /// Removes every key.
    void clear();
    /// Writes the store to its file.
    void sync();

    /// As QSettings::beginReadArray(): the size of the array \p prefix.
    int beginReadArray(const QString& prefix);
    /// As QSettings::beginWriteArray().
    void beginWriteArray(const QString& prefix, int size = -1);
    /// As QSettings::endArray().
    void endArray();
    /// As QSettings::setArrayIndex().
    void setArrayIndex(int i);

    /// The shared path if one was set, otherwise the ini file of the most recently
    /// constructed store in the process (which may not be this one's).
    const QString& tempSettingsPath() const;
    /// Changes only what tempSettingsPath() reports; the open store keeps its file.
    void setSharedSettingsPath(const QString& path);

private:
    friend class VEXA_NAMESPACE::CSettings;

    QSettings* m_settings = nullptr;
    QTemporaryDir* m_tempDir = nullptr;
    QString m_sharedSettingsPath;

    static QString s_settingsFilePath;
};
