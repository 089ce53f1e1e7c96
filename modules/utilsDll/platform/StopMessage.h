#pragma once

// Internal platform seam: the bare system message box for fatal errors, usable when
// nothing can be allocated any more.

#include <cstdint>
#include <string>

namespace VexaPlatform {

// The form of a text that showStopMessage needs besides its UTF-16 original, made
// ahead of time; empty where the system takes UTF-16 as it is.
std::string encodeStopMessageText(const std::wstring& text);

// A message with the stop icon and one OK button, owned by 'ownerWindow' (0: none).
// Allocates nothing: it only reads the texts it is given.
void showStopMessage(std::uintptr_t ownerWindow, const char16_t* title, const char16_t* text,
                     const std::string& encodedTitle, const std::string& encodedText);

} // namespace VexaPlatform
