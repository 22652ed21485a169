#include "tests/support/print_to.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

template <typename Value>
void ShowValue(std::ostream& out, const Value& value) {
    out << testing::PrintToString(value);
}

template <typename Value>
void ShowValue(std::ostream& out, const toolkit::Shared<Value>& value) {
    out << testing::PrintToString(+Value(value));  // + makes numbers of bytes
}

template <typename Record>
void ShowFields(std::ostream& /*out*/, const Record& /*record*/) {}

template <typename Record, typename Field, typename... Rest>
void ShowFields(std::ostream& out, const Record& record, const char* name, Field Record::*field,
                Rest... rest) {
    static const Record& fresh = *new Record;
    if (!(record.*field == fresh.*field)) {
        out << ' ' << name << ' ';
        ShowValue(out, record.*field);
    }
    ShowFields(out, record, rest...);
}

// Shows the fields, given as their names and themselves, that are not as in a new record.
template <typename Record, typename... Fields>
void Show(std::ostream& out, const Record& record, Fields... fields) {
    out << '{';
    ShowFields(out, record, fields...);
    out << " }";
}

template <typename Color>
void ShowColor(const Color& color, std::ostream& out) {
    out << '{' << int{color.Alpha} << ", " << int{color.Red} << ", " << int{color.Green} << ", "
        << int{color.Blue} << '}';
}

}  // namespace

namespace platform {

void PrintTo(const Color& color, std::ostream* out) {
    ShowColor(color, *out);
}

void PrintTo(const Rect& rect, std::ostream* out) {
    *out << '{' << rect.X << ", " << rect.Y << ", " << rect.Width << " x " << rect.Height << '}';
}

}  // namespace platform

namespace toolkit {

void PrintTo(const Cell& cell, std::ostream* out) {
    *out << "character " << int{cell.Symbol} << " in " << t_HexText(cell.Color).substr(6);
}

void PrintTo(const SharedColor& color, std::ostream* out) {
    ShowColor(t_RGBColor(color), *out);
}

void PrintTo(const SharedRect& rect, std::ostream* out) {
    PrintTo(platform::Rect(rect), out);
}

}  // namespace toolkit

void PrintTo(const t_RGBColor& color, std::ostream* out) {
    ShowColor(color, *out);
}

void PrintTo(const t_Event& event, std::ostream* out) {
    Show(*out, event, "Kind", &t_Event::Kind, "Index", &t_Event::Index, "Description",
         &t_Event::Description, "Value", &t_Event::Value, "WindowX", &t_Event::WindowX, "WindowY",
         &t_Event::WindowY, "ClickX", &t_Event::ClickX, "ClickY", &t_Event::ClickY, "Mods",
         &t_Event::Mods, "Window", &t_Event::Window, "Time", &t_Event::Time, "CloseBox",
         &t_Event::CloseBox, "CapsLockPressed", &t_Event::CapsLockPressed, "ShiftPressed",
         &t_Event::ShiftPressed, "ControlPressed", &t_Event::ControlPressed, "OptionPressed",
         &t_Event::OptionPressed, "CommandPressed", &t_Event::CommandPressed, "NumericPadPressed",
         &t_Event::NumericPadPressed, "HelpPressed", &t_Event::HelpPressed, "FnPressed",
         &t_Event::FnPressed, "CursorKeyPressed", &t_Event::CursorKeyPressed, "FunctionKeyPressed",
         &t_Event::FunctionKeyPressed);
}

void PrintTo(const t_MenuEvent& event, std::ostream* out) {
    Show(*out, event, "Kind", &t_MenuEvent::Kind, "MenuTitle", &t_MenuEvent::MenuTitle, "ItemTitle",
         &t_MenuEvent::ItemTitle, "ItemKeyChar", &t_MenuEvent::ItemKeyChar, "ItemKeyMods",
         &t_MenuEvent::ItemKeyMods, "ItemKeyAsc", &t_MenuEvent::ItemKeyAsc, "ItemAction",
         &t_MenuEvent::ItemAction, "Time", &t_MenuEvent::Time);
}

void PrintTo(const t_Font& font, std::ostream* out) {
    *out << "{ header " << font.HeaderSize << ", " << testing::PrintToString(font.Identifier)
         << ", format " << font.Format << ", size " << font.Size << ", codes " << int{font.Start}
         << " to " << int{font.End} << ", " << font.Width << " x " << font.Height << ", reserved "
         << font.Reserved << ", " << font.Data.size() << " bytes }";
}

void PrintTo(const t_Window& window, std::ostream* out) {
    Show(*out, window, "Initialized", &t_Window::Initialized, "Visible", &t_Window::Visible,
         "IgnoreEvents", &t_Window::IgnoreEvents, "AutoUpdate", &t_Window::AutoUpdate,
         "QuickUpdate", &t_Window::QuickUpdate, "ScrollLock", &t_Window::ScrollLock,
         "VerticalBlank", &t_Window::VerticalBlank, "UpdateStarted", &t_Window::UpdateStarted,
         "UpdateFinished", &t_Window::UpdateFinished, "UpdateDuration", &t_Window::UpdateDuration,
         "RefreshRate", &t_Window::RefreshRate, "Window", &t_Window::Window, "View",
         &t_Window::View, "DrawingRect", &t_Window::DrawingRect, "TitleHeight",
         &t_Window::TitleHeight, "BorderWidth", &t_Window::BorderWidth, "BorderHeight",
         &t_Window::BorderHeight, "RGBColorBorder", &t_Window::RGBColorBorder, "BitDepth",
         &t_Window::BitDepth, "Width", &t_Window::Width, "Height", &t_Window::Height, "RGBColor",
         &t_Window::RGBColor, "DrawingMode", &t_Window::DrawingMode, "PositionX",
         &t_Window::PositionX, "PositionY", &t_Window::PositionY, "MemoryStart",
         &t_Window::MemoryStart, "MemoryEnd", &t_Window::MemoryEnd, "Font", &t_Window::Font,
         "TextWidth", &t_Window::TextWidth, "TextHeight", &t_Window::TextHeight, "TextFirstColumn",
         &t_Window::TextFirstColumn, "TextLastColumn", &t_Window::TextLastColumn, "TextFirstLine",
         &t_Window::TextFirstLine, "TextLastLine", &t_Window::TextLastLine, "TextHpos",
         &t_Window::TextHpos, "TextVpos", &t_Window::TextVpos, "TextColor", &t_Window::TextColor,
         "TextInverse", &t_Window::TextInverse, "TextDisplayMode", &t_Window::TextDisplayMode,
         "TextCursorLevel", &t_Window::TextCursorLevel, "TextRedirectOutput",
         &t_Window::TextRedirectOutput, "InputString", &t_Window::InputString, "InputFinished",
         &t_Window::InputFinished, "InputMode", &t_Window::InputMode, "InputHpos",
         &t_Window::InputHpos, "InputVpos", &t_Window::InputVpos, "InputCursorPos",
         &t_Window::InputCursorPos, "InputMaxCharacters", &t_Window::InputMaxCharacters,
         "LoResOffsetX", &t_Window::LoResOffsetX, "LoResOffsetY", &t_Window::LoResOffsetY,
         "LoResMode", &t_Window::LoResMode, "TextMemoryStart", &t_Window::TextMemoryStart,
         "TextMemoryEnd", &t_Window::TextMemoryEnd);
}

void PrintTo(const Text& text, std::ostream* out) {
    *out << testing::PrintToString(text.Elements);
}
