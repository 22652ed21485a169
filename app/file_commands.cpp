#include "app/file_commands.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/file_faults.h"
#include "app/program_name.h"
#include "platform/platform.h"
#include "toolkit/core/output.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::string_view kTextFiles = "txt";

std::int64_t Ask(const platform::Alert& alert) {
    return platform::AskMain([&] { return platform::Current().Panels->RunAlert(alert); });
}

std::string Quoted(std::string_view path) {
    return toolkit::Joined("„", t_FileNameOfPath(path), "“");
}

// Codes that stand in no text: all controls but those that move or set the printing position, the
// end mark of older systems and Escape.
bool IsBinary(std::uint8_t byte) {
    return byte < 7 || (byte > 13 && byte < 32 && byte != 26 && byte != 27);
}

// Why the file cannot be shown as text; empty when it can.
std::string FaultOf(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    if (std::any_of(bytes.begin(), bytes.end(), IsBinary)) return "Die Datei enthält keinen Text.";
    if (!bytes.empty()) return {};
    const std::error_code error = platform::Current().Resources->ReadFile(path).Error;
    return error ? FileFault(error) : std::string();
}

void OpenText() {
    const std::string path =
        t_OpenFileDialog("Text öffnen", "Der Text erscheint im Fenster des Druckers.", kTextFiles);
    if (path.empty()) return;
    std::vector<std::uint8_t> bytes = getbinaryfromfile(path);
    platform::TextView* const printer = t_WindowTextView(toolkit::kPrinterWindow);
    if (const std::string fault = FaultOf(path, bytes); !fault.empty() || printer == nullptr) {
        t_SysBeep();
        if (fault.empty()) return;
        static_cast<void>(Ask({Quoted(path) + " kann nicht geöffnet werden.", fault, {"OK"}}));
        return;
    }
    std::string text = t_TextToString({std::move(bytes)});
    platform::RunOnMain([&] { printer->SetText(std::move(text)); });
    t_WindowFront(toolkit::kPrinterWindow);
}

// Between the lines of a grid: a character that no cell holds.
constexpr std::string_view kLineSeparator = "\u2028";

// The lines of a grid without the blanks at their ends, each with a line feed, without the empty
// ones at the end. A code that is no character, as those of block graphics, becomes a blank.
std::string Lines(std::string_view grid) {
    std::string lines;
    std::size_t end = 0;  // of the last line that is not empty
    while (!grid.empty()) {
        const std::string_view cells = grid.substr(0, grid.find(kLineSeparator));
        grid.remove_prefix(std::min(cells.size() + kLineSeparator.size(), grid.size()));
        const std::size_t start = lines.size();
        for (const char cell : cells) lines += static_cast<unsigned char>(cell) < ' ' ? ' ' : cell;
        lines.erase(lines.find_last_not_of(' ') + 1);
        const bool empty = lines.size() == start;
        lines += '\n';
        if (!empty) end = lines.size();
    }
    lines.resize(end);
    return lines;
}

// No value for a window without text.
std::optional<std::string> TextOf(std::uint8_t window) {
    if (window < toolkit::kGraphicWindows) {
        return Lines(t_ExportText(t_GetScreen(window, kLineSeparator)));
    }
    const platform::TextView* const view = t_WindowTextView(window);
    if (view == nullptr) return std::nullopt;
    return platform::AskMain([&] { return view->Text(); });
}

// Whether the person wants to try again.
bool TellNotWritten(const std::string& path, const std::error_code& error) {
    toolkit::PrintLine("RunFileCommand: Could not write file „", path, "“: ", error.message(), ".");
    t_SysBeep();
    return Ask({Quoted(path) + " konnte nicht gesichert werden.",
                FileFault(error),
                {"Erneut versuchen", "Abbrechen"}}) == 0;
}

void SaveText() {
    const std::optional<std::string> text = TextOf(t_FrontWindow());
    if (!text) return t_SysBeep();
    std::string name = ProgramName() + ".txt";
    while (true) {
        const std::string path = t_SaveFileDialog(
            name, "Text sichern", "Der Text des vorderen Fensters wird in eine Datei geschrieben.",
            kTextFiles);
        if (path.empty()) return;
        const std::error_code error = platform::WriteFileToDisk(path, *text);
        if (!error || !TellNotWritten(path, error)) return;
        name = t_FileNameOfPath(path);
    }
}

}  // namespace

void RunFileCommand() {
    const std::int64_t tag = t_MenuEventQueue[t_MenuEventQueue.size() - 1].ItemAction;
    if (tag == toolkit::Number(toolkit::BuiltIn::OpenFile)) OpenText();
    if (tag == toolkit::Number(toolkit::BuiltIn::SaveFile)) SaveText();
}
