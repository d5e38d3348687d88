#pragma once

#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;

namespace velorama {

class clsSTATUS;
class Label;
class SymbolPicture;

/// The one form for messages and questions. It lives only while it is shown. Made, it has no texts
/// and no button bar; whoever shows it fills both in. Its buttons write their answer to the status
/// object and unload it.
class frmHELPMESSAGEBOX : public QDialog {
    Q_OBJECT
public:
    /// Comes up over `owner`; without one in the middle of the screen.
    frmHELPMESSAGEBOX(clsSTATUS& status, QWidget* owner);
    ~frmHELPMESSAGEBOX() override;

    /// Shows the form where the user left it and returns when it is gone.
    void showModal();

    QWidget* picframWINDOW;
    SymbolPicture* imgINFOICON;
    QLabel* lblDESCRIPTION;
    /// One line; what does not fit is cut in the middle.
    Label* lblFILENAME;
    QLabel* lblHELPTEXT;
    QFrame* sepbarFOOTER;
    /// Close; Yes and No; Yes, No and Cancel. All hidden at first. The buttons of the two
    /// questions have the same names, so look for one below its bar.
    QWidget* cframBTNBARO;
    QWidget* cframBTNBARYN;
    QWidget* cframBTNBARYNC;

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    /// However the form is closed, it is unloaded here.
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Handler = void (frmHELPMESSAGEBOX::*)();

    QWidget* makeWindow();
    QWidget* makeFooter();
    QLabel* makeLines(const char* name, int pointSize);
    QWidget* makeBar(const char* name);
    void addButton(QWidget* bar, const char* name, const QString& caption, Handler handler);
    void placeOverOwner();
    void unload();
    QPushButton* defaultButton() const;

    /// `key` is the code of the character typed. True if it answered.
    bool MessageKeyPress(int key);
    void btnYES_Click();
    void btnNO_Click();
    void btnCANCEL_Click();
    void btnOK_Click();

    clsSTATUS& status_;
    bool loaded_ = false;
};

}  // namespace velorama
