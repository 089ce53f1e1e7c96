#include "ProcessIdentity.h"

#include "platform/ProcessIdentity_p.h"

namespace UtilsDll {

QString currentProcessName()
{
    return QString::fromStdWString(VexaPlatform::currentProcessBaseName());
}

BinaryVersion binaryFileVersionByProcessName(const QString& processName)
{
    if (processName.isEmpty())
        return BinaryVersion();

    const std::wstring path = VexaPlatform::processImagePath([&processName](const std::wstring& baseName) {
        return QString::compare(QString::fromStdWString(baseName), processName, Qt::CaseInsensitive) == 0;
    });
    if (path.empty())
        return BinaryVersion();

    const VexaPlatform::FixedFileVersion fixed = VexaPlatform::executableFileVersion(path);
    if (!fixed.found)
        return BinaryVersion();
    BinaryVersion version;
    version.major = static_cast<qint32>(fixed.fileVersionMS >> 16);
    version.minor = static_cast<qint32>(fixed.fileVersionMS & 0xFFFF);
    version.revision = static_cast<qint32>(fixed.fileVersionLS >> 16);
    version.build = static_cast<qint32>(fixed.fileVersionLS & 0xFFFF);
    return version;
}

} // namespace UtilsDll
