#pragma once

#include "controls/buttons/push_button.h"

#include <QAbstractItemView>

#include <functional>

namespace velorama {

/// What an empty list shows in its middle: what is missing, in the font of the desktop, and below
/// it a button that helps. In a list without a frame also the accent around it while it has the
/// keyboard. Child of the list; its buttons stand over the list on the same parent.
class EmptyState : public QObject {
    Q_OBJECT
public:
    /// `isEmpty` is asked at each painting: a model may lag behind its list.
    EmptyState(QAbstractItemView& list, std::function<bool()> isEmpty);

    void setText(const QString& text);
    /// A sentence behind the text; empty for none.
    void setNote(const QString& note);
    /// Text and note.
    QString words() const;
    /// What of the words is painted: in a low list the sentences, or words with an ellipsis, that
    /// have room above the button; empty where not one line has room.
    QString shownWords() const;

    /// A button of the list. The one made last is the one in use.
    cbtn* addButton(const char* name, const char* symbol, const char* caption, const char* tooltip);
    /// The button in use; null for none. It is seen where there is room for it, and while it can
    /// be pressed.
    void setButton(cbtn* button);

    /// For the list's paintEvent.
    void paint() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the buttons stand on.
    QWidget& ground() const;
    QRect room() const;
    /// Of a text in the room's width, logical pixels.
    int heightOf(const QString& text) const;
    bool hasRoomForButton() const;
    /// Of these words and the button, with the gap between them.
    int contentHeight(const QString& shown) const;
    bool isWanted() const;
    void follow();
    void followSoon();
    bool letDragThrough(QObject* watched, QEvent* event);
    void setThrough(bool through);

    QAbstractItemView& list_;
    std::function<bool()> isEmpty_;
    QString text_;
    QString note_;
    QList<cbtn*> buttons_;
    cbtn* button_ = nullptr;
    bool following_ = false;
    /// Something is being dragged over the list.
    bool isDragged_ = false;
};

}  // namespace velorama
