#pragma once

// Internal platform seam: the resolution the desktop draws at.

namespace VexaPlatform {

// Logical pixels per inch of the whole screen, horizontally (96 at 100 % scale).
int logicalScreenDpiX();

} // namespace VexaPlatform
