// Numbers with a decimal point for the length of a block.
#pragma once

#include "toolkit/base/QsdNumbers.h"

/// Enters the classic number conventions and leaves them again on every way out.
class QsdPSClassicNumbers {
public:
    QsdPSClassicNumbers() { QsdSetLocaleC(true); }
    QsdPSClassicNumbers(const QsdPSClassicNumbers&) = delete;
    QsdPSClassicNumbers& operator=(const QsdPSClassicNumbers&) = delete;
    ~QsdPSClassicNumbers() { QsdSetLocaleC(false); }
};
