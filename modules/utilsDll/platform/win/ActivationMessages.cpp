#include "../ActivationMessages_p.h"

#include <windows.h>

#include <cstring>

namespace VexaPlatform {

bool deliversNativeActivationMessages()
{
    return true;
}

std::uintptr_t activationMessageWindow(const char* eventType, const void* message)
{
    if (!eventType || !message || std::strcmp(eventType, "windows_generic_MSG") != 0)
        return 0;
    const MSG* msg = static_cast<const MSG*>(message);
    // WM_NCACTIVATE (134) comes once when the window becomes active and once when it
    // loses activation; wParam, which tells them apart, is not needed.
    if (msg->message != WM_NCACTIVATE)
        return 0;
    return reinterpret_cast<std::uintptr_t>(msg->hwnd);
}

} // namespace VexaPlatform
