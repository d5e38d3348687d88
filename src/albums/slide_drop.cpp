// What is dragged into the slide bar: slides to another place, pictures of the found list, files of
// other programs.

#include "albums/slide_list.h"
#include "platform/process/await_work.h"

#include <algorithm>

namespace velorama {

void SlideList::MoveSelectedTo(int gap) {
    history_.forgetWaiting();
    const SlideHistory::Recording step(history_);
    store_.settle();
    QStringList slides;
    QString before;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count(); ++i) {
        const ListItem& slide = *c_.lvwSLIDEBAR->item(i);
        if (slide.Selected()) {
            slides.append(slide.Key());
        } else if (i > gap && before.isEmpty()) {
            before = slide.Key();
        }
    }
    const ListItem* current = c_.lvwSLIDEBAR->SelectedItem();
    const QString held = current ? current->Key() : QString();
    if (bring(slides, before)) {
        select(slides, held);
    }
    lvwSLIDEBAR_Click();
}

void SlideList::AddAt(int gap) {
    history_.forgetWaiting();
    const QList<FoundFile> files = files_.selected();
    const QString before = slideBehind(gap);
    const auto insertFiles = [this, files] { insertAll(files); };
    press(add_, files, [=, this] { runAdd([=, this] { insertAt(before, files, insertFiles); }); });
}

void SlideList::AddFiles(const QStringList& paths, int gap) {
    history_.forgetWaiting();
    const IsLeft isLeft = batchLeft();
    const QString before = slideBehind(gap);
    const auto look = [paths, look = look_, pattern = found_.flbFOUND->Pattern()] {
        return look(paths, pattern);
    };
    const auto files = awaitWork(look, isLeft);
    if (!isLeft() && files && !files->isEmpty()) {
        addDropped(*files, before);
    }
}

void SlideList::addDropped(const QList<FoundFile>& files, const QString& before) {
    const auto insertFiles = [this, files] { insertFolder(files); };
    press(addAll_, files,
          [=, this] { runAddAll([=, this] { insertAt(before, files, insertFiles); }); });
}

/// The place is told by the slide behind it: while events run, or while this waits, others may come
/// and go.
void SlideList::insertAt(const QString& before, const QList<FoundFile>& files,
                         const std::function<void()>& insertFiles) {
    const IsLeft isLeft = batchLeft();
    const QSet<QString> known = keys();
    insertFiles();
    if (!isLeft() && settleBatch() && !isLeft()) {
        bringNew(files, known, before);
    }
}

void SlideList::bringNew(const QList<FoundFile>& files, const QSet<QString>& known,
                         const QString& before) {
    QStringList added;
    for (const FoundFile& file : files) {
        if (!known.contains(file.path) && c_.lvwSLIDEBAR->item(file.path)) {
            added.append(file.path);
        }
    }
    added.removeDuplicates();
    if (!added.isEmpty()) {
        bring(added, before);
        select(added, added.first());
    }
}

QString SlideList::slideBehind(int gap) const {
    const ListItem* slide = c_.lvwSLIDEBAR->item(gap + 1);
    return slide ? slide->Key() : QString();
}

QSet<QString> SlideList::keys() const {
    QSet<QString> all;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count(); ++i) {
        all.insert(c_.lvwSLIDEBAR->item(i)->Key());
    }
    return all;
}

/// `before` is empty for the end. False if the slides are there already.
bool SlideList::bring(const QStringList& slides, const QString& before) {
    const QSet<QString> moving(slides.begin(), slides.end());
    QStringList order;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count(); ++i) {
        const QString key = c_.lvwSLIDEBAR->item(i)->Key();
        if (key == before) {
            order += slides;
        }
        if (!moving.contains(key)) {
            order.append(key);
        }
    }
    // At the end, or where the slide behind the place has gone meanwhile.
    if (order.size() < c_.lvwSLIDEBAR->Count()) {
        order += slides;
    }
    return arrange(order);
}

/// The items stay and their contents change places: a run of exchanges at once, whose cost does not
/// grow with the way. Other than there each slide takes its text along: to make a thousand anew
/// would be to ask the disk for a thousand files.
bool SlideList::arrange(const QStringList& order) {
    std::vector<int> changed;
    QHash<QString, QString> texts;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count(); ++i) {
        const ListItem& slide = *c_.lvwSLIDEBAR->item(i);
        if (slide.Key() != order.at(i - 1)) {
            changed.push_back(i);
            texts.insert(slide.Key(), slide.Text());
        }
    }
    for (const int i : changed) {
        c_.lvwSLIDEBAR->item(i)->setKey(QString());
    }
    for (const int i : changed) {
        ListItem& slide = *c_.lvwSLIDEBAR->item(i);
        slide.setKey(order.at(i - 1));
        slide.setText(texts.value(slide.Key()));
        slide.setIcon(thumbnails_.SlideIconIndex(slide.Key()));
    }
    if (!changed.empty()) {
        markModified();
        SELECTIONSAVE();
    }
    return !changed.empty();
}

/// As by a move: the selection travels with the pictures.
void SlideList::select(const QStringList& slides, const QString& current) {
    const auto placeOf = [this](const QString& key) {
        const ListItem* slide = c_.lvwSLIDEBAR->item(key);
        return slide ? slide->Index() : 0;
    };
    std::vector<int> places;
    for (const QString& key : slides) {
        places.push_back(placeOf(key));
    }
    c_.lvwSLIDEBAR->select(places, placeOf(current));
}

}  // namespace velorama
