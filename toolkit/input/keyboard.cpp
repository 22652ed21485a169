#include "toolkit/input/keyboard.h"

#include <optional>

#include "toolkit/core/clock.h"
#include "toolkit/core/output.h"
#include "toolkit/core/strings.h"
#include "toolkit/core/threads.h"
#include "toolkit/core/utf8.h"
#include "toolkit/input/key_table.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/print.h"
#include "toolkit/window/window.h"

constinit toolkit::Shared<bool> t_KeyDown;
constinit toolkit::Shared<bool> t_CapsLockPressed;
constinit toolkit::Shared<bool> t_ShiftPressed;
constinit toolkit::Shared<bool> t_ControlPressed;
constinit toolkit::Shared<bool> t_OptionPressed;
constinit toolkit::Shared<bool> t_CommandPressed;
constinit toolkit::Shared<bool> t_FnPressed;

namespace {

// A modifier, what tells that it was held when last seen, and its field in key and mouse events;
// nullptr where it has none. FnPressed is for key events alone.
struct ModifierRow {
    std::uint64_t Flag;
    toolkit::Shared<bool>* Global;
    bool t_Event::*Field;
};

constexpr ModifierRow kModifiers[] = {
    {platform::kCapsLockFlag, &t_CapsLockPressed, &t_Event::CapsLockPressed},
    {platform::kShiftFlag, &t_ShiftPressed, &t_Event::ShiftPressed},
    {platform::kControlFlag, &t_ControlPressed, &t_Event::ControlPressed},
    {platform::kOptionFlag, &t_OptionPressed, &t_Event::OptionPressed},
    {platform::kCommandFlag, &t_CommandPressed, &t_Event::CommandPressed},
    {platform::kFnFlag, &t_FnPressed, nullptr},
    {platform::kNumericPadFlag, nullptr, &t_Event::NumericPadPressed},
    {platform::kHelpFlag, nullptr, &t_Event::HelpPressed},
};

constexpr std::int64_t kLastPlainCode = 255;
constexpr std::int64_t kFirstFunctionKey = 63'236;  // character 0xF704, F1
constexpr std::int64_t kFunctionKeyDistance = 63'107;

void Queue(std::uint8_t window, const platform::KeyPress& press, std::int64_t value, bool cursorKey,
           bool functionKey) {
    t_Event event;
    event.Kind = 1;
    event.Index = press.KeyCode;
    event.Description = press.Characters;
    event.Value = value;
    event.Window = window;
    event.Time = toolkit::Milliseconds();
    toolkit::FillInModifiers(event, press.ModifierFlags);
    event.FnPressed = (press.ModifierFlags & platform::kFnFlag) != 0;
    event.CursorKeyPressed = cursorKey;
    event.FunctionKeyPressed = functionKey;
    t_EventQueue.Append(std::move(event));
}

// The general rule for a character that no row of the key table turned into a value.
void QueueCharacter(std::uint8_t window, const platform::KeyPress& press, std::int64_t k) {
    if (k <= kLastPlainCode) {
        Queue(window, press, k, false, false);
    } else if (k >= kFirstFunctionKey) {
        Queue(window, press, k - kFunctionKeyDistance, false, true);
    }
}

}  // namespace

void viewKeyDown(std::uint8_t window, const platform::KeyPress& press) {
    if (t_ToolsReady && window < toolkit::kGraphicWindows) {
        const t_Window& w = t_Windows[window];
        if (!w.Initialized) {
            toolkit::PrintLine("viewKeyDown: Graphic window (", window, ") not initialized.");
        } else if (!w.IgnoreEvents) {
            t_KeyEventHandler(window, press);
        }
    }
    t_KeyDown = true;
}

void t_KeyEventHandler(std::uint8_t window, const platform::KeyPress& press) {
    toolkit::SetModifierFlags(press.ModifierFlags);
    const std::int64_t k = t_CharCode(press.Characters);
    const toolkit::KeyResult result = toolkit::LookUpKey(press.KeyCode, k, press.ModifierFlags);
    switch (result.What) {
        case toolkit::KeyResult::Kind::Value:
            Queue(window, press, result.Number, false, false);
            break;
        case toolkit::KeyResult::Kind::CursorKey:
            Queue(window, press, result.Number, true, false);
            break;
        case toolkit::KeyResult::Kind::Redirect:
            t_RedirectOutput(window, result.Number);
            break;
        case toolkit::KeyResult::Kind::Character:
            QueueCharacter(window, press, result.Number);
            break;
    }
}

std::string t_WaitKey(std::uint8_t window) {
    std::int64_t value = -1;
    while (value < 0) {
        if (!t_EventPending) {
            t_CursorOn(window);
            const auto pending = [] { return bool{t_EventPending}; };
            while (!pending()) toolkit::WaitMilliseconds(10, pending);
            t_CursorOff(window);
        }
        value = t_NextEvent();
    }
    return toolkit::CharacterString(value);
}

void toolkit::SetModifierFlags(std::uint64_t modifierFlags) {
    for (const ModifierRow& row : kModifiers) {
        if (row.Global != nullptr) *row.Global = (modifierFlags & row.Flag) != 0;
    }
}

void toolkit::FillInModifiers(t_Event& event, std::uint64_t modifierFlags) {
    event.Mods = static_cast<std::int64_t>(modifierFlags >> 16U & 0xFFFFU);
    for (const ModifierRow& row : kModifiers) {
        if (row.Field != nullptr) event.*row.Field = (modifierFlags & row.Flag) != 0;
    }
}
