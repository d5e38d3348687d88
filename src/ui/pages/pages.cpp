#include "ui/pages/pages.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "platform/numbers.h"

#include <QShortcut>

#include <algorithm>

namespace velorama {
namespace {

const QString viewSettings = QStringLiteral("\\mfrmPRGMAIN\\View");
const QString pageName = QStringLiteral("TABIDX");
// A window closed on a later page comes back on the first.
constexpr int lastRestoredPage = 3;
constexpr int picturesNumber = 2;

}  // namespace

Pages::Pages(QWidget& surface, Commands& commands, CommonDialog& cdlDIALOG)
    : QObject(&surface),
      tabPAGES(make<tab>("tabPAGES", &surface)),
      slideshows(new SlideshowsPage(surface, commands)),
      pictures(new PicturesPage(surface, commands)),
      music(new MusicPage(surface)),
      webAlbum(new WebAlbumPage(surface, commands, cdlDIALOG)),
      help(new HelpPage(surface, commands)) {
    place(*tabPAGES, 60, 75, 10920, 3800);
    tabPAGES->setActiveTabs(QStringLiteral("Slideshows,Pictures,Music,WebAlbum,Help"));
    tabPAGES->setAccessibleName(QStringLiteral("Pages"));
    connect(tabPAGES, &tab::Click, this, &Pages::tabPAGES_Click);
    connect(&commands.choosePictures, &Command::triggered, this, [this] { show(picturesNumber); });
    connectKeys();
}

// The window takes them before the control that has the keyboard.
void Pages::connectKeys() {
    auto* next = new QShortcut(Qt::CTRL | Qt::Key_Tab, tabPAGES);
    auto* previous = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, tabPAGES);
    connect(next, &QShortcut::activated, this, [this] { step(1); });
    connect(previous, &QShortcut::activated, this, [this] { step(-1); });
}

void Pages::step(int by) {
    const int last = tabPAGES->Tabcount();
    const int wanted = tabPAGES->ActiveTab() + by;
    show(wanted > last ? 1 : wanted < 1 ? last : wanted);
}

void Pages::tabPAGES_Click(const QString& caption) {
    const auto pages = all();
    const auto chosen = tabPAGES->ActiveTabs().split(QLatin1Char(',')).indexOf(caption);
    if (chosen < 0) {
        return;
    }
    Page* up = pages.at(static_cast<std::size_t>(chosen));
    up->show();
    up->beginAtTop();
    for (Page* page : pages) {
        page->setVisible(page == up);
    }
    emit Turned();
    up->firstFocus()->setFocus();
}

const Page& Pages::shown() const {
    const auto pages = all();
    const auto up = std::find_if(pages.begin(), pages.end(),
                                 [](const Page* page) { return !page->isHidden(); });
    return up != pages.end() ? **up : *pages.front();
}

void Pages::show(int number) {
    tabPAGES->setActiveTab(number);
    tabPAGES_Click(tabPAGES->Caption(number));
}

void Pages::restore() {
    const QString stored = loadSetting(viewSettings, pageName, QStringLiteral("1"));
    if (const auto number = wholeNumber(stored)) {
        show(*number);
    }
    const int shown = tabPAGES->ActiveTab();
    if (shown <= 0 || shown > lastRestoredPage) {
        show(1);
    }
}

void Pages::save() const {
    saveSetting(viewSettings, pageName, decimalText(tabPAGES->ActiveTab()));
}

void Pages::stretch(float surfaceWidth, float surfaceHeight) {
    setHeight(*tabPAGES, surfaceHeight - 3400);
    for (Page* page : all()) {
        setWidth(*page, surfaceWidth - 2 * Left(*page));
        setHeight(*page, Height(*tabPAGES) - 450);
    }
    pictures->stretch();
}

void Pages::makeRoom() {
    for (Page* page : all()) {
        page->makeRoom();
    }
}

bool Pages::placeBySplitter(float surfaceWidth) {
    if (!pictures->holdSplitter(surfaceWidth)) {
        return false;
    }
    setWidth(*tabPAGES, surfaceWidth - 2 * Left(*tabPAGES));
    pictures->placeBySplitter(surfaceWidth, Left(*tabPAGES) + Width(*tabPAGES));
    return true;
}

void Pages::layOut() {
    for (Page* page : all()) {
        page->layOut();
    }
}

void Pages::tint() {
    for (Page* page : all()) {
        page->tint();
    }
}

QList<QWidget*> Pages::tabOrder() const {
    QList<QWidget*> order = {tabPAGES};
    for (const Page* page : all()) {
        order += page->tabOrder();
    }
    return order;
}

}  // namespace velorama
