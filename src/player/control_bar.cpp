#include "player/control_bar.h"

#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "imaging/pixels/colours.h"
#include "platform/numbers.h"

#include <QCursor>
#include <QLinearGradient>
#include <QPainter>
#include <QWheelEvent>

namespace velorama {
namespace {

constexpr float sideWidth = 5400;
constexpr float buttonSize = 480;
constexpr float buttonTop = 120;
constexpr float rimTwips = 150;
// Twips from the form's bottom edge: 15 more than the bar is high.
constexpr float pointerZone = 750;

QFont barFont(double points, bool bold = false) {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

void placeButton(picbtn& button, float left) {
    place(button, left, buttonTop, buttonSize, buttonSize);
}

}  // namespace

ControlBar::ControlBar(QWidget* form)
    : QWidget(form),
      lblDESC(this),
      lblSTATUS(this),
      lblNOCOUNT(this),
      lblPLAYING(this),
      prgPLAY(this),
      btnPREV(this),
      btnNEXT(this),
      btnPAUSE(this),
      btnPLAY(this),
      btnEXIT(this),
      imgLEFTCONTROLS(this),
      imgRIGHTCONTROLS(this) {
    setObjectName(QStringLiteral("picCONTROLBAR"));
    // The bar keeps its clicks and moves: they are none of the form behind it.
    setAttribute(Qt::WA_NoMousePropagation);
    imgLEFTCONTROLS.setObjectName(QStringLiteral("imgLEFTCONTROLS"));
    imgRIGHTCONTROLS.setObjectName(QStringLiteral("imgRIGHTCONTROLS"));
    imgLEFTCONTROLS.lower();
    imgRIGHTCONTROLS.lower();
    prgPLAY.setObjectName(QStringLiteral("prgPLAY"));
    designLabels();
    designButtons();
}

void ControlBar::designLabels() {
    lblDESC.setObjectName(QStringLiteral("lblDESC"));
    lblSTATUS.setObjectName(QStringLiteral("lblSTATUS"));
    lblNOCOUNT.setObjectName(QStringLiteral("lblNOCOUNT"));
    lblPLAYING.setObjectName(QStringLiteral("lblPLAYING"));
    lblDESC.setCaption(QStringLiteral(" This is a test caption for the pictures"));
    lblDESC.setForeColor(Qt::white);
    lblDESC.setFont(barFont(11));
    lblDESC.setAlignment(Qt::AlignHCenter);
    lblSTATUS.setCaption(QStringLiteral("Now Showing"));
    lblSTATUS.setForeColor(toRgb(0x0000FFFF));
    lblSTATUS.setFont(barFont(8.25, true));
    lblNOCOUNT.setCaption(QStringLiteral("0 of 0"));
    lblNOCOUNT.setForeColor(toRgb(0x0080FFFF));
    lblNOCOUNT.setFont(barFont(9.75));
    lblNOCOUNT.setAlignment(Qt::AlignRight);
    lblPLAYING.setCaption(QStringLiteral("Now Playing"));
    lblPLAYING.setForeColor(toRgb(0x0080FFFF));
    lblPLAYING.setFont(barFont(8.25));
}

void ControlBar::designButtons() {
    struct Design {
        picbtn& button;
        const char* name;
        const char* tooltip;
        const char* pictures;
    };
    for (const Design& design : {
             Design{btnPREV, "btnPREV", "Click to Previous Slide", "prev"},
             Design{btnNEXT, "btnNEXT", "Click to Next Slide", "next"},
             Design{btnPAUSE, "btnPAUSE", "Click to Pause the Slideshow", "pause"},
             Design{btnPLAY, "btnPLAY", "Click to Play Slideshow", "play"},
             Design{btnEXIT, "btnEXIT", "Click to Exit Slideshow (Esc)", "exit"},
         }) {
        design.button.setObjectName(QLatin1String(design.name));
        design.button.setToolTip(QLatin1String(design.tooltip));
        // The form sees every key: a button with the focus would take some of them.
        design.button.setFocusPolicy(Qt::NoFocus);
        const QString base = QStringLiteral(":/bar/") + QLatin1String(design.pictures);
        design.button.setPictureNormal(ButtonPicture(base + QStringLiteral("-normal.svg")));
        design.button.setPictureHLight(ButtonPicture(base + QStringLiteral("-hlight.svg")));
        design.button.setPicturePressed(ButtonPicture(base + QStringLiteral("-pressed.svg")));
        design.button.setPictureDisabled(ButtonPicture(base + QStringLiteral("-disabled.svg")));
    }
    btnPLAY.hide();
}

void ControlBar::layOut(float formWidth, float formHeight) {
    placeButton(btnEXIT, formWidth - buttonSize - 90);
    place(*this, 0, formHeight - barHeight, formWidth, barHeight);
    place(imgLEFTCONTROLS, 0, 0, sideWidth, barHeight);
    place(imgRIGHTCONTROLS, formWidth - sideWidth, 0, sideWidth, barHeight);
    const float middleWidth = Left(imgRIGHTCONTROLS) - sideWidth;
    place(lblDESC, sideWidth, 90, middleWidth, 315);
    place(lblSTATUS, sideWidth, 420, middleWidth, 225);
    lblSTATUS.setAlignment(Qt::AlignHCenter);
    placeButton(btnPREV, 150);
    placeButton(btnPAUSE, 690);
    placeButton(btnPLAY, 690);
    placeButton(btnNEXT, 1230);
    place(lblPLAYING, 1950, 135, sideWidth - 1950 - rimTwips, 240);
    place(prgPLAY, 1950, 450, sideWidth - 1950 - rimTwips, 120);
    place(lblNOCOUNT, Left(imgRIGHTCONTROLS), 0,
          formWidth - 2 * 90 - buttonSize - rimTwips - Left(imgRIGHTCONTROLS), barHeight);
}

void ControlBar::showMusic(const QString& track, const QString& length, const QString& position) {
    followMusic(track, length, position);
    prgPLAY.setValue(static_cast<float>(numericValue(position)));
}

void ControlBar::followMusic(const QString& track, const QString& length, const QString& position) {
    lblPLAYING.setCaption(gFileFoldr->FileNameFromPath(track, true));
    const auto seconds = static_cast<float>(numericValue(length));
    if (seconds > 0) {
        prgPLAY.setMax(seconds);
        prgPLAY.setValue(static_cast<float>(numericValue(position)));
    }
}

void ControlBar::showPaused(bool paused) {
    btnPAUSE.setVisible(!paused);
    btnPLAY.setVisible(paused);
}

bool ControlBar::autoHide() {
    const QString stored = loadSetting(QStringLiteral("\\frmCONFIG\\Items"), QStringLiteral("TBAR"),
                                       QStringLiteral("1"));
    return decimalNumber(stored) == 1.0;
}

void ControlBar::applyAutoHide() {
    setVisible(!autoHide());
}

void ControlBar::pointerMoved(float formHeight, float y) {
    if (autoHide()) {
        setVisible(formHeight - pointerZone < y);
    }
}

// A pointer that has left with a button held down, or to another window, moves over nothing that
// would tell.
void ControlBar::leaveEvent(QEvent*) {
    const int y = mapFromGlobal(QCursor::pos()).y();
    if (y < 0) {
        pointerMoved(Height(*parentWidget()), Top(*this) + toTwips(y));
    }
}

void ControlBar::wheelEvent(QWheelEvent* event) {
    emit Wheel(*event);
}

void ControlBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient skin(0, 0, 0, height());
    skin.setColorAt(0, QColor(58, 58, 64));
    skin.setColorAt(1, QColor(24, 24, 28));
    painter.fillRect(rect(), skin);
    painter.setPen(QColor(110, 110, 120));
    painter.drawLine(0, 0, width(), 0);
}

}  // namespace velorama
