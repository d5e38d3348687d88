// The rebuild of a long list, taken apart so that the window answers meanwhile.

#include "albums/slide_settings.h"
#include "albums/slide_store.h"
#include "core/globals.h"
#include "platform/process/await_work.h"

#include <algorithm>

namespace velorama {
namespace {

// So many are written and rebuilt within some milliseconds.
constexpr int longestAtOnce = 500;

}  // namespace

/// What a rebuild gives each slide for a text, and whether it would bring all paths back.
struct SlideStore::Rebuilt {
    QStringList texts;
    bool survives = true;
};

bool SlideStore::isLong() const {
    return list_.Count() > longestAtOnce;
}

/// On any thread.
SlideStore::Rebuilt SlideStore::rebuilt(const QStringList& paths) {
    Rebuilt all;
    all.texts.reserve(paths.size());
    for (const QString& path : paths) {
        // The program's own may be gone where a thread is late.
        all.texts.append(clsFILEFOLDR().FileNameFromPath(path, false));
        all.survives = all.survives && survivesRebuild(path);
    }
    return all;
}

void SlideStore::writeAndReadInSteps(const IsLeft& isLeft) {
    putOff();
    rebuilt_ = -1;
    list_.forgetScroll();
    const qint64 settled = settled_;
    settleInSteps(isLeft);
    if (!isLeft() && !due_ && settled_ == settled + 1) {
        rebuilt_ = list_.changes();
    }
}

void SlideStore::settleInSteps(const IsLeft& isLeft) {
    if (!isLong()) {
        return;
    }
    while (!isLeft() && due_) {
        if (tryToSettle(isLeft)) {
            due_ = false;
            ++settled_;
        }
    }
}

/// False if somebody has come in, be it that he has settled the list.
bool SlideStore::tryToSettle(const IsLeft& isLeft) {
    const qint64 seen = list_.changes();
    const auto isOver = [this, isLeft, seen] {
        return isLeft() || !due_ || list_.changes() != seen;
    };
    QStringList paths;
    paths.reserve(list_.Count());
    for (int i = 1; i <= list_.Count(); ++i) {
        paths.append(list_.item(i)->Key());
    }
    const auto all = awaitWork([paths] { return rebuilt(paths); }, isOver);
    if (all && all->survives && all->texts.size() == paths.size() && writeInSteps(isOver)) {
        return showInSteps(all->texts, isLeft);
    }
    // What a thread could not do, or the settings did not take, is done or given up at once.
    if (!isOver()) {
        settle();
    }
    return false;
}

/// False if left, or if the settings did not take all.
bool SlideStore::writeInSteps(const IsLeft& isOver) {
    const int count = list_.Count();
    bool written = saveSlideCount(count);
    for (int first = 1; written && first <= count; first += longestAtOnce) {
        const int last = std::min(count, first + longestAtOnce - 1);
        written = writePaths(first, last);
        if (last < count) {
            DoEvents();
            written = !isOver() && written;
        }
    }
    return written;
}

/// Changes no more than the rebuild would, which is nearly always nothing.
bool SlideStore::showInSteps(const QStringList& texts, const IsLeft& isLeft) {
    for (int i = 1; i <= list_.Count(); ++i) {
        ListItem& item = *list_.item(i);
        const int icon = thumbnails_.SlideIconIndex(item.Key());
        if (item.Text() != texts[i - 1]) {
            item.setText(texts[i - 1]);
        }
        if (item.Icon() != icon) {
            item.setIcon(icon);
        }
        if (i % longestAtOnce == 0) {
            const qint64 seen = list_.changes();
            DoEvents();
            if (isLeft() || !due_ || list_.changes() != seen) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace velorama
