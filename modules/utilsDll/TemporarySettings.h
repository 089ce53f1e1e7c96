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

// A private ini store in a fresh temporary folder, seeded from the file
// "DefaultTemporarySettings.ini" beside the anchor file. Install it with
// CSettings::setTemporarySettings; deleting it returns every CSettings to the
// system store and removes the folder. Every change is flushed before returning.
class UTILSDLL_EXPORT CTemporarySettings : public QObject
{
    Q_OBJECT
public:
    // Only the folder of anchorFilePath is used.
    explicit CTemporarySettings(const char* anchorFilePath);
    ~CTemporarySettings() override;

    QVariant value(const QString& key, const QVariant& defaultValue = QVariant()) const;
    void setValue(const QString& key, const QVariant& value);
    void remove(const QString& key);
    bool contains(const QString& key) const;
    void clear();
    void sync();

    int beginReadArray(const QString& prefix);
    void beginWriteArray(const QString& prefix, int size = -1);
    void endArray();
    void setArrayIndex(int i);

    // The shared path if one was set, otherwise the ini file of the most recently
    // constructed store in the process (which may not be this one's).
    const QString& tempSettingsPath() const;
    // Changes only what tempSettingsPath() reports; the open store keeps its file.
    void setSharedSettingsPath(const QString& path);

private:
    friend class VEXA_NAMESPACE::CSettings;

    QSettings* m_settings = nullptr;
    QTemporaryDir* m_tempDir = nullptr;
    QString m_sharedSettingsPath;

    static QString s_settingsFilePath;
};
