#pragma once

#include "core/commands.h"
#include "ui/pages/page.h"
#include "ui/parts/scrolled_content.h"

#include <QLabel>

namespace velorama {

/// The page Help: what the program is called, and the ways to more.
class HelpPage : public Page {
    Q_OBJECT
public:
    HelpPage(QWidget& surface, Commands& commands);

    /// The texts of the start, and the program's icon.
    void fill(const QIcon& icon);
    void makeRoom() override;
    /// The buttons stand beside the texts or below them, as the width allows. Where there is too
    /// little room the page scrolls.
    void layOut() override;
    QWidget* firstFocus() const override { return cbtnHELP; }
    QList<QWidget*> tabOrder() const override;

private:
    ScrolledContent* scroll_;

public:
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
    QLabel* line(const char* name);
    struct Design;
    cbtn* button(const Design& design, Command& command);
    QBoxLayout* head();
    QBoxLayout* buttons();
    int textWidth() const;

    QBoxLayout* row_;
};

}  // namespace velorama
