#pragma once

#include <QString>

namespace velorama {

/// Which slide is on show. The list lives in the settings store and is read there slide by slide.
class SlideSequence {
public:
    /// 1-based number of the slide on show; 0: the next slide is the first.
    qint32 SlideIndex = 0;
    qint32 SlideCount = 0;
    QString SlidePath;

    /// Reads the number of slides and begins before the first.
    void begin();

    /// The next slide whose file exists, for ever round. Does not return while no file exists.
    void advanceByTick();
    /// What follows showing a slide by a tick: after the last slide the number is 0.
    void wrapAfterTick();

    /// One step of the key Right: false if the list has ended on a missing file, SlidePath then
    /// being that file.
    enum class Step { Found, Missing, End };
    Step stepRight();
    /// One step of the key Left; never ends the list.
    Step stepLeft();

    /// Path of the slide that a tick would show next, missing files skipped; empty if there is
    /// none.
    QString upcoming() const;

private:
    QString pathOf(qint32 index) const;
    bool currentExists() const;
};

/// Caption of a slide: its file name without an ending of three or four letters; any other name
/// gives all that stands behind the path's leftmost separator. Yields to pending events twice a
/// character.
QString CaptionFromPath(const QString& SlidePath);

}  // namespace velorama
