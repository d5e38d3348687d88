#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;

namespace velorama {

class ProgressBar;

/// Asks for patience for one second. The bar is not driven: nobody knows how long it takes.
class frmRESOURCEWAIT : public QDialog {
    Q_OBJECT
public:
    explicit frmRESOURCEWAIT(QWidget* owner = nullptr);

    /// Shows the window over its owner, before everything else of the program, and returns when it
    /// is gone.
    void wait();

    ProgressBar* prgWAITING;
    QLabel* lblPLEASEWAIT1;
    QLabel* lblPLEASEWAIT2;
    QTimer tmrWAITING;

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    /// The timer's tick.
    void tmrWAITING_Timer();
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace velorama
