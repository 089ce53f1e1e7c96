#pragma once

// Internal platform seam: how a module that the product names by its Windows file
// name ("LoggerDllvrcv3.dll"), or a program that it runs by name ("CrashSender"), is
// looked for by the platform.

#include <string>
#include <vector>

namespace VexaPlatform {

// Names to hand to the loader, in order, for a module named windowsFileName.
// A name without a folder leaves the search to the platform.
std::vector<std::wstring> moduleLoadNames(const std::wstring& windowsFileName,
                                          const std::wstring& applicationDir);

// What to start for the program that the product runs by programName: as for modules,
// the application's folder comes first, then the platform's search (PATH).
std::wstring programStartName(const std::wstring& programName, const std::wstring& applicationDir);

} // namespace VexaPlatform
