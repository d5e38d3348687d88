#include "player/control_bar.h"

#include "controls/twips.h"
#include "core/globals.h"
#include "imaging/colours.h"
#include "platform/numbers.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

namespace velorama {
namespace {

constexpr float sideWidth = 3600;
constexpr float rimTwips = 150;
// Twips from the form's bottom edge: 15 more than the bar is high.
constexpr float pointerZone = 750;

QFont barFont(double points, bool bold = false) {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

}  // namespace

ControlBar::ControlBar(QWidget* form)
    : QWidget(form),
      lblDESC(this),
      lblSTATUS(this),
      lblNOCOUNT(this),
      imgLEFTCONTROLS(this),
      imgRIGHTCONTROLS(this) {
    setObjectName(QStringLiteral("picCONTROLBAR"));
    lblDESC.setObjectName(QStringLiteral("lblDESC"));
    lblSTATUS.setObjectName(QStringLiteral("lblSTATUS"));
    lblNOCOUNT.setObjectName(QStringLiteral("lblNOCOUNT"));
    imgLEFTCONTROLS.setObjectName(QStringLiteral("imgLEFTCONTROLS"));
    imgRIGHTCONTROLS.setObjectName(QStringLiteral("imgRIGHTCONTROLS"));

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
}

void ControlBar::layOut(float formWidth, float formHeight) {
    place(*this, 0, formHeight - barHeight, formWidth, barHeight);
    setHeight(imgLEFTCONTROLS, barHeight);
    setWidth(imgLEFTCONTROLS, sideWidth);
    setHeight(imgRIGHTCONTROLS, barHeight);
    setWidth(imgRIGHTCONTROLS, sideWidth);

    setLeft(imgRIGHTCONTROLS, formWidth - Width(imgRIGHTCONTROLS));
    setLeft(lblDESC, Width(imgLEFTCONTROLS));
    setLeft(lblSTATUS, Width(imgLEFTCONTROLS));
    lblSTATUS.setAlignment(Qt::AlignHCenter);
    setWidth(lblDESC, Left(imgRIGHTCONTROLS) - Width(imgLEFTCONTROLS));
    setWidth(lblSTATUS, Left(imgRIGHTCONTROLS) - Width(imgLEFTCONTROLS));

    setTop(lblDESC, 90);
    setHeight(lblDESC, 315);
    setTop(lblSTATUS, 420);
    setHeight(lblSTATUS, 225);
    place(lblNOCOUNT, Left(imgRIGHTCONTROLS), 0, Width(imgRIGHTCONTROLS) - 2 * rimTwips, barHeight);
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

void ControlBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient skin(0, 0, 0, height());
    skin.setColorAt(0, QColor(58, 58, 64));
    skin.setColorAt(1, QColor(24, 24, 28));
    painter.fillRect(rect(), skin);
    painter.setPen(QColor(110, 110, 120));
    painter.drawLine(0, 0, width(), 0);
}

// The bar keeps its clicks: they are no clicks on the form behind it.
void ControlBar::mousePressEvent(QMouseEvent* event) {
    event->accept();
}
void ControlBar::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

}  // namespace velorama
