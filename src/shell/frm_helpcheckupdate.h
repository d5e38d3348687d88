#pragma once

#include "shell/update_check.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace velorama {

class Label;

/// "Check for Updates": the outcome of an update check. Made, it reads as for a newer version.
class frmHELPCHECKUPDATE : public QDialog {
    Q_OBJECT
public:
    explicit frmHELPCHECKUPDATE(QWidget* owner);

    /// Changes the texts to those of the outcome. `closeCaption` is for btnNO without a question.
    void tell(UpdateOutcome outcome, const QString& result, const QString& closeCaption);

    QLabel* lblTITLE;
    QLabel* lblDESCRIPTION;
    /// One line, whatever the server sent.
    Label* lblPROGNO;
    QLabel* lblCURRENT;
    QLabel* lblHELPTEXT;
    QPushButton* btnYES;
    QPushButton* btnNO;

private:
    void layOut();
    void btnYES_Click();
};

}  // namespace velorama
