#pragma once

#include <QString>

class CTemporarySettings;

// The text report of what the library sees at start-up: every storage location, the
// settings backend, the launch state and the logger.
QString showcaseReport(const CTemporarySettings* temporaryStore);
