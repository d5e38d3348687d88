// Files and folders of other programs that are dropped on the list of pictures.

#include "browse/found_list.h"
#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/process/await_work.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace velorama {
namespace {

struct Wish {
    QString folder;
    QStringList names;
};

/// The folder of the first that counts, and what else lies in that one.
Wish wishOf(const QStringList& paths, const QString& pattern) {
    const QStringList wildcards = pattern.split(QLatin1Char(';'));
    Wish wish;
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

}  // namespace

void FoundList::showDropped(const QStringList& paths) {
    drop_.runLast([this, paths] {
        const QPointer<FoundList> self = this;
        const auto left = [self] { return !self || self->stopped_; };
        const auto look = [paths, pattern = c_.flbFOUND->Pattern()] {
            return wishOf(paths, pattern);
        };
        const auto wish = awaitWork(look, left);
        if (!left() && wish && !wish->folder.isEmpty() && !FormLoading) {
            // Another drop need not wait for the end of the listing.
            QMetaObject::invokeMethod(
                this, [this, found = *wish] { fulfil(found.folder, found.names); },
                Qt::QueuedConnection);
        }
    });
}

void FoundList::fulfil(const QString& folder, const QStringList& names) {
    const QPointer<FoundList> self = this;
    if (names.isEmpty() || !shows(folder) || !lists(names)) {
        c_.ftvFOLDER->setPath(folder);
    }
    // While the listing let events run, another folder may have been chosen.
    if (self && !stopped_ && !names.isEmpty() && shows(folder)) {
        select(names);
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
    ListItem* first = nullptr;
    c_.lvwFOUND->clearSelection();
    for (int i = c_.lvwFOUND->Count(); i >= 1; --i) {
        ListItem* row = c_.lvwFOUND->item(i);
        if (wanted.contains(row->Text())) {
            row->setSelected(true);
            first = row;
        }
    }
    if (first != nullptr) {
        c_.lvwFOUND->setSelectedItem(first->Index());
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
