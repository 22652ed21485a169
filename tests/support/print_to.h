#pragma once

#include <iosfwd>

#include "toolkit/toolkit.h"

// How a failing comparison shows records: of those with many fields, the fields that are not as in a
// new record.

namespace platform {

struct Color;
struct Rect;

void PrintTo(const Color& color, std::ostream* out);
void PrintTo(const Rect& rect, std::ostream* out);

}  // namespace platform

namespace toolkit {

void PrintTo(const Cell& cell, std::ostream* out);
void PrintTo(const SharedColor& color, std::ostream* out);
void PrintTo(const SharedRect& rect, std::ostream* out);

}  // namespace toolkit

void PrintTo(const t_RGBColor& color, std::ostream* out);
void PrintTo(const t_Event& event, std::ostream* out);
void PrintTo(const t_MenuEvent& event, std::ostream* out);
void PrintTo(const t_Font& font, std::ostream* out);
void PrintTo(const t_Window& window, std::ostream* out);
void PrintTo(const Text& text, std::ostream* out);
