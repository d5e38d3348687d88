#pragma once

#include "controls/lists/late_images.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace velorama {

/// Paints a cell of a ListView: the image, centred, the mark over it, and the caption below it in
/// two lines, the second elided in the middle. Edits the caption in its place.
class ListDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// Of this view alone, and its child.
    explicit ListDelegate(QAbstractItemView& view);

    void setIcons(ImageList* icons);

    /// Size of a cell around an image of this size with a caption in this font.
    static QSize cellSize(QSize image, const QFontMetrics& font);
    /// Where in a cell the image and the caption stand. In a cell higher than it need be they stand
    /// together in the middle.
    QRect imageArea(const QRect& cell, const QFontMetrics& font) const;
    QRect captionArea(const QRect& cell, const QFontMetrics& font) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    QRect content(const QRect& cell, const QFontMetrics& font) const;
    void paintMarkOf(QPainter& painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;

    QPointer<const ImageList> icons_;
    LateImages* late_;
};

}  // namespace velorama
