#include "../StopMessage.h"

#include <windows.h>

namespace VexaPlatform {

std::string encodeStopMessageText(const std::wstring&)
{
    return std::string();
}

void showStopMessage(std::uintptr_t ownerWindow, const char16_t* title, const char16_t* text,
                     const std::string&, const std::string&)
{
    // MB_ICONSTOP | MB_OK: 16.
    MessageBoxW(reinterpret_cast<HWND>(ownerWindow), reinterpret_cast<LPCWSTR>(text),
                reinterpret_cast<LPCWSTR>(title), MB_ICONSTOP | MB_OK);
}

} // namespace VexaPlatform
