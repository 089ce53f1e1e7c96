#pragma once

// Internal platform seam: the bare system message box for fatal errors, usable when
// nothing can be allocated any more.

#include <cstdint>

namespace VexaPlatform {

// A message with the stop icon and one OK button, owned by 'ownerWindow' (0: none).
// The texts are null-terminated UTF-16. Allocates nothing: it only reads them.
void showStopMessage(std::uintptr_t ownerWindow, const char16_t* title, const char16_t* text);

} // namespace VexaPlatform
