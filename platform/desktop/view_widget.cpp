#include "platform/desktop/view_widget.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <cmath>
#include <iterator>
#include <optional>

#include "platform/desktop/drawing_area.h"
#include "platform/desktop/key_events.h"

namespace platform::desktop {

namespace {

// How long the second half of a repetition may take to arrive.
constexpr int kRepetitionMs = 5;

// A program that waits for a key or a click has answered it a moment later. These passes show that
// without waiting for the next one that somebody asks for: how long each comes after the one
// before. The later ones are for a busy machine, and cost nothing where all was shown.
constexpr int kAnswersMs[] = {1, 2, 4};

// Other buttons mean nothing by themselves; they show in a press of these two.
bool IsLeftOrRight(const QMouseEvent& event) {
    return event.button() == Qt::LeftButton || event.button() == Qt::RightButton;
}

// The menus have the Menu key, and what the program cannot get anyway: Control with Shift. Where
// digits stand above other signs, Control with Shift and a digit from 2 to 8 is a control code.
bool BelongsToProgram(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Menu) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (!modifiers.testFlags(Qt::ControlModifier | Qt::ShiftModifier)) return true;
    return event.key() >= Qt::Key_2 && event.key() <= Qt::Key_8 &&
           !modifiers.testFlag(Qt::KeypadModifier);
}

// How many whole points of the area lie before a place in its widget.
double Points(double place, double areaSize, int widgetSize) {
    return std::floor(widgetSize > 0 ? place * areaSize / widgetSize : place);
}

}  // namespace

ViewWidget::ViewWidget(DrawingArea& area, ViewClient& client, QWidget& content)
    : QWidget(&content), area_(area), client_(client), content_(content) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMousePropagation);
    if (client_.acceptsFirstResponder()) {
        setFocusPolicy(Qt::StrongFocus);
        setFocus();
    }
    release_.setSingleShot(true);
    QObject::connect(&release_, &QTimer::timeout, this, [this] { ReleaseKey(); });
    answer_.setSingleShot(true);
    answer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&answer_, &QTimer::timeout, this, [this] { AskForAnswer(); });
    setMouseTracking(true);
    content_.setMouseTracking(true);
    content_.installEventFilter(this);
    LayOut();
}

void ViewWidget::LayOut() {
    setGeometry(area_.PlaceIn(content_.size()));
}

bool ViewWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &content_) return QWidget::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::Resize:
            LayOut();
            return false;
        case QEvent::Leave:
            client_.pointerDidLeave();
            return false;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
            HandleOnBorder(static_cast<const QMouseEvent&>(*event));
            return true;
        default:
            return false;
    }
}

void ViewWidget::HandleOnBorder(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseMove) return Move(event, event.position());
    if (event.type() == QEvent::MouseButtonRelease) return Release(event, event.position());
    Press(event, event.position());
}

bool ViewWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        BelongsToProgram(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ViewWidget::paintEvent(QPaintEvent* /*event*/) {
    area_.Paint(*this);
}

void ViewWidget::keyPressEvent(QKeyEvent* event) {
    const parts::NativeKey key = NativeKeyOf(*event);
    const bool repetition = releasedKey_ == key.ScanCode && releaseTime_ == event->timestamp();
    if (repetition) release_.stop();
    if (release_.isActive()) ReleaseKey();
    if (parts::ModifierOfSymbol(key.Symbol) != 0) {
        client_.flagsChanged(FlagsHeldNow());
    } else if (const std::optional<KeyPress> press = parts::MapKey(key)) {
        keyHeld_ = true;
        client_.keyDown(*press);
        ShowAnswer();
    }
}

void ViewWidget::ShowAnswer() {
    answers_ = 0;
    answer_.start(kAnswersMs[0]);
}

void ViewWidget::AskForAnswer() {
    area_.SetNeedsDisplay();
    if (++answers_ < std::size(kAnswersMs)) answer_.start(kAnswersMs[answers_]);
}

void ViewWidget::keyReleaseEvent(QKeyEvent* event) {
    if (parts::ModifierOfSymbol(event->nativeVirtualKey()) != 0) {
        client_.flagsChanged(FlagsHeldNow());
    } else if (!event->isAutoRepeat()) {
        if (release_.isActive()) ReleaseKey();
        releasedKey_ = event->nativeScanCode();
        releaseTime_ = event->timestamp();
        release_.start(kRepetitionMs);
    }
}

void ViewWidget::focusInEvent(QFocusEvent* /*event*/) {
    client_.flagsChanged(FlagsHeldNow());
}

// What is released from here on is released elsewhere.
void ViewWidget::focusOutEvent(QFocusEvent* /*event*/) {
    if (keyHeld_) ReleaseKey();
    client_.flagsChanged(FlagsHeldNow() & kCapsLockFlag);
}

void ViewWidget::mousePressEvent(QMouseEvent* event) {
    Press(*event, event->position() + pos());
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event) {
    Release(*event, event->position() + pos());
}

void ViewWidget::mouseMoveEvent(QMouseEvent* event) {
    Move(*event, event->position() + pos());
}

void ViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    Press(*event, event->position() + pos());
}

bool ViewWidget::focusNextPrevChild(bool /*next*/) {
    return false;
}

void ViewWidget::ReleaseKey() {
    release_.stop();
    keyHeld_ = false;
    client_.keyUp();
}

// `place` counts from the upper left of the content. A press on the topmost row of the frame's
// points is at the full height of its content, whatever the zoom.
MousePress ViewWidget::PressAt(const QMouseEvent& event, const QPointF& place) const {
    MousePress press;
    const Rect frame = area_.Frame();
    press.X = frame.X + Points(place.x() - x(), frame.Width, width());
    press.Y = frame.Y + frame.Height - Points(place.y() - y(), frame.Height, height());
    press.Buttons = static_cast<std::int64_t>(event.buttons().toInt());
    press.ModifierFlags = FlagsOf(event.modifiers()) | (FlagsHeldNow() & kCapsLockFlag);
    return press;
}

void ViewWidget::Press(const QMouseEvent& event, const QPointF& place) {
    const MousePress press = PressAt(event, place);
    if (IsLeftOrRight(event)) {
        if (event.button() == Qt::RightButton) {
            client_.rightMouseDown(press);
        } else {
            client_.mouseDown(press);
        }
        ShowAnswer();
    }
    client_.pointerDidChange(press);
}

void ViewWidget::Release(const QMouseEvent& event, const QPointF& place) {
    if (IsLeftOrRight(event)) {
        if (event.button() == Qt::RightButton) {
            client_.rightMouseUp();
        } else {
            client_.mouseUp();
        }
    }
    client_.pointerDidChange(PressAt(event, place));
}

void ViewWidget::Move(const QMouseEvent& event, const QPointF& place) {
    client_.pointerDidChange(PressAt(event, place));
}

}  // namespace platform::desktop
