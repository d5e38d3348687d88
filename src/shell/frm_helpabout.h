#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace velorama {

/// "About": the product's name, its version and the legal notice.
class frmHELPABOUT : public QDialog {
    Q_OBJECT
public:
    /// Runs the update check over this window.
    using CheckForUpdates = std::function<void(QWidget* about)>;

    frmHELPABOUT(QWidget* owner, const QIcon& icon, CheckForUpdates check);

    QLabel* imgICON;
    QLabel* lblMAINTITLE;
    QLabel* lblVERSION;
    QLabel* lblCOPYRIGHT;
    QPlainTextEdit* textCOPYRIGHT;
    QPushButton* btnUPDATES;
    QPushButton* btnCLOSE;

private:
    void makeControls(const QIcon& icon);
    void layOut();
};

}  // namespace velorama
