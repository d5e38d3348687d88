#pragma once

#include "controls/lists/list_view.h"
#include "platform/process/slow_looks.h"
#include "ui/pages/web_album_page.h"

#include <QHash>

#include <functional>

namespace velorama {

/// Hands the first slides to the samples of the page WebAlbum, as long as that is in sight. Their
/// pictures come from other threads.
class SampleSlides : public QObject {
    Q_OBJECT
public:
    /// Sides of the bitmaps asked for: of the first slide in pixels, of the others in logical ones.
    static constexpr int photoSide = 1024;
    static constexpr int thumbnailSide = 90;

    /// A picture file as a bitmap whose longer side has `side` pixels; null for what cannot be
    /// loaded. Runs on any thread and owns what it works on.
    using Load = std::function<QImage(const QString& path, int side)>;

    /// List and page must outlive this object.
    SampleSlides(const ListView& list, WebAlbumPage& page, Load load);

private:
    struct Wish {
        QString path;
        int side = 0;
    };

    void update();
    bool takeSlides();
    void ask(const Wish& wish);
    void arrived(const Wish& wish, const QImage& image);
    void show();

    const ListView& list_;
    WebAlbumPage& page_;
    Load load_;
    QStringList keys_;
    QStringList names_;
    int count_ = 0;
    /// Of the slides shown, the largest that has come.
    QHash<QString, QImage> pictures_;
    SlowLooks looks_;
};

}  // namespace velorama
