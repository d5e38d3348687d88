#include "controls/lists/folder_model.h"

#include "controls/buttons/icon.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QIcon>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

QString below(const QString& folder, const QString& name) {
    const QString open = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return open + name;
}

bool isWithin(const QString& path, const QString& folder) {
    return path == folder || path.startsWith(below(folder, QString()));
}

void addMedia(std::vector<FolderRoot>& roots, const QString& base) {
    QDir folder(base + QLatin1Char('/') + qEnvironmentVariable("USER"));
    for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        roots.push_back({name, folder.absoluteFilePath(name), QStringLiteral("folder")});
    }
}

}  // namespace

std::vector<FolderRoot> folderRoots() {
    const QString home = QDir::cleanPath(QDir::homePath());
    const QString pictures =
        QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    std::vector<FolderRoot> roots;
    if (pictures != home && QDir(pictures).exists()) {
        roots.push_back({FolderModel::tr("Pictures"), pictures, QStringLiteral("folder")});
    }
    roots.push_back({FolderModel::tr("Home"), home, QStringLiteral("folder")});
    roots.push_back({FolderModel::tr("Computer"), QDir::rootPath(), QStringLiteral("folder")});
    if (!qEnvironmentVariableIsEmpty("USER")) {
        addMedia(roots, QStringLiteral("/media"));
        addMedia(roots, QStringLiteral("/run/media"));
    }
    return roots;
}

struct FolderModel::Folder {
    Folder(Folder* above, QString itsName, QString itsPath)
        : parent(above), name(std::move(itsName)), path(std::move(itsPath)) {}

    Folder* parent;
    QString name;
    QString path;
    QString symbol = QStringLiteral("folder");
    Folders children;
    bool read = false;
    // Read because it is being opened: no need to read it again when it is open.
    bool fresh = false;
    // Whether there is anything below, found out when the row is first painted: -1 not yet known.
    int hasAny = -1;

    bool isRoot() const { return parent != nullptr && parent->parent == nullptr; }
};

FolderModel::FolderModel(QObject* parent)
    : QAbstractItemModel(parent), top_(std::make_unique<Folder>(nullptr, QString(), QString())) {
    top_->read = true;
}

FolderModel::~FolderModel() = default;

FolderModel::Folder& FolderModel::folderOf(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Folder*>(index.internalPointer()) : *top_;
}

QModelIndex FolderModel::indexOf(const Folder& folder) const {
    if (folder.parent == nullptr) {
        return {};
    }
    const Folders& row = folder.parent->children;
    const auto place = std::find_if(row.begin(), row.end(),
                                    [&](const auto& each) { return each.get() == &folder; });
    return createIndex(static_cast<int>(place - row.begin()), 0, place->get());
}

QString FolderModel::path(const QModelIndex& folder) const {
    return folderOf(folder).path;
}

void FolderModel::setRoots(const std::vector<FolderRoot>& roots) {
    Folders fresh;
    for (const FolderRoot& root : roots) {
        fresh.push_back(std::make_unique<Folder>(top_.get(), root.name, root.path));
        fresh.back()->symbol = root.symbol;
    }
    merge(*top_, std::move(fresh));
}

void FolderModel::refresh(const QModelIndex& index) {
    Folder& folder = folderOf(index);
    if (&folder == top_.get()) {
        return;
    }
    Folders fresh;
    QDirIterator entries(folder.path, QDir::Dirs | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        fresh.push_back(std::make_unique<Folder>(&folder, name, below(folder.path, name)));
    }
    // Hidden folders came in as steps to a path: they stay for as long as they exist.
    for (const auto& known : folder.children) {
        if (known->name.startsWith(QLatin1Char('.')) && QDir(known->path).exists()) {
            fresh.push_back(std::make_unique<Folder>(&folder, known->name, known->path));
        }
    }
    std::sort(fresh.begin(), fresh.end(),
              [](const auto& a, const auto& b) { return sortsBefore(a->name, b->name); });
    folder.read = true;
    folder.hasAny = fresh.empty() ? 0 : 1;
    merge(folder, std::move(fresh));
}

