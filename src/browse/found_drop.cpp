// Files and folders of other programs that are dropped on the list of pictures.

#include "browse/found_list.h"
#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/process/await_work.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace velorama {

/// The folder of the first that counts, and what else lies in that one.
FoundWish FoundList::lookAt(const QStringList& paths, const QString& pattern) {
    const QStringList wildcards = pattern.split(QLatin1Char(';'));
    FoundWish wish;
    for (const QString& path : paths) {
        const QFileInfo there(QDir::cleanPath(path));
        if (there.isRelative()) {
            continue;
        }
        const bool picture = QDir::match(wildcards, there.fileName()) && there.isFile();
        if (wish.folder.isEmpty() && there.isDir()) {
            return {there.filePath(), {}};
        }
        if (picture && (wish.folder.isEmpty() || wish.folder == there.path())) {
            wish.folder = there.path();
            wish.names.append(there.fileName());
        }
    }
    return wish;
}

bool FoundList::isCurrent(int wish) const {
    return !stopped_ && wish == wishes_;
}

void FoundList::showDropped(const QStringList& paths) {
    drop_.runLast([this, paths, number = ++wishes_] {
        const auto look = [paths, look = look_, pattern = c_.flbFOUND->Pattern()] {
            return look(paths, pattern);
        };
        const QPointer<FoundList> self = this;
        const auto left = [self, number] { return !self || !self->isCurrent(number); };
        const auto wish = awaitWork(look, left);
        if (!left() && wish && !wish->folder.isEmpty() && !FormLoading) {
            // Another drop need not wait for the end of the listing.
            const auto fulfilled = [this, number, found = *wish] {
                if (isCurrent(number)) {
                    fulfil(found.folder, found.names);
                }
            };
            QMetaObject::invokeMethod(this, fulfilled, Qt::QueuedConnection);
        }
    });
}

void FoundList::fulfil(const QString& folder, const QStringList& names) {
    const QPointer<FoundList> self = this;
    if (names.isEmpty() || !shows(folder) || !lists(names)) {
        c_.ftvFOLDER->setPath(folder);
    }
    if (self) {
        late_ = {folder, names};
        selectLate();
    }
}

/// A listing that all this came inside of selects its first picture when it ends.
void FoundList::selectLate() {
    if (depth_ > 0) {
        return;
    }
    const FoundWish wish = std::exchange(late_, {});
    // While the listing let events run, another folder may have been chosen.
    if (!stopped_ && !wish.names.isEmpty() && shows(wish.folder)) {
        select(wish.names);
    }
}

bool FoundList::shows(const QString& folder) const {
    return c_.flbFOUND->Path() == folder && c_.lvwFOUND->Count() == c_.flbFOUND->ListCount();
}

bool FoundList::lists(const QStringList& names) const {
    QSet<QString> listed;
    for (int i = 0; i < c_.flbFOUND->ListCount(); ++i) {
        listed.insert(c_.flbFOUND->List(i));
    }
    return std::all_of(names.begin(), names.end(),
                       [&listed](const QString& name) { return listed.contains(name); });
}

void FoundList::select(const QStringList& names) {
    const QSet<QString> wanted(names.begin(), names.end());
    std::vector<int> places;
    for (int i = 1; i <= c_.lvwFOUND->Count(); ++i) {
        if (wanted.contains(c_.lvwFOUND->item(i)->Text())) {
            places.push_back(i);
        }
    }
    c_.lvwFOUND->select(places, places.empty() ? 0 : places.front());
    if (!places.empty()) {
        c_.lvwFOUND->setFocus();
        lvwFOUND_Click();
    }
}

QStringList FoundList::selectedFiles() const {
    QStringList paths;
    for (int i = 1; i <= c_.lvwFOUND->Count(); ++i) {
        const ListItem& row = *c_.lvwFOUND->item(i);
        if (row.Selected()) {
            paths.append(joinPath(c_.flbFOUND->Path(), row.Text()));
        }
    }
    return paths;
}

}  // namespace velorama
