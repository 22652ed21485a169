#include "platform/desktop/text_pane.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <utility>

#include "platform/desktop/german.h"
#include "platform/desktop/text.h"
#include "platform/main_queue.h"
#include "platform/parts/text_excerpt.h"

namespace platform::desktop {

using parts::Beginning;
using parts::Ending;
using parts::kMostBytesShown;
using parts::kMostLinesShown;

namespace {

constexpr int kFlushMs = 20;

// Longer lines are broken on the screen only: setting a line takes time with its length.
constexpr qsizetype kLongestLine = 4000;

// More than this is not added to what the editor has; it gets the whole text anew.
constexpr std::size_t kMostToInsert = 262'144;  // bytes

QFont FixedWidthFont(std::string_view family, double points) {
    QFont font;
    font.setFamilies({ToQt(family), QStringLiteral("Menlo"), QStringLiteral("DejaVu Sans Mono"),
                      QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    if (points > 0) font.setPointSizeF(points);
    return font;
}

bool StandsAtEnd(const QPlainTextEdit& editor) {
    const QScrollBar& bar = *editor.verticalScrollBar();
    return bar.value() == bar.maximum();
}

void ShowEnd(const QPlainTextEdit& editor) {
    QScrollBar& bar = *editor.verticalScrollBar();
    bar.setValue(bar.maximum());
}

// The line where the editor leaves something out.
QString Notice(std::size_t bytes) {
    return QStringLiteral("… (gekürzt: %1 nicht gezeigt)")
        .arg(SizeText(static_cast<qint64>(bytes)));
}

}  // namespace

TextPane::TextPane() : font_(FixedWidthFont("Menlo", 11)) {
    flush_.setSingleShot(true);
    flush_.setInterval(kFlushMs);
    QObject::connect(&flush_, &QTimer::timeout, [this] { Flush(); });
}

std::string TextPane::Text() const {
    ExpectMain(__func__);
    return std::string(store_.Text());
}

void TextPane::SetText(std::string text) {
    ExpectMain(__func__);
    followEnd_ = text.empty();
    store_.Set(std::move(text));
    ChangedWholly();
}

void TextPane::AppendText(std::string_view text) {
    ExpectMain(__func__);
    if (text.empty()) return;
    store_.Append(text);
    if (editor_ == nullptr || replace_) return;
    const bool atEnd = StandsAtEnd(*editor_);
    if (stopped_ && !atEnd) return;
    pending_.append(text);
    pendingLines_ += LineEndsIn(text, false);
    if (stopped_ || !editor_->isVisible() || (atEnd && TooMuch())) {
        followEnd_ = atEnd;
        ChangedWholly();
    } else if (TooMuch()) {
        StopHere();
    }
    ScheduleFlush();
}

void TextPane::SetLineLimit(std::int64_t lines) {
    ExpectMain(__func__);
    store_.SetLimit(lines);
    if (editor_ == nullptr) return;
    editor_->setMaximumBlockCount(static_cast<int>(store_.Limit()));
    ChangedWholly();
}

// The editor of this desktop substitutes and detects nothing by itself.
void TextPane::SetAutomaticSubstitutions(bool /*on*/) {
    ExpectMain(__func__);
}

void TextPane::SetFont(std::string_view family, double points) {
    ExpectMain(__func__);
    font_ = FixedWidthFont(family, points);
    if (editor_ != nullptr) editor_->setFont(font_);
}

void TextPane::SetNeedsDisplay() {
    ExpectMain(__func__);
    if (editor_ != nullptr) editor_->viewport()->update();
}

QPlainTextEdit* TextPane::MakeEditor(QWidget& parent, bool wrap) {
    editor_ = new QPlainTextEdit(&parent);
    editor_->setReadOnly(true);
    editor_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    editor_->setUndoRedoEnabled(false);
    editor_->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    editor_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    editor_->setFont(font_);
    editor_->setMaximumBlockCount(static_cast<int>(store_.Limit()));
    replace_ = true;
    return editor_;
}

void TextPane::ChangedWholly() {
    pending_.clear();
    pending_.shrink_to_fit();
    pendingLines_ = 0;
    replace_ = true;
    ScheduleFlush();
}

void TextPane::ScheduleFlush() {
    if (editor_ != nullptr && editor_->isVisible() && !flush_.isActive()) flush_.start();
}

// More than the editor takes at once, or twice as much in it as it begins with.
bool TextPane::TooMuch() const {
    return pending_.size() > kMostToInsert || pendingLines_ > kMostLinesShown ||
           editor_->document()->characterCount() > int{2 * kMostBytesShown} ||
           editor_->blockCount() > 2 * kMostLinesShown;
}

// Leaves the person at the place that is being read.
void TextPane::StopHere() {
    Insert(QLatin1Char('\n') + Notice(pending_.size()));
    pending_.clear();
    pendingLines_ = 0;
    stopped_ = true;
}

void TextPane::Flush() {
    if (editor_ == nullptr) return;
    const bool follow = replace_ ? followEnd_ : StandsAtEnd(*editor_);
    if (std::exchange(replace_, false)) {
        Replace();
    } else {
        Insert(ForEditor(pending_, editor_->document()->lastBlock().length() - 1));
    }
    pending_.clear();
    pendingLines_ = 0;
    if (follow) ShowEnd(*editor_);
}

void TextPane::Replace() {
    const std::string_view text = store_.Text();
    const std::string_view shown = followEnd_ ? Ending(text) : Beginning(text);
    const bool cut = shown.size() < text.size();
    stopped_ = cut && !followEnd_;
    editorEndsWithReturn_ = false;
    QString lines = ForEditor(shown, 0);
    if (cut) {
        const QString notice = Notice(text.size() - shown.size());
        followEnd_ ? lines.prepend(notice + QLatin1Char('\n'))
                   : lines.append(QLatin1Char('\n') + notice);
    }
    editor_->setPlainText(lines);
}

// Adds at the end of the last line, beside the person's own selection.
void TextPane::Insert(const QString& text) {
    QTextCursor cursor(editor_->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
}

// The text with line feeds for line ends and with too long lines broken. `column` is the length of
// the line that the text continues.
QString TextPane::ForEditor(std::string_view text, qsizetype column) {
    const QString all = ToQt(text);
    QString result;
    result.reserve(all.size() + all.size() / kLongestLine + 1);
    bool afterReturn = editorEndsWithReturn_;
    for (const QChar character : all) {
        const bool lineFeed = character == QLatin1Char('\n');
        const bool secondOfPair = lineFeed && afterReturn;
        afterReturn = character == QLatin1Char('\r');
        if (secondOfPair) continue;
        if (lineFeed || afterReturn) {
            result += QLatin1Char('\n');
            column = 0;
            continue;
        }
        if (column >= kLongestLine && !character.isLowSurrogate()) {
            result += QLatin1Char('\n');
            column = 0;
        }
        result += character;
        ++column;
    }
    editorEndsWithReturn_ = afterReturn;
    return result;
}

}  // namespace platform::desktop
