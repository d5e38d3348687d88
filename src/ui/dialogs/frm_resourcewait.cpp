#include "ui/dialogs/frm_resourcewait.h"

#include "controls/boxes/progress_bar.h"
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
    lblPLEASEWAIT1 = makeLabel("lblPLEASEWAIT1");
    QFont heading = lblPLEASEWAIT1->font();
    heading.setBold(true);
    lblPLEASEWAIT1->setFont(heading);
    prgWAITING = new ProgressBar(this);
    prgWAITING->setObjectName(QStringLiteral("prgWAITING"));
    prgWAITING->setAccessibleName(QStringLiteral("Waiting"));
    prgWAITING->setMinimumWidth(BarWidth);
    lblPLEASEWAIT2 = makeLabel("lblPLEASEWAIT2");

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

QLabel* frmRESOURCEWAIT::makeLabel(const char* name) {
    auto* label = new QLabel(QStringLiteral("Please wait ....."), this);
    label->setObjectName(QString::fromLatin1(name));
    return label;
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
