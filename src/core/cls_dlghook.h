#pragma once

#include <QObject>
#include <QRect>

class QDialog;

namespace velorama {

/// Left top corner at which a dialog, its frame included, stands in the middle of a screen. All in
/// logical pixels; a half goes to the even side. A dialog larger than the screen begins before it.
QPoint centredOnScreen(const QRect& screen, const QSize& dialog);

/// Puts the next dialog in the middle of the screen. Callers bracket the showing of a dialog with
/// the two operations; only one dialog is up at a time.
class clsDLGHOOK : public QObject {
    Q_OBJECT
public:
    ~clsDLGHOOK() override;

    /// Waits for the first dialog that comes up; it is placed before anybody sees it.
    void subCMNDLGHOOKOPEN();
    /// Ends the waiting, if no dialog came up.
    void subCMNDLGHOOKCLOSE();

    bool isHooked() const { return hooked_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void centre(QDialog& dialog);

    bool hooked_ = false;
};

}  // namespace velorama
