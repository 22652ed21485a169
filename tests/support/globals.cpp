#include "tests/support/globals.h"

#include "toolkit/program/menu_choices.h"
#include "toolkit/toolkit.h"

void ResetGlobals() {
    t_ToolsReady = false;
    t_MemoryStarted = false;
    t_ProgramStartPending = false;
    t_ProgramStackSize = 0;
    t_ProgramEntry = nullptr;
    t_TerminateHandler = nullptr;
    t_AppDelegate = nullptr;
    t_TitleBarHeight = 0;
    t_Windows.fill(t_Window());
    t_HighMemory = 0xFFFFFF;
    t_FirstWindow = 255;
    t_AutoUpdateRunning = false;
    t_EventQueue.Clear();
    t_MouseEventQueue.Clear();
    t_CurrentEvent = t_Event();
    t_MenuEventQueue.Clear();
    t_MenuActions.Clear();
    t_MenuHandler = nullptr;
    t_MenuWindowProc = t_SysBeep;
    t_MouseHandler = nullptr;
    toolkit::MenuChoices().Clear();
    toolkit::ForgetPointers();
    t_RandomLast = 0;
    toolkit::SoundsOn = true;
    for (toolkit::Shared<bool>* flag :
         {&t_KeyDown, &t_CapsLockPressed, &t_ShiftPressed, &t_ControlPressed, &t_OptionPressed,
          &t_CommandPressed, &t_FnPressed, &t_MouseDown, &t_RightMouseDown}) {
        *flag = false;
    }
}
