#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/input.h"
#include "platform/picture.h"
#include "toolkit/toolkit.h"

// Runs a program in memory, without a display, with a script of what a person does: for tests of
// programs and for pictures of them. Every run of a script does the same.

namespace korvandi {

// The steps of a script. Window is the number of a graphic window, 0 to 7; for any other number,
// and for a window that is not set up, nothing happens but for a fault line. X and Y are a column
// and a row of the window's picture, from 0 at the upper left.

/// Lets the program sleep for so long by its own clock, which goes on only while it sleeps.
struct Wait {
    std::int64_t Milliseconds = 0;
};

/// Lets the program sleep so many times, however long; less than 1 counts as 1.
struct WaitSleeps {
    std::int64_t Count = 1;
};

/// Types the characters (UTF-8), each by a key of its own: "\r" Return, "\t" Tab, "\x1B" Escape,
/// "\x7F" Backspace.
struct Keys {
    std::string Text;
    std::uint8_t Window = 0;
};

/// Presses and releases one key: a number of platform/key_codes.h, what it types (UTF-8, empty for
/// none), and the modifiers held, bits of platform/input.h.
struct Key {
    std::int64_t Code = platform::kNoKeyCode;
    std::string Characters = {};
    std::uint64_t Modifiers = 0;
    std::uint8_t Window = 0;
};

/// Moves the pointer, no button held.
struct Point {
    std::uint8_t Window = 0;
    std::int64_t X = 0;
    std::int64_t Y = 0;
};

/// Moves the pointer, presses a button and releases it.
struct Click {
    std::uint8_t Window = 0;
    std::int64_t X = 0;
    std::int64_t Y = 0;
    bool RightButton = false;
};

/// Chooses a menu item by the titles. Nothing where there is none or it is disabled.
struct Choose {
    std::string Menu;
    std::string Item;
};

/// Has the next open panel answered with these files, paths as the person would choose them; none:
/// the person cancels. A panel that no step answered is cancelled.
struct AnswerOpen {
    std::vector<std::string> Paths;
};

/// Has the next save panel answered with this path; empty: the person cancels.
struct AnswerSave {
    std::string Path;
};

/// Has the next alert answered with this button, from 0. An alert that no step answered is with the
/// last one.
struct AnswerAlert {
    std::int64_t Button = 0;
};

/// Takes the window's picture, as t_WindowSnapshot, under a name. None of a window without one.
struct Look {
    std::uint8_t Window = 0;
    std::string Name;
};

/// Takes a picture of all graphic windows that are shown, as they lie on the screen, each with its
/// border and without its title bar, under a name. None where no window is shown.
struct LookAtScreen {
    std::string Name;
};

using Step = std::variant<Wait, WaitSleeps, Keys, Key, Point, Click, Choose, AnswerOpen, AnswerSave,
                          AnswerAlert, Look, LookAtScreen>;

/// Carried out from first to last. The first steps up to a wait happen when the program sleeps for
/// the first time, by waiting for a key for instance.
using Script = std::vector<Step>;

/// What became of a run.
struct Outcome {
    bool Ended = false;  // the program ended by itself, before the script was over
    std::map<std::string, platform::Picture> Pictures;  // by the names of the looks
    std::string Printer;                                // text of the virtual printer
    std::string Console;                                // text of the system console
    std::string Output;                                 // all lines of the standard output
    std::optional<std::string> Clipboard;               // no value: no text is there
};

/// Runs `program` with the script and returns when the program has ended. When the script is over
/// the program's thread ends where it sleeps, as by platform::EndThread; a last Wait gives it time
/// to end by itself. Of a program that has ended before, the remaining looks take what it left, and
/// no other step is carried out. A program that neither sleeps nor ends keeps this from returning.
///
/// Handlers that a step sets off (t_MouseHandler, t_MenuHandler) run on the program's thread while
/// it sleeps, before the next step. Background workers that the program itself starts, and the
/// refresh loop, do not run; looks ask for the pictures as they are.
/// Main thread, once per process.
[[nodiscard]] Outcome RunHeadless(std::function<void()> program, const Script& script);

}  // namespace korvandi
