#pragma once

#include "ui/pages/pages.h"
#include "ui/slide_bar.h"

#include <QShortcut>

namespace velorama {

/// Keys of the whole window that no menu entry has: Alt+Left and Alt+Right press the buttons that
/// move the current slide, and F6 and Shift+F6 walk round the window's parts: those of the page
/// that is up, the toolbar, the slide bar.
class WindowKeys : public QObject {
public:
    /// All must outlive this object. The keys are those of the window of `surface`.
    WindowKeys(QWidget& surface, const Pages& pages, const SlideBar& slideBar);

    /// Gives the keyboard to the next part that is in sight, or to the one before.
    void walk(int step) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectMove(const QKeySequence& key, cbtn& button);
    void stepSoon(cbtn& button);
    QShortcut* shortcut(const QKeySequence& key);
    QList<QWidget*> parts() const;
    qsizetype partWithFocus(const QList<QWidget*>& parts) const;

    QWidget& surface_;
    const Pages& pages_;
    const SlideBar& slideBar_;
    /// The key that was looked up last is held.
    bool isRepeat_ = false;
    /// A step of a held key is still to be taken.
    bool isStepDue_ = false;
};

}  // namespace velorama
