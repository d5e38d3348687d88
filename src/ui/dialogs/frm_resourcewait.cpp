#include "ui/dialogs/frm_resourcewait.h"

#include "controls/boxes/progress_bar.h"
#include "controls/buttons/control_making.h"
#include "core/lib_txt.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace velorama {
namespace {

constexpr int Interval = 1000;  // milliseconds
constexpr int Margin = 18;
constexpr int Gap = 10;
constexpr int BarWidth = 260;

}  // namespace

frmRESOURCEWAIT::frmRESOURCEWAIT(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(QStringLiteral("frmRESOURCEWAIT"));
    setWindowTitle(libTxt.ProductName);
    setWindowModality(Qt::ApplicationModal);
    const QString patience = QStringLiteral("Please wait .....");
    lblPLEASEWAIT1 = makeTitle(this, "lblPLEASEWAIT1", patience, 1);
    prgWAITING = make<ProgressBar>("prgWAITING", this);
    prgWAITING->setAccessibleName(QStringLiteral("Waiting"));
    prgWAITING->setMinimumWidth(BarWidth);
    lblPLEASEWAIT2 = makeText(this, "lblPLEASEWAIT2", patience);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    rows->setSpacing(Gap);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    for (QWidget* row :
         std::initializer_list<QWidget*>{lblPLEASEWAIT1, prgWAITING, lblPLEASEWAIT2}) {
        rows->addWidget(row);
    }
    tmrWAITING.setObjectName(QStringLiteral("tmrWAITING"));
    tmrWAITING.setInterval(Interval);
    connect(&tmrWAITING, &QTimer::timeout, this, &frmRESOURCEWAIT::tmrWAITING_Timer);
}

void frmRESOURCEWAIT::wait() {
    tmrWAITING.start();
    layout()->activate();
    exec();
}

void frmRESOURCEWAIT::tmrWAITING_Timer() {
    close();
}

void frmRESOURCEWAIT::done(int result) {
    tmrWAITING.stop();
    QDialog::done(result);
}

// Its time ends it, and no key.
void frmRESOURCEWAIT::keyPressEvent(QKeyEvent* event) {
    event->accept();
}

}  // namespace velorama
