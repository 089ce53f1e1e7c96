#pragma once

// Internal platform seam: how a module that the product names by its Windows file
// name ("LoggerDllvrcv3.dll") is looked for by the platform's loader.

#include <string>
#include <vector>

namespace VexaPlatform {

// Names to hand to the loader, in order, for a module named windowsFileName.
// A name without a folder leaves the search to the platform.
std::vector<std::wstring> moduleLoadNames(const std::wstring& windowsFileName,
                                          const std::wstring& applicationDir);

} // namespace VexaPlatform
