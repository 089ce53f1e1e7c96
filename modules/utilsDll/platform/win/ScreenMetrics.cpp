#include "../ScreenMetrics_p.h"

#include <windows.h>

namespace VexaPlatform {

int logicalScreenDpiX()
{
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

} // namespace VexaPlatform
