#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

// The panels in which a person chooses files, and alerts. Main thread; other work of the main
// thread goes on while a panel is open. Paths are absolute, UTF-8, canonically precomposed.

namespace platform {

struct OpenPanel {
    std::string Prompt;  // the confirming button
    std::string Title;
    std::string Message;
    std::vector<std::string> FileTypes;  // extensions without the dot; empty: every file
    bool SeveralAllowed = false;
    bool FilesAllowed = true;
    bool FoldersAllowed = false;  // with files: they are shown, but folders alone are chosen
};

struct SavePanel {
    std::string Prompt;
    std::string NameLabel;
    std::string PresetName;
    std::string Title;
    std::string Message;
    std::vector<std::string> FileTypes;  // extensions without the dot; others stay allowed
};

/// A message or a question in a window of its own.
struct Alert {
    std::string Message;               // one sentence
    std::string Details;               // smaller, below the message; may be empty
    std::vector<std::string> Buttons;  // at least one; the first one is the usual answer
};

/// Optional: as it stands nobody is there, who cancels every panel and answers with the last button.
class Panels {
  public:
    virtual ~Panels() = default;

    /// The chosen paths; empty when the person cancelled.
    virtual std::vector<std::string> RunOpenPanel(const OpenPanel& /*panel*/) { return {}; }
    /// No value when the person cancelled.
    virtual std::optional<std::string> RunSavePanel(const SavePanel& /*panel*/) {
        return std::nullopt;
    }
    /// The position of the pressed button in `Buttons`, from 0; the last one when the person
    /// pressed Escape or closed the window. Return presses the first one.
    virtual std::int64_t RunAlert(const Alert& alert) { return std::ssize(alert.Buttons) - 1; }
};

}  // namespace platform
