#pragma once

#include "platform/process/slow_looks.h"

#include <QHash>
#include <QPersistentModelIndex>
#include <QStandardItemModel>

#include <future>
#include <memory>
#include <vector>

namespace velorama {

/// A root of the folder tree: the name shown, and the folder.
struct FolderRoot {
    QString name;
    QString path;
};

/// The user's pictures folder and home folder, the whole computer, the mounted media of the moment.
std::vector<FolderRoot> folderRoots();

/// The folders below some roots, without hidden ones, sorted as of `NameOrder`.
/// A folder is read when it is first opened.
class FolderModel : public QStandardItemModel {
    Q_OBJECT
public:
    using QStandardItemModel::QStandardItemModel;

    /// Folders that stay keep their place in the tree, and what is known below them.
    void setRoots(const std::vector<FolderRoot>& roots);
    /// Reads the children of a folder anew. Where its disk does not answer in time they come when
    /// it does.
    void refresh(const QModelIndex& folder);
    /// The view has opened a folder: its children may have changed since they were read.
    void opened(const QModelIndex& folder);
    /// The folder with this path, or the nearest one above it, by way of the deepest root; the
    /// folders on the way there, also hidden ones, become part of the tree. Invalid if no root
    /// holds it.
    QModelIndex find(const QString& path);
    QString path(const QModelIndex& folder) const;

    /// Asks no disk: a folder that nobody has read is looked at by another thread, and is taken to
    /// have folders until that has answered.
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

signals:
    /// Of folders it is known by now that there are none below them.
    void Learned();

private:
    class Folder;
    using Folders = std::vector<std::unique_ptr<Folder>>;

    Folder& folderOf(const QModelIndex& index) const;
    static Folder& childOf(const QStandardItem& parent, int row);
    Folder* deepestRoot(const QString& path) const;
    Folder* child(Folder& parent, const QString& name);
    static QStringList hiddenBelow(const Folder& folder);
    void takeWhenRead(const Folder& folder, const std::shared_future<QStringList>& names);
    void takeLate(qint64 reading, const QStringList& names);
    static void take(Folder& folder, const QStringList& names);
    static void merge(QStandardItem& parent, Folders fresh);
    void look(Folder& folder) const;
    void learn(qint64 look, bool mayHaveAny);
    void forget(qint64 look);

    /// The rows of the looks and readings that run or wait, by their number.
    mutable QHash<qint64, QPersistentModelIndex> sought_;
    mutable qint64 asked_ = 0;
    const std::unique_ptr<SlowLooks> looks_ = std::make_unique<SlowLooks>();
};

}  // namespace velorama
