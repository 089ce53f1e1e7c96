#pragma once

// Internal platform seam: where a module that is loaded in the process lies on disk.

#include <string>

namespace VexaPlatform {

// The full file name of the loaded module named moduleName (its Windows file name,
// e.g. "PhotoshopPlugin-connectorvrcv3.dll"); when no such module is loaded, the
// file name of the host executable. False when the name cannot be read.
bool loadedModuleFileName(const std::wstring& moduleName, std::wstring& fileName);

} // namespace VexaPlatform
