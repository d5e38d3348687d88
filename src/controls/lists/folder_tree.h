#pragma once

#include <QTreeView>

namespace velorama {

class FolderModel;

/// A tree of the folders of this machine: the user's pictures folder, the home folder, the whole
/// computer, mounted media. Folders are read when they are opened; whether one can be opened is
/// found out on other threads.
class FolderTree : public QTreeView {
    Q_OBJECT
public:
    explicit FolderTree(QWidget* parent = nullptr);

    /// Path of the current folder.
    QString Path() const { return path_; }
    /// Makes a folder current, opening the tree down to it, and raises NodeChange, also where it is
    /// the current one already. A folder that is not there is kept as the path all the same; the
    /// tree then shows the nearest one above it. An empty path does nothing.
    void setPath(const QString& path);
    /// Asks the disk for all that `setPath` does. For any thread: where that comes back, so does
    /// `setPath`.
    static void lookAlong(const QString& path);

signals:
    /// Another folder has become current; `path` is the node's key.
    void NodeChange(const QString& path);
    void KeyDown(int keyCode, int shift);
    void GotFocus();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void dimIdleSelection();
    void leaveCollapsed(const QModelIndex& folder);
    void reveal(const QString& path);
    void announce();

    FolderModel* model_;
    QString path_;
    // While the tree moves its current folder itself, or is not done with an event of the user's.
    bool silent_ = false;
    bool changed_ = false;
};

}  // namespace velorama
