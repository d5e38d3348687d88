#pragma once

#include "controls/browser/web_window.h"
#include "controls/buttons/push_button.h"

#include <QLabel>
#include <QPointer>

namespace velorama {

/// "Help": the pages of the publisher's server in a small browser window beside the program's own.
class frmHELPCENTER : public QWidget {
    Q_OBJECT
public:
    frmHELPCENTER();
    ~frmHELPCENTER() override;

    QLabel* lblHEADERCAPTION;
    cbtn* cbtnSTARTED;
    cbtn* cbtnEMAIL;
    cbtn* cbtnHOME;
    cbtn* cbtnCLOSE;
    cbtn* cbtnBACK;
    cbtn* cbtnFORWARD;
    velorama::webWINDOW* webWINDOW;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeControls();
    void layOut();
    void connectButtons();
    void unload();
    void webWINDOW_CommandStateChange(int Command, bool Enable);

    // 16-bit booleans: true is -1.
    qint16 forwardEnabled_ = 0;
    qint16 backEnabled_ = 0;
    bool loaded_ = true;
};

/// Shows the help pages that are asked for through clsLIBRARY, in one window. While it lives.
class HelpCenter : public QObject {
public:
    /// A dialog that asks for help does not shut the help window out; otherwise it belongs to
    /// `main`.
    explicit HelpCenter(QWidget* main);
    ~HelpCenter() override;

    /// Navigates, and then shows the window if it is not up, or brings it to the front.
    void open(const QString& address);
    /// Closes the window if there is one.
    void unload();
    frmHELPCENTER* form() const { return form_; }

private:
    QWidget* main_;
    QPointer<frmHELPCENTER> form_;
};

}  // namespace velorama
