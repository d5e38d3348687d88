#include "controls/lists/list_drag.h"

#include "controls/lists/drop_line.h"
#include "controls/lists/local_files.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QPainter>
#include <QScrollBar>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

// Says to other programs that this is nothing of theirs.
const QString itemsType = QStringLiteral("application/x-velorama-items");

constexpr int edge = 48;           // logical pixels
constexpr int slowest = 4;         // logical pixels a step
constexpr int quickest = 28;       // at the very end
constexpr int stepTime = 20;       // milliseconds
constexpr int pictureHeight = 64;  // logical pixels, as the others below
constexpr int besidePointer = 12;
constexpr int badgeSide = 22;

QPixmap small(const QPixmap& picture) {
    const qreal ratio = picture.devicePixelRatio();
    QPixmap scaled =
        picture.scaledToHeight(qRound(pictureHeight * ratio), Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    return scaled;
}

/// How many are dragged, on the picture of one of them.
void paintCount(QPixmap& picture, int count, const QPalette& palette) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QString text = QString::number(count);
    const int width =
        std::max(badgeSide, painter.fontMetrics().horizontalAdvance(text) + badgeSide / 2);
    const QRectF badge(picture.deviceIndependentSize().width() - width - 2, 2, width, badgeSide);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Active, QPalette::Highlight));
    painter.drawRoundedRect(badge, badgeSide / 2.0, badgeSide / 2.0);
    painter.setPen(palette.color(QPalette::Active, QPalette::HighlightedText));
    painter.drawText(badge, Qt::AlignCenter, text);
}

}  // namespace

DraggedItems::DraggedItems(ListDrag& source)
    : source_(&source), changes_(source.list().changes()) {}

ListDrag* DraggedItems::source() const {
    return source_ && source_->list().changes() == changes_ ? source_.data() : nullptr;
}

ListDrag::ListDrag(ListView& list)
    : QObject(&list), list_(list), line_(new DropLine(list.viewport())) {
    list.viewport()->installEventFilter(this);
    timer_.setInterval(stepTime);
    connect(&timer_, &QTimer::timeout, this, &ListDrag::scroll);
}

void ListDrag::offer(std::function<QStringList()> files) {
    files_ = std::move(files);
    list_.setDragEnabled(true);
    connect(&list_, &ListView::DragOff, this, &ListDrag::dragOff, Qt::UniqueConnection);
}

void ListDrag::takeFrom(ListDrag& source) {
    sources_.append(&source);
    list_.viewport()->setAcceptDrops(true);
}

void ListDrag::takeFiles() {
    takesFiles_ = true;
    list_.viewport()->setAcceptDrops(true);
}

// -- Off --

void ListDrag::dragOff() {
    if (!list_.selectionModel()->hasSelection()) {
        return;
    }
    auto* drag = new QDrag(&list_);
    drag->setMimeData(items().release());
    showUnderPointer(*drag);
    const QPointer<ListDrag> self = this;
    // Never to move a file: that would be for the other program to do.
    drag->exec(files_ ? Qt::CopyAction : Qt::MoveAction);
    if (self && dropped_) {
        QMetaObject::invokeMethod(this, std::exchange(dropped_, {}), Qt::QueuedConnection);
    }
}

std::unique_ptr<DraggedItems> ListDrag::items() {
    auto data = std::make_unique<DraggedItems>(*this);
    data->setData(itemsType, QByteArray());
    if (files_) {
        QList<QUrl> urls;
        for (const QString& path : files_()) {
            urls.append(QUrl::fromLocalFile(path));
        }
        data->setUrls(urls);
    }
    return data;
}

void ListDrag::showUnderPointer(QDrag& drag) const {
    const QRect cell = list_.visualRect(list_.currentIndex()) & list_.viewport()->rect();
    if (cell.isEmpty()) {
        return;
    }
    QPixmap picture = small(list_.viewport()->grab(cell));
    const auto count = list_.selectionModel()->selectedRows().size();
    if (count > 1) {
        paintCount(picture, static_cast<int>(count), list_.palette());
    }
    drag.setPixmap(picture);
    // Beside the pointer: under it, it would hide the line.
    drag.setHotSpot({-besidePointer, -besidePointer});
}

// -- Over this list --

bool ListDrag::eventFilter(QObject* viewport, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
            enter(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::DragMove:
            move(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::DragLeave:
            leave();
            return true;
        case QEvent::Drop:
            drop(*static_cast<QDropEvent*>(event));
            return true;
        default:
            return QObject::eventFilter(viewport, event);
    }
}

// The paths are read once: there may be thousands, and every move of the pointer asks.
void ListDrag::enter(QDropEvent& event) {
    items_ = qobject_cast<const DraggedItems*>(event.mimeData());
    // What another control of this program drags is no file from elsewhere.
    if (!items_ && event.source() == nullptr && takesFiles_) {
        paths_ = localFiles(*event.mimeData());
    }
    move(event);
}

void ListDrag::move(QDropEvent& event) {
    if (answer(event)) {
        follow(event.position().toPoint());
    } else {
        line_->hide();
        timer_.stop();
    }
}

bool ListDrag::takes() const {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != list_.window()) {
        return false;
    }
    return items_ ? takesFrom(items_->source()) : !paths_.isEmpty();
}

bool ListDrag::takesFrom(const ListDrag* source) const {
    return source != nullptr &&
           std::find(sources_.begin(), sources_.end(), source) != sources_.end();
}

bool ListDrag::answer(QDropEvent& event) const {
    event.setAccepted(takes());
    if (event.isAccepted()) {
        // Files stay where they are, also where a file manager proposes to move them.
        const bool moves = items_ && !items_->source()->files_;
        event.setDropAction(moves ? Qt::MoveAction : Qt::CopyAction);
    }
    return event.isAccepted();
}

void ListDrag::leave() {
    line_->hide();
    timer_.stop();
    items_ = nullptr;
    paths_.clear();
}

void ListDrag::drop(QDropEvent& event) {
    place_ = event.position().toPoint();
    if (answer(event)) {
        if (items_) {
            tellItems(*items_->source(), gap());
        } else {
            QMetaObject::invokeMethod(
                this, [this, paths = paths_, to = gap()] { emit FilesDropped(paths, to); },
                Qt::QueuedConnection);
        }
    }
    leave();
}

// Within the drag nobody may let events run. Before it ends its list may still change.
void ListDrag::tellItems(ListDrag& source, int to) {
    const qint64 then = source.list_.changes();
    source.dropped_ = [self = QPointer(this), from = &source.list_, then, to] {
        if (self && from->changes() == then) {
            emit self->ItemsDropped(from, to);
        }
    };
}

int ListDrag::gap() const {
    return list_.isStrip() ? list_.gapAt(place_) : 0;
}

void ListDrag::follow(const QPoint& place) {
    place_ = place;
    if (!list_.isStrip()) {
        return;
    }
    line_->setGeometry(list_.gapLine(gap()));
    line_->show();
    line_->raise();
    const auto towards = [](int distance) {
        const int depth = std::clamp(edge - distance, 0, edge);
        return depth == 0 ? 0 : slowest + (quickest - slowest) * depth / edge;
    };
    speed_ = towards(list_.viewport()->width() - place.x()) - towards(place.x());
    if (speed_ == 0) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        timer_.start();
    }
}

void ListDrag::scroll() {
    if (!list_.isVisible()) {
        leave();
        return;
    }
    QScrollBar& bar = *list_.horizontalScrollBar();
    bar.setValue(bar.value() + speed_);
    follow(place_);
}

}  // namespace velorama
