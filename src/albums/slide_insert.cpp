#include "albums/slide_list.h"
#include "albums/slide_settings.h"
#include "core/globals.h"
#include "core/long_text.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <algorithm>

// Every inserted slide writes the whole list to the settings and rebuilds it from there. Within a
// batch that is put off as long as it would bring back the very list that is there: it is made up
// for when the batch ends or another operation comes in between. What a rebuild does to the list
// besides, item 1 current and nothing selected, is done each time.

namespace velorama {
namespace {

// Thumbnails announced to the work ahead, and the rows looked through for selected ones.
constexpr int lookAhead = 16;
constexpr int farthestLook = 256;

/// What follows the first dot, upper case: "a.b.jpg" has "B.JPG" and is no picture.
QString extension(const QString& entry) {
    const qsizetype dot = entry.indexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : entry.sliced(dot + 1).toUpper();
}

bool isPicture(const QString& entry) {
    const QString kind = extension(entry);
    return kind == QLatin1String("BMP") || kind == QLatin1String("JPG") ||
           kind == QLatin1String("GIF");
}

/// True if a rebuild brings a path back as it was. One that is too long for the settings is kept
/// from the list.
bool survivesRebuild(const QString& path) {
    const QByteArray stored = path.toUtf8();
    return !stored.isEmpty() && !stored.contains('\0') && QString::fromUtf8(stored) == path;
}

bool saveCount(int count) {
    return saveSetting(slideItemsKey, slideItemsName, QString::number(count));
}

bool saveSlide(int number, const QString& path) {
    return saveSetting(slideSelectionKey, QString::number(number), path);
}

QString loadSlide(int number) {
    return loadSetting(slideSelectionKey, QString::number(number), QStringLiteral("1"));
}

QString slideText(const QString& path) {
    return gFileFoldr->FileNameFromPath(path, false);
}

}  // namespace

QString SlideList::slidePath(const QString& entry) const {
    const QString folder = found_.flbFOUND->Path();
    const bool isRoot = folder.size() == driveRootLength(folder);
    return isRoot ? QString(folder + entry) : joinPath(folder, entry);
}

SlideList::FoundFile SlideList::foundFile(int index) const {
    const QString entry = found_.flbFOUND->List(index);
    return {entry, slidePath(entry)};
}

void SlideList::SlideInsert(int Index) {
    settle();
    insert(foundFile(Index));
}

void SlideList::insert(const FoundFile& file) {
    const QString& path = file.path;
    if (!isPicture(file.entry)) {
        return;
    }
    const bool first = c_.lvwSLIDEBAR->Count() == 0;
    const QPointer<SlideList> self = this;
    thumbnails_.SlideThumbnailAdd(path);
    if (!self || stopped_) {
        return;
    }
    const bool mayWait = batches_ > 0 && reproducible_ && isUndisturbed() && survivesRebuild(path);
    const bool written = addSlide(path, first);
    enableStart();
    if (!mayWait || !written) {
        saveAndReload();
        return;
    }
    c_.lvwSLIDEBAR->setSelectedItem(1);
    pending_ = true;
    remember();
}

/// False if the settings did not take what was written to them.
bool SlideList::addSlide(const QString& path, bool first) {
    ListView& list = *c_.lvwSLIDEBAR;
    const bool byKey = first || extension(path) == QLatin1String("GIF");
    const int icon = byKey ? c_.imlTHUMBNAILS->indexOf(path) : thumbnails_.SlideIconIndex(path);
    if (first) {
        list.Add(1, path, slideText(path), icon);
        return true;
    }
    // Events have run: the list may be empty by now, and then there is no place to insert at.
    list.Add(currentIndex(), path, slideText(path), icon);
    const bool counted = saveCount(list.Count());
    return saveSlide(list.Count(), path) && counted;
}

int SlideList::currentIndex() const {
    const ListItem* current = c_.lvwSLIDEBAR->SelectedItem();
    // In a batch it is nearly always the first, and asking for the index would number them all
    // anew.
    if (current && current == c_.lvwSLIDEBAR->item(1)) {
        return 1;
    }
    return current ? current->Index() : 0;
}

bool SlideList::writeSelection() {
    const int count = c_.lvwSLIDEBAR->Count();
    bool written = saveCount(count);
    for (int i = 1; i <= count; ++i) {
        written = saveSlide(i, c_.lvwSLIDEBAR->item(i)->Key()) && written;
    }
    return written;
}

void SlideList::readSelection() {
    const QString stored = loadSetting(slideItemsKey, slideItemsName, QStringLiteral("0"));
    const int count = wholeNumber(stored).value_or(0);
    const QHash<int, QString> kept = pathsOnlyInList(
        slideSelectionKey, 1, c_.lvwSLIDEBAR->Count(), [](int i) { return QString::number(i); },
        [this](int i) { return c_.lvwSLIDEBAR->item(i)->Key(); });
    c_.lvwSLIDEBAR->Clear();
    for (int i = 1; i <= count; ++i) {
        const QString path = kept.contains(i) ? kept.value(i) : loadSlide(i);
        if (!c_.lvwSLIDEBAR->Add(i, path, slideText(path), thumbnails_.SlideIconIndex(path))) {
            // A key that is there already. All further positions lie past the end of the list.
            return;
        }
    }
}

void SlideList::saveAndReload() {
    pending_ = false;
    reproducible_ = writeSelection();
    readSelection();
    for (int i = 1; reproducible_ && i <= c_.lvwSLIDEBAR->Count(); ++i) {
        reproducible_ = survivesRebuild(c_.lvwSLIDEBAR->item(i)->Key());
    }
    remember();
}

void SlideList::settle() {
    if (pending_) {
        saveAndReload();
    }
    reproducible_ = false;
}

void SlideList::endBatch() {
    settle();
    --batches_;
}

bool SlideList::isUndisturbed() const {
    const ListItem* first = c_.lvwSLIDEBAR->item(1);
    return c_.lvwSLIDEBAR->Count() == rememberedCount_ && first && first->Key() == rememberedFirst_;
}

void SlideList::remember() {
    const ListItem* first = c_.lvwSLIDEBAR->item(1);
    rememberedCount_ = c_.lvwSLIDEBAR->Count();
    rememberedFirst_ = first ? first->Key() : QString();
}

void SlideList::SELECTIONSAVE() {
    settle();
    writeSelection();
}

void SlideList::SlideListReload() {
    settle();
    readSelection();
}

/// Announces the selected files from row `row` of lvwFOUND on.
void SlideList::expectSelected(int row) {
    QStringList next;
    const int end = std::min(found_.lvwFOUND->Count(), row + farthestLook);
    for (int i = row, seen = 0; i <= end && seen < lookAhead; ++i) {
        if (found_.lvwFOUND->item(i)->Selected()) {
            ++seen;
            appendIfNew(next, i - 1);
        }
    }
    thumbnails_.expectSlides(next);
}

/// Announces the files from entry `index` of flbFOUND on towards the start.
void SlideList::expectAbove(int index) {
    QStringList next;
    for (int i = index; i >= 0 && i > index - lookAhead; --i) {
        appendIfNew(next, i);
    }
    thumbnails_.expectSlides(next);
}

void SlideList::appendIfNew(QStringList& paths, int index) const {
    const QString entry = found_.flbFOUND->List(index);
    const QString path = slidePath(entry);
    if (isPicture(entry) && c_.imlTHUMBNAILS->indexOf(path) == 0) {
        paths.append(path);
    }
}

}  // namespace velorama
