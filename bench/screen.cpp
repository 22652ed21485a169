#include "bench/screen.h"

#include "app/interface.h"
#include "platform/program_files.h"
#include "toolkit/toolkit.h"

Screen::Screen() : delegate_(nullptr) {
    Desktop.ResourceFolder = platform::FindResourceFolder().Path;
    Desktop.KeepOutput = false;
    Desktop.SoundFiles = {{"click.aif", true}, {"sysbeep.aif", true}};
    Desktop.KeepPlayed = false;
    BuildInterface(delegate_);
    initvxtools();
    t_InitMemory();
}

void Screen::Open(std::int64_t bitDepth) {
    t_InitWindow(0, bitDepth, 80, 25, 0, "MenloRegular 16x32.font");
    t_WindowVisible(0, true);
}

void Screen::OpenPicture(std::int64_t bitDepth, std::int64_t width, std::int64_t height) {
    t_InitWindow(0, bitDepth, true, width, height, 0, 0, t_Font(), true);
    t_WindowVisible(0, true);
}

Screen& TheScreen() {
    static auto* const screen = new Screen;
    return *screen;
}
