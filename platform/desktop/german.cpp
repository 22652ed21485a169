#include "platform/desktop/german.h"

#include <QtCore/QLocale>
#include <algorithm>
#include <string_view>

#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

struct Word {
    std::string_view Context;  // the part of the window library that says it
    std::string_view Source;
    std::string_view German;
};

// In the order of context and source, compared byte by byte.
// clang-format off
constexpr Word kWords[] = {
    {"QAbstractFileIconProvider", "%1 File", "%1-Datei"},
    {"QAbstractFileIconProvider", "Drive", "Laufwerk"},
    {"QAbstractFileIconProvider", "File", "Datei"},
    {"QAbstractFileIconProvider", "File Folder", "Ordner"},
    {"QAbstractFileIconProvider", "Folder", "Ordner"},
    {"QAbstractFileIconProvider", "Shortcut", "Verknüpfung"},
    {"QAbstractFileIconProvider", "Unknown", "Unbekannt"},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "„%1“\nDer Ordner wurde nicht gefunden.\nBitte prüfen Sie seinen Namen."},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     "„%1“\nDie Datei wurde nicht gefunden.\nBitte prüfen Sie ihren Namen."},
    {"QFileDialog", "%1 already exists.\nDo you want to replace it?",
     "„%1“ gibt es schon.\nMöchten Sie die Datei ersetzen?"},
    {"QFileDialog", "&Choose", "&Wählen"},
    {"QFileDialog", "&Delete", "&Löschen"},
    {"QFileDialog", "&New Folder", "&Neuer Ordner"},
    {"QFileDialog", "&Open", "Ö&ffnen"},
    {"QFileDialog", "&Rename", "&Umbenennen"},
    {"QFileDialog", "&Save", "&Sichern"},
    {"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?",
     "„%1“ ist schreibgeschützt.\nMöchten Sie trotzdem löschen?"},
    {"QFileDialog", "Alt+Left", "Alt+Left"},
    {"QFileDialog", "Are you sure you want to delete '%1'?", "Möchten Sie „%1“ wirklich löschen?"},
    {"QFileDialog", "Back", "Zurück"},
    {"QFileDialog", "Change to detail view mode", "Einzelheiten zeigen"},
    {"QFileDialog", "Change to list view mode", "Nur die Namen zeigen"},
    {"QFileDialog", "Could not delete directory.", "Der Ordner konnte nicht gelöscht werden."},
    {"QFileDialog", "Create New Folder", "Neuer Ordner"},
    {"QFileDialog", "Create a New Folder", "Einen neuen Ordner anlegen"},
    {"QFileDialog", "Delete", "Löschen"},
    {"QFileDialog", "Detail View", "Einzelheiten"},
    {"QFileDialog", "Directories", "Ordner"},
    {"QFileDialog", "Directory:", "Ordner:"},
    {"QFileDialog", "File &name:", "&Name:"},
    {"QFileDialog", "Files", "Dateien"},
    {"QFileDialog", "Files of type:", "Dateityp:"},
    {"QFileDialog", "Find Directory", "Ordner suchen"},
    {"QFileDialog", "Forward", "Vor"},
    {"QFileDialog", "Go back", "Zurück"},
    {"QFileDialog", "Go forward", "Vor"},
    {"QFileDialog", "Go to the parent directory", "Zum übergeordneten Ordner"},
    {"QFileDialog", "List View", "Liste"},
    {"QFileDialog", "List of places and bookmarks", "Orte und Lesezeichen"},
    {"QFileDialog", "Look in:", "Suchen in:"},
    {"QFileDialog", "My Computer", "Computer"},
    {"QFileDialog", "New Folder", "Neuer Ordner"},
    {"QFileDialog", "Parent Directory", "Übergeordneter Ordner"},
    {"QFileDialog", "Recent Places", "Zuletzt besucht"},
    {"QFileDialog", "Remove", "Entfernen"},
    {"QFileDialog", "Save As", "Sichern unter"},
    {"QFileDialog", "Show ", "Zeigen: "},
    {"QFileDialog", "Show &hidden files", "&Versteckte Dateien zeigen"},
    {"QFileDialog", "Sidebar", "Seitenleiste"},
    {"QFileSystemModel", "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with "
                         "fewer characters or no punctuation marks.",
     "<b>Der Name „%1“ geht nicht.</b><p>Versuchen Sie es mit einem kürzeren Namen ohne "
     "Satzzeichen."},
    {"QFileSystemModel", "Computer", "Computer"},
    {"QFileSystemModel", "Date Modified", "Geändert"},
    {"QFileSystemModel", "Invalid filename", "Ungültiger Name"},
    {"QFileSystemModel", "Kind", "Art"},
    {"QFileSystemModel", "My Computer", "Computer"},
    {"QFileSystemModel", "Name", "Name"},
    {"QFileSystemModel", "Size", "Größe"},
    {"QFileSystemModel", "Type", "Art"},
    {"QLineEdit", "&Copy", "&Kopieren"},
    {"QLineEdit", "&Paste", "Ein&fügen"},
    {"QLineEdit", "&Redo", "Wieder&holen"},
    {"QLineEdit", "&Undo", "&Rückgängig"},
    {"QLineEdit", "Cu&t", "&Ausschneiden"},
    {"QLineEdit", "Delete", "Löschen"},
    {"QLineEdit", "Select All", "Alles auswählen"},
    {"QLocale", "%n byte(s)", "%n Byte"},
    {"QPlatformTheme", "&No", "&Nein"},
    {"QPlatformTheme", "&Yes", "&Ja"},
    {"QPlatformTheme", "Cancel", "Abbrechen"},
    {"QPlatformTheme", "Close", "Schließen"},
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "Open", "Öffnen"},
    {"QPlatformTheme", "Save", "Sichern"},
    {"QScrollBar", "Bottom", "Ende"},
    {"QScrollBar", "Left edge", "Linker Rand"},
    {"QScrollBar", "Page down", "Eine Seite nach unten"},
    {"QScrollBar", "Page left", "Eine Seite nach links"},
    {"QScrollBar", "Page right", "Eine Seite nach rechts"},
    {"QScrollBar", "Page up", "Eine Seite nach oben"},
    {"QScrollBar", "Right edge", "Rechter Rand"},
    {"QScrollBar", "Scroll down", "Nach unten rollen"},
    {"QScrollBar", "Scroll here", "Hierher rollen"},
    {"QScrollBar", "Scroll left", "Nach links rollen"},
    {"QScrollBar", "Scroll right", "Nach rechts rollen"},
    {"QScrollBar", "Scroll up", "Nach oben rollen"},
    {"QScrollBar", "Top", "Anfang"},
    {"QShortcut", "Alt", "Alt"},
    {"QShortcut", "Backspace", "Rücktaste"},
    {"QShortcut", "Ctrl", "Strg"},
    {"QShortcut", "Del", "Entf"},
    {"QShortcut", "Down", "Ab"},
    {"QShortcut", "End", "Ende"},
    {"QShortcut", "Home", "Pos1"},
    {"QShortcut", "Ins", "Einfg"},
    {"QShortcut", "Left", "Links"},
    {"QShortcut", "Meta", "Super"},
    {"QShortcut", "PgDown", "Bild ab"},
    {"QShortcut", "PgUp", "Bild auf"},
    {"QShortcut", "Right", "Rechts"},
    {"QShortcut", "Shift", "Umschalt"},
    {"QShortcut", "Space", "Leertaste"},
    {"QShortcut", "Up", "Auf"},
    {"QWidgetTextControl", "&Copy", "&Kopieren"},
    {"QWidgetTextControl", "&Paste", "Ein&fügen"},
    {"QWidgetTextControl", "&Redo", "Wieder&holen"},
    {"QWidgetTextControl", "&Undo", "&Rückgängig"},
    {"QWidgetTextControl", "Copy &Link Location", "&Verweis kopieren"},
    {"QWidgetTextControl", "Cu&t", "&Ausschneiden"},
    {"QWidgetTextControl", "Delete", "Löschen"},
    {"QWidgetTextControl", "Select All", "Alles auswählen"},
};
// clang-format on

constexpr bool Before(const Word& left, const Word& right) {
    if (left.Context != right.Context) return left.Context < right.Context;
    return left.Source < right.Source;
}
static_assert(std::ranges::is_sorted(kWords, Before));

}  // namespace

QString German::translate(const char* context, const char* source, const char* /*comment*/,
                          int /*count*/) const {
    if (context == nullptr || source == nullptr) return {};
    const Word wanted{context, source, {}};
    const auto* const found = std::ranges::lower_bound(kWords, wanted, Before);
    if (found == std::end(kWords) || Before(wanted, *found)) return {};
    return ToQt(found->German);
}

QString SizeText(qint64 bytes) {
    constexpr qint64 kStep = 1024;
    if (bytes < kStep) return QStringLiteral("%1 Byte").arg(bytes);
    return QLocale(QLocale::German)
        .formattedDataSize(bytes, bytes < kStep * kStep ? 0 : 1,
                           QLocale::DataSizeTraditionalFormat);
}

}  // namespace platform::desktop
