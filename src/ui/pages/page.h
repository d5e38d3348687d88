#pragma once

#include "controls/buttons/push_button.h"

namespace velorama {

/// A page of the main window: the frame below the tabs, hidden until its tab is pressed. Places
/// are in twips.
class Page : public QWidget {
    Q_OBJECT
public:
    Page(const char* name, QWidget& surface);

    /// Gives the controls with captions the room that these need in the font of the moment, before
    /// anything is placed by their sizes.
    virtual void makeRoom() {}
    /// Places the controls that follow the page's size.
    virtual void layOut() = 0;
    /// The page is turned to: one that scrolls begins at its top, wherever it was left.
    virtual void beginAtTop() {}
    /// Where the keyboard goes when the page comes up.
    virtual QWidget* firstFocus() const = 0;
    /// The controls that the key F6 walks to on this page.
    virtual QList<QWidget*> parts() const { return {firstFocus()}; }
    /// All that the Tab key reaches, in its order.
    virtual QList<QWidget*> tabOrder() const = 0;
    /// Takes the colour of all pages from the system's.
    virtual void tint();
    static QColor pageColour();

protected:
    /// Makes room for the captions of such a row. Where it would reach further left than `left`, in
    /// twips, its symbols stand alone.
    void giveRowRoom(std::initializer_list<cbtn*> buttons, float left) const;
    /// Buttons from the right in the row at the foot, 90 apart and as far from the edge.
    void placeRow(std::initializer_list<cbtn*> buttons) const;
};

/// The row of buttons at the foot of every page.
constexpr float footHeight = 400;
/// How high they may become in it.
constexpr float mostFootHeight = 390;
/// What a list leaves free below it.
constexpr float belowList = 500;

}  // namespace velorama
