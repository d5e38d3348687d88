// What the samples of the page WebAlbum are told.

#include "controls/buttons/swatch.h"
#include "controls/geometry/tip_markup.h"
#include "platform/numbers.h"
#include "ui/pages/web_album_page.h"

#include <QStyle>

namespace velorama {
namespace {

// Logical pixels, all of these.
// Larger samples cannot be looked over at a glance.
constexpr int mostSampleSide = 1200;
constexpr int belowHeading = 3;
// Behind the settings.
constexpr int panesInRow = 1;

const QString titleTip = QStringLiteral("Title of the pages and name of their folder");
const QString viewTip = QStringLiteral("Open the web album in the browser");

/// The name of a font of the samples; nothing where the entry has no comma.
std::optional<QString> sampleFont(const QString& entry) {
    const qsizetype comma = entry.indexOf(QLatin1Char(','));
    if (comma < 0) {
        return std::nullopt;
    }
    const QString name = entry.left(comma).remove(QLatin1Char('"'));
    return name == QLatin1String("Geneva") ? QStringLiteral("Arial") : name;
}

}  // namespace

// Sizes of pictures show at once, as the title does; those of fonts do not.
void WebAlbumPage::connectSamples() {
    connect(txtTITLE, &QLineEdit::textChanged, this, &WebAlbumPage::showTitle);
    for (const updown* field : {udnPHOTO, udnTHUMBNAIL}) {
        connect(field, &updown::Change, this, &WebAlbumPage::sizeSamples);
    }
    sizeSamples();
}

void WebAlbumPage::sizeSamples() {
    samples_->setPictureSizes(wholeNumber(udnPHOTO->Text()).value_or(0),
                              wholeNumber(udnTHUMBNAIL->Text()).value_or(0));
}

// A title that is longer than its field is in the tooltip whole.
void WebAlbumPage::showTitle() {
    const QString title = txtTITLE->text();
    txtTITLE->setToolTip(title.isEmpty() ? titleTip : tipMarkup({title, titleTip}, font()));
    samples_->setTitle(title);
}

void WebAlbumPage::setSampleSlides(const SampleAlbum& album) {
    samples_->setAlbum(album);
}

void WebAlbumPage::setAlbumFolder(const QString& folder) {
    const QStringList lines =
        folder.isEmpty() ? QStringList(viewTip) : QStringList{viewTip, folder};
    cbtnVIEWWEBALB->setToolTip(tipMarkup(lines, font()));
    cbtnVIEWWEBALB->setAccessibleDescription(lines.join(u' '));
}

void WebAlbumPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    emit Shown();
}

void WebAlbumPage::WebAlbumSampleUpdate() {
    WebAlbumSamples& s = *samples_;
    const QColor bar = shownColour(picBARCOL->BackColor());
    s.shpSLIDEBARCOL->setFillColor(bar);
    s.shpBARMAINCOL->setFillColor(bar);
    const QColor page = shownColour(picBACKGROUND->BackColor());
    s.picWASLIDE->setBackColor(page);
    s.picWAMAIN->setBackColor(page);
    s.setTextColour(shownColour(picTEXTCOLOR->BackColor()));
    if (const auto family = sampleFont(cboFONTS->Text())) {
        s.setTextFamily(*family);
    }
    if (const auto family = sampleFont(cboFONTSBAR->Text())) {
        s.setTitleFamily(*family);
    }
    s.lblTTLMAINCOL->setForeColor(shownColour(picTITLEBARTEXTCOL->BackColor()));
    s.shpTTLMAINCOL->setFillColor(shownColour(picTITLEBARCOL->BackColor()));
}

QBoxLayout* WebAlbumPage::panes() {
    auto* row = new QHBoxLayout;
    row->setSpacing(row_->spacing());
    for (PictureBox* box : {samples_->picWAMAIN, samples_->picWASLIDE}) {
        auto* heading = new QLabel(box->accessibleName(), content_);
        heading->setWordWrap(true);
        headings_.append(heading);
        auto* pane = new QVBoxLayout;
        pane->setSpacing(belowHeading);
        pane->addWidget(heading);
        pane->addWidget(box, 0, Qt::AlignLeft);
        pane->addStretch(1);
        row->addLayout(pane);
    }
    row->addStretch(1);
    return row;
}

// Beside large letters the least samples would be specks.
int WebAlbumPage::leastPane(int lines) const {
    return std::max(WebAlbumSamples::leastSide, lines * fontMetrics().lineSpacing());
}

int WebAlbumPage::scrollBar() const {
    return style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

int WebAlbumPage::headingHeight(int width) const {
    int height = 0;
    for (const QLabel* heading : headings_) {
        height = std::max(height, heading->heightForWidth(width));
    }
    return height;
}

// Both alike. Beside the settings they take all that is free, below them the width and as much
// height as a page of that width fills.
void WebAlbumPage::growSamples() {
    const bool isBeside = row_->direction() == QBoxLayout::LeftToRight;
    const bool scrolls = !isBeside || content_->minimumSizeHint().height() > scroll_->height();
    const int bar = scrolls ? scrollBar() : 0;
    const QMargins margins = row_->contentsMargins();
    // Headings may be wider than the panes, and are wrapped then.
    const int besides =
        isBeside ? row_->sizeHint().width() - row_->itemAt(panesInRow)->sizeHint().width()
                 : margins.left() + margins.right();
    const int taken = besides + row_->spacing();
    const int free = (scroll_->width() - bar - taken) / 2;
    const int width = std::clamp(free, leastWidth_, mostSampleSide);
    const int below = scroll_->height() - margins.top() - belowHeading;
    const int height = isBeside ? below - headingHeight(width) : width * 3 / 4;
    samples_->setPaneSize({width, std::clamp(height, leastPane(leastLines), mostSampleSide)});
}

}  // namespace velorama
