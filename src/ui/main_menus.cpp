#include "ui/main_menus.h"

#include "controls/buttons/control_making.h"

namespace velorama {
namespace {

Command* const separator = nullptr;

void addMenu(QMenuBar& bar, const char* name, const char* caption,
             std::initializer_list<Command*> entries) {
    auto* top = make<QMenu>(name, &bar);
    top->setTitle(QLatin1String(caption));
    bar.addMenu(top);
    for (Command* entry : entries) {
        if (entry == separator) {
            top->addSeparator();
        } else {
            top->addAction(entry);
        }
    }
}

}  // namespace

void fillMenuBar(QMenuBar& bar, Commands& c) {
    addMenu(bar, "mnuFILETOP", "&Slideshow",
            {&c.newAlbum, separator, &c.open, separator, &c.save, &c.saveAs, separator, &c.start,
             separator, &c.settings, separator, &c.exit});
    addMenu(bar, "mnuEDITTOP", "Sli&des",
            {&c.add, &c.addAll, separator, &c.remove, &c.removeAll, separator, &c.preview,
             &c.wallpaper});
    addMenu(bar, "mnuHELPTOP", "&Help",
            {&c.help, &c.updateCheck, separator, &c.website, &c.support, separator, &c.about});
}

void setKeyHints(Commands& commands) {
    commands.add.setText(QStringLiteral("&Add Selected\tIns"));
    commands.remove.setText(QStringLiteral("&Clear Selected\tCtrl+Del"));
    commands.exit.setText(QStringLiteral("E&xit\tAlt+F4"));
}

void disableUntilSlides(Commands& c) {
    for (Command* command : {&c.removeAll, &c.start, &c.remove, &c.moveBack, &c.moveForward, &c.add,
                             &c.addAll, &c.createWebAlbum, &c.save}) {
        command->setEnabled(false);
    }
}

}  // namespace velorama
