#include "WebLinks.h"

namespace VEXA_NAMESPACE {

namespace {

QString buildTrackingQuery()
{
    QString query;
    query += QLatin1String("?utm_source=");
    query += QLatin1String("Rectivo3");
    query += QLatin1String("&utm_medium=software");
    query += QLatin1String("&utm_content=");
    query += QLatin1String("empty");
    return query;
}

} // namespace

const QString WEB_TRACKING_QUERY = buildTrackingQuery();

const char* const WEB_REDIRECT_PATH = "/%1/redirect/%2/";
const char* const WEB_REGION_INTERNATIONAL = "intl";
const char* const WEB_REGION_JAPAN = "jp";
const char* const WEB_TAG_SHORT = "rc";
const char* const WEB_TAG_VERSIONED = "rc3";
const char* const WEB_CAF_MODULES_PATH = "/vexa-lumetta/supported-cameras/";

const WebDestinationInfo WEB_DESTINATIONS[10] = {
    {WebDestination::HomePage, "Home Page", "vexa_home/"},
    {WebDestination::ImprovementProgram, "Improvement Program", "improvement_program/"},
    {WebDestination::Support, "Support", "support/"},
    {WebDestination::Academy, "Academy", "academy/"},
    {WebDestination::Shop, "Shop", "shop/"},
    {WebDestination::Patents, "Patents", "patents/"},
    {WebDestination::Help, "Help", "help/"},
    {WebDestination::CafModules, "Caf Modules", nullptr},
    {WebDestination::OnlineUserGuide, "Online User Guide", "help/"},
    {WebDestination::Unknown, "Unknown", nullptr},
};

} // namespace VEXA_NAMESPACE
