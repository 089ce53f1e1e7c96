#pragma once

// Internal platform seam: the close item of a native window's system menu.

#include <cstdint>

namespace VexaPlatform {

// Enables or greys the close item (and so the close button) of the native window
// with this handle. Unknown handles are ignored.
void enableWindowCloseItem(std::uintptr_t windowHandle, bool enable);

} // namespace VexaPlatform
