#include "browse/found_list.h"

#include "browse/screen_pointer.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/process/await_work.h"

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

// Pictures announced to the work ahead: enough to keep every processor busy, few enough to hold.
constexpr int lookAhead = 16;

// Listings inside listings. A held arrow key starts one for every folder it passes; the stack would
// not bear a whole disk of them.
constexpr int deepest = 8;

}  // namespace

FoundList::FoundList(const FoundControls& controls, ProgressBar& prgBARSLIDES,
                     Thumbnails& thumbnails)
    : c_(controls),
      prgBARSLIDES_(prgBARSLIDES),
      thumbnails_(thumbnails),
      hidden_(*controls.lvwFOUND) {
    connectEvents();
}

void FoundList::connectEvents() {
    connect(c_.ftvFOLDER, &FolderTree::NodeChange, this, &FoundList::ftvFOLDER_NodeChange);
    connect(c_.ftvFOLDER, &FolderTree::KeyDown, this, &FoundList::KeyDown);
    connect(c_.lvwFOUND, &ListView::GotFocus, this, [] { ActiveList = QStringLiteral("FOUND"); });
    connect(c_.lvwFOUND, &ListView::Click, this, &FoundList::lvwFOUND_Click);
    connect(c_.lvwFOUND, &ListView::DblClick, this, &FoundList::Chosen);
    connect(c_.lvwFOUND, &ListView::KeyPress, this, [this](int ascii) {
        if (ascii == KeyReturn) {
            emit Chosen();
        }
    });
    connect(c_.lvwFOUND, &ListView::KeyDown, this, &FoundList::lvwFOUND_KeyDown);
    connect(c_.lvwFOUND, &ListView::MouseUp, this,
            [this](int button, int, float x, float y) { lvwFOUND_MouseUp(button, x, y); });
}

void FoundList::lvwFOUND_Click() {
    ActiveList = QStringLiteral("FOUND");
    emit Clicked();
}

void FoundList::lvwFOUND_KeyDown(int KeyCode, int Shift) {
    if (c_.lvwFOUND->Count() == 0) {
        return;
    }
    lvwFOUND_Click();
    const QPointer<FoundList> self = this;
    if (KeyCode == KeyContextMenu) {
        const float x = Left(*c_.lvwFOUND) + popupKeyOffset;
        emit Popup({PopupRequest::Menu::mnuFOUNDTOP, x, Top(*c_.lvwFOUND)});
    }
    if (self) {
        emit KeyDown(KeyCode, Shift);
    }
}

void FoundList::lvwFOUND_MouseUp(int Button, float X, float Y) {
    if (c_.lvwFOUND->Count() == 0 || Button != 2) {
        return;
    }
    lvwFOUND_Click();
    emit Popup(
        {PopupRequest::Menu::mnuFOUNDTOP, Left(*c_.lvwFOUND) + X, Top(*c_.lvwFOUND) + Y, true});
}

bool FoundList::yield() {
    const QPointer<FoundList> self = this;
    DoEvents();
    return self && !stopped_;
}

void FoundList::ftvFOLDER_NodeChange(QString path) {  // NOLINT(performance-unnecessary-value-param)
    if (FormLoading || stopped_) {
        return;
    }
    chosen_ = path;
    ++wishes_;
    late_ = {};
    if (depth_ >= deepest) {
        postponed_ = path;
        return;
    }
    const QPointer<FoundList> self = this;
    ++depth_;
    list(path);
    while (self && depth_ == deepest && postponed_ && !stopped_) {
        list(*std::exchange(postponed_, std::nullopt));
    }
    if (self) {
        --depth_;
        selectLate();
    }
}

bool FoundList::isLeft(int listing) const {
    return stopped_ || postponed_ || listing != listings_;
}

