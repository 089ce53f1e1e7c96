#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

// The scheme of the links to the vendor's site: a redirect path per destination and
// a tracking query. The library builds the query and joins no link itself; a module
// that opens links chooses the site's address, the region and the destination.
namespace VEXA_NAMESPACE {

// "?utm_source=Rectivo3&utm_medium=software&utm_content=empty". It begins with "?",
// so it goes straight behind a path that has no query of its own.
UTILSDLL_EXPORT extern const QString WEB_TRACKING_QUERY;

// The site's address followed by this path; %1 is a region, %2 a destination's path.
UTILSDLL_EXPORT extern const char* const WEB_REDIRECT_PATH;
UTILSDLL_EXPORT extern const char* const WEB_REGION_INTERNATIONAL;
UTILSDLL_EXPORT extern const char* const WEB_REGION_JAPAN;

UTILSDLL_EXPORT extern const char* const WEB_TAG_SHORT;
UTILSDLL_EXPORT extern const char* const WEB_TAG_VERSIONED;

// The page of the supported cameras, which has no redirect of its own.
UTILSDLL_EXPORT extern const char* const WEB_CAF_MODULES_PATH;

enum class WebDestination
{
    HomePage,
    ImprovementProgram,
    Support,
    Academy,
    Shop,
    Patents,
    Help,
    CafModules,
    OnlineUserGuide,
    Unknown,
};

struct WebDestinationInfo
{
    WebDestination destination;
    const char* label;
    // Null for the destinations without a redirect part.
    const char* redirectPart;
};

// One entry per destination, in the order of the enumeration.
UTILSDLL_EXPORT extern const WebDestinationInfo WEB_DESTINATIONS[10];

} // namespace VEXA_NAMESPACE
