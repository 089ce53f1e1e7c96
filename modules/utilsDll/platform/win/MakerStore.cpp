#include "../MakerStore.h"

namespace VexaPlatform {

std::wstring makerStoreLocation()
{
    return L"HKEY_CURRENT_USER\\Software\\VexaLabs\\";
}

} // namespace VexaPlatform