void FoundList::list(const QString& path) {
    const int listing = ++listings_;
    const QPointer<FoundList> self = this;
    thumbnails_.expectFound({});  // What was wanted of the folder before is not wanted any more.
    const auto left = [self, listing] { return !self || self->isLeft(listing); };
    const auto files = awaitWork(
        [path, isOther = c_.flbFOUND->Others()] {
            return FileList::filesIn(path, pictureMask, isOther);
        },
        left);
    if (files) {
        show(path, *files);
    }
    if (!self || stopped_ || postponed_) {
        return;
    }
    if (c_.flbFOUND->ListCount() >= 1) {
        selectFirst();
    }
    if (!yield()) {
        return;
    }
    // A listing ends after those inside it, whose folders were chosen later.
    saveSetting(QStringLiteral("frmTOOLSSETTINGS\\Items"), QStringLiteral("Files Location"),
                chosen_);
    if (!yield()) {
        return;
    }
    emit Listed();
}

void FoundList::show(const QString& path, const FolderFiles& files) {
    c_.flbFOUND->setPattern(pictureMask);
    c_.flbFOUND->setPath(path, files);
    emptyList();
    emit FolderRead();
    if (c_.flbFOUND->ListCount() >= 1) {
        fill();
    }
}

void FoundList::emptyList() {
    c_.lvwFOUND->setIcons(nullptr);
    c_.lvwFOUND->Clear();
    c_.imlFOUNDICONS->Clear();
    c_.imlFOUNDICONS->Add(QStringLiteral("dummy"), thumbnails_.placeholder());
    c_.lvwFOUND->setIcons(c_.imlFOUNDICONS);
    c_.imlFOUNDICONS->reserve(c_.flbFOUND->ListCount() + 1);
    c_.lvwFOUND->reserve(c_.flbFOUND->ListCount());
}

void FoundList::fill() {
    prgBARSLIDES_.setWork(QStringLiteral("Listing"), QStringLiteral("Another folder ends it."));
    prgBARSLIDES_.setValue(0);
    prgBARSLIDES_.setVisible(true);
    setScreenPointer(ScreenPointer::Hourglass);
    hidden_.hide();
    const QPointer<FoundList> self = this;
    const int listing = listings_;
    // A folder listed in the midst of a round has all its rows by now: going on against it, as the
    // round would, adds none.
    for (int i = 1; self && !isLeft(listing) && i <= c_.flbFOUND->ListCount(); ++i) {
        addRow(i, listing);
    }
    if (!self) {
        setScreenPointer(ScreenPointer::Default);
        return;
    }
    prgBARSLIDES_.setVisible(false);
    setScreenPointer(ScreenPointer::Default);
    hidden_.show();
}

void FoundList::addRow(int row, int listing) {
    const QPointer<FoundList> self = this;
    expectFrom(row);
    const QString path = joinPath(c_.flbFOUND->Path(), c_.flbFOUND->List(row - 1));
    const auto left = [self, listing] { return !self || self->isLeft(listing); };
    thumbnails_.FoundThumbnailAdd(path, left);
    if (left()) {
        return;
    }
    c_.lvwFOUND->Add(c_.lvwFOUND->Count() + 1, QString::number(row) + QLatin1Char('M'),
                     c_.flbFOUND->List(row - 1), thumbnails_.FoundIconIndex(path));
    prgBARSLIDES_.setMax(static_cast<float>(c_.flbFOUND->ListCount()));
    prgBARSLIDES_.setValue(static_cast<float>(c_.lvwFOUND->Count()));
    DoEvents();
}

void FoundList::expectFrom(int row) {
    QStringList next;
    const int end = std::min(c_.flbFOUND->ListCount(), row - 1 + lookAhead);
    for (int entry = row - 1; entry < end; ++entry) {
        next.append(joinPath(c_.flbFOUND->Path(), c_.flbFOUND->List(entry)));
    }
    thumbnails_.expectFound(next);
}

void FoundList::selectFirst() {
    c_.lvwFOUND->setSelectedItem(1);
    if (ListItem* first = c_.lvwFOUND->item(1)) {
        first->setSelected(true);
    }
    lvwFOUND_Click();
}

}  // namespace velorama
