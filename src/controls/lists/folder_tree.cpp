#include "controls/lists/folder_tree.h"

#include "controls/boxes/list_frame.h"
#include "controls/buttons/contrast.h"
#include "controls/input/keys.h"
#include "controls/lists/folder_model.h"
#include "platform/files/paths.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace velorama {
namespace {

/// On the quiet ground of a folder that is marked while the keyboard is elsewhere, its icon has the
/// colour of the others: that of an active mark would not be seen.
class FolderDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected) &&
            !option->state.testFlag(QStyle::State_Active) && option->widget != nullptr) {
            const QPixmap plain =
                option->icon.pixmap(option->decorationSize, option->widget->devicePixelRatioF());
            option->icon = QIcon(plain);
            option->icon.addPixmap(plain, QIcon::Selected);
        }
    }
};

}  // namespace

FolderTree::FolderTree(QWidget* parent) : QTreeView(parent), model_(new FolderModel(this)) {
    setListFrame(*this);
    setItemDelegate(new FolderDelegate(this));
    setModel(model_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    dimIdleSelection();
    setTextElideMode(Qt::ElideRight);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setContextMenuPolicy(Qt::PreventContextMenu);
    model_->setRoots(folderRoots());
    connect(model_, &FolderModel::Learned, this, &FolderTree::scheduleDelayedItemsLayout);
    connect(this, &QTreeView::expanded, model_, &FolderModel::opened);
    connect(this, &QTreeView::collapsed, this, &FolderTree::leaveCollapsed);
}

// As the other lists have it: the folder stays marked while the keyboard is elsewhere, more
// quietly.
void FolderTree::dimIdleSelection() {
    const QPalette desktop = QApplication::palette(this);
    const QColor accent = desktop.color(QPalette::Active, QPalette::Highlight);
    const QColor ground = palette().color(QPalette::Active, QPalette::Base);
    constexpr int share = 24;  // per cent
    const auto mixed = [](int a, int b) { return (a * share + b * (100 - share)) / 100; };
    const QColor quiet(mixed(accent.red(), ground.red()), mixed(accent.green(), ground.green()),
                       mixed(accent.blue(), ground.blue()));
    QPalette changed = palette();
    changed.setColor(
        QPalette::Active, QPalette::Highlight,
        readableGround(accent, desktop.color(QPalette::Active, QPalette::HighlightedText)));
    changed.setColor(QPalette::Inactive, QPalette::Highlight, quiet);
    changed.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     palette().color(QPalette::Active, QPalette::Text));
    if (changed != palette()) {
        setPalette(changed);
    }
}

bool FolderTree::event(QEvent* event) {
    updateListFrame(*this, event->type());
    const bool painted = event->type() == QEvent::Paint;
    const bool handled = QTreeView::event(event);
    if (painted) {
        paintListFrame(*this);
    }
    return handled;
}

void FolderTree::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        dimIdleSelection();
    }
}

void FolderTree::setPath(const QString& path) {
    if (path.isEmpty()) {
        return;
    }
    const QString there = QDir::cleanPath(hostFile(path));
    path_ = QDir(there).exists() && QDir::isAbsolutePath(there) ? there : path;
    reveal(there);
    emit NodeChange(path_);
}

void FolderTree::lookAlong(const QString& path) {
    QString folder = QDir::cleanPath(hostFile(path));
    for (QString below; QDir::isAbsolutePath(folder) && folder != below;) {
        QDirIterator entries(folder, QDir::Dirs | QDir::NoDotAndDotDot);
        while (entries.hasNext()) {
            entries.next();
        }
        below = folder;
        folder = QFileInfo(folder).path();
    }
}

void FolderTree::reveal(const QString& path) {
    const QScopedValueRollback quiet(silent_, true);
    const QModelIndex folder = model_->find(path);
    for (QModelIndex above = folder.parent(); above.isValid(); above = above.parent()) {
        expand(above);
    }
    if (folder.isValid()) {
        setCurrentIndex(folder);
        scrollTo(folder);
    }
}

void FolderTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (!current.isValid() || silent_) {
        changed_ = changed_ || current.isValid();
        return;
    }
    changed_ = true;
    announce();
}

void FolderTree::announce() {
    if (!changed_) {
        return;
    }
    changed_ = false;
    const QString now = model_->path(currentIndex());
    if (!now.isEmpty()) {
        path_ = now;
        emit NodeChange(now);
    }
}

// A folder inside a closed one cannot stay current: the closed one takes over.
void FolderTree::leaveCollapsed(const QModelIndex& folder) {
    for (QModelIndex above = currentIndex().parent(); above.isValid(); above = above.parent()) {
        if (above == folder) {
            setCurrentIndex(folder);
            return;
        }
    }
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
    const QPointer<FolderTree> alive(this);
    emit KeyDown(keyCode(*event), shiftMask(event->modifiers()));
    if (!alive) {
        return;
    }
    if (event->key() == Qt::Key_Asterisk) {
        // Everything below, as other trees do it, could be the whole disk.
        expand(currentIndex());
        return;
    }
    {
        const QScopedValueRollback quiet(silent_, true);
        changed_ = false;
        QTreeView::keyPressEvent(event);
    }
    announce();
}

// The owner lists the folder inside NodeChange and lets events run there, so the event is finished
// with first.
void FolderTree::mousePressEvent(QMouseEvent* event) {
    {
        const QScopedValueRollback quiet(silent_, true);
        changed_ = false;
        QTreeView::mousePressEvent(event);
    }
    // A click on the folder that is current already asks for it anew.
    const QModelIndex hit = indexAt(event->position().toPoint());
    const bool onName = hit.isValid() && visualRect(hit).contains(event->position().toPoint());
    changed_ = changed_ || (onName && event->button() == Qt::LeftButton);
    announce();
}

void FolderTree::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    if (currentIndex().isValid()) {
        scrollTo(currentIndex());
    }
}

// Passing over folders with the button held does not choose them.
void FolderTree::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) {
        QTreeView::mouseMoveEvent(event);
    }
}

void FolderTree::focusInEvent(QFocusEvent* event) {
    {
        // Focus alone chooses no folder, not even the first one.
        const QScopedValueRollback quiet(silent_, true);
        QTreeView::focusInEvent(event);
        changed_ = false;
    }
    emit GotFocus();
}

void FolderTree::showEvent(QShowEvent* event) {
    {
        const QScopedValueRollback quiet(silent_, true);
        model_->setRoots(folderRoots());
        changed_ = false;
    }
    QTreeView::showEvent(event);
    scrollTo(currentIndex());
}

bool FolderTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QModelIndex folder = indexAt(static_cast<QHelpEvent*>(event)->pos());
        if (folder.isValid() && sizeHintForIndex(folder).width() <= visualRect(folder).width()) {
            QToolTip::hideText();
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

}  // namespace velorama
