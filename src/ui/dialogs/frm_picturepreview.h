#pragma once

#include "browse/preview.h"
#include "controls/buttons/push_button.h"

#include <QDialog>

namespace velorama {

/// What the buttons of the preview window ask of the main window.
struct PreviewCalls {
    std::function<void(bool Forward)> PicturePreviewCertain;
    std::function<void()> DESKTOPWALLPAPERPREVIEW;
};

/// "Picture Preview": one picture, larger than in the lists, with buttons to walk through the list.
/// What it shows is set from outside; it is made anew after each unload.
class frmPICTUREPREVIEW : public QDialog {
    Q_OBJECT
public:
    frmPICTUREPREVIEW(QWidget* main, PreviewCalls calls);
    ~frmPICTUREPREVIEW() override;

    /// The parts that are laid out for a picture; who shows the window is not among them.
    PreviewWindow parts();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeBar();
    void makeKeys();
    void walk(bool forward);
    cbtn* makeBarButton(const char* name, const char* symbol, const char* tooltip, float left);

    PreviewCalls calls_;
    QWidget* picBAR;
    QWidget* shpBORDER;
    QWidget* framBOX;
    ImageBox* imgPICTURE;
    MovieBox* webVIEWER;
    QLabel* lblSIZE;
    /// The last key came from one held down.
    bool held_ = false;
    /// A step of such a key is to come.
    bool pending_ = false;
};

}  // namespace velorama
