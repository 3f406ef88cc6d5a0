#include "command/toolkit_messages.h"

#include "toolkit/base/QsdMessages.h"

#include <iostream>

namespace qsdps {

namespace {

void tell(const char* message, void* program)
{
    std::cerr << *static_cast<const std::string*>(program) << ": " << message << '\n';
}

} // namespace

void tellToolkitMessages(const std::string& program)
{
    static std::string teller;
    teller = program;
    QsdSetWarningHandler(tell, &teller);
    QsdSetFatalErrorHandler(tell, &teller);
}

} // namespace qsdps
