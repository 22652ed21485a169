#pragma once

#include <string>
#include <string_view>
#include <vector>

// Asking the person for files. Nothing is printed.

/// Runs an open dialog for one file and returns its path, empty when cancelled. `fileTypes` holds
/// extensions separated by commas; empty: every file. Any thread; waits for the person.
[[nodiscard]] std::string t_OpenFileDialog(std::string_view title, std::string_view message,
                                           std::string_view fileTypes);

/// Runs a save dialog and returns the path, empty when cancelled. Any thread; waits for the person.
[[nodiscard]] std::string t_SaveFileDialog(std::string_view presetName, std::string_view title,
                                           std::string_view message, std::string_view fileTypes);

/// The dialogs themselves. Main thread.
[[nodiscard]] std::vector<std::string> t_OpenPanel(std::string_view title, std::string_view message,
                                                   std::string_view fileTypes, bool severalAllowed,
                                                   bool filesAllowed, bool chooseFolders);
[[nodiscard]] std::string t_SavePanel(std::string_view presetName, std::string_view title,
                                      std::string_view message, std::string_view fileTypes);
