#include "platform/desktop/text_window.h"

#include <QtWidgets/QPlainTextEdit>
#include <utility>

#include "platform/desktop/column_ruler.h"

namespace platform::desktop {

namespace {

// Still shows some lines of text and the first columns of the ruler.
constexpr QSize kSmallestContent(320, 200);

}  // namespace

TextWindow::TextWindow(Desk& desk, QString title, QSize content, const TextLayout& layout)
    : HostWindow(desk, std::move(title), content, Sizing::ByPerson),
      hasRuler_(layout.RulerHeight > 0),
      scroll_(*this),
      ruler_(*this) {
    scroll_.SetFrame(TextPlace(layout, content.width(), content.height()));
    ruler_.SetFrame(RulerPlace(layout, content.width(), content.height()));
}

TextWindowParts TextWindow::Parts() {
    return {this, &scroll_, &text_, hasRuler_ ? &ruler_ : nullptr};
}

void TextWindow::Fill(QWidget& content) {
    QPlainTextEdit* const editor = text_.MakeEditor(content, !hasRuler_);
    const QWidget* const window = content.window();
    editor->setAccessibleName(window->windowTitle());
    QObject::connect(window, &QWidget::windowTitleChanged, editor, &QWidget::setAccessibleName);
    scroll_.SetWidget(editor);
    if (hasRuler_) ruler_.SetWidget(new ColumnRuler(content, *editor));
    editor->setFocus();
}

void TextWindow::ContentDidResize(QSize before) {
    const QSize more = ContentSize() - before;
    Rect text = scroll_.Frame();
    text.Width += more.width();
    text.Height += more.height();
    scroll_.SetFrame(text);
    Rect columns = ruler_.Frame();
    columns.Width += more.width();
    columns.Y += more.height();
    ruler_.SetFrame(columns);
}

QSize TextWindow::SmallestContent() const {
    return kSmallestContent;
}

void TextWindow::WillShow() {
    text_.Flush();
}

}  // namespace platform::desktop
