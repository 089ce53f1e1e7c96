#pragma once

// Internal platform seam: the system's own messages about a window gaining or
// losing activation, read from the toolkit's native event filter.

#include <cstdint>

namespace VexaPlatform {

// Whether the system sends such a message at each activation change. Where it does
// not, the toolkit's activation change events stand in for it.
bool deliversNativeActivationMessages();

// The window that a native message of 'eventType' is the activation message of;
// 0 if it is none.
std::uintptr_t activationMessageWindow(const char* eventType, const void* message);

} // namespace VexaPlatform
