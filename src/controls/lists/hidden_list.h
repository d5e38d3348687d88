#pragma once

#include <QPointer>
#include <QWidget>

namespace velorama {

/// A list out of sight for a batch. Qt gives the keyboard to the next control then; it comes back
/// with the list, unless the user has put it elsewhere meanwhile.
class HiddenList {
public:
    explicit HiddenList(QWidget& list) : list_(list) {}

    /// Batches may lie in one another: each hides, and the first end shows.
    void hide();
    void show();
    /// The list comes back without the keyboard.
    void leaveKeyboard() { hadKeyboard_ = false; }

private:
    QWidget& list_;
    bool hadKeyboard_ = false;
    QPointer<QWidget> standIn_;
};

}  // namespace velorama
