// What one process has once.
#pragma once

#include "toolkit/base/QsLocale.h"
#include "toolkit/base/QsdExport.h"

/// The process-wide context of the toolkit. It starts in the "C" locale whatever the environment says, so that
/// documents do not change with the user's settings; a program that wants another text encoding sets it.
class QSD_API QsdGlobalContext {
public:
    /// The one context of the process.
    [[nodiscard]] static QsdGlobalContext& GetInstance();

    /// The locale in force.
    [[nodiscard]] const QsLocale& getLocale() const { return _locale; }
    /// Replaces the locale; documents opened afterwards use its encoding.
    void setLocale(const QsLocale& locale);

private:
    QsdGlobalContext() = default;

    QsLocale _locale;
};
