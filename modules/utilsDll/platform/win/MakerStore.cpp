#include "../MakerStore_p.h"

namespace VexaPlatform {

std::wstring makerStoreLocation()
{
    return L"HKEY_CURRENT_USER\\Software\\VexaLabs\\";
}

} // namespace VexaPlatform
