#pragma once

/// What the menu items "Öffnen …" and "Sichern unter …" do in the shipped application, made to be
/// its menu handler: t_MenuHandler = RunFileCommand. Looks at the newest event in t_MenuEventQueue:
///   tag 100   shows a text file, in UTF-8 or Latin-1, in the virtual printer
///   tag 101   writes the text of the window in front to a file, in UTF-8, lines ended by line
///   feeds
/// Sounds the warning where there is no text to write, and after
///   "RunFileCommand: Could not write file „<path>“: <reason>."    what the file held stays
/// and after the line of getbinaryfromfile for a file that cannot be read. Background worker; waits
/// for the person.
void RunFileCommand();
