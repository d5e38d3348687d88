#include "ui/dialogs/frm_picturepreview.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "controls/input/keys.h"
#include "core/globals.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QTimer>

namespace velorama {
namespace {

constexpr float barHeight = 540;

}  // namespace

frmPICTUREPREVIEW::frmPICTUREPREVIEW(QWidget* main)
    : QDialog(main), picBAR(make<QWidget>("picBAR", this)), controls(*this) {
    setObjectName(QStringLiteral("frmPICTUREPREVIEW"));
    setWindowTitle(QStringLiteral("Picture Preview"));
    resize(toPixels(7000), toPixels(5400));
    place(*picBAR, 0, 0, 7000, barHeight);
    makeBar();
    makeKeys();
    centreOnScreen(*this);
    gRegistry->FormDimensionsSetup(*this, false);
}

frmPICTUREPREVIEW::~frmPICTUREPREVIEW() {
    gRegistry->FormDimensionsSave(*this, false);
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
    connect(back, &cbtn::Click, this, [this] { emit Walk(false); });
    connect(forward, &cbtn::Click, this, [this] { emit Walk(true); });
    connect(wallpaper, &cbtn::Click, this, &frmPICTUREPREVIEW::Wallpaper);
    connect(close, &cbtn::Click, this, &QDialog::reject);
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
        emit Walk(forward);
    } else if (!pending_) {
        pending_ = true;
        QTimer::singleShot(0, this, [this, forward] {
            pending_ = false;
            emit Walk(forward);
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
    setWidth(*controls.shpBORDER, Width(*this));
}

}  // namespace velorama
