#include "SharedUtils.h"

#include "Settings.h"
#include "platform/MakerStore_p.h"

#include <QSettings>
#include <QUuid>

namespace VEXA_NAMESPACE {

namespace {

const QString kCrashCounterPrefix = QStringLiteral("crashCounter_");
const QString kResellerPlaceholder = QStringLiteral("VEXA_RESELLER_ID_PLACEHOLDER");

// Anything but exactly "0" is true: "no", "false" and the empty text included.
bool flagValue(const QVariant& value)
{
    return value.toString() != QLatin1String("0");
}

QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

QVariant systemValue(const QString& key, const QVariant& defaultValue)
{
    return CSettings(nullptr, true).value(key, defaultValue);
}

QVariant activeValue(const QString& key, const QVariant& defaultValue)
{
    return CSettings().value(key, defaultValue);
}

void setActiveValue(const QString& key, const QVariant& value)
{
    CSettings().setValue(key, value);
}

} // namespace

bool isFirstLaunch()
{
    return activeValue("app_launched", QVariant()).isNull();
}

void setNotFirstLaunch()
{
    setActiveValue("app_launched", 1);
}

QString getLastLaunchMode()
{
    return activeValue("app_launchMode", QString()).toString();
}

void setLastLaunchMode(const QString& mode)
{
    setActiveValue("app_launchMode", mode);
}

void incrementCrashCounter()
{
    const QString key = kCrashCounterPrefix + getLastLaunchMode();
    CSettings settings;
    settings.setValue(key, settings.value(key, 0).toInt() + 1);
}

int crashCounterForPlugin(const QString& plugin)
{
    return activeValue(kCrashCounterPrefix + plugin, 0).toInt();
}

void crashCounterReset(const QString& plugin)
{
    const QString key = kCrashCounterPrefix + plugin;
    CSettings settings;
    settings.setValue(key, 0);
    settings.remove(key);
}

QString getUserID()
{
    QSettings makerStore(QString::fromStdWString(VexaPlatform::makerStoreLocation()), QSettings::NativeFormat);
    QString id = makerStore.value("UserID").toString();
    if (id.isEmpty()) {
        id = QUuid::createUuid().toString().remove('{').remove('}');
        makerStore.setValue("UserID", id);
    }
    return id;
}

QString getResellerID()
{
    const QString id = activeValue("resellerId", "vexa").toString();
    return id == kResellerPlaceholder ? QStringLiteral("vexa") : id;
}

void setResellerID(const QString& id)
{
    setActiveValue("resellerId", id);
}

QString getLogLevel()
{
    return systemValue("loggerLevel", "D").toString();
}

void setLogLevel(const QString& level)
{
    setActiveValue("loggerLevel", level);
}

bool isLoggerEnabled()
{
    return flagValue(systemValue("loggerEnabled", "1"));
}

void setLoggerEnabled(bool enabled)
{
    setActiveValue("loggerEnabled", flagText(enabled));
}

bool useActionSave()
{
    // The default false reads as "false", not "0": an absent key means true.
    return flagValue(systemValue("UseActionSave", false));
}

bool isStatisticSent()
{
    return flagValue(activeValue("VexaSendStat", "1"));
}

void setStatisticSent(bool sent)
{
    setActiveValue("VexaSendStat", flagText(sent));
}

bool crashReportSendingAllowed()
{
    return flagValue(activeValue("VexaSentCrashReport", "1"));
}

void allowCrashReportSending(bool allowed)
{
    setActiveValue("VexaSentCrashReport", flagText(allowed));
}

} // namespace VEXA_NAMESPACE
