#pragma once

#include "browse/found_controls.h"
#include "controls/boxes/label.h"
#include "core/commands.h"
#include "ui/pages/page.h"
#include "ui/parts/splitter_bar.h"

#include <array>

namespace velorama {

/// The page Pictures: folders on the left, the pictures of one of them on the right, and the
/// splitter between the two.
class PicturesPage : public Page {
    Q_OBJECT
public:
    PicturesPage(QWidget& surface, Commands& commands);

    void makeRoom() override;
    void layOut() override;
    QWidget* firstFocus() const override { return found.ftvFOLDER; }
    QList<QWidget*> parts() const override { return {found.ftvFOLDER, found.lvwFOUND}; }
    QList<QWidget*> tabOrder() const override;
    void tint() override;

    void restoreSplitter();
    void saveSplitter() const;
    /// The heights of folders and splitter, which follow the page's.
    void stretch();
    /// Holds the splitter within its limits in a surface so wide. False where it has come too far
    /// to the left for anything to be placed by it.
    bool holdSplitter(float surfaceWidth);
    /// Places both parts by the splitter, and the buttons by the right edge of the tabs.
    void placeBySplitter(float surfaceWidth, float right);
    /// The splitter moves by `step`, or not at all where that is too far left.
    void moveSplitter(float step);
    /// Tells how many pictures the folder on show has, and how many are selected or left out.
    void showCount();

    const FoundControls found{*this};
    SplitterBar* picVBAR;
    Label* lblFOUNDCOUNT;
    /// 0 preview, 1 wallpaper.
    std::array<cbtn*, 2> cbtnBROWSEBTNS{};

signals:
    /// A move of the splitter is over: the lists are to follow.
    void SplitterMoved();
    void KeyDown(int KeyCode, int Shift);

private:
    void makeButtons(Commands& commands);
    void connectSplitter();

    cbtn* btnSAMPLES_ = nullptr;
};

}  // namespace velorama
