#include "app/file_commands.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "app/program_name.h"
#include "platform/platform.h"
#include "toolkit/core/output.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::int64_t kOpenTag = 100;
constexpr std::int64_t kSaveTag = 101;
constexpr std::string_view kTextFiles = "txt";

void OpenText() {
    const std::string path =
        t_OpenFileDialog("Text öffnen", "Der Text erscheint im Fenster des Druckers.", kTextFiles);
    if (path.empty()) return;
    const std::vector<std::uint8_t> bytes = getbinaryfromfile(path);
    platform::TextView* const printer = t_WindowTextView(toolkit::kPrinterWindow);
    if (bytes.empty() || printer == nullptr) return t_SysBeep();
    const std::string text = t_TextToString({bytes});
    platform::RunOnMain([&] { printer->SetText(text); });
    t_WindowFront(toolkit::kPrinterWindow);
}

// No value for a window without text.
std::optional<std::string> TextOf(std::uint8_t window) {
    if (window < toolkit::kGraphicWindows) return t_ExportText(t_GetScreen(window, "\n"));
    const platform::TextView* const view = t_WindowTextView(window);
    if (view == nullptr) return std::nullopt;
    return platform::AskMain([&] { return view->Text(); });
}

// Beside the old file first, which is replaced only by a whole new one. The result is the reason
// for not doing so, empty when it is done.
std::string Write(const std::string& path, std::string_view text) {
    const std::filesystem::path beside = path + ".neu";
    std::error_code error;
    {
        std::ofstream file(beside, std::ios::binary);
        file << text;
        file.close();
        if (!file) error = std::make_error_code(std::errc::io_error);
    }
    if (!error) std::filesystem::rename(beside, path, error);
    if (!error) return {};
    std::error_code ignored;
    std::filesystem::remove(beside, ignored);
    return error.message();
}

void SaveText() {
    const std::optional<std::string> text = TextOf(t_FrontWindow());
    if (!text) return t_SysBeep();
    const std::string path = t_SaveFileDialog(
        ProgramName() + ".txt", "Text sichern",
        "Der Text des vorderen Fensters wird in eine Datei geschrieben.", kTextFiles);
    if (path.empty()) return;
    const std::string fault = Write(path, *text);
    if (fault.empty()) return;
    toolkit::PrintLine("RunFileCommand: Could not write file „", path, "“: ", fault, ".");
    t_SysBeep();
}

}  // namespace

void RunFileCommand() {
    const std::int64_t tag = t_MenuEventQueue[t_MenuEventQueue.size() - 1].ItemAction;
    if (tag == kOpenTag) OpenText();
    if (tag == kSaveTag) SaveText();
}
