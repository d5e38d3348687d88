#pragma once

#include "core/commands.h"
#include "ui/pages/page.h"
#include "ui/parts/scrolled_content.h"

#include <QGridLayout>
#include <QLabel>

namespace velorama {

/// The page Help: what the program is called, the way to a first show, the keys of a show, and
/// where there is more.
class HelpPage : public Page {
    Q_OBJECT
public:
    HelpPage(QWidget& surface, Commands& commands);

    /// Lengths between and around what stands on the page, in logical pixels.
    struct Spacing;

    /// The texts of the start, and the program's icon.
    void fill(const QIcon& icon);
    void makeRoom() override;
    /// The columns stand side by side or below one another, as the width allows, and wide or close
    /// as the height does. Where there is too little room the page scrolls.
    void layOut() override;
    void beginAtTop() override { scroll_->toTop(); }
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
    struct Design;
    struct Step;
    QGridLayout* grid(int gap);
    QBoxLayout* column();
    void space(const Spacing& spacing);
    QLabel* line(const char* name);
    cbtn* button(const Design& design, Command& command);
    QLabel* heading(const char* text);
    QLabel* words(const QString& text);
    QBoxLayout* head();
    QBoxLayout* steps(Commands& commands);
    void addStep(QGridLayout& rows, const Step& step);
    QBoxLayout* keys();
    QBoxLayout* links();
    QList<cbtn*> linkButtons() const;
    void boundSteps();

    QWidget* steps_;
    QBoxLayout* row_;
    QBoxLayout* links_ = nullptr;
    QList<QBoxLayout*> columns_;
    QList<QGridLayout*> grids_;
    QList<cbtn*> stepButtons_;
    QList<QLabel*> stepTexts_;
    /// Those that wrap.
    QList<QLabel*> texts_;
};

}  // namespace velorama
