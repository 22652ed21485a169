#pragma once

#include <cstdint>

#include "app/app_delegate.h"
#include "platform/headless/headless.h"

/// A toolkit on a headless desktop with the shipped fonts, and windows to draw into. One for the
/// whole run.
class Screen {
  public:
    Screen();

    /// Opens window 0 anew with 80 x 25 cells of 16 x 32 pixels.
    static void Open(std::int64_t bitDepth);
    /// Opens window 0 anew with a picture of this size and no text, and shows it.
    static void OpenPicture(std::int64_t bitDepth, std::int64_t width, std::int64_t height);

    platform::headless::Headless Desktop;

  private:
    AppDelegate delegate_;
};

Screen& TheScreen();

// Each file of benchmarks adds its pairs.
void AddFramePairs();
void AddTextPairs();
void AddDemonstrationPairs();
