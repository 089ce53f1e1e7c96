#include "../MakerStore_p.h"
#include "XdgBaseDirs_p.h"

namespace VexaPlatform {

std::wstring makerStoreLocation()
{
    // One file per user for all of the maker's products, beside (not inside) the
    // product's own "Vexa Labs" store.
    return (xdgConfigHome() + "/VexaLabs.conf").toStdWString();
}

} // namespace VexaPlatform
