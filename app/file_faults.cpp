#include "app/file_faults.h"

#include <string_view>

namespace {

struct FaultRow {
    std::errc Reason;
    std::string_view German;
};

constexpr FaultRow kFaults[] = {
    {std::errc::no_such_file_or_directory, "Die Datei oder ihren Ordner gibt es nicht."},
    {std::errc::not_a_directory, "Ein Teil des Pfades ist kein Ordner."},
    {std::errc::is_a_directory, "Das ist ein Ordner."},
    {std::errc::not_supported, "Das ist keine gewöhnliche Datei."},
    {std::errc::permission_denied, "Die Berechtigung dafür fehlt."},
    {std::errc::operation_not_permitted, "Das System erlaubt es nicht."},
    {std::errc::read_only_file_system, "Der Datenträger ist schreibgeschützt."},
    {std::errc::no_space_on_device, "Auf dem Datenträger ist kein Platz mehr."},
    {std::errc::file_too_large, "Die Datei würde zu groß."},
    {std::errc::filename_too_long, "Der Name ist zu lang."},
    {std::errc::too_many_symbolic_link_levels, "Der Verweis führt im Kreis."},
    {std::errc::io_error, "Der Datenträger meldet einen Fehler."},
    {std::errc::not_enough_memory, "Der Arbeitsspeicher reicht nicht aus."},
};

}  // namespace

std::string FileFault(const std::error_code& reason) {
    for (const FaultRow& row : kFaults) {
        if (reason == row.Reason) return std::string(row.German);
    }
    return reason.message() + ".";
}
