#pragma once

/// What the menu items "Öffnen …" and "Sichern unter …" do in the shipped application, made to be
/// its menu handler: t_MenuHandler = RunFileCommand. Looks at the newest event in t_MenuEventQueue:
///   tag 100   shows a text file, in UTF-8 or Latin-1, in the virtual printer
///   tag 101   writes the text of the window in front to a file, in UTF-8, lines ended by line
///             feeds; of a graphic window the look-alikes of its characters without the blanks at
///             the ends of lines, nothing of block graphics
/// Sounds the warning where there is no text to write. After the warning the person is told
///   why a file cannot be read, after the line of getbinaryfromfile, or that it holds no text
///   why a file cannot be written, and may choose another one, after
///     "RunFileCommand: Could not write file „<path>“: <reason>."    what the file held stays
/// Background worker; waits for the person.
void RunFileCommand();