// Takes rows away and puts rows in until the children are the fresh ones, in their order; a folder
// that is there already is kept itself, with all below it.
void FolderModel::merge(Folder& parent, Folders fresh) {
    const QModelIndex index = indexOf(parent);
    Folders& rows = parent.children;
    QStringList wanted;
    for (const auto& each : fresh) {
        wanted.append(each->path);
    }
    std::sort(wanted.begin(), wanted.end());
    for (size_t row = rows.size(); row-- > 0;) {
        if (!std::binary_search(wanted.begin(), wanted.end(), rows[row]->path)) {
            beginRemoveRows(index, static_cast<int>(row), static_cast<int>(row));
            rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
            endRemoveRows();
        }
    }
    if (rows.empty() && !fresh.empty()) {
        beginInsertRows(index, 0, static_cast<int>(fresh.size()) - 1);
        rows = std::move(fresh);
        endInsertRows();
        return;
    }
    for (size_t row = 0; row < fresh.size(); ++row) {
        if (row < rows.size() && rows[row]->path == fresh[row]->path) {
            rows[row]->hasAny = -1;
            continue;
        }
        beginInsertRows(index, static_cast<int>(row), static_cast<int>(row));
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(row), std::move(fresh[row]));
        endInsertRows();
    }
}

FolderModel::Folder* FolderModel::deepestRoot(const QString& path) const {
    Folder* deepest = nullptr;
    for (const auto& root : top_->children) {
        if (isWithin(path, root->path) &&
            (deepest == nullptr || root->path.size() > deepest->path.size())) {
            deepest = root.get();
        }
    }
    return deepest;
}

QModelIndex FolderModel::find(const QString& path) {
    Folder* folder = deepestRoot(path);
    if (folder == nullptr) {
        return {};
    }
    const QStringList names =
        path.mid(folder->path.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& name : names) {
        Folder* next = child(*folder, name);
        if (next == nullptr) {
            break;
        }
        folder = next;
    }
    return indexOf(*folder);
}

FolderModel::Folder* FolderModel::child(Folder& parent, const QString& name) {
    if (!parent.read) {
        refresh(indexOf(parent));
    }
    Folders& rows = parent.children;
    for (const auto& each : rows) {
        if (each->name == name) {
            return QDir(each->path).exists() ? each.get() : nullptr;
        }
    }
    const QString path = below(parent.path, name);
    if (!QDir(path).exists()) {
        return nullptr;
    }
    const auto place = std::lower_bound(
        rows.begin(), rows.end(), name,
        [](const auto& each, const QString& wanted) { return sortsBefore(each->name, wanted); });
    const int row = static_cast<int>(place - rows.begin());
    beginInsertRows(indexOf(parent), row, row);
    Folder* made = rows.insert(place, std::make_unique<Folder>(&parent, name, path))->get();
    parent.hasAny = 1;
    endInsertRows();
    return made;
}

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const {
    const Folders& rows = folderOf(parent).children;
    if (column != 0 || row < 0 || row >= static_cast<int>(rows.size())) {
        return {};
    }
    return createIndex(row, 0, rows[static_cast<size_t>(row)].get());
}

QModelIndex FolderModel::parent(const QModelIndex& child) const {
    const Folder* above = child.isValid() ? folderOf(child).parent : nullptr;
    return above != nullptr ? indexOf(*above) : QModelIndex();
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(folderOf(parent).children.size());
}

int FolderModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool FolderModel::hasChildren(const QModelIndex& parent) const {
    Folder& folder = folderOf(parent);
    if (folder.read || !folder.children.empty()) {
        return !folder.children.empty();
    }
    if (folder.hasAny < 0) {
        QDirIterator entries(folder.path, QDir::Dirs | QDir::NoDotAndDotDot);
        folder.hasAny = entries.hasNext() ? 1 : 0;
    }
    return folder.hasAny == 1;
}

bool FolderModel::canFetchMore(const QModelIndex& parent) const {
    return !folderOf(parent).read;
}

void FolderModel::fetchMore(const QModelIndex& parent) {
    refresh(parent);
    folderOf(parent).fresh = true;
}

void FolderModel::opened(const QModelIndex& folder) {
    if (!std::exchange(folderOf(folder).fresh, false)) {
        refresh(folder);
    }
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Folder& folder = folderOf(index);
    switch (role) {
        case Qt::DisplayRole:
            return folder.name;
        case Qt::ToolTipRole:
            return QDir::toNativeSeparators(folder.path);
        case Qt::DecorationRole:
            return symbolIcon(folder.symbol);
        case PathRole:
            return folder.path;
        default:
            return {};
    }
}

}  // namespace velorama
