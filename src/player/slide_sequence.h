#pragma once

#include <QString>

namespace velorama {

struct Slide {
    /// From 1.
    qint32 number = 0;
    QString path;
};

/// Which slide is on show. The list lives in the settings store and is read there slide by slide.
class SlideSequence {
public:
    /// 1-based number of the slide on show; 0: the next slide is the first.
    qint32 SlideIndex = 0;
    qint32 SlideCount = 0;
    QString SlidePath;
    Slide current() const { return {SlideIndex, SlidePath}; }

    /// What the ticks do behind the last slide, and where no file is there: for ever on, as in the
    /// window; round too, but where nothing is found only once at each tick; or an end.
    enum class Round { Endless, Patient, Once };
    Round round = Round::Endless;

    /// Reads the number of slides and begins before the first.
    void begin();

    /// What a way to another slide has come to: a slide whose file exists; its end, no slide having
    /// been found; the system's request to end the program, heard on a way over missing files that
    /// has no end of its own; the end of a list that is shown Once.
    enum class Way { Found, End, GivenUp, Over };

    /// The next slide whose file exists, for ever round. Without any it goes round until one is
    /// there or it is GivenUp; a list of which the settings do not give every path back, as they
    /// do not for very long ones, and a Patient one come to an End after a round.
    Way advanceByTick();
    /// What follows showing a slide by a tick: after the last slide the number is 0, unless that
    /// was all.
    void wrapAfterTick();

    /// The way of the key Right; at the End SlidePath is the missing file.
    Way goRight();
    /// The way of the key Left: round as the tick's.
    Way goLeft();

    /// Path of the slide that a tick would show next, missing files skipped; empty if there is
    /// none.
    QString upcoming() const;

private:
    /// Empty if the settings give no text.
    QString pathOf(qint32 index) const;
    /// True if there is a file at the number.
    bool goTo(qint32 index);
    Way goRound(qint32 (SlideSequence::*next)() const);
    Way goToTheEnd();
    qint32 nextToTheRight() const;
    qint32 nextToTheLeft() const;

    /// A number without a text has been met on the way.
    bool metNoText_ = false;
};

/// Caption of a slide: its file name without an ending of three or four letters; any other name
/// gives all that stands behind the path's leftmost separator. Yields to pending events twice a
/// character.
QString CaptionFromPath(const QString& SlidePath);

}  // namespace velorama
