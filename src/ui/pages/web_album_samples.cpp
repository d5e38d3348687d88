#include "ui/pages/web_album_samples.h"

#include "controls/buttons/control_making.h"
#include "controls/buttons/icon.h"
#include "platform/session/shell.h"
#include "webalbum/picture_measure.h"

#include <QPainter>

#include <cmath>

namespace velorama {
namespace {

// The narrowest window of a browser that shows all of an album with the design's sizes, in pixels
// of the page.
constexpr qreal browserWidth = 560;
// Pixels of the page; those of the sizes that the program comes with.
constexpr qreal titlePixels = 24;
constexpr qreal textPixels = 12;
// Logical pixels. Smaller letters cannot be read; those of captions and links stand closely, and in
// a small pane they cannot be read either.
constexpr qreal leastTitlePixels = 9;
constexpr qreal leastTextPixels = 7;
constexpr qreal leastSmallPixels = 5;
// Pixels of the page. Larger pictures are all alike in a pane.
constexpr qint32 mostSize = 10000;
// What the pages say beside the style, for browsers without one.
constexpr QSizeF plainThumbnail(90, 71);
constexpr QSizeF plainNeighbour(60, 47);
// What stands for slides where there are none.
constexpr std::size_t standIns = 6;
constexpr QSizeF standInPicture(4, 3);
constexpr QSizeF mostSymbol(64, 64);
const QColor standInGround(0x9a, 0xb8, 0xd8);
// Browsers have links that were not followed so, whatever the page's colour.
const QColor linkColour(0, 0, 0xEE);

const QString noPrevious = QStringLiteral("arrowleftdis.gif");
const QString noNext = QStringLiteral("arrowrightdis.gif");
const QString someNext = QStringLiteral("arrowright.gif");
const QString endOfSlides = QStringLiteral("end.gif");
constexpr QSizeF endPicture(200, 150);

void underline(Label& label) {
    QFont font = label.font();
    font.setUnderline(true);
    label.setFont(font);
}

void setFamily(Label& label, const QString& family) {
    QFont font = label.font();
    font.setFamilies({family});
    label.setFont(font);
}

/// A style with a negative length is none.
QSizeF styledSize(const QSizeF& style, const QSizeF& plain) {
    return style.width() < 0 || style.height() < 0 ? plain : style;
}

/// Where there are many, only those that a pane has room for at either end of its line.
QString pageNumbers(int slides) {
    constexpr int mostAtEnd = 40;
    const int pages = std::max(1, (slides + picturesPerPage - 1) / picturesPerPage);
    const int lastOnes = std::max(mostAtEnd + 1, pages - mostAtEnd + 1);
    QStringList numbers;
    for (int page = 1; page <= std::min(mostAtEnd, pages); ++page) {
        numbers.append(QString::number(page));
    }
    if (lastOnes > mostAtEnd + 1) {
        numbers.append(QString(QChar(0x2026)));
    }
    for (int page = lastOnes; page <= pages; ++page) {
        numbers.append(QString::number(page));
    }
    return numbers.join(QLatin1Char(' '));
}

}  // namespace

void SampleShape::setFillColor(const QColor& colour) {
    QPalette changed = palette();
    changed.setColor(QPalette::Window, colour);
    setPalette(changed);
}

void SamplePicture::setImage(const QImage& image) {
    image_ = image;
    scaled_ = {};
    unread_.clear();
    update();
}

void SamplePicture::setAlbumImage(const QString& name) {
    setImage({});
    unread_ = name;
}

void SamplePicture::paintEvent(QPaintEvent*) {
    if (!unread_.isEmpty()) {
        image_ = QImage(programFile(QStringLiteral("images/") + unread_));
        unread_.clear();
    }
    QPainter painter(this);
    if (image_.isNull()) {
        painter.fillRect(rect(), standInGround);
        const QSizeF room = (QSizeF(size()) - QSizeF(4, 4)).boundedTo(mostSymbol);
        QRectF symbol(QPointF(), room);
        symbol.moveCenter(QRectF(rect()).center());
        paintSymbol(painter, symbol, QStringLiteral("picture"), Qt::white);
        return;
    }
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    // Made smaller it would show steps; made larger it might be larger than memory.
    if (pixels.width() > image_.width()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        return painter.drawImage(rect(), image_);
    }
    if (scaled_.size() != pixels) {
        scaled_ = image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    painter.drawImage(rect(), scaled_);
}

WebAlbumSamples::WebAlbumSamples(QWidget* parent)
    : picWAMAIN(make<PictureBox>("picWAMAIN", parent)),
      shpTTLMAINCOL(make<SampleShape>("shpTTLMAINCOL", picWAMAIN)),
      lblTTLMAINCOL(make<Label>("lblTTLMAINCOL", picWAMAIN)),
      shpBARMAINCOL(make<SampleShape>("shpBARMAINCOL", picWAMAIN)),
      picWASLIDE(make<PictureBox>("picWASLIDE", parent)),
      shpSLIDEBARCOL(make<SampleShape>("shpSLIDEBARCOL", picWASLIDE)),
      lbltxtSLIDECOL(make<Label>("lbltxtSLIDECOL", picWASLIDE)),
      pages_(makeArrows(picWAMAIN, "lblPAGESCOL")),
      home_(makeArrows(picWASLIDE, "lblHOMECOL")),
      before_(make<SamplePicture>("picBEFORE", picWASLIDE)),
      behind_(make<SamplePicture>("picBEHIND", picWASLIDE)),
      photo_(make<SamplePicture>("picPHOTO", picWASLIDE)) {
    picWAMAIN->setAccessibleName(QStringLiteral("Main Page Sample"));
    picWASLIDE->setAccessibleName(QStringLiteral("Slide Page Sample"));
    lbltxtSLIDECOL->setAlignment(Qt::AlignCenter);
    home_.between->setCaption(QStringLiteral("Home Page"));
    home_.previous->setAlbumImage(noPrevious);
    pages_.previous->setAlbumImage(noPrevious);
    before_->setAlbumImage(endOfSlides);
    makeCells();
    setTitle({});
    fill();
    setPaneSize(QSize(leastSide, leastSide));
}

WebAlbumSamples::Arrows WebAlbumSamples::makeArrows(PictureBox* pane, const char* name) {
    auto* between = make<Label>(name, pane);
    between->setAlignment(Qt::AlignCenter);
    between->setForeColor(linkColour);
    underline(*between);
    return {new SamplePicture(pane), between, new SamplePicture(pane)};
}

void WebAlbumSamples::makeCells() {
    for (int i = 0; i < picturesPerPage; ++i) {
        thumbnails_.push_back(new SamplePicture(picWAMAIN));
        thumbnails_.back()->setObjectName(QStringLiteral("picTHUMB%1").arg(i));
        auto* label = new Label(picWAMAIN);
        label->setObjectName(QStringLiteral("lbltxtMAINCOL%1").arg(i));
        label->setAlignment(Qt::AlignCenter);
        captions_.push_back(label);
    }
    std::copy_n(captions_.begin(), lbltxtMAINCOL.size(), lbltxtMAINCOL.begin());
}

std::vector<Label*> WebAlbumSamples::texts() const {
    std::vector<Label*> labels = captions_;
    labels.insert(labels.end(), {lbltxtSLIDECOL, pages_.between, home_.between});
    return labels;
}

void WebAlbumSamples::setTextFamily(const QString& family) {
    for (Label* label : texts()) {
        setFamily(*label, family);
    }
    arrange();
}

void WebAlbumSamples::setTitleFamily(const QString& family) {
    setFamily(*lblTTLMAINCOL, family);
    arrange();
}

void WebAlbumSamples::setTextColour(const QColor& colour) {
    for (Label* label : captions_) {
        label->setForeColor(colour);
    }
    lbltxtSLIDECOL->setForeColor(colour);
}

void WebAlbumSamples::setPaneSize(const QSize& size) {
    for (PictureBox* pane : {picWAMAIN, picWASLIDE}) {
        pane->setFixedSize(size);
    }
    arrange();
}

void WebAlbumSamples::setPictureSizes(qint32 photo, qint32 thumbnail) {
    photoSize_ = std::clamp(photo, 0, mostSize);
    thumbnailSize_ = std::clamp(thumbnail, 0, mostSize);
    arrange();
}

void WebAlbumSamples::setAlbum(const SampleAlbum& album) {
    album_ = album;
    fill();
    arrange();
}

std::size_t WebAlbumSamples::shownSlides() const {
    return album_.slides.empty() ? standIns : album_.slides.size();
}

/// One that is not loaded yet has the shape of most.
QSizeF WebAlbumSamples::shownSize(std::size_t slide, qint32 size) const {
    const bool isLoaded = slide < album_.slides.size() && !album_.slides[slide].picture.isNull();
    return displaySize(isLoaded ? QSizeF(album_.slides[slide].picture.size()) : standInPicture,
                       size);
}

SampleAlbum::Slide WebAlbumSamples::slide(std::size_t number) const {
    if (number < album_.slides.size()) {
        return album_.slides[number];
    }
    return {number < shownSlides() ? QStringLiteral("Photo") : QString(), {}};
}

// One line whatever it is, so nothing else moves.
void WebAlbumSamples::setTitle(const QString& title) {
    lblTTLMAINCOL->setCaption(title.isEmpty() ? QStringLiteral("Title") : title);
}

void WebAlbumSamples::fill() {
    for (std::size_t i = 0; i < thumbnails_.size(); ++i) {
        thumbnails_[i]->setImage(slide(i).picture);
        captions_[i]->setCaption(slide(i).name);
        thumbnails_[i]->setVisible(i < shownSlides());
        captions_[i]->setVisible(i < shownSlides());
    }
    pages_.between->setCaption(pageNumbers(album_.count));
    pages_.next->setAlbumImage(album_.count > picturesPerPage ? someNext : noNext);
    fillSlidePage();
}

void WebAlbumSamples::fillSlidePage() {
    photo_->setImage(slide(0).picture);
    lbltxtSLIDECOL->setCaption(slide(0).name);
    const bool hasNext = shownSlides() > 1;
    home_.next->setAlbumImage(hasNext ? someNext : noNext);
    if (hasNext) {
        behind_->setImage(slide(1).picture);
    } else {
        behind_->setAlbumImage(endOfSlides);
    }
}

void WebAlbumSamples::arrange() {
    const qreal pane = picWAMAIN->width();
    scale_ = pane / std::max(browserWidth, pane);
    scaleFont(*lblTTLMAINCOL, titlePixels, leastTitlePixels);
    for (Label* label : texts()) {
        scaleFont(*label, textPixels, leastSmallPixels);
    }
    scaleFont(*lbltxtSLIDECOL, textPixels, leastTextPixels);
    arrangeIndexPage();
    arrangeSlidePage();
}

void WebAlbumSamples::scaleFont(Label& label, qreal pixels, qreal least) const {
    constexpr qreal pointsPerInch = 72;
    QFont font = label.font();
    font.setPointSizeF(std::max(pixels * scale_, least) * pointsPerInch / label.logicalDpiY());
    label.setFont(font);
}

PageLines WebAlbumSamples::measure(const Label& between) const {
    const QFontMetricsF title(lblTTLMAINCOL->font(), lblTTLMAINCOL);
    const QFontMetricsF text(between.font(), &between);
    return {std::ceil(title.height()) / scale_, std::ceil(text.height()) / scale_,
            text.horizontalAdvance(between.Caption()) / scale_};
}

void WebAlbumSamples::arrangeIndexPage() {
    std::vector<QSizeF> sizes;
    for (std::size_t i = 0; i < shownSlides(); ++i) {
        sizes.push_back(styledSize(shownSize(i, thumbnailSize_), plainThumbnail));
    }
    const IndexPlan plan =
        planIndexPage(picWAMAIN->width() / scale_, sizes, measure(*pages_.between));
    placeScaled(*shpTTLMAINCOL, plan.titleBar);
    placeText(*lblTTLMAINCOL, plan.title);
    placeScaled(*shpBARMAINCOL, plan.controlBar);
    placeArrows(pages_, plan.previous, plan.numbers, plan.next);
    for (std::size_t i = 0; i < plan.cells.size(); ++i) {
        placeScaled(*thumbnails_[i], plan.cells[i].picture);
        placeText(*captions_[i], plan.cells[i].caption);
    }
}

void WebAlbumSamples::arrangeSlidePage() {
    const QSizeF end = displaySize(endPicture, thumbnailSize_);
    const QSizeF behind =
        shownSlides() > 1 ? styledSize(shownSize(1, thumbnailSize_), plainNeighbour) : end;
    const SlidePlan plan = planSlidePage(
        picWASLIDE->width() / scale_,
        {end, shownSize(0, photoSize_).expandedTo(QSizeF(0, 0)), behind}, measure(*home_.between));
    placeScaled(*shpSLIDEBARCOL, plan.bar);
    placeScaled(*before_, plan.before);
    placeScaled(*behind_, plan.behind);
    placeArrows(home_, plan.previous, plan.home, plan.next);
    placeScaled(*photo_, plan.picture);
    placeText(*lbltxtSLIDECOL, plan.caption);
}

void WebAlbumSamples::placeArrows(const Arrows& arrows, const QRectF& previous,
                                  const QRectF& between, const QRectF& next) const {
    placeScaled(*arrows.previous, previous);
    placeText(*arrows.between, between);
    placeScaled(*arrows.next, next);
}

// Edges that are one on the page stay one.
void WebAlbumSamples::placeScaled(QWidget& part, const QRectF& onPage) const {
    const auto scaled = [this](qreal length) { return qRound(length * scale_); };
    part.setGeometry(QRect(QPoint(scaled(onPage.left()), scaled(onPage.top())),
                           QPoint(scaled(onPage.right()) - 1, scaled(onPage.bottom()) - 1)));
}

// Edges are rounded, and a line that is a pixel too low would be set in smaller letters.
void WebAlbumSamples::placeText(Label& label, const QRectF& onPage) const {
    placeScaled(label, onPage.adjusted(0, 0, 0, 1 / scale_));
}

}  // namespace velorama
