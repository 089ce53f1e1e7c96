#include "AppBootstrap.h"

#include "Log.h"
#include "Settings.h"
#include "SharedConstants.h"
#include "platform/ModuleFile_p.h"
#include "platform/ModuleLookup_p.h"
#include "platform/WindowMenu_p.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QIcon>
#include <QMenu>
#include <QMouseEvent>
#include <QMutex>
#include <QProcess>
#include <QScreen>

namespace VEXA_NAMESPACE {

namespace {

const char* const CONNECTOR_MODULE_NAME = "PhotoshopPlugin-connectorvrcv3.dll";

QString readWholeFile(const QString& name, bool& ok)
{
    QFile file(name);
    ok = file.open(QIODevice::ReadOnly);
    return ok ? QString::fromUtf8(file.readAll()) : QString();
}

QString connectorModuleFolder()
{
    std::wstring fileName;
    if (!VexaPlatform::loadedModuleFileName(QString(CONNECTOR_MODULE_NAME).toStdWString(), fileName))
        return QString();
    const QString folder = QFileInfo(QString::fromStdWString(fileName)).canonicalPath();
    return QDir::toNativeSeparators(QDir::cleanPath(folder)) + QDir::separator();
}

void sendEvent(QWidget* widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

void sendMouseMove(QWidget* widget, const QPoint& localPos, const QPoint& globalPos,
                   Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(QEvent::MouseMove, localPos, globalPos, Qt::NoButton, buttons, modifiers);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

QStringList setAppStyleSheet(const QStringList& files, QApplication* app)
{
    if (!app || files.isEmpty()) {
        ASSERT(false);
        return {};
    }
    QString sheet;
    QStringList read;
    for (const QString& name : files) {
        if (name.isEmpty())
            continue;
        bool ok = false;
        const QString text = readWholeFile(name, ok);
        if (!ok)
            continue;
        sheet += text;
        read << name;
    }
    app->setStyleSheet(sheet);
    return read;
}

void setPredefinedAppStyleSheet(const QString& mainSheet, QApplication* app)
{
    // Later sheets override earlier ones: the order is part of the look.
    setAppStyleSheet({mainSheet.isEmpty() ? QStringLiteral(":/qss/custom.qss") : mainSheet,
                      QStringLiteral(":/qss/slider.qss"), QStringLiteral(":/qss/settings.qss"),
                      QStringLiteral(":/qss/message_box.qss"), QStringLiteral(":/qss/win.qss")},
                     app);
}

bool loadAppLogoIcon()
{
    QIcon icon;
    for (const char* size : {"16", "32", "48", "96", "128", "256", "512", "1024"})
        icon.addFile(QStringLiteral(":/icons/app_icon_rectivo/logo_%1.png").arg(size));
    if (icon.availableSizes().isEmpty())
        return false;
    QApplication::setWindowIcon(icon);
    return true;
}

void loadFonts()
{
    for (const char* file : {"MavenProLight-300.otf", "MavenPro-Medium.ttf", "MavenPro-Regular.ttf",
                             "OpenSans-Light.ttf", "Roboto-Bold.ttf", "Roboto-Light.ttf",
                             "Roboto-Regular.ttf", "Roboto-Medium.ttf", "Segoe+UI.ttf"})
        QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/") + file);
}

void startCrashSender()
{
    const std::wstring applicationDir =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath().toStdWString() : std::wstring();
    const std::wstring program = VexaPlatform::programStartName(L"CrashSender", applicationDir);
    QProcess::execute(QString::fromStdWString(program), QStringList());
}

QString getQtPluginsDir(bool inHostPlugin)
{
    // Any thread may ask, and a first answer that is empty is looked for again on the next
    // call, so the cache is written after start-up too: the mutex keeps a reader from
    // copying the text while another thread assigns it.
    static QMutex mutex;
    static QString pluginsDir;
    const QMutexLocker locker(&mutex);
    if (pluginsDir.isEmpty())
        pluginsDir = inHostPlugin ? connectorModuleFolder() : QCoreApplication::applicationDirPath();
    return pluginsDir;
}

QString sizeToString(const QSize& size)
{
    const int unit = CSettings().value(IMAGE_SIZE_UNITS_KEY, 0).toInt();
    // The physical DPI of the default screen, as the whole number that its desktop
    // widget reports; not the logical DPI.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpiX = screen ? qRound(screen->physicalDotsPerInchX()) : 96;
    const double dpiY = screen ? qRound(screen->physicalDotsPerInchY()) : 96;

    double width = size.width();
    double height = size.height();
    int decimals = 0;
    switch (unit) {
    case 0:
        break;
    case 1:
        width /= dpiX;
        height /= dpiY;
        decimals = 2;
        break;
    case 2:
        width = width * 2.54 / dpiX;
        height = height * 2.54 / dpiY;
        decimals = 1;
        break;
    case 3:
        // Whole millimetres although centimetres get a decimal: intended.
        width = width * 25.4 / dpiX;
        height = height * 25.4 / dpiY;
        break;
    default:
        ASSERT(false);
    }

    QString suffix;
    switch (unit) {
    case 0: suffix = QObject::tr("px"); break;
    case 1: suffix = QObject::tr("in"); break;
    case 2: suffix = QObject::tr("cm"); break;
    case 3: suffix = QObject::tr("mm"); break;
    default: ASSERT(false);
    }
    return QString::number(width, 'f', decimals) + " x " + QString::number(height, 'f', decimals) + ' ' + suffix;
}

QString fileSizeToString(qint64 bytes)
{
    // Strictly greater: exactly 1024 is still "B" and exactly 1048576 still "KB".
    if (bytes > 1048576)
        return QString::number(bytes * (1.0 / 1024) * (1.0 / 1024), 'f', 1) + QObject::tr("MB");
    if (bytes > 1024)
        return QString::number(bytes * (1.0 / 1024), 'f', 1) + QObject::tr("KB");
    return QString::number(double(bytes), 'g', 6) + QObject::tr("B");
}

void enableWindowCloseButton(quintptr windowHandle, bool enable)
{
    VexaPlatform::enableWindowCloseItem(windowHandle, enable);
}

void flickHoverEvent(QWidget* widget)
{
    if (!widget || QCoreApplication::startingUp() || !QApplication::activeWindow())
        return;
    const QPoint cursorPos = QCursor::pos();
    if (!widget->rect().contains(widget->mapFromGlobal(cursorPos))) {
        sendEvent(widget, QEvent::Leave);
        widget->update();
        return;
    }
    QCursor::setPos(cursorPos + QPoint(1, 1));
    QCursor::setPos(cursorPos);
    sendEvent(widget, QEvent::Leave);
    sendEvent(widget, QEvent::Enter);
    if (auto* menu = qobject_cast<QMenu*>(widget)) {
        const QPoint globalPos = QCursor::pos();
        for (int i = 0; i < 2; ++i)
            sendMouseMove(menu, menu->mapFromGlobal(globalPos), globalPos,
                          QGuiApplication::mouseButtons(), QGuiApplication::keyboardModifiers());
        if (menu->activeAction() && menu->activeAction()->isSeparator())
            menu->setActiveAction(nullptr);
    }
    widget->update();
}

void synthesizeMouseEvent(QWidget* widget, const QPoint& globalPos)
{
    if (!widget)
        return;
    sendMouseMove(widget, widget->mapFromGlobal(globalPos), globalPos, Qt::NoButton, Qt::NoModifier);
}

} // namespace VEXA_NAMESPACE
