#include "controls/lists/folder_model.h"

#include "controls/buttons/icon.h"
#include "controls/geometry/tip_markup.h"
#include "controls/lists/folder_reading.h"
#include "platform/files/name_order.h"
#include "platform/files/paths.h"
#include "platform/process/detached_work.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QToolTip>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
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
        roots.push_back({name, folder.absoluteFilePath(name)});
    }
}

// Entries of a folder that are looked at for a folder among them: a few milliseconds' worth.
constexpr int mostLookedAt = 10'000;

// Longer than a disk takes that is awake, also beside much other work.
constexpr std::chrono::seconds longestReading{2};

/// Whether a folder has folders that are not hidden. One of very many files is taken to have some
/// until it is opened: the others are to be looked at soon.
bool mayHaveFolders(const QString& path) {
    std::error_code failed;
    int looks = mostLookedAt;
    std::filesystem::directory_iterator entry(QFile::encodeName(path).toStdString(), failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        std::error_code unknown;
        const bool isHidden = entry->path().filename().native().front() == '.';
        if (--looks < 0 || (!isHidden && entry->is_directory(unknown))) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<FolderRoot> folderRoots() {
    const QString home = QDir::cleanPath(QDir::homePath());
    const QString pictures =
        QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    std::vector<FolderRoot> roots;
    if (pictures != home && QDir(pictures).exists()) {
        roots.push_back({FolderModel::tr("Pictures"), pictures});
    }
    roots.push_back({FolderModel::tr("Home"), home});
    roots.push_back({FolderModel::tr("Computer"), QDir::rootPath()});
    if (!qEnvironmentVariableIsEmpty("USER")) {
        addMedia(roots, QStringLiteral("/media"));
        addMedia(roots, QStringLiteral("/run/media"));
    }
    return roots;
}

class FolderModel::Folder : public QStandardItem {
public:
    Folder(const QString& name, const QString& itsPath) : QStandardItem(name), path(itsPath) {
        setIcon(symbolIcon(QStringLiteral("folder")));
        setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        // Before there are rows: the model would tell of the column in the midst of them.
        setColumnCount(1);
    }

    /// A tooltip is made when it is shown: few of the folders are pointed at.
    QVariant data(int role) const override {
        return role == Qt::ToolTipRole ? tipMarkup({path}, QToolTip::font())
                                       : QStandardItem::data(role);
    }

    const QString path;
    bool read = false;
    // Read because it is being opened: no need to read it again when it is open.
    bool fresh = false;
    // A disk has not answered yet.
    bool isReading = false;
    // Somebody looks whether there is anything below, or has looked.
    bool isLooked = false;
    // What was found; until then a folder is taken to have some.
    bool mayHaveAny = true;
};

/// Of a valid index: every item is a folder.
FolderModel::Folder& FolderModel::folderOf(const QModelIndex& index) const {
    return static_cast<Folder&>(*itemFromIndex(index));
}

FolderModel::Folder& FolderModel::childOf(const QStandardItem& parent, int row) {
    return static_cast<Folder&>(*parent.child(row));
}

QString FolderModel::path(const QModelIndex& folder) const {
    return folder.isValid() ? folderOf(folder).path : QString();
}

void FolderModel::setRoots(const std::vector<FolderRoot>& roots) {
    Folders fresh;
    for (const FolderRoot& root : roots) {
        fresh.push_back(std::make_unique<Folder>(root.name, root.path));
    }
    setColumnCount(1);
    merge(*invisibleRootItem(), std::move(fresh));
}

// A disk that does not answer holds the window up for a moment, and the folder opens when it does.
void FolderModel::refresh(const QModelIndex& index) {
    if (!index.isValid() || folderOf(index).isReading) {
        return;
    }
    Folder& folder = folderOf(index);
    const auto read = [path = folder.path, hidden = hiddenBelow(folder)] {
        return foldersIn(path, hidden);
    };
    const std::shared_future<QStringList> names = detachedWork(read).share();
    folder.isReading = !isDoneWithin(names, longestReading);
    if (folder.isReading) {
        takeWhenRead(folder, names);
    } else {
        take(folder, names.get());
    }
}

void FolderModel::takeWhenRead(const Folder& folder, const std::shared_future<QStringList>& names) {
    const qint64 number = ++asked_;
    sought_.insert(number, QPersistentModelIndex(folder.index()));
    // A thread of its own: those of the looks may all be waiting for other places.
    auto* thread = new SlowLooks(this);
    thread->ask([this, names, number, thread]() -> SlowLooks::Answer {
        names.wait();
        return [this, names, number, thread] {
            thread->deleteLater();
            takeLate(number, names.get());
        };
    });
}

void FolderModel::takeLate(qint64 reading, const QStringList& names) {
    const QModelIndex row = sought_.take(reading);
    if (row.isValid()) {
        folderOf(row).isReading = false;
        take(folderOf(row), names);
    }
}

// Hidden folders came in as steps to a path: they stay for as long as they exist.
QStringList FolderModel::hiddenBelow(const Folder& folder) {
    QStringList names;
    for (int row = 0; row < folder.rowCount(); ++row) {
        const QString name = childOf(folder, row).text();
        if (name.startsWith(QLatin1Char('.'))) {
            names.append(name);
        }
    }
    return names;
}

void FolderModel::take(Folder& folder, const QStringList& names) {
    Folders fresh;
    for (const QString& name : names) {
        fresh.push_back(std::make_unique<Folder>(name, below(folder.path, name)));
    }
    std::sort(fresh.begin(), fresh.end(), [order = NameOrder()](const auto& a, const auto& b) {
        return order(a->text(), b->text());
    });
    folder.read = true;
    merge(folder, std::move(fresh));
}

// Takes rows away and puts rows in until the children are the fresh ones, in their order; a folder
// that is there already is kept itself, with all below it.
void FolderModel::merge(QStandardItem& parent, Folders fresh) {
    QStringList wanted;
    for (const auto& each : fresh) {
        wanted.append(each->path);
    }
    std::sort(wanted.begin(), wanted.end());
    for (int row = parent.rowCount(); row-- > 0;) {
        if (!std::binary_search(wanted.begin(), wanted.end(), childOf(parent, row).path)) {
            parent.removeRow(row);
        }
    }
    if (parent.rowCount() == 0) {
        QList<QStandardItem*> all;
        for (auto& each : fresh) {
            all.append(each.release());
        }
        parent.appendRows(all);
        return;
    }
    for (int row = 0; row < static_cast<int>(fresh.size()); ++row) {
        std::unique_ptr<Folder>& each = fresh[static_cast<size_t>(row)];
        if (row < parent.rowCount() && childOf(parent, row).path == each->path) {
            childOf(parent, row).isLooked = false;
        } else {
            parent.insertRow(row, each.release());
        }
    }
}

FolderModel::Folder* FolderModel::deepestRoot(const QString& path) const {
    Folder* deepest = nullptr;
    for (int row = 0; row < rowCount(); ++row) {
        Folder& root = childOf(*invisibleRootItem(), row);
        if (isWithin(path, root.path) &&
            (deepest == nullptr || root.path.size() > deepest->path.size())) {
            deepest = &root;
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
    return folder->index();
}

FolderModel::Folder* FolderModel::child(Folder& parent, const QString& name) {
    if (!parent.read) {
        refresh(parent.index());
    }
    const NameOrder order;
    int place = 0;
    for (int row = 0; row < parent.rowCount(); ++row) {
        Folder& each = childOf(parent, row);
        if (each.text() == name) {
            return QDir(each.path).exists() ? &each : nullptr;
        }
        place += order(each.text(), name) ? 1 : 0;
    }
    const QString path = below(parent.path, name);
    if (!QDir(path).exists()) {
        return nullptr;
    }
    parent.insertRow(place, new Folder(name, path));
    return &childOf(parent, place);
}

bool FolderModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid()) {
        return rowCount() > 0;
    }
    Folder& folder = folderOf(parent);
    if (folder.read || folder.hasChildren()) {
        return folder.hasChildren();
    }
    if (!std::exchange(folder.isLooked, true)) {
        look(folder);
    }
    return folder.mayHaveAny;
}

void FolderModel::look(Folder& folder) const {
    auto* self = const_cast<FolderModel*>(this);  // What the model says changes with the answer.
    const qint64 number = ++asked_;
    sought_.insert(number, QPersistentModelIndex(folder.index()));
    const auto find = [self, number, path = folder.path]() -> SlowLooks::Answer {
        const bool mayHaveAny = mayHaveFolders(path);
        return [self, number, mayHaveAny] { self->learn(number, mayHaveAny); };
    };
    looks_->ask(find, [self, number] { self->forget(number); });
}

void FolderModel::learn(qint64 look, bool mayHaveAny) {
    const QModelIndex row = sought_.take(look);
    if (row.isValid() && std::exchange(folderOf(row).mayHaveAny, mayHaveAny) != mayHaveAny) {
        emit Learned();
    }
}

/// Its row asks anew when the tree is next laid out.
void FolderModel::forget(qint64 look) {
    const QModelIndex row = sought_.take(look);
    if (row.isValid()) {
        folderOf(row).isLooked = false;
    }
}

bool FolderModel::canFetchMore(const QModelIndex& parent) const {
    return parent.isValid() && !folderOf(parent).read && !folderOf(parent).isReading;
}

void FolderModel::fetchMore(const QModelIndex& parent) {
    if (parent.isValid()) {
        refresh(parent);
        folderOf(parent).fresh = true;
    }
}

void FolderModel::opened(const QModelIndex& folder) {
    if (!std::exchange(folderOf(folder).fresh, false)) {
        refresh(folder);
    }
}

}  // namespace velorama
