#include "toolkit/base/QsdGlobalContext.h"

QsdGlobalContext& QsdGlobalContext::GetInstance()
{
    static QsdGlobalContext instance;
    return instance;
}

void QsdGlobalContext::setLocale(const QsLocale& locale)
{
    _locale = locale;
}
