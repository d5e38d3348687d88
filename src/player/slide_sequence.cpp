#include "player/slide_sequence.h"

#include "core/globals.h"
#include "platform/events.h"
#include "platform/numbers.h"
#include "platform/paths.h"

#include <algorithm>

namespace velorama {
namespace {

// Looking ahead over more missing files than this costs more than it can save.
constexpr qint32 lookAheadTries = 16;

// A name shorter than its ending cannot be cut and stays.
QString withoutEnding(const QString& name, qsizetype length) {
    return length < 0 ? name : name.left(length);
}

QString captionOf(const QString& SlidePath) {
    QString SlideCaption = SlidePath;
    const QChar separator = pathSeparator(SlidePath);
    const qsizetype length = SlidePath.size();
    // A drive letter keeps the leftmost separator off the first character; without one it stands
    // there.
    const qsizetype end = separator == QLatin1Char('/') ? length + 1 : length;
    for (qsizetype ScanPos = 0; ScanPos < end; ++ScanPos) {
        DoEvents();
        if (ScanPos > 0 && SlidePath.at(length - ScanPos) == separator) {
            SlideCaption = SlidePath.right(ScanPos - 1);
            for (const qsizetype ending : {4, 5}) {
                if (length >= ending && SlidePath.at(length - ending) == QLatin1Char('.')) {
                    return withoutEnding(SlideCaption, ScanPos - 1 - ending);
                }
            }
        }
        DoEvents();
    }
    return SlideCaption;
}

}  // namespace

void SlideSequence::begin() {
    const QString count = loadSetting(QStringLiteral("\\frmSLIDESHOW\\Items"),
                                      QStringLiteral("Items"), QStringLiteral("0"));
    SlideCount = wholeNumber(count).value_or(0);
    SlideIndex = 0;
}

QString SlideSequence::pathOf(qint32 index) const {
    return loadSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), decimalText(index),
                       QStringLiteral("1"));
}

bool SlideSequence::currentExists() const {
    return gLibrary->FileExists(SlidePath);
}

void SlideSequence::advanceByTick() {
    do {
        wrapAfterTick();
        ++SlideIndex;
        SlidePath = pathOf(SlideIndex);
    } while (!currentExists());
}

void SlideSequence::wrapAfterTick() {
    if (SlideIndex >= SlideCount) {
        SlideIndex = 0;
    }
}

SlideSequence::Step SlideSequence::stepRight() {
    SlideIndex = SlideIndex >= SlideCount ? 1 : SlideIndex + 1;
    SlidePath = pathOf(SlideIndex);
    if (currentExists()) {
        return Step::Found;
    }
    return SlideCount == 1 || SlideIndex == SlideCount ? Step::End : Step::Missing;
}

SlideSequence::Step SlideSequence::stepLeft() {
    SlideIndex = SlideIndex <= 1 ? SlideCount : SlideIndex - 1;
    SlidePath = pathOf(SlideIndex);
    return currentExists() ? Step::Found : Step::Missing;
}

QString SlideSequence::upcoming() const {
    qint32 index = SlideIndex;
    for (qint32 tries = 0; tries < std::min(SlideCount, lookAheadTries); ++tries) {
        index = index > SlideCount - 1 ? 1 : index + 1;
        const QString path = pathOf(index);
        if (gLibrary->FileExists(path)) {
            return path;
        }
    }
    return {};
}

QString CaptionFromPath(const QString& SlidePath) {
    QString path;
    QString SlideCaption;
    do {
        // An advance that runs at a yield gives the path another text: then that one counts.
        path = SlidePath;
        SlideCaption = captionOf(path);
    } while (path != SlidePath);
    return SlideCaption;
}

}  // namespace velorama
