#include "ui/dialogs/frm_picturepreview.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "controls/input/keys.h"
#include "core/globals.h"

#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QTimer>

namespace velorama {
namespace {

constexpr float barHeight = 540;
// The form's layout leaves as much below the picture as above it, less 60.
constexpr float frameTop = 660;

/// The outline around the picture's frame.
class Outline : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(rect().topLeft(), rect().topRight());
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
};

}  // namespace

frmPICTUREPREVIEW::frmPICTUREPREVIEW(QWidget* main, PreviewCalls calls)
    : QDialog(main),
      calls_(std::move(calls)),
      picBAR(make<QWidget>("picBAR", this)),
      shpBORDER(make<Outline>("shpBORDER", this)),
      framBOX(make<QWidget>("framBOX", this)),
      imgPICTURE(make<ImageBox>("imgPICTURE", framBOX)),
      webVIEWER(make<MovieBox>("webVIEWER", framBOX)),
      lblSIZE(make<QLabel>("lblSIZE", this)) {
    setObjectName(QStringLiteral("frmPICTUREPREVIEW"));
    setWindowTitle(QStringLiteral("Picture Preview"));
    resize(toPixels(7000), toPixels(5400));
    place(*picBAR, 0, 0, 7000, barHeight);
    place(*framBOX, 100, frameTop, 6800, 4000);
    place(*shpBORDER, 0, frameTop - 105, 7000, 4210);
    place(*imgPICTURE, 25, 25, 6750, 3950);
    webVIEWER->hide();
    lblSIZE->setAlignment(Qt::AlignCenter);
    imgPICTURE->setAccessibleName(QStringLiteral("Picture"));
    webVIEWER->setAccessibleName(QStringLiteral("Moving picture"));
    makeBar();
    makeKeys();
    centreOnScreen(*this);
    gRegistry->FormDimensionsSetup(*this, false);
}

frmPICTUREPREVIEW::~frmPICTUREPREVIEW() {
    if (gRegistry) {
        gRegistry->FormDimensionsSave(*this, false);
    }
}

cbtn* frmPICTUREPREVIEW::makeBarButton(const char* name, const char* symbol, const char* tooltip,
                                       float left) {
    cbtn* button = makeSymbolButton(picBAR, QLatin1String(name), symbol, tooltip);
    place(*button, left, 60, 540, 420);
    return button;
}

void frmPICTUREPREVIEW::makeBar() {
    cbtn* back = makeBarButton("cbtnCONTROLS4", "move-back", "Previous photo [Left]", 100);
    cbtn* forward = makeBarButton("cbtnCONTROLS5", "move-forward", "Next photo [Right]", 685);
    cbtn* wallpaper =
        makeBarButton("cbtnBROWSEBTNS1", "wallpaper", "Set this photo as your wallpaper", 1480);
    cbtn* close = makeBarButton("cbtnBROWSEBTNS0", "clear", "Close [Esc]", 2065);
    connect(back, &cbtn::Click, this, [this] { calls_.PicturePreviewCertain(false); });
    connect(forward, &cbtn::Click, this, [this] { calls_.PicturePreviewCertain(true); });
    connect(wallpaper, &cbtn::Click, this, [this] { calls_.DESKTOPWALLPAPERPREVIEW(); });
    connect(close, &cbtn::Click, this, &QDialog::reject);
}

PreviewWindow frmPICTUREPREVIEW::parts() {
    return {this, framBOX, imgPICTURE, webVIEWER, shpBORDER, lblSIZE, {}};
}

// The buttons would take the arrows for themselves and move the focus along the bar.
void frmPICTUREPREVIEW::makeKeys() {
    for (const bool forward : {false, true}) {
        auto* key = new QShortcut(forward ? Qt::Key_Right : Qt::Key_Left, this);
        connect(key, &QShortcut::activated, this, [this, forward] { walk(forward); });
    }
}

// A key held down repeats faster than large pictures load. What has piled up becomes one step, so
// that the walk ends with the key.
void frmPICTUREPREVIEW::walk(bool forward) {
    if (!held_) {
        calls_.PicturePreviewCertain(forward);
    } else if (!pending_) {
        pending_ = true;
        QTimer::singleShot(0, this, [this, forward] {
            pending_ = false;
            calls_.PicturePreviewCertain(forward);
        });
    }
}

bool frmPICTUREPREVIEW::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        held_ = static_cast<QKeyEvent*>(event)->isAutoRepeat();
    }
    return QDialog::event(event);
}

void frmPICTUREPREVIEW::keyPressEvent(QKeyEvent* event) {
    if (keyCode(*event) == KeyF1) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

// Bar and border reach from edge to edge, also where the user or the desktop makes the form wider.
void frmPICTUREPREVIEW::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    setWidth(*picBAR, Width(*this));
    setWidth(*shpBORDER, Width(*this));
}

}  // namespace velorama
