#include "platform/desktop/column_ruler.h"

#include <QtCore/QEvent>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <algorithm>

namespace platform::desktop {

namespace {

// Lengths of the marks in points.
constexpr int kEachColumn = 3;
constexpr int kEachFifth = 5;
constexpr int kEachTenth = 7;

constexpr double kNumberPixels = 9;

int MarkLength(int column) {
    if (column % 10 == 0) return kEachTenth;
    return column % 5 == 0 ? kEachFifth : kEachColumn;
}

}  // namespace

ColumnRuler::ColumnRuler(QWidget& parent, QPlainTextEdit& editor)
    : QWidget(&parent), editor_(editor) {
    setAccessibleName(QStringLiteral("Spaltenlineal"));
    setAccessibleDescription(QStringLiteral("Zählt die Spalten des Textes darunter."));
    QObject::connect(editor.horizontalScrollBar(), &QScrollBar::valueChanged, this,
                     [this] { update(); });
    editor.installEventFilter(this);
}

bool ColumnRuler::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FontChange) update();
    return QWidget::eventFilter(watched, event);
}

void ColumnRuler::paintEvent(QPaintEvent* /*event*/) {
    const double advance = QFontMetricsF(editor_.font()).horizontalAdvance(QLatin1Char('0'));
    if (advance < 1) return;
    const QPoint viewport = editor_.viewport()->mapTo(parentWidget(), QPoint(0, 0));
    const double firstColumn = viewport.x() + editor_.document()->documentMargin() -
                               editor_.horizontalScrollBar()->value() - x();

    QPainter painter(this);
    QColor ink = palette().color(QPalette::WindowText);
    ink.setAlphaF(0.7F);
    painter.setPen(ink);
    QFont numbers = font();
    numbers.setPixelSize(static_cast<int>(kNumberPixels));
    painter.setFont(numbers);
    const int first = std::max(1, static_cast<int>(-firstColumn / advance));
    for (int column = first; firstColumn + (column - 1) * advance < width(); ++column) {
        const double middle = firstColumn + (column - 0.5) * advance;
        painter.drawLine(QPointF(middle, height() - MarkLength(column)), QPointF(middle, height()));
        if (column % 10 != 0) continue;
        const QRectF number(middle - 5 * advance, 0, 10 * advance, height() - kEachTenth);
        painter.drawText(number, Qt::AlignCenter, QString::number(column));
    }
}

}  // namespace platform::desktop
