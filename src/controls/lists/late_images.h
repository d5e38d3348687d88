#pragma once

#include "controls/lists/image_list.h"

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>

#include <set>
#include <vector>

namespace velorama {

/// The images that a view paints. One that has to be made is made on another thread, and its row is
/// painted again when it is there: those painted last first, and none that is out of sight by then.
class LateImages : public QObject {
    Q_OBJECT
public:
    explicit LateImages(QAbstractItemView& view);

    void setIcons(ImageList* icons);
    /// Image `number` for painting `row`; null if there is none, or none yet.
    QImage painted(int number, const QModelIndex& row);

private:
    struct Wish {
        int number = 0;
        QPersistentModelIndex row;
    };

    bool isInSight(const Wish& wish) const;
    void makeNext();
    void make(int number);
    void made(int number, const std::shared_ptr<const ImageOrigin>& origin, const QImage& image);

    QAbstractItemView& view_;
    QPointer<ImageList> icons_;
    std::vector<Wish> wishes_;  // the latest at the end
    std::set<int> making_;
};

}  // namespace velorama
