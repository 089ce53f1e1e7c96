#include "../StopMessage_p.h"

#include <windows.h>

namespace VexaPlatform {

void showStopMessage(std::uintptr_t ownerWindow, const char16_t* title, const char16_t* text)
{
    // MB_ICONSTOP | MB_OK: 16.
    MessageBoxW(reinterpret_cast<HWND>(ownerWindow), reinterpret_cast<LPCWSTR>(text),
                reinterpret_cast<LPCWSTR>(title), MB_ICONSTOP | MB_OK);
}

} // namespace VexaPlatform
