#pragma once

/// What the menu items "Öffnen …" and "Sichern unter …" do in the shipped application, made to be
/// its menu handler: t_MenuHandler = RunFileCommand. Looks at the newest event in t_MenuEventQueue:
///   tag 100  shows a text file, in UTF-8 or Latin-1, in the virtual printer
///   tag 101  writes the text of the window in front to a file, in UTF-8, lines ended by line
///            feeds; of a graphic window the look-alikes of its characters without the blanks at
///            the ends of lines, nothing of block graphics
/// Sounds the warning where there is no text to write, and for a fault, which the person is told:
///   a file that cannot be read     after the line of getbinaryfromfile
///   a file that holds no text      without a line
///   a file that cannot be written  what it held stays, and another one may be chosen; after
///                                  "RunFileCommand: Could not write file „<path>“: <reason>."
/// Background worker; waits for the person.
void RunFileCommand();
