#include "toolkit/base/QsdVersion.h"

int QsdGetVersion()
{
    return DRAVONSET_VERSION_MAJOR * 100 + DRAVONSET_VERSION_MINOR;
}

const char* QsdGetVersionString()
{
    return DRAVONSET_VERSION;
}
