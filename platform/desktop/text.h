#pragma once

#include <QtCore/QString>
#include <string>
#include <string_view>

// Texts on their way between the seam and the windows. Any thread.

namespace platform::desktop {

[[nodiscard]] inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// As ToQt, for labels in which an ampersand would mark a key.
[[nodiscard]] inline QString ToLabel(std::string_view text) {
    return ToQt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

[[nodiscard]] inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace platform::desktop
