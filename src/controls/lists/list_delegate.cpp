#include "controls/lists/list_delegate.h"

#include "controls/input/one_line.h"
#include "controls/lists/item_mark.h"
#include "controls/lists/list_model.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

namespace velorama {
namespace {

constexpr int Padding = 4;
constexpr int Spacing = 2;
constexpr int LeastWidth = 104;
// In a line of a caption, whatever the font.
constexpr int LeastLetters = 12;
constexpr int CaptionLines = 2;
constexpr qreal Radius = 5;
constexpr float CurrentStrength = 0.6F;
constexpr qreal FocusLine = 2;
constexpr float SelectedTint = 0.38F;
constexpr float IdleTint = 0.24F;
constexpr float HoverTint = 0.12F;

float tint(const QStyleOptionViewItem& option) {
    if (option.state.testFlag(QStyle::State_Selected)) {
        return option.state.testFlag(QStyle::State_Active) && option.widget != nullptr &&
                       option.widget->hasFocus()
                   ? SelectedTint
                   : IdleTint;
    }
    return option.state.testFlag(QStyle::State_MouseOver) ? HoverTint : 0;
}

/// `current`: commands work on this item also while the keyboard is elsewhere.
void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area,
                 bool current) {
    const QRectF ground = QRectF(area).adjusted(1.5, 1.5, -1.5, -1.5);
    QColor colour = option.palette.color(QPalette::Active, QPalette::Highlight);
    painter.setRenderHint(QPainter::Antialiasing);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(QPen(colour, FocusLine));
    } else if (current) {
        QColor ink = option.palette.color(QPalette::Active, QPalette::Text);
        ink.setAlphaF(CurrentStrength);
        painter.setPen(QPen(ink, 1));
    } else {
        painter.setPen(Qt::NoPen);
    }
    colour.setAlphaF(tint(option));
    painter.setBrush(colour);
    painter.drawRoundedRect(ground, Radius, Radius);
}

/// Where a caption of which so many letters fit into the first line is broken: a name of one word
/// before its ending.
qsizetype breakOf(const QString& caption, qsizetype fitting) {
    if (fitting <= 0 || fitting >= caption.size()) {
        return fitting;
    }
    const bool isInWord = !caption.at(fitting - 1).isSpace() && !caption.at(fitting).isSpace();
    const qsizetype ending = caption.lastIndexOf(u'.');
    return isInWord && ending > 0 && ending < fitting ? ending : fitting;
}

/// At most two lines, the second cut in the middle: what tells files apart is often at the end.
QStringList captionLines(const QString& caption, const QFont& font, int width) {
    const QFontMetrics metrics(font);
    if (metrics.horizontalAdvance(caption) <= width) {
        return {caption};
    }
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(caption, font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(width);
    layout.endLayout();
    const qsizetype end = breakOf(caption, first.textLength());
    return {caption.left(end).trimmed(),
            metrics.elidedText(caption.mid(end).trimmed(), Qt::ElideMiddle, width)};
}

// Image pixels fall on whole pixels of the screen, or a thumbnail would look soft at 150 %.
void paintImage(QPainter& painter, const QImage& image, const QRect& area) {
    const QSizeF size = image.deviceIndependentSize();
    const qreal ratio = painter.device()->devicePixelRatioF();
    const auto snapped = [ratio](qreal value) { return qRound(value * ratio) / ratio; };
    const QPointF corner(snapped(area.x() + (area.width() - size.width()) / 2),
                         snapped(area.y() + (area.height() - size.height()) / 2));
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          !qFuzzyCompare(ratio, image.devicePixelRatioF()));
    painter.drawImage(corner, image);
}

}  // namespace

ListDelegate::ListDelegate(QAbstractItemView& view)
    : QStyledItemDelegate(&view), late_(new LateImages(view)) {}

void ListDelegate::setIcons(ImageList* icons) {
    icons_ = icons;
    late_->setIcons(icons);
}

QSize ListDelegate::cellSize(QSize image, const QFontMetrics& font) {
    const int letters = LeastLetters * font.averageCharWidth() + 2 * Padding;
    return {std::max({image.width() + 4 * Padding, LeastWidth, letters}),
            qMax(image.height(), 0) + CaptionLines * font.height() + 2 * Padding + 2 * Spacing};
}

QRect ListDelegate::content(const QRect& cell, const QFontMetrics& font) const {
    const int height = cellSize(icons_ != nullptr ? icons_->ImageSize() : QSize(), font).height();
    const int spare = qMax(0, cell.height() - height);
    return {cell.left(), cell.top() + spare / 2, cell.width(), cell.height() - spare};
}

QRect ListDelegate::captionArea(const QRect& cell, const QFontMetrics& font) const {
    const QRect area = content(cell, font);
    const int height = CaptionLines * font.height();
    return {area.left() + Padding, area.bottom() - Padding - height + 1, area.width() - 2 * Padding,
            height};
}

QRect ListDelegate::imageArea(const QRect& cell, const QFontMetrics& font) const {
    const int top = content(cell, font).top() + Padding;
    return {cell.left(), top, cell.width(), captionArea(cell, font).top() - Spacing - top};
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    painter->save();
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    paintGround(*painter, option, content(option.rect, option.fontMetrics),
                view != nullptr && view->currentIndex() == index);
    const int number = index.data(ListModel::IconRole).toInt();
    const QImage image = number > 0 ? late_->painted(number, index) : QImage();
    if (!image.isNull()) {
        paintImage(*painter, image, imageArea(option.rect, option.fontMetrics));
    }
    paintMarkOf(*painter, option, index);
    const QRect area = captionArea(option.rect, option.fontMetrics);
    const QString caption = index.data(Qt::DisplayRole).toString().simplified();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(option.widget != nullptr && option.widget->isEnabled()
                                             ? QPalette::Active
                                             : QPalette::Disabled,
                                         QPalette::Text));
    painter->drawText(area, Qt::AlignHCenter | Qt::AlignTop,
                      captionLines(caption, option.font, area.width()).join(QLatin1Char('\n')));
    painter->restore();
}

void ListDelegate::paintMarkOf(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const auto mark = index.data(ListModel::MarkRole).value<ItemMark>();
    if (!mark.isNull() && icons_ != nullptr) {
        QRect picture(QPoint(), icons_->ImageSize());
        picture.moveCenter(imageArea(option.rect, option.fontMetrics).center());
        paintMark(painter, mark, picture, option.palette);
    }
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return cellSize(icons_ != nullptr ? icons_->ImageSize() : QSize(), option.fontMetrics);
}

QWidget* ListDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex&) const {
    auto* editor = new QLineEdit(parent);
    editor->setAlignment(Qt::AlignCenter);
    keepOneLine(*editor);
    return editor;
}

void ListDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const {
    const int height = editor->sizeHint().height();
    const QRect caption = captionArea(option.rect, option.fontMetrics);
    const int top = caption.center().y() - height / 2;
    editor->setGeometry(option.rect.left(), qMin(top, option.rect.bottom() - height + 1),
                        option.rect.width(), height);
}

}  // namespace velorama
