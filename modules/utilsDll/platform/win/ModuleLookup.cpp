#include "../ModuleLookup_p.h"

namespace VexaPlatform {

std::vector<std::wstring> moduleLoadNames(const std::wstring& windowsFileName, const std::wstring&)
{
    // LoadLibrary's own search order starts with the application's folder.
    return {windowsFileName};
}

std::wstring programStartName(const std::wstring& programName, const std::wstring&)
{
    // CreateProcess, too, looks in the application's folder before PATH.
    return programName;
}

} // namespace VexaPlatform
