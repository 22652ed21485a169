#include "platform/desktop/form_window.h"

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
    QObject::connect(choice, &QComboBox::currentIndexChanged, [changed = row.Changed](int index) {
        if (changed && index >= 0) changed(index);
    });
    auto* const line = new QWidget;
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(ToLabel(row.Title)));
    layout->addStretch();
    layout->addWidget(choice);
    return line;
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

FormWindow::FormWindow(QString title, std::vector<FormRow> rows)
    : HostWindow(std::move(title), {}, Sizing::Fixed), rows_(std::move(rows)) {}

QSize FormWindow::FirstSize() {
    MakeForm();
    const int width = std::max(form_->sizeHint().width(), kNarrowest);
    return {width, std::max(form_->layout()->heightForWidth(width), form_->sizeHint().height())};
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
    for (const Condition& condition : conditions_) {
        condition.Control->setEnabled(condition.Enabled());
    }
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
    if (row.Enabled) conditions_.push_back({control, row.Enabled});
}

}  // namespace platform::desktop
