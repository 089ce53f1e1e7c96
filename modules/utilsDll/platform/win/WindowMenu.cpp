#include "../WindowMenu_p.h"

#include <windows.h>

namespace VexaPlatform {

void enableWindowCloseItem(std::uintptr_t windowHandle, bool enable)
{
    HWND window = reinterpret_cast<HWND>(windowHandle);
    EnableMenuItem(GetSystemMenu(window, FALSE), SC_CLOSE, enable ? MF_ENABLED : MF_GRAYED);
}

} // namespace VexaPlatform
