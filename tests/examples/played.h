#pragma once

#include "korvandi_headless.h"

// A program that is played in memory instead of being run in windows: it links played.cpp, which
// has korvandi::Run, and a file with the script. Each picture that the script takes is compared
// with the file of its name in the folder that the program gets as its argument, pixel by pixel, or
// with --write before the folder is written there.

/// What the person does.
korvandi::Script PersonsScript();
