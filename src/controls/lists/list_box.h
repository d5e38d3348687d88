#pragma once

#include "controls/lists/empty_state.h"

#include <QListWidget>
#include <QStringList>

namespace velorama {

/// A list of lines, one of which may be selected. A line too long for the box is cut in the middle,
/// and its tooltip then holds the whole of it. Files can be dropped on it.
class ListBox : public QListWidget {
    Q_OBJECT
public:
    explicit ListBox(QWidget* parent = nullptr);

    int ListCount() const { return count(); }
    /// Line `index`, from 0; empty outside the list.
    QString List(int index) const;
    /// False outside the list.
    bool setList(int index, const QString& text);
    /// The selected line, -1 for none.
    int ListIndex() const;
    /// -1 selects none. False outside the list, and nothing changes.
    bool setListIndex(int index);

    /// False outside the list. If the selected line goes, none is selected; otherwise the selection
    /// stays with its line.
    bool RemoveItem(int index);

    /// This box's own state, whatever its parents' is.
    bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }

    /// Shown in the middle of the empty box.
    void setEmptyText(const QString& text) { empty_.setText(text); }
    EmptyState& emptyState() { return empty_; }
    /// Stands in front of the selected line while the box is disabled, and that line stays as
    /// readable as it was. Name of a symbol (controls/buttons/icon.h).
    void setDisabledSymbol(const QString& name);

signals:
    /// A line was double-clicked, or Enter pressed on the selected one.
    void DblClick();
    /// Full paths of local files and folders, in the order in which they were dropped.
    void FilesDropped(const QStringList& paths);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    class LineDelegate;
    bool isCut(const QListWidgetItem* line) const;
    /// The selected line of a list that is switched off is seen with a symbol.
    bool isHeld(bool isSelected) const;

    EmptyState empty_{*this, [this] { return count() == 0; }};
    QString disabledSymbol_;
};

}  // namespace velorama
