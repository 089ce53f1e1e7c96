#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

/// \file
/// \brief The scheme of the links to the vendor's site.
///
/// A redirect path per destination and a tracking query. The library builds the query
/// and joins no link itself; a module that opens links chooses the site's address, the
/// region and the destination.
namespace VEXA_NAMESPACE {

/// "?utm_source=Rectivo3&utm_medium=software&utm_content=empty". It begins with "?",
/// so it goes straight behind a path that has no query of its own.
UTILSDLL_EXPORT extern const QString WEB_TRACKING_QUERY;

/// The path that follows the site's address; %1 is a region, %2 a destination's path.
UTILSDLL_EXPORT extern const char* const WEB_REDIRECT_PATH;
/// The region of WEB_REDIRECT_PATH for every country but Japan, "intl".
UTILSDLL_EXPORT extern const char* const WEB_REGION_INTERNATIONAL;
/// The region of WEB_REDIRECT_PATH for Japan, "jp".
UTILSDLL_EXPORT extern const char* const WEB_REGION_JAPAN;

/// The product's short tag, "rc".
UTILSDLL_EXPORT extern const char* const WEB_TAG_SHORT;
/// The product's tag with its major version, "rc3".
UTILSDLL_EXPORT extern const char* const WEB_TAG_VERSIONED;

/// The page of the supported cameras, which has no redirect of its own.
UTILSDLL_EXPORT extern const char* const WEB_CAF_MODULES_PATH;

/// The pages of the vendor's site that the product links to.
enum class WebDestination
{
    HomePage,           ///< The home page.
    ImprovementProgram, ///< The page of the improvement programme.
    Support,            ///< The support page.
    Academy,            ///< The tutorials.
    Shop,               ///< The shop.
    Patents,            ///< The patents page.
    Help,               ///< The help.
    CafModules,         ///< The supported cameras (WEB_CAF_MODULES_PATH).
    OnlineUserGuide,    ///< The online user guide.
    Unknown,            ///< No destination.
};

/// One row of WEB_DESTINATIONS.
struct WebDestinationInfo
{
    WebDestination destination; ///< The destination of the row.
    const char* label;          ///< Its name in English, such as "Home Page".
    /// Its part of WEB_REDIRECT_PATH; null for the destinations without one.
    const char* redirectPart;
};

/// One entry per destination, in the order of the enumeration.
UTILSDLL_EXPORT extern const WebDestinationInfo WEB_DESTINATIONS[10];

} // namespace VEXA_NAMESPACE
