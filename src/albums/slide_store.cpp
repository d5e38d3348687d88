#include "albums/slide_store.h"

#include "albums/slide_settings.h"
#include "albums/slide_texts.h"
#include "core/globals.h"
#include "core/long_text.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

#include <QSet>

#include <algorithm>
#include <chrono>
#include <utility>

namespace velorama {
namespace {

// A damaged count in the settings must not hold the program up; beyond what the list held, no more
// paths than this are blanked.
constexpr int mostBlanked = 100'000;

QString loadSlide(int number) {
    return loadSetting(slideSelectionKey, QString::number(number), QStringLiteral("1"));
}

int loadCount() {
    const QString stored = loadSetting(slideItemsKey, slideItemsName, QStringLiteral("0"));
    return wholeNumber(stored).value_or(0);
}

/// Up to a path that comes again, and that one too: the list refuses it, and all further positions
/// lie past its end.
QStringList loadSlides(int count, const QHash<int, QString>& kept) {
    QStringList paths;
    QSet<QString> known;
    for (int i = 1; i <= count && known.size() == paths.size(); ++i) {
        paths.append(kept.contains(i) ? kept.value(i) : loadSlide(i));
        known.insert(paths.last());
    }
    return paths;
}

/// One for all lists of the program: none waits for a disk that another one has waited for in vain.
QStringList slideTexts(const QStringList& paths) {
    // Longer than a disk takes that is awake, also beside much other work.
    constexpr std::chrono::seconds longest{2};
    static SlideTexts texts(longest, [](const QString& path) {
        // The program's own may be gone where a thread is late.
        return clsFILEFOLDR().FileNameFromPath(path, false);
    });
    return texts.of(paths);
}

}  // namespace

/// True if a rebuild brings a path back as it was. Where one is too long for the
/// settings, a rebuild keeps what the list has.
bool survivesRebuild(const QString& path) {
    const QByteArray stored = path.toUtf8();
    return !stored.isEmpty() && !stored.contains('\0') && textOfUtf8(stored) == path;
}

bool saveSlideCount(int count) {
    return saveSetting(slideItemsKey, slideItemsName, QString::number(count));
}

bool saveSlidePath(int number, const QString& path) {
    return saveSetting(slideSelectionKey, QString::number(number), path);
}

QString slideText(const QString& path) {
    return slideTexts({path}).first();
}

SlideStore::SlideStore(ListView& lvwSLIDEBAR, const Thumbnails& thumbnails)
    : list_(lvwSLIDEBAR), thumbnails_(thumbnails) {}

void SlideStore::write() {
    settle();
    writeAll();
}

void SlideStore::writePathsFirst() {
    settle();
    writePaths(1, list_.Count());
    writeCount();
}

bool SlideStore::writeAll() const {
    const bool counted = saveSlideCount(list_.Count());
    return writePaths(1, list_.Count()) && counted;
}

/// In one call: of a hundred thousand the key need not be looked up for each.
bool SlideStore::writePaths(int first, int last) const {
    std::vector<std::pair<QString, QString>> paths;
    paths.reserve(static_cast<std::size_t>(std::max(0, last - first + 1)));
    for (int i = first; i <= last; ++i) {
        paths.emplace_back(QString::number(i), list_.item(i)->Key());
    }
    return saveSettings(slideSelectionKey, paths);
}

void SlideStore::writeCount() const {
    saveSlideCount(list_.Count());
}

bool SlideStore::writeLast(const QString& path) const {
    const bool counted = saveSlideCount(list_.Count());
    return saveSlidePath(list_.Count(), path) && counted;
}

void SlideStore::read() {
    const int count = loadCount();
    const QHash<int, QString> kept = pathsOnlyInList(
        slideSelectionKey, 1, list_.Count(), [](int i) { return QString::number(i); },
        [this](int i) { return list_.item(i)->Key(); });
    const QStringList paths = loadSlides(count, kept);
    const QStringList texts = slideTexts(paths);
    list_.Clear();
    int place = 0;
    for (const QString& path : paths) {
        list_.Add(place + 1, path, texts[place], thumbnails_.SlideIconIndex(path));
        ++place;
    }
    selectCurrent();
}

/// The slide that is framed is the one that Remove takes: with none selected it would be the last,
/// off the screen.
void SlideStore::selectCurrent() {
    for (const int index : {1, 2}) {
        if (ListItem* item = list_.item(index)) {
            item->setSelected(index == 1);
        }
    }
    list_.setSelectedItem(1);
}

int SlideStore::storedCount() const {
    return std::min(loadCount(), std::max(list_.Count(), mostBlanked));
}

void SlideStore::blank(int count) const {
    if (count < 1) {
        return;
    }
    std::vector<std::pair<QString, QString>> empty;
    empty.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        empty.emplace_back(QString::number(i), QString());
    }
    saveSettings(slideSelectionKey, empty);
    saveSlideCount(0);
}

bool SlideStore::wouldKeep(const QString& path) const {
    return list_.changes() == rebuilt_ && survivesRebuild(path);
}

bool SlideStore::survives() const {
    bool all = true;
    for (int i = 1; all && i <= list_.Count(); ++i) {
        all = survivesRebuild(list_.item(i)->Key());
    }
    return all;
}

void SlideStore::writeAndRead() {
    due_ = false;
    const bool written = writeAll();
    read();
    rebuilt_ = written && survives() ? list_.changes() : -1;
}

std::vector<int> SlideStore::selected() const {
    std::vector<int> indices;
    for (int i = 1; i <= list_.Count(); ++i) {
        if (list_.item(i)->Selected()) {
            indices.push_back(i);
        }
    }
    return indices;
}

int SlideStore::selectedBesideFirst() const {
    int count = list_.SelectedCount();
    for (const int index : {1, 2}) {
        const ListItem* item = list_.item(index);
        count -= item && item->Selected() ? 1 : 0;
    }
    return count;
}

void SlideStore::putOff() {
    // In a batch it is nearly always the slide that was first before.
    if (selectedBesideFirst() > 0) {
        list_.clearSelection();
    }
    selectCurrent();
    due_ = true;
    rebuilt_ = list_.changes();
}

// The rebuild comes late: what has been selected since it was due holds.
void SlideStore::settle() {
    if (due_ && isLong() && list_.changes() == rebuilt_ && writeAll()) {
        // The list that is there is what a rebuild gives.
        due_ = false;
    }
    if (due_) {
        const std::vector<int> chosen = selected();
        const int current = list_.SelectedItem() ? list_.SelectedItem()->Index() : 0;
        writeAndRead();
        list_.clearSelection();
        for (const int index : chosen) {
            // Another instance may have written a shorter list meanwhile.
            if (ListItem* item = list_.item(index)) {
                item->setSelected(true);
            }
        }
        list_.setSelectedItem(current);
    }
    // Whoever settles goes on to change something, be it no more than the selection.
    rebuilt_ = -1;
}

}  // namespace velorama
