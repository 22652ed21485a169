#pragma once

#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtGui/QFont>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text_store.h"
#include "platform/window.h"

class QPlainTextEdit;
class QWidget;

namespace platform::desktop {

/// The text of a text window. The text itself is kept here; the editor that shows it is made with
/// the window's widgets and follows in steps that a person can see, however often text comes. Of a
/// text that is too long it shows the beginning or, while it stands at the end, the end, and a line
/// that says so. Main thread.
class TextPane : public TextView {
  public:
    TextPane();

    [[nodiscard]] std::string Text() const override;
    void SetText(std::string text) override;
    void AppendText(std::string_view text) override;
    void SetLineLimit(std::int64_t lines) override;
    void SetAutomaticSubstitutions(bool on) override;
    void SetFont(std::string_view family, double points) override;
    void SetNeedsDisplay() override;

    /// Makes the editor. `wrap` breaks lines at its right edge; otherwise it scrolls sideways.
    QPlainTextEdit* MakeEditor(QWidget& parent, bool wrap);
    /// Brings the editor up to date.
    void Flush();

  private:
    void ChangedWholly();
    void ScheduleFlush();
    [[nodiscard]] bool TooMuch() const;
    void StopHere();
    void Replace();
    void Insert(const QString& text);
    [[nodiscard]] QString ForEditor(std::string_view text, qsizetype column);

    TextStore store_;
    std::string pending_;            // the end of the text, which the editor lacks
    std::int64_t pendingLines_ = 0;  // line ends in it
    bool replace_ = false;           // the editor lacks the whole text
    bool followEnd_ = true;  // the editor shall show the end of the text that replaces its own
    bool stopped_ = false;   // the editor shows a beginning and does not take what comes after it
    bool editorEndsWithReturn_ = false;
    QFont font_;
    QPlainTextEdit* editor_ = nullptr;
    QTimer flush_;
};

}  // namespace platform::desktop
