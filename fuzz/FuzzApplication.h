#pragma once

#include <QByteArray>
#include <QCoreApplication>

// libFuzzer's main makes no application object, and Qt's classes want one: the first
// input makes it, and it lives for the whole run. Qt's own warnings are silenced, since
// the targets feed broken input on purpose and would drown the fuzzer's output.
inline void ensureQuietApplication(const char* name)
{
    static int argc = 1;
    static QByteArray programName(name);
    static char* argv[] = {programName.data(), nullptr};
    static const QCoreApplication* application = [] {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        return new QCoreApplication(argc, argv);
    }();
    Q_UNUSED(application);
}
