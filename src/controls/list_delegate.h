#pragma once

#include "controls/image_list.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace velorama {

/// Paints a cell of a ListView: the image, centred, and the caption below it in one line, elided in
/// the middle. Edits the caption in its place.
class ListDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit ListDelegate(QObject* parent = nullptr);

    void setIcons(const ImageList* icons) { icons_ = icons; }

    /// Size of a cell around an image of this size with a caption in this font.
    static QSize cellSize(QSize image, const QFontMetrics& font);
    /// Where in a cell the image and the caption stand.
    static QRect imageArea(const QRect& cell, const QFontMetrics& font);
    static QRect captionArea(const QRect& cell, const QFontMetrics& font);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    QPointer<const ImageList> icons_;
};

}  // namespace velorama
