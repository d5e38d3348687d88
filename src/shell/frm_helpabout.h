#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace velorama {

/// "About": the product's name, its version and the legal notice.
class frmHELPABOUT : public QDialog {
    Q_OBJECT
public:
    frmHELPABOUT(QWidget* owner, const QIcon& icon);

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
