#include "platform/desktop/form_window.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

// In points.
constexpr int kMargin = 24;
constexpr int kSpacing = 10;
constexpr int kSpaceAboveHeading = 8;
constexpr int kNarrowest = 420;

constexpr int kRefreshMs = 500;
constexpr double kHeadingScale = 1.35;

QWidget* MakeHeading(const FormRow& row) {
    auto* const label = new QLabel(ToQt(row.Title));
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * kHeadingScale);
    font.setBold(true);
    label->setFont(font);
    return label;
}

QWidget* MakeLabel(const FormRow& row) {
    auto* const label = new QLabel(ToQt(row.Title));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QWidget* MakeButton(const FormRow& row) {
    auto* const button = new QPushButton(ToLabel(row.Title));
    QObject::connect(button, &QPushButton::clicked, [changed = row.Changed] {
        if (changed) changed(0);
    });
    return button;
}

QWidget* MakeCheckBox(const FormRow& row) {
    auto* const box = new QCheckBox(ToLabel(row.Title));
    box->setChecked(row.Value != 0);
    QObject::connect(box, &QCheckBox::toggled, [changed = row.Changed](bool on) {
        if (changed) changed(on ? 1 : 0);
    });
    return box;
}

QWidget* MakeChoice(const FormRow& row) {
    auto* const choice = new QComboBox;
    for (const std::string& option : row.Options) choice->addItem(ToQt(option));
    choice->setCurrentIndex(static_cast<int>(row.Value));
    QObject::connect(choice, &QComboBox::activated, [changed = row.Changed](int index) {
        if (changed && index >= 0) changed(index);
    });
    auto* const line = new QWidget;
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel(ToLabel(row.Title));
    label->setBuddy(choice);
    choice->setAccessibleName(ToQt(row.Title));
    layout->addWidget(label);
    layout->addStretch();
    layout->addWidget(choice);
    return line;
}

// Gives a label or a button other words; false when it has them already.
bool Reword(QWidget& control, const std::string& words) {
    auto* const label = qobject_cast<QLabel*>(&control);
    auto* const button = qobject_cast<QAbstractButton*>(&control);
    const QString text = button != nullptr ? ToLabel(words) : ToQt(words);
    if ((label != nullptr && label->text() == text && label->isHidden() == text.isEmpty()) ||
        (button != nullptr && button->text() == text)) {
        return false;
    }
    if (label != nullptr) label->setText(text);
    if (button != nullptr) button->setText(text);
    control.setVisible(!text.isEmpty());
    return true;
}

QWidget* MakeControl(const FormRow& row) {
    using enum FormRow::Kind;
    switch (row.What) {
        case Heading:
            return MakeHeading(row);
        case Button:
            return MakeButton(row);
        case CheckBox:
            return MakeCheckBox(row);
        case Choice:
            return MakeChoice(row);
        case Label:
            break;
    }
    return MakeLabel(row);
}

}  // namespace

FormWindow::FormWindow(Desk& desk, QString title, std::vector<FormRow> rows)
    : HostWindow(desk, std::move(title), {}, Sizing::Fixed), rows_(std::move(rows)) {
    refresh_.setInterval(kRefreshMs);
    QObject::connect(&refresh_, &QTimer::timeout,
                     [this] { IsVisible() ? Refresh() : refresh_.stop(); });
}

QSize FormWindow::FirstSize() {
    MakeForm();
    const int width = std::max(form_->sizeHint().width(), kNarrowest);
    const QLayout& column = *form_->layout();
    return {width,
            column.hasHeightForWidth() ? column.heightForWidth(width) : form_->sizeHint().height()};
}

void FormWindow::Fill(QWidget& content) {
    MakeForm();
    form_->setParent(&content);
    form_->setGeometry(QRect(QPoint(0, 0), ContentSize()));
}

void FormWindow::ContentDidResize(QSize /*before*/) {
    if (form_ != nullptr) form_->setGeometry(QRect(QPoint(0, 0), ContentSize()));
}

void FormWindow::WillShow() {
    Refresh();
    if (!live_.empty()) refresh_.start();
}

void FormWindow::Refresh() {
    bool reworded = false;
    for (const LiveRow& live : live_) {
        if (live.Row->Enabled) live.Control->setEnabled(live.Row->Enabled());
        if (live.Row->Wording && Reword(*live.Control, live.Row->Wording())) reworded = true;
    }
    if (reworded) FitContent();
}

// The upper left corner stays.
void FormWindow::FitContent() {
    const QSize size = FirstSize();
    if (size == ContentSize()) return;
    Rect frame = Frame();
    const double more = size.height() - ContentSize().height();
    frame.Y -= more;
    frame.Height += more;
    frame.Width += size.width() - ContentSize().width();
    SetFrame(frame);
}

void FormWindow::MakeForm() {
    if (form_ != nullptr) return;
    form_ = new QWidget;
    auto* const column = new QVBoxLayout(form_);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kSpacing);
    for (const FormRow& row : rows_) Add(*column, row);
    column->addStretch();
}

void FormWindow::Add(QVBoxLayout& column, const FormRow& row) {
    if (row.What == FormRow::Kind::Heading && column.count() > 0) {
        column.addSpacing(kSpaceAboveHeading);
    }
    QWidget* const control = MakeControl(row);
    column.addWidget(control);
    if (row.Enabled || row.Wording) live_.push_back({&row, control});
    if (row.Wording) Reword(*control, row.Wording());
}

}  // namespace platform::desktop
