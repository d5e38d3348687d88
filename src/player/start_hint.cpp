#include "player/start_hint.h"

#include "core/globals.h"

#include <QPainter>

namespace velorama {
namespace {

constexpr int shownFor = 3000;
// Logical pixels: within the bar's status line, clear of the caption above it; and the room at the
// text's sides.
constexpr int lineHeight = 18;
constexpr int fromBottom = 2;
constexpr int side = 12;

// The most that there is room for.
const QString allWords[] = {
    QStringLiteral("Esc leaves the show \u00B7 a click on the picture pauses it \u00B7 Left and "
                   "Right turn the slides"),
    QStringLiteral("Esc leaves \u00B7 a click pauses \u00B7 Left and Right turn the slides"),
    QStringLiteral("Esc leaves \u00B7 a click pauses"),
    QStringLiteral("Esc leaves"),
};
const QString segment = QStringLiteral("\\frmSLIDESHOW\\Details");
const QString name = QStringLiteral("Keys Known");

}  // namespace

StartHint::StartHint(QWidget* form) : QWidget(form) {
    setObjectName(QStringLiteral("startHint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(9);
    setFont(font);
    hide();
    end_.setSingleShot(true);
    end_.setInterval(shownFor);
    connect(&end_, &QTimer::timeout, this, &QWidget::hide);
}

bool StartHint::areKeysKnown() {
    return loadSetting(segment, name, QString()) == QLatin1String("1");
}

void StartHint::setKeysKnown() {
    saveSetting(segment, name, QStringLiteral("1"));
}

void StartHint::keyUsed() {
    hide();
    if (!areKeysKnown()) {
        setKeysKnown();
    }
}

QString StartHint::wordsFor(int room) const {
    for (const QString& words : allWords) {
        if (fontMetrics().horizontalAdvance(words) + 2 * side <= room) {
            return words;
        }
    }
    return {};
}

void StartHint::showBriefly(int room) {
    words_ = wordsFor(room);
    if (areKeysKnown() || words_.isEmpty()) {
        return;
    }
    setAccessibleName(words_);
    const QSize screen = parentWidget()->size();
    const int width = fontMetrics().horizontalAdvance(words_) + 2 * side;
    setGeometry((screen.width() - width) / 2, screen.height() - fromBottom - lineHeight, width,
                lineHeight);
    raise();
    show();
    end_.start();
}

void StartHint::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(24, 24, 28));
    painter.drawRoundedRect(rect(), 5, 5);
    painter.setPen(Qt::white);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, words_);
}

}  // namespace velorama
