#include "../ModuleFile_p.h"

#include <windows.h>

#include <new>
#include <vector>

namespace VexaPlatform {

bool loadedModuleFileName(const std::wstring& moduleName, std::wstring& fileName)
{
    // A null handle (module not loaded) makes GetModuleFileNameW answer with the
    // host executable's own name: the caller relies on that fallback.
    HMODULE module = GetModuleHandleW(moduleName.c_str());
    const DWORD capacity = 32768;
    std::vector<wchar_t> buffer;
    try {
        buffer.resize(capacity);
    } catch (const std::bad_alloc&) {
        return false;
    }
    const DWORD length = GetModuleFileNameW(module, buffer.data(), capacity);
    if (length == 0)
        return false;
    fileName.assign(buffer.data(), length);
    return true;
}

} // namespace VexaPlatform
