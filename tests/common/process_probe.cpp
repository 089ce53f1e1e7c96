// A child process for the tests that need a program of their own: one whose file is
// replaced while it runs, or one with a crash sender beside it.
//   process_probe name          prints currentProcessName() after a line on stdin
//   process_probe crash-sender  runs startCrashSender()
//   process_probe               prints its own folder: it stands in for a crash sender
#include "AppBootstrap.h"
#include "ProcessIdentity.h"

#include <QCoreApplication>

#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "name") {
        std::string line;
        std::getline(std::cin, line);
        std::cout << UtilsDll::currentProcessName().toStdString() << std::endl;
    } else if (what == "crash-sender") {
        Vexa::startCrashSender();
    } else {
        std::cout << QCoreApplication::applicationDirPath().toStdString() << std::endl;
    }
    return 0;
}
