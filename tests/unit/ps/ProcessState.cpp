// Lets the tests run one after the other in one process: what a process has once is as in a new one before each.
#include "ps/QsdPSDevice.h"
#include "ps/QsdPSString.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

class ProcessState : public ::testing::EmptyTestEventListener {
public:
    ProcessState()
    {
        ::setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
        ::setenv("LOCPATH", DRAVONSET_TEST_LOCALES, 1);
    }

    void OnTestStart(const ::testing::TestInfo&) override
    {
        std::setlocale(LC_ALL, "C");
        for (const char* const variable : {"QSDPATH", "QSDPSFONTSCALE", "QSDPSEUCFONTSCALE"}) {
            ::unsetenv(variable);
        }
        QsdGlobalContext::GetInstance().setLocale(_locale);
        QsdSetWarningHandler(nullptr, nullptr);
        QsdSetFatalErrorHandler(nullptr, nullptr);
        QsdPSDevice::_PSFontScale = _fontScale;
        QsdPSDevice::_EUCFontScale = _eucFontScale;
        CurrentEncoding = QsEncodingUnknown;
    }

private:
    const QsLocale _locale = QsdGlobalContext::GetInstance().getLocale();
    const int _fontScale = QsdPSDevice::_PSFontScale;
    const int _eucFontScale = QsdPSDevice::_EUCFontScale;
};

/// Entered before the program begins; the list of listeners deletes it.
const bool Entered = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new ProcessState);
    return true;
}();

} // namespace
