#pragma once

#include <functional>
#include <string_view>

#include "toolkit/toolkit.h"

// All that a program includes: the operations of the toolkit and the call that shows the program.

namespace korvandi {

/// Opens the desktop and runs `program`, a function without arguments, on a thread of its own
/// until the person quits. `name` names the application in menus and windows. The arguments are
/// those of main. "Öffnen …" and "Sichern unter …" do their work until the program sets a
/// t_MenuHandler of its own.
///
/// Without a display the program runs in memory with a person who starts it, watches, ends it and
/// answers; pictures of every stage are saved in the folder "<name in lower case>-bilder" of the
/// current folder. It prints
///   "Kein Bildschirm erreichbar: <name> spielt auf einem gedachten Bildschirm."
///   "Bilder davon stehen im Ordner <folder>."
///   "Bild: <path>"    or    "Bild konnte nicht geschrieben werden: <path>"    for each
///
/// Returns the exit status, or leaves the process with it: 0, or 1 when the program showed nothing
/// in memory or a picture could not be written.
/// Main thread, once per process.
int Run(int argc, char** argv, std::string_view name, std::function<void()> program);

}  // namespace korvandi
