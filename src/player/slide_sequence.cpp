#include "player/slide_sequence.h"

#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"
#include "platform/process/events.h"
#include "platform/process/termination.h"

#include <algorithm>

namespace velorama {
namespace {

// Looking ahead over more missing files than this costs more than it can save.
constexpr qint32 lookAheadTries = 16;

// A name shorter than its ending cannot be cut and stays.
QString withoutEnding(const QString& name, qsizetype length) {
    return length < 0 ? name : name.left(length);
}

}  // namespace

void SlideSequence::begin() {
    const QString count = loadSetting(QStringLiteral("\\frmSLIDESHOW\\Items"),
                                      QStringLiteral("Items"), QStringLiteral("0"));
    SlideCount = wholeNumber(count).value_or(0);
    SlideIndex = 0;
}

QString SlideSequence::pathOf(qint32 index) const {
    return loadSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), decimalText(index), QString());
}

bool SlideSequence::goTo(qint32 index) {
    const QString text = pathOf(index);
    metNoText_ = metNoText_ || text.isEmpty();
    SlideIndex = index;
    SlidePath = text.isEmpty() ? QStringLiteral("1") : text;
    return gLibrary->FileExists(SlidePath);
}

SlideSequence::Way SlideSequence::goRound(qint32 (SlideSequence::*next)() const) {
    metNoText_ = false;
    for (qint32 tries = 1; !goTo((this->*next)()); tries = std::min(tries + 1, SlideCount)) {
        if (isTerminationRequested()) {
            return Way::GivenUp;
        }
        if ((metNoText_ || round != Round::Endless) && tries == SlideCount) {
            return Way::End;
        }
    }
    return Way::Found;
}

qint32 SlideSequence::nextToTheRight() const {
    return SlideIndex >= SlideCount ? 1 : SlideIndex + 1;
}

qint32 SlideSequence::nextToTheLeft() const {
    return SlideIndex <= 1 ? SlideCount : SlideIndex - 1;
}

SlideSequence::Way SlideSequence::advanceByTick() {
    return round == Round::Once ? goToTheEnd() : goRound(&SlideSequence::nextToTheRight);
}

SlideSequence::Way SlideSequence::goToTheEnd() {
    while (SlideIndex < SlideCount) {
        if (goTo(SlideIndex + 1)) {
            return Way::Found;
        }
        if (isTerminationRequested()) {
            return Way::GivenUp;
        }
    }
    return Way::Over;
}

void SlideSequence::wrapAfterTick() {
    if (SlideIndex >= SlideCount && round != Round::Once) {
        SlideIndex = 0;
    }
}

SlideSequence::Way SlideSequence::goRight() {
    while (!goTo(nextToTheRight())) {
        if (SlideCount == 1 || SlideIndex == SlideCount) {
            return Way::End;
        }
        if (isTerminationRequested()) {
            return Way::GivenUp;
        }
    }
    return Way::Found;
}

SlideSequence::Way SlideSequence::goLeft() {
    return goRound(&SlideSequence::nextToTheLeft);
}

QString SlideSequence::upcoming() const {
    qint32 index = SlideIndex;
    for (qint32 tries = 0; tries < std::min(SlideCount, lookAheadTries); ++tries) {
        index = index > SlideCount - 1 ? 1 : index + 1;
        QString path = pathOf(index);
        if (gLibrary->FileExists(path)) {
            return path;
        }
    }
    return {};
}

QString CaptionFromPath(const QString& SlidePath) {
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

}  // namespace velorama
