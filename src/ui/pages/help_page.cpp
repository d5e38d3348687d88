#include "ui/pages/help_page.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/lib_txt.h"

namespace velorama {
namespace {

// Logical pixels. The page of the first window takes it all without scrolling.
constexpr int Margin = 16;
constexpr int ColumnGap = 28;
constexpr int IconSize = 40;
constexpr int LeastTextWidth = 150;
constexpr int LeastButtonWidth = 150;
constexpr int LeastStepWidth = 130;
constexpr int StepGap = 10;
constexpr int KeyGap = 12;
constexpr qreal TitleScale = 1.5;

}  // namespace

struct HelpPage::Spacing {
    int top;
    int belowHeading;
    int rows;
    int leastButton;
    int aboutCaption;
};

namespace {

// As a page of a book where there is room, close together where the page would scroll.
constexpr HelpPage::Spacing roomy = {24, 12, 9, 30, 12};
constexpr HelpPage::Spacing tight = {8, 6, 3, 22, 4};

}  // namespace

struct HelpPage::Design {
    const char* name;
    const char* symbol;
    const char* tooltip;
    const char* caption;
};

struct HelpPage::Step {
    Design design;
    Command& command;
    const char* text;
};

HelpPage::HelpPage(QWidget& surface, Commands& commands)
    : Page("picframHELP", surface),
      scroll_(new ScrolledContent(this)),
      imgICON(make<QLabel>("imgICON", &scroll_->content())),
      lblMAINTITLE(line("lblMAINTITLE")),
      lblVERSION(line("lblVERSION")),
      lblCOPYRIGHT(line("lblCOPYRIGHT")),
      cbtnHELP(
          button({"cbtnHELP", "help", "Help Center Online [F1]", "Help Center"}, commands.help)),
      cbtnUPDATES(button(
          {"cbtnUPDATES", "update", "See whether there is a newer version", "Check for Updates"},
          commands.updateCheck)),
      cbtnWEBSITE(button({"cbtnWEBSITE", "web", "Open the website in the browser", "Visit Website"},
                         commands.website)),
      cbtnSUPPORT(button(
          {"cbtnSUPPORT", "support", "Open the support page in the browser", "Customer Support"},
          commands.support)),
      cbtnABOUT(button({"cbtnABOUT", "about", "About this program", "About"}, commands.about)),
      steps_(new QWidget(&scroll_->content())),
      row_(new QHBoxLayout(&scroll_->content())) {
    row_->setSpacing(ColumnGap);
    // What is left over stands at the right, and not between the columns.
    steps_->setLayout(steps(commands));
    row_->addWidget(steps_, 100);
    row_->addLayout(keys());
    row_->addLayout(links());
    row_->addStretch(1);
}

QLabel* HelpPage::line(const char* name) {
    QLabel* label = makeText(&scroll_->content(), name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

cbtn* HelpPage::button(const Design& design, Command& command) {
    cbtn* made = makeButton(&scroll_->content(), QLatin1String(design.name), design.symbol,
                            design.tooltip, design.caption);
    made->setLeading(true);
    command.addButton(*made);
    return made;
}

// The size stays that of the desktop.
QLabel* HelpPage::heading(const char* text) {
    QLabel* label = words(QLatin1String(text));
    QFont bold;
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QLabel* HelpPage::words(const QString& text) {
    QLabel* label = makeText(&scroll_->content(), "", text);
    label->setWordWrap(true);
    return label;
}

QBoxLayout* HelpPage::head() {
    imgICON->setFixedSize(IconSize, IconSize);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(lblMAINTITLE);
    texts->addWidget(lblVERSION);
    auto* row = new QHBoxLayout;
    row->setSpacing(Margin);
    row->addWidget(imgICON, 0, Qt::AlignVCenter);
    row->addLayout(texts, 1);
    return row;
}

QGridLayout* HelpPage::grid(int gap) {
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(gap);
    rows->setColumnStretch(1, 1);
    grids_.append(rows);
    return rows;
}

QBoxLayout* HelpPage::column() {
    columns_.append(new QVBoxLayout);
    return columns_.last();
}

QBoxLayout* HelpPage::steps(Commands& commands) {
    QGridLayout* rows = grid(StepGap);
    addStep(*rows, {{"btnSTEPCHOOSE", "picture", "Go to the page Pictures", "1  Choose Pictures"},
                    commands.choosePictures,
                    "Find a folder of photographs."});
    addStep(*rows, {{"btnSTEPADD", "add-all", "Add all found photos", "2  Add All"},
                    commands.addAll,
                    "Make slides of its pictures."});
    addStep(*rows, {{"btnSTEPPLAY", "play", "Play Slideshow [F5]", "3  Play"},
                    commands.start,
                    "See them on the whole screen."});
    QBoxLayout* column = this->column();
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head());
    column->addWidget(heading("Your first show"));
    column->addLayout(rows);
    column->addStretch(1);
    return column;
}

void HelpPage::addStep(QGridLayout& rows, const Step& step) {
    cbtn* made = button(step.design, step.command);
    made->setAccessibleDescription(QLatin1String(step.text));
    stepButtons_.append(made);
    QLabel* text = words(QLatin1String(step.text));
    texts_.append(text);
    stepTexts_.append(text);
    const int row = rows.rowCount();
    rows.addWidget(made, row, 0, Qt::AlignTop);
    rows.addWidget(text, row, 1, Qt::AlignVCenter);
}

QBoxLayout* HelpPage::keys() {
    QGridLayout* rows = grid(KeyGap);
    const std::pair<const char*, const char*> lines[] = {{"F5", "Start the show"},
                                                         {"Right, Left", "Next, previous"},
                                                         {"Click", "Pause, go on"},
                                                         {"Wheel", "Turn the slides"},
                                                         {"Esc", "Leave the show"}};
    int row = 0;
    for (const auto& [key, meaning] : lines) {
        QLabel* name = makeText(&scroll_->content(), "", QLatin1String(key));
        rows->addWidget(name, row, 0, Qt::AlignTop);
        QLabel* what = makeText(&scroll_->content(), "", QLatin1String(meaning));
        rows->addWidget(what, row++, 1, Qt::AlignTop);
    }
    QBoxLayout* column = this->column();
    column->addWidget(heading("Keys of a show"));
    column->addLayout(rows);
    column->addStretch(1);
    return column;
}

QBoxLayout* HelpPage::links() {
    links_ = new QVBoxLayout;
    QBoxLayout* column = links_;
    for (cbtn* button : linkButtons()) {
        column->addWidget(button, 0, Qt::AlignLeft);
    }
    lblCOPYRIGHT->setWordWrap(true);
    texts_.append(lblCOPYRIGHT);
    column->addWidget(lblCOPYRIGHT);
    column->addStretch(1);
    return column;
}

QList<cbtn*> HelpPage::linkButtons() const {
    return {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT};
}

void HelpPage::fill(const QIcon& icon) {
    lblMAINTITLE->setText(libTxt.ProductName);
    lblCOPYRIGHT->setText(libTxt.LegalLine);
    lblVERSION->setText(libTxt.VersionText);
    imgICON->setPixmap(icon.pixmap(imgICON->size(), devicePixelRatioF()));
    makeRoom();
    layOut();
}

void HelpPage::makeRoom() {
    QFont title = font();
    title.setPointSizeF(title.pointSizeF() * TitleScale);
    title.setBold(true);
    lblMAINTITLE->setFont(title);
    for (QLabel* text : texts_) {
        text->setMinimumWidth(0);
        text->setMinimumWidth(std::max(LeastTextWidth, text->minimumSizeHint().width()));
    }
    const auto align = [](const QList<cbtn*>& column, int least) {
        int width = least;
        for (const cbtn* button : column) {
            width = std::max(width, button->sizeHint().width());
        }
        for (cbtn* button : column) {
            button->setMinimumWidth(width);
        }
    };
    align(linkButtons(), LeastButtonWidth);
    align(stepButtons_, LeastStepWidth);
    boundSteps();
}

// As wide as its texts are in one line.
void HelpPage::boundSteps() {
    int width = 0;
    for (const QLabel* text : stepTexts_) {
        width = std::max(width, text->fontMetrics().horizontalAdvance(text->text()));
    }
    width += stepButtons_.first()->minimumWidth() + StepGap;
    const int head = imgICON->width() + Margin +
                     std::max(lblMAINTITLE->sizeHint().width(), lblVERSION->sizeHint().width());
    steps_->setMaximumWidth(std::max(width, head) + ColumnGap);
}

void HelpPage::layOut() {
    scroll_->setGeometry(0, 0, toPixels(Width(*this)), toPixels(Height(*this)));
    for (const Spacing& spacing : {roomy, tight}) {
        space(spacing);
        scroll_->arrange({row_});
        if (row_->totalHeightForWidth(scroll_->width()) <= scroll_->height()) {
            return;
        }
    }
}

void HelpPage::space(const Spacing& spacing) {
    row_->setContentsMargins(Margin, spacing.top, Margin, 0);
    for (QGridLayout* rows : std::as_const(grids_)) {
        rows->setVerticalSpacing(spacing.rows);
    }
    for (QBoxLayout* column : std::as_const(columns_)) {
        column->setSpacing(spacing.belowHeading);
    }
    links_->setSpacing(spacing.rows);
    for (cbtn* button : stepButtons_ + linkButtons()) {
        const int caption = button->fontMetrics().height() + spacing.aboutCaption;
        button->setFixedHeight(std::max(spacing.leastButton, caption));
    }
    // Its layout is not one of the row's, and keeps the height that it has told.
    steps_->updateGeometry();
}

QList<QWidget*> HelpPage::tabOrder() const {
    QList<QWidget*> order(stepButtons_.begin(), stepButtons_.end());
    for (cbtn* link : linkButtons()) {
        order.append(link);
    }
    return order;
}

}  // namespace velorama
