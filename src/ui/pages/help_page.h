#pragma once

#include "core/commands.h"
#include "ui/pages/page.h"

#include <QLabel>

namespace velorama {

/// The page Help: what the program is called, and the ways to more.
class HelpPage : public Page {
    Q_OBJECT
public:
    HelpPage(QWidget& surface, Commands& commands);

    /// The texts of the start, and the program's icon.
    void fill(const QIcon& icon);
    /// All places are the design's.
    void layOut() override {}
    QWidget* firstFocus() const override { return cbtnHELP; }
    QList<QWidget*> tabOrder() const override;

    QLabel* imgICON;
    QLabel* lblMAINTITLE;
    QLabel* lblVERSION;
    QLabel* lblCOPYRIGHT;
    cbtn* cbtnHELP;
    cbtn* cbtnUPDATES;
    cbtn* cbtnWEBSITE;
    cbtn* cbtnSUPPORT;
    cbtn* cbtnABOUT;

private:
    QLabel* line(const char* name, float top, float height);
    struct Design;
    cbtn* button(const Design& design, Command& command);
};

}  // namespace velorama
