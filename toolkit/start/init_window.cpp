#include "toolkit/start/init_window.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "toolkit/core/bit_depths.h"
#include "toolkit/core/codes.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/number_format.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/outlets.h"
#include "toolkit/core/output.h"
#include "toolkit/core/palette.h"
#include "toolkit/core/tables.h"
#include "toolkit/graphics/refresh.h"
#include "toolkit/start/start_up.h"
#include "toolkit/window/blocks.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

using toolkit::PlaceCode;
using toolkit::PrintLine;

namespace {

constexpr std::int64_t kSmallestSide = 32;  // of a picture, pixels
constexpr std::int64_t kUsualWidth = 1280;
constexpr std::int64_t kUsualHeight = 800;
constexpr std::uint8_t kNewTextColor = 0xC0;
constexpr std::int64_t kBorderColor = 5;

// What t_InitWindow works out before it touches the record.
struct Plan {
    std::string Prefix;  // of every log line
    std::uint8_t Window = 0;
    std::int64_t BitDepth = 0;
    bool AutoUpdate = false;
    std::int64_t Width = 0;
    std::int64_t Height = 0;
    std::int64_t BorderWidth = 0;
    std::int64_t BorderHeight = 0;
    bool TitleVisible = false;
    std::int64_t GraphicBytes = 0;
    std::int64_t Columns = -1;
    std::int64_t Lines = -1;
    std::int64_t TextBytes = 0;
};

std::string Kilobytes(std::int64_t bytes) {
    return t_FormatNumber(static_cast<double>(bytes) / 1024.0, ' ', 1, 2, true);
}

// The text between the last slash and ".app"; what does not end in ".app" is used whole.
std::string Title(const std::string& bundlePath, bool hasText) {
    constexpr std::size_t kSuffix = 4;
    std::string name = bundlePath.substr(bundlePath.rfind('/') + 1);
    std::string ending = name.substr(name.size() - std::min(name.size(), kSuffix));
    for (char& c : ending) {
        c = static_cast<char>(t_LowerCaseTable[static_cast<std::uint8_t>(c)]);
    }
    if (ending != ".app") return name;
    name.resize(name.size() - kSuffix);
    return hasText ? name : name + "-Grafik";
}

std::int64_t CheckedSide(const Plan& plan, std::int64_t side, std::string_view what,
                         std::int64_t usual) {
    if (side >= kSmallestSide && side <= toolkit::kLargestSide) return side;
    PrintLine(plan.Prefix, " cannot display ", side, " ", what, " pixel.");
    return usual;
}

// Bit depths whose pixels share bytes take only widths that fill whole bytes in every row.
struct WidthRule {
    std::int64_t BitDepth;
    std::int64_t Multiple;
    std::int64_t RoundingAddend;
};

constexpr WidthRule kWidthRules[] = {{1, 8, 7}, {4, 4, 1}};

void ApplyWidthRule(Plan& plan) {
    for (const WidthRule& rule : kWidthRules) {
        if (rule.BitDepth != plan.BitDepth || plan.Width % rule.Multiple == 0) continue;
        PrintLine(plan.Prefix, " width with ", rule.BitDepth, " bit depth must be a multiple of ",
                  rule.Multiple, ".");
        plan.Width = (plan.Width + rule.RoundingAddend) / rule.Multiple * rule.Multiple;
    }
}

bool PlanGraphicBlock(Plan& plan, std::int64_t free) {
    plan.Width = CheckedSide(plan, plan.Width, "horizontal", kUsualWidth);
    plan.Height = CheckedSide(plan, plan.Height, "vertical", kUsualHeight);
    if (!toolkit::IsBitDepth(plan.BitDepth)) {
        PrintLine(plan.Prefix, " unsupported ", plan.BitDepth, " bit depth.");
        return false;
    }
    ApplyWidthRule(plan);
    plan.GraphicBytes = plan.Height * plan.BitDepth * plan.Width / 8;
    if (free >= plan.GraphicBytes) return true;
    PrintLine(plan.Prefix, " has not enough graphic-video-memory (", free / 1024, "K available).");
    PrintLine("t_InitWindow: Displaying ", plan.Width, " x ", plan.Height, " pixel x ",
              plan.BitDepth, " bit needs ", Kilobytes(plan.GraphicBytes), "K video-memory.");
    return false;
}

void PlanBorders(Plan& plan) {
    const auto screen = [&](std::int64_t code) { return t_WindowPos(plan.Window, code); };
    if (plan.BorderWidth < 0) plan.BorderWidth = screen(PlaceCode::ScreenWidth) - plan.Width;
    if (plan.BorderHeight < 0) plan.BorderHeight = screen(PlaceCode::ScreenHeight) - plan.Height;
}

bool PlanTextBlock(Plan& plan, const t_Font& font, std::int64_t free) {
    if (font.Data.empty()) return true;
    plan.Columns = font.Width > 0 ? plan.Width / font.Width : 0;
    plan.Lines = font.Height > 0 ? plan.Height / font.Height : 0;
    plan.TextBytes = plan.Columns * plan.Lines * 2;
    const std::int64_t left = free - plan.GraphicBytes;
    if (plan.TextBytes <= left) return true;
    PrintLine(plan.Prefix, " has not enough text-video-memory (", left / 1024, "K available).");
    PrintLine("t_InitWindow: Displaying ", plan.Columns, " x ", plan.Lines, " characters needs ",
              Kilobytes(plan.TextBytes), "K text-video-memory.");
    return false;
}

// A window that was set up without a title bar before gets it back.
void ApplyTitle(const Plan& plan) {
    if (!plan.TitleVisible) {
        t_WindowTitleVisible(plan.Window, false);
        PrintLine(plan.Prefix, " title will be invisible.");
    } else if (platform::Window* const host = t_WindowHostWindow(plan.Window); host != nullptr) {
        platform::RunOnMain(
            [host] { host->SetStyleMask(platform::kTitledClosableMiniaturizable); });
    }
}

void FillInPicture(const Plan& plan, t_Window& w) {
    w.UpdateStarted = 0;
    w.UpdateFinished = 0;
    w.VerticalBlank = true;
    w.IgnoreEvents = false;
    w.RefreshRate = toolkit::kUsualRefreshRate;
    w.AutoUpdate = plan.AutoUpdate;
    w.QuickUpdate = true;
    w.ScrollLock = false;
    w.BitDepth = plan.BitDepth;
    w.Width = plan.Width;
    w.Height = plan.Height;
    w.BorderWidth = plan.BorderWidth;
    w.BorderHeight = plan.BorderHeight;
    // There, because the height can change there.
    platform::RunOnMain(
        [&] { w.TitleHeight = plan.TitleVisible ? std::int64_t(t_TitleBarHeight) : 0; });
    w.RGBColor = t_PaletteColor(0);
    w.RGBColorBorder = t_PaletteColor(kBorderColor);
    w.DrawingMode = 0;
    w.PositionX = 0;
    w.PositionY = 0;
}

void FillInText(const Plan& plan, t_Window& w) {
    w.TextWidth = plan.Columns;
    w.TextHeight = plan.Lines;
    w.TextFirstColumn = 1;
    w.TextLastColumn = plan.Columns;
    w.TextFirstLine = 1;
    w.TextLastLine = plan.Lines;
    w.TextHpos = 1;
    w.TextVpos = 1;
    w.TextColor = kNewTextColor;
    w.LoResOffsetX = 0;
    w.LoResOffsetY = 0;
    w.LoResMode = 0;
}

void HandOutGraphicBlock(const Plan& plan, t_Window& w) {
    const toolkit::MemoryBlock block = toolkit::HandOut(plan.GraphicBytes);
    w.MemoryStart = block.Start;
    w.MemoryEnd = block.End;
    PrintLine(plan.Prefix, " : ", plan.Width, " x ", plan.Height, " pixel x ", plan.BitDepth,
              " bit = ", Kilobytes(plan.GraphicBytes), "K video-memory = $", t_HexText(block.Start),
              ".");
}

void HandOutTextBlock(const Plan& plan, t_Window& w) {
    w.TextMemoryStart = w.TextMemoryEnd = -1;
    if (plan.TextBytes == 0) return;
    const toolkit::MemoryBlock block = toolkit::HandOut(plan.TextBytes);
    w.TextMemoryStart = block.Start;
    w.TextMemoryEnd = block.End;
}

// Binds the window to its view. Without one the blocks stay handed out, but the record forgets
// them: blocks that move later could come to lie there.
bool BindToView(const Plan& plan, t_Window& w, const t_Font& font) {
    platform::View* const view = t_WindowView(plan.Window);
    if (view == nullptr) {
        w.Font = t_Font();
        w.MemoryStart = w.MemoryEnd = -1;
        w.TextMemoryStart = w.TextMemoryEnd = -1;
        PrintLine(plan.Prefix, " could not be initialized, resource undefined.");
        return false;
    }
    w.View = view;
    w.Window = t_WindowHostWindow(plan.Window);
    w.Font = font;
    // Last: from here on frames are built from the record.
    w.Initialized = true;
    return true;
}

void Open(Plan plan, const t_Font& font) {
    t_Window& w = t_Windows[plan.Window];
    const std::int64_t free = toolkit::FreeMemory();
    if (!PlanGraphicBlock(plan, free)) return;
    ApplyTitle(plan);
    PlanBorders(plan);
    if (!PlanTextBlock(plan, font, free)) return;
    FillInPicture(plan, w);
    HandOutGraphicBlock(plan, w);
    FillInText(plan, w);
    HandOutTextBlock(plan, w);
    if (BindToView(plan, w, font)) {
        t_ClearWindowMemory(plan.Window);
        t_WindowTitle(plan.Window,
                      Title(platform::Current().Resources->BundlePath(), w.TextMemoryStart >= 0));
        t_WindowSize(plan.Window, -1, -1, plan.Width, plan.Height);
        t_ColorBorder(plan.Window, kBorderColor);
    }
    PrintLine(plan.Prefix, " End.");
}

// The bytes of the picture, if the record holds a picture that lies in the memory.
std::optional<std::int64_t> PictureBytes(const t_Window& w) {
    const std::int64_t bits = toolkit::Times(toolkit::Times(w.Width, w.Height), w.BitDepth);
    if (bits <= 0 || !toolkit::InMemory(w.MemoryStart, bits / 8)) return std::nullopt;
    return bits / 8;
}

void FillWithOpaqueBlack(std::int64_t address, std::int64_t bytes) {
    constexpr std::int64_t kPixel = 4;
    std::vector<std::uint8_t> run(4096, 0);
    for (std::size_t i = 0; i < run.size(); i += kPixel) run[i] = 255;
    for (std::int64_t done = 0; done < bytes; done += std::ssize(run)) {
        const std::int64_t step = std::min<std::int64_t>(std::ssize(run), bytes - done);
        toolkit::WriteRun(address + done, {run.data(), static_cast<std::size_t>(step)});
    }
}

void ClearPicture(const t_Window& w) {
    const std::optional<std::int64_t> bytes = PictureBytes(w);
    if (!bytes || !toolkit::IsBitDepth(w.BitDepth)) return;
    if (w.BitDepth == 32) {
        FillWithOpaqueBlack(w.MemoryStart, *bytes);
    } else {
        toolkit::FillRun(w.MemoryStart, *bytes, 0);
    }
}

void ClearText(const t_Window& w) {
    const std::int64_t half = toolkit::ColorOffset(w);
    const std::int64_t cells = toolkit::Times(w.TextWidth, w.TextHeight);
    if (w.TextMemoryStart < 0 || cells < 1 || cells > half) return;
    toolkit::FillRun(w.TextMemoryStart, cells, toolkit::kBlank);
    toolkit::FillRun(w.TextMemoryStart + half, cells, w.TextColor);
}

}  // namespace

