#pragma once

#include <string>
#include <vector>

/// Presses a key of a line editor in front of `display` again and again, a digit and Backspace in
/// turns, and looks at what the screen shows there: the times from each press to the first changed
/// pixel, in milliseconds and in order of length. Empty when the screen can't be looked at or
/// nothing changes on it.
std::vector<double> TimesOfAnswers(const std::string& display);
