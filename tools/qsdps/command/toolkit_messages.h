// Messages of the toolkit and the device, told as those of a program.
#pragma once

#include <string>

namespace qsdps {

/// From now on warnings and errors of the toolkit and the device go to standard error, one a line behind the program's
/// name.
void tellToolkitMessages(const std::string& program);

} // namespace qsdps
