#pragma once

#include "browse/preview_controls.h"
#include "controls/buttons/push_button.h"

#include <QDialog>

namespace velorama {

/// "Picture Preview": one picture, larger than in the lists, with buttons to walk through the list.
/// What it shows is set from outside; it is made anew after each unload.
class frmPICTUREPREVIEW : public QDialog {
    Q_OBJECT
public:
    explicit frmPICTUREPREVIEW(QWidget* main);
    ~frmPICTUREPREVIEW() override;

private:
    QWidget* picBAR;

public:
    const PreviewControls controls;

signals:
    /// The next picture is asked for, or the previous one.
    void Walk(bool forward);
    /// The picture on show is to be the wallpaper.
    void Wallpaper();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeBar();
    void makeKeys();
    void walk(bool forward);
    cbtn* makeBarButton(const char* name, const char* symbol, const char* tooltip, float left);

    /// The last key came from one held down.
    bool held_ = false;
    /// A step of such a key is to come.
    bool pending_ = false;
};

}  // namespace velorama
