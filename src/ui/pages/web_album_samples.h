#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/picture_box.h"
#include "webalbum/page_plan.h"

#include <array>
#include <vector>

namespace velorama {

/// A rectangle filled with one colour.
class SampleShape : public QWidget {
    Q_OBJECT
public:
    explicit SampleShape(QWidget* parent) : QWidget(parent) { setAutoFillBackground(true); }
    QColor FillColor() const { return palette().color(QPalette::Window); }
    void setFillColor(const QColor& colour);
};

/// A picture as large as its place; before it is there a symbol stands for it.
class SamplePicture : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    const QImage& image() const { return image_; }
    void setImage(const QImage& image);
    /// One of those that every album has, by its file's name. It is read once it is seen.
    void setAlbumImage(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
    QString unread_;
    /// The image in the size last painted.
    QImage scaled_;
};

/// What the samples show of the user's own. Without slides they show what stands for some.
struct SampleAlbum {
    struct Slide {
        QString name;
        /// Of any size; null as long as it is being loaded, and where it cannot be.
        QImage picture;
    };

    /// Those of the first index page.
    std::vector<Slide> slides;
    /// Of all slides.
    int count = 0;
};

/// The two panes that show the first index page and the first slide page as a browser does, in the
/// colours and fonts chosen. Everything is to scale but two things: texts have the sizes of the
/// design, whatever sizes are chosen, and never become too small to be read.
struct WebAlbumSamples {
    explicit WebAlbumSamples(QWidget* parent);

    /// Least width and height of a pane, in logical pixels.
    static constexpr int leastSide = 105;
    void setPaneSize(const QSize& size);
    void setAlbum(const SampleAlbum& album);
    void setTitle(const QString& title);
    /// Pixels on the page, as the album is written with them.
    void setPictureSizes(qint32 photo, qint32 thumbnail);
    /// Of captions and links.
    void setTextFamily(const QString& family);
    void setTitleFamily(const QString& family);
    void setTextColour(const QColor& colour);

    PictureBox* picWAMAIN;
    SampleShape* shpTTLMAINCOL;
    Label* lblTTLMAINCOL;
    SampleShape* shpBARMAINCOL;
    std::array<Label*, 6> lbltxtMAINCOL{};

    PictureBox* picWASLIDE;
    SampleShape* shpSLIDEBARCOL;
    Label* lbltxtSLIDECOL;

private:
    /// Two arrows and what stands between them.
    struct Arrows {
        SamplePicture* previous;
        Label* between;
        SamplePicture* next;
    };

    static Arrows makeArrows(PictureBox* pane, const char* name);
    void makeCells();
    QSizeF shownSize(std::size_t slide, qint32 size) const;
    std::size_t shownSlides() const;
    PageLines measure(const Label& between) const;
    void fill();
    void fillSlidePage();
    SampleAlbum::Slide slide(std::size_t number) const;
    void arrange();
    void arrangeIndexPage();
    void arrangeSlidePage();
    void placeArrows(const Arrows& arrows, const QRectF& previous, const QRectF& between,
                     const QRectF& next) const;
    void placeScaled(QWidget& part, const QRectF& onPage) const;
    void placeText(Label& label, const QRectF& onPage) const;
    void scaleFont(Label& label, qreal pixels, qreal least) const;
    std::vector<Label*> texts() const;

    /// lbltxtMAINCOL and as many again.
    std::vector<Label*> captions_;
    std::vector<SamplePicture*> thumbnails_;
    Arrows pages_;
    Arrows home_;
    SamplePicture* before_;
    SamplePicture* behind_;
    SamplePicture* photo_;

    SampleAlbum album_;
    qint32 photoSize_ = 500;
    qint32 thumbnailSize_ = 95;
    /// Logical pixels to a pixel of the page.
    qreal scale_ = 1;
};

}  // namespace velorama
