#include "controls/input/up_down.h"

#include "controls/input/one_line.h"
#include "controls/input/wheel_guard.h"
#include "platform/numbers.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>

#include <algorithm>

namespace velorama {
namespace {

// Room for the arrows of a style whose spin box reports none of its own.
constexpr int Padding = 8;

// The base class brings no validator of its own to a field whose kind of value it does not know.
class FieldValidator : public QValidator {
public:
    explicit FieldValidator(updown* field) : QValidator(field), field_(*field) {}

    State validate(QString& input, int& position) const override {
        return field_.validate(input, position);
    }
    void fixup(QString& input) const override { field_.fixup(input); }

private:
    const updown& field_;
};

bool isDigits(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

}  // namespace

updown::updown(QWidget* parent) : QAbstractSpinBox(parent) {
    lineEdit()->setValidator(new FieldValidator(this));
    connect(lineEdit(), &QLineEdit::textChanged, this, &updown::Change);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    guardFromWheel(*this);
}

void updown::design(int min, int max, int interval, const QString& text) {
    min_ = min;
    max_ = qMax(min, max);
    interval_ = interval;
    setText(text);
    updateGeometry();
}

QString updown::Text() const {
    return lineEdit()->text();
}

void updown::setText(const QString& text) {
    lineEdit()->setText(text);
    update();
}

int updown::Value() const {
    const double value = std::clamp<double>(numericValue(Text()), min_, max_);
    return static_cast<int>(roundHalfEven(value));
}

void updown::setValue(int value) {
    if (value >= min_ && value <= max_) {
        setText(decimalText(value));
    }
}

void updown::stepBy(int steps) {
    const qint64 wanted = Value() + qint64{steps} * interval_;
    setValue(static_cast<int>(std::clamp<qint64>(wanted, min_, max_)));
    selectAll();
}

bool updown::hasNumber() const {
    return leadingNumber(Text()).has_value();
}

QValidator::State updown::validate(QString& input, int& position) const {
    // Of several lines that are pasted the first counts. They end at the cursor.
    const qsizetype end = lineEndOf(input);
    if (end >= 0 && end < position) {
        input.remove(end, position - end);
        position = static_cast<int>(end);
    }
    if (input.isEmpty()) {
        return QValidator::Intermediate;
    }
    const double value = numericValue(input);
    if (!isDigits(input) || value > max_ || input.size() > decimalText(max_).size()) {
        return QValidator::Invalid;
    }
    return value < min_ ? QValidator::Intermediate : QValidator::Acceptable;
}

void updown::fixup(QString& input) const {
    int position = 0;
    if (validate(input, position) == QValidator::Intermediate || !leadingNumber(input)) {
        input = decimalText(min_);
    }
}

void updown::holdToBounds() {
    QString text = Text();
    fixup(text);
    if (text != Text()) {
        setText(text);
    }
}

QAbstractSpinBox::StepEnabled updown::stepEnabled() const {
    const int value = Value();
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, value < max_);
    enabled.setFlag(StepDownEnabled, value > min_);
    return isReadOnly() ? StepNone : enabled;
}

void updown::focusOutEvent(QFocusEvent* event) {
    holdToBounds();
    QAbstractSpinBox::focusOutEvent(event);
}

void updown::showEvent(QShowEvent* event) {
    if (watched_) {
        watched_->removeEventFilter(this);
    }
    watched_ = window();
    watched_->installEventFilter(this);
    QAbstractSpinBox::showEvent(event);
}

// A window that closes takes no focus away.
bool updown::eventFilter(QObject* watched, QEvent* event) {
    const bool isTouched = hasFocus() || lineEdit()->isModified() || !hasNumber();
    if (watched == watched_ && event->type() == QEvent::Close && isTouched) {
        holdToBounds();
    }
    return QAbstractSpinBox::eventFilter(watched, event);
}

void updown::keyPressEvent(QKeyEvent* event) {
    // Enter takes the value as leaving does; a dialog's own button gets the key after it.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        holdToBounds();
    }
    QAbstractSpinBox::keyPressEvent(event);
}

QSize updown::sizeHint() const {
    ensurePolished();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const int digits = static_cast<int>(decimalText(max_).size());
    const int text = fontMetrics().horizontalAdvance(QString(digits, QLatin1Char('0'))) + Padding;
    const QSize field(text, lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, field, this);
}

}  // namespace velorama
