#include "../ModuleLookup_p.h"

#include <QFileInfo>
#include <QString>

namespace VexaPlatform {

std::vector<std::wstring> moduleLoadNames(const std::wstring& windowsFileName, const std::wstring& applicationDir)
{
    QString baseName = QString::fromStdWString(windowsFileName);
    if (baseName.endsWith(QLatin1String(".dll"), Qt::CaseInsensitive))
        baseName.chop(4);
    // Like Windows, look beside the program first; then leave the bare name to the
    // dynamic linker (LD_LIBRARY_PATH, ld.so.cache), which adds "lib" and ".so".
    std::vector<std::wstring> names;
    if (!applicationDir.empty())
        names.push_back(applicationDir + L"/lib" + baseName.toStdWString() + L".so");
    names.push_back(baseName.toStdWString());
    return names;
}

std::wstring programStartName(const std::wstring& programName, const std::wstring& applicationDir)
{
    // A bare name is searched along PATH only; the folder beside the program, which
    // Windows searches first, has to be tried by hand.
    if (!applicationDir.empty()) {
        const QFileInfo beside(QString::fromStdWString(applicationDir + L"/" + programName));
        if (beside.isFile() && beside.isExecutable())
            return beside.filePath().toStdWString();
    }
    return programName;
}

} // namespace VexaPlatform
