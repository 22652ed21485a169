#pragma once

#include <string>

/// The program's name as menus and windows show it: the last component of the bundle's path
/// without its ".app". Any thread.
std::string ProgramName();
