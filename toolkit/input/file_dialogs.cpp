#include "toolkit/input/file_dialogs.h"

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

#include "platform/platform.h"
#include "toolkit/core/clock.h"

namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The extensions between the commas, without blanks and empty entries.
std::vector<std::string> FileTypes(std::string_view list) {
    std::vector<std::string> types;
    while (!list.empty()) {
        const std::size_t comma = list.find(',');
        const std::string_view type = Trimmed(list.substr(0, comma));
        if (!type.empty()) types.emplace_back(type);
        if (comma == std::string_view::npos) break;
        list.remove_prefix(comma + 1);
    }
    return types;
}

struct Answer {
    std::string Path;
    std::atomic<bool> Given = false;
};

// Runs `panel` on the main thread. Another thread polls for the end instead of waiting in the main
// queue, which goes on serving others while the panel is open.
std::string RunPanel(std::function<std::string()> panel) {
    if (platform::OnMain()) return panel();
    toolkit::SleepMilliseconds(20);
    const auto answer = std::make_shared<Answer>();
    platform::PostToMain([answer, panel = std::move(panel)] {
        answer->Path = panel();
        answer->Given = true;
    });
    while (!answer->Given) toolkit::SleepMilliseconds(1);
    return answer->Path;
}

// A path without the scheme that a file's address begins with.
std::string PathOf(std::string chosen) {
    constexpr std::string_view kScheme = "file://";
    if (chosen.starts_with(kScheme)) chosen.erase(0, kScheme.size());
    return chosen;
}

}  // namespace

std::vector<std::string> t_OpenPanel(std::string_view title, std::string_view message,
                                     std::string_view fileTypes, bool severalAllowed,
                                     bool filesAllowed, bool chooseFolders) {
    platform::OpenPanel panel;
    panel.Prompt = chooseFolders ? "Wählen" : "Öffnen";
    panel.Title = title;
    panel.Message = message;
    panel.FileTypes = FileTypes(fileTypes);
    panel.SeveralAllowed = severalAllowed;
    panel.FilesAllowed = filesAllowed;
    panel.FoldersAllowed = chooseFolders;
    std::vector<std::string> paths = platform::Current().Panels->RunOpenPanel(panel);
    for (std::string& path : paths) path = PathOf(std::move(path));
    return paths;
}

std::string t_SavePanel(std::string_view presetName, std::string_view title,
                        std::string_view message, std::string_view fileTypes) {
    platform::SavePanel panel;
    panel.Prompt = "Sichern";
    panel.NameLabel = "Sichern unter:";
    panel.PresetName = presetName;
    panel.Title = title;
    panel.Message = message;
    panel.FileTypes = FileTypes(fileTypes);
    return PathOf(platform::Current().Panels->RunSavePanel(panel).value_or(std::string()));
}

std::string t_OpenFileDialog(std::string_view title, std::string_view message,
                             std::string_view fileTypes) {
    return RunPanel([title = std::string(title), message = std::string(message),
                     fileTypes = std::string(fileTypes)] {
        const auto paths = t_OpenPanel(title, message, fileTypes, false, true, false);
        return paths.empty() ? std::string() : paths.front();
    });
}

std::string t_SaveFileDialog(std::string_view presetName, std::string_view title,
                             std::string_view message, std::string_view fileTypes) {
    return RunPanel([presetName = std::string(presetName), title = std::string(title),
                     message = std::string(message), fileTypes = std::string(fileTypes)] {
        return t_SavePanel(presetName, title, message, fileTypes);
    });
}
