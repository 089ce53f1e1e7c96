#include "../ActivationMessages_p.h"

namespace VexaPlatform {

// The X11 and Wayland events that carry focus are the toolkit's business; its
// activation change events are the portable equivalent.
bool deliversNativeActivationMessages()
{
    return false;
}

std::uintptr_t activationMessageWindow(const char*, const void*)
{
    return 0;
}

} // namespace VexaPlatform