void t_InitWindow(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns,
                  std::int64_t lines, std::int64_t border, std::string_view fontName) {
    toolkit::WaitForTools();
    const t_Font font = t_LoadFontResource(fontName);
    if (font.Data.empty()) {
        PrintLine("t_InitWindow: Font '", fontName, "' not found.");
        return;
    }
    t_InitWindow(window, bitDepth, true, toolkit::Times(font.Width, columns),
                 toolkit::Times(font.Height, lines), border, border, font, true);
}

void t_InitWindow(std::uint8_t window, std::int64_t bitDepth, bool autoUpdate, std::int64_t width,
                  std::int64_t height, std::int64_t borderWidth, std::int64_t borderHeight,
                  const t_Font& font, bool titleVisible) {
    if (toolkit::GraphicWindow(__func__, window) == nullptr) return;
    Plan plan{.Prefix = toolkit::Joined("t_InitWindow: GraphicWindow #", window),
              .Window = window,
              .BitDepth = bitDepth,
              .AutoUpdate = autoUpdate,
              .Width = width,
              .Height = height,
              .BorderWidth = borderWidth,
              .BorderHeight = borderHeight,
              .TitleVisible = titleVisible};
    PrintLine(plan.Prefix, " Start.");
    toolkit::WaitForTools();
    if (t_FirstWindow == toolkit::kNoWindow) t_FirstWindow = window;
    toolkit::StartAutoUpdate();
    if (t_Windows[window].Initialized) toolkit::ReleaseBlocks(window);
    Open(std::move(plan), font);
}

void t_ClearWindowMemory(std::uint8_t window) {
    if (window >= toolkit::kGraphicWindows) return;
    const t_Window& w = t_Windows[window];
    ClearPicture(w);
    ClearText(w);
}
