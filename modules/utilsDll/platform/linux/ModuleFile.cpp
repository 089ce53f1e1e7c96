#include "../ModuleFile_p.h"

#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <link.h>

namespace VexaPlatform {

namespace {

// The file names under which the Windows module "Name.dll" may be loaded here:
// as it is, "Name.so" or "libName.so", the last two with a version suffix or not.
bool isModuleFile(const QString& path, const QString& windowsName)
{
    const QString fileName = QFileInfo(path).fileName();
    if (fileName.isEmpty())
        return false;
    if (fileName.compare(windowsName, Qt::CaseInsensitive) == 0)
        return true;
    QString stem = windowsName;
    if (stem.endsWith(QLatin1String(".dll"), Qt::CaseInsensitive))
        stem.chop(4);
    for (const QString& candidate : {stem + ".so", "lib" + stem + ".so"}) {
        if (fileName == candidate || fileName.startsWith(candidate + '.'))
            return true;
    }
    return false;
}

struct Search
{
    QString windowsName;
    QString found;
};

int visitLoadedObject(dl_phdr_info* info, size_t, void* data)
{
    auto* search = static_cast<Search*>(data);
    const QString path = QString::fromLocal8Bit(info->dlpi_name ? info->dlpi_name : "");
    if (isModuleFile(path, search->windowsName)) {
        search->found = path;
        return 1;
    }
    return 0;
}

} // namespace

bool loadedModuleFileName(const std::wstring& moduleName, std::wstring& fileName)
{
    Search search{QString::fromStdWString(moduleName), QString()};
    dl_iterate_phdr(&visitLoadedObject, &search);
    if (search.found.isEmpty()) {
        // As on Windows, a module that is not loaded yields the host executable.
        search.found = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
        if (search.found.isEmpty())
            return false;
    }
    fileName = search.found.toStdWString();
    return true;
}

} // namespace VexaPlatform
