#pragma once

#include <QAbstractItemModel>

#include <memory>
#include <vector>

namespace velorama {

/// A root of the folder tree: the name shown, the folder, the symbol.
struct FolderRoot {
    QString name;
    QString path;
    QString symbol;
};

/// The user's pictures folder and home folder, the whole computer, the mounted media of the moment.
std::vector<FolderRoot> folderRoots();

/// The folders below some roots, without hidden ones, sorted by name without regard to letter case.
/// A folder is read when it is first opened. PathRole gives its full path.
class FolderModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Role { PathRole = Qt::UserRole };

    explicit FolderModel(QObject* parent = nullptr);
    ~FolderModel() override;

    /// Folders that stay keep their place in the tree, and what is known below them.
    void setRoots(const std::vector<FolderRoot>& roots);
    /// Reads the children of a folder anew.
    void refresh(const QModelIndex& folder);
    /// The view has opened a folder: its children may have changed since they were read.
    void opened(const QModelIndex& folder);
    /// The folder with this path, or the nearest one above it, by way of the deepest root; the
    /// folders on the way there, also hidden ones, become part of the tree. Invalid if no root
    /// holds it.
    QModelIndex find(const QString& path);
    QString path(const QModelIndex& folder) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Folder;
    using Folders = std::vector<std::unique_ptr<Folder>>;

    Folder& folderOf(const QModelIndex& index) const;
    QModelIndex indexOf(const Folder& folder) const;
    Folder* deepestRoot(const QString& path) const;
    Folder* child(Folder& parent, const QString& name);
    void merge(Folder& parent, Folders fresh);

    std::unique_ptr<Folder> top_;
};

}  // namespace velorama
