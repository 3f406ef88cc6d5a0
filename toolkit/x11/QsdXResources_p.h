// Settings that users give to X programs.
#pragma once

#include "toolkit/x11/QsdXConnection_p.h"

#include <map>
#include <string>

/// The resources of an application (its name; its class is that with a capital) by their last names: those of the
/// server's resource property or, without one, of .Xdefaults in the home folder, and those of the file that
/// XENVIRONMENT names, over those of the application defaults file that is named like the class.
[[nodiscard]] std::map<std::string, std::string> QsdXResources(const QsdXConnection& connection,
                                                               const char* application);
