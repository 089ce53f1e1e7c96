#pragma once

// Internal platform seam: where the per-user store shared by all of the maker's
// products lives, as a location that QSettings opens in its native format.

#include <string>

namespace VexaPlatform {

std::wstring makerStoreLocation();

} // namespace VexaPlatform
