#include "ui/pages/help_page.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/lib_txt.h"

namespace velorama {
namespace {

// Logical pixels. The column of buttons fits into the page of the smallest window.
constexpr int Margin = 16;
constexpr int ButtonsTop = 4;
constexpr int HeadTop = 6;
constexpr int IconSize = 64;
constexpr int LeastTextWidth = 226;
constexpr int LeastButtonWidth = 160;
constexpr int LeastButtonHeight = 22;
constexpr int ButtonGap = 1;
constexpr qreal TitleScale = 1.8;

int naturalWidth(const QLabel& label) {
    return label.fontMetrics().horizontalAdvance(label.text()) + 2;
}

}  // namespace

struct HelpPage::Design {
    const char* name;
    const char* symbol;
    const char* tooltip;
    const char* caption;
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
      row_(new QHBoxLayout(&scroll_->content())) {
    row_->setContentsMargins(Margin, ButtonsTop, Margin, 0);
    row_->setSpacing(Margin);
    row_->addLayout(head());
    QBoxLayout* column = buttons();
    row_->addLayout(column);
    row_->setAlignment(column, Qt::AlignLeft | Qt::AlignTop);
    row_->addStretch(1);
}

QLabel* HelpPage::line(const char* name) {
    QLabel* label = makeText(&scroll_->content(), name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

cbtn* HelpPage::button(const Design& design, Command& command) {
    cbtn* made = makeButton(&scroll_->content(), QLatin1String(design.name), design.symbol,
                            design.tooltip, design.caption);
    made->setLeading(true);
    command.addButton(*made);
    return made;
}

QBoxLayout* HelpPage::head() {
    imgICON->setFixedSize(IconSize, IconSize);
    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(0, HeadTop, 0, 0);
    texts->setSpacing(2);
    for (QLabel* label : {lblMAINTITLE, lblVERSION, lblCOPYRIGHT}) {
        texts->addWidget(label);
    }
    texts->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(Margin);
    row->addWidget(imgICON, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    return row;
}

QBoxLayout* HelpPage::buttons() {
    auto* column = new QVBoxLayout;
    column->setSpacing(ButtonGap);
    for (cbtn* button : {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT}) {
        column->addWidget(button, 0);
    }
    column->addStretch(1);
    return column;
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
    int width = LeastButtonWidth;
    for (const cbtn* button : {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT}) {
        width = std::max(width, button->sizeHint().width());
    }
    for (cbtn* button : {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT}) {
        button->setMinimumWidth(width);
        button->setFixedHeight(std::max(LeastButtonHeight, button->fontMetrics().height() + 4));
    }
}

void HelpPage::layOut() {
    scroll_->setGeometry(0, 0, toPixels(Width(*this)), toPixels(Height(*this)));
    scroll_->arrange({row_});
    // Beside the buttons the texts take the width that they need; above them no height.
    const bool beside = row_->direction() == QBoxLayout::LeftToRight;
    const int width = beside ? textWidth() : QWIDGETSIZE_MAX;
    row_->setStretch(0, beside ? 100 : 0);
    for (QLabel* label : {lblMAINTITLE, lblVERSION, lblCOPYRIGHT}) {
        label->setMaximumWidth(width);
    }
}

int HelpPage::textWidth() const {
    int width = LeastTextWidth;
    for (const QLabel* label : {lblMAINTITLE, lblVERSION, lblCOPYRIGHT}) {
        width = std::max(width, naturalWidth(*label));
    }
    return width;
}

QList<QWidget*> HelpPage::tabOrder() const {
    return {cbtnHELP, cbtnUPDATES, cbtnWEBSITE, cbtnSUPPORT, cbtnABOUT};
}

}  // namespace velorama
