#include "../ModuleLookup.h"

namespace VexaPlatform {

std::vector<std::wstring> moduleLoadNames(const std::wstring& windowsFileName, const std::wstring&)
{
    // LoadLibrary's own search order starts with the application's folder.
    return {windowsFileName};
}

} // namespace VexaPlatform
