// What the window writes, reads and asks of the music device, in which order.

#include "support/noting_store.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

class MainOrder : public test::WithWindow {
protected:
    MainOrder() {
        noting.before = [this](const QString&) { takeCommands(); };
        makeServices(noting, shell);
        setToolSetting("Files Location", test::temporaryFolder());
    }
    ~MainOrder() override {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        makeServices(store, shell);
    }
    void forget() {
        takeCommands();
        noting.notes.clear();
    }
    /// The notes that begin with one of these, in order.
    QStringList noted(const QStringList& beginnings) {
        takeCommands();
        QStringList found;
        for (const QString& note : std::as_const(noting.notes)) {
            for (const QString& beginning : beginnings) {
                if (note.startsWith(beginning)) {
                    found.append(note);
                    break;
                }
            }
        }
        return found;
    }
    static QStringList writes(const QStringList& names) {
        QStringList all;
        for (const QString& name : names) {
            all.append(QStringLiteral("write ") + name);
        }
        return all;
    }
    void note(const QString& text) { noting.notes.append(text); }

    test::NotingStore noting;

private:
    /// The device has noted for itself what it was sent since the last note.
    void takeCommands() {
        for (; taken_ < device.commands.size(); ++taken_) {
            noting.notes.append(device.commands[taken_]);
        }
    }
    qsizetype taken_ = 0;
};

TEST_F(MainOrder, OfAnEnd) {
    start(album(2));
    music().lstMUSIC->addItem(QStringLiteral("/a.mp3"));
    forget();
    window->close();
    const QStringList found = noted({QStringLiteral("write "), QStringLiteral("close ")});
    const QStringList queried =
        writes({QStringLiteral("lstMUSICList Total"), QStringLiteral("lstMUSIC0"),
                QStringLiteral("lvwALBUMSList Total"), QStringLiteral("lvwALBUMS1")});
    const QStringList unloaded = writes({QStringLiteral("TABIDX"),
                                         QStringLiteral("1"),
                                         QStringLiteral("2"),
                                         QStringLiteral("Items"),
                                         QStringLiteral("Window State"),
                                         QStringLiteral("Left"),
                                         QStringLiteral("Top"),
                                         QStringLiteral("Width"),
                                         QStringLiteral("Height"),
                                         QStringLiteral("Splitter Bar Left"),
                                         QStringLiteral("BackColor"),
                                         QStringLiteral("TextColor"),
                                         QStringLiteral("Fonts"),
                                         QStringLiteral("FontsSize"),
                                         QStringLiteral("BarColor"),
                                         QStringLiteral("TitleBarColor"),
                                         QStringLiteral("TitleBarTextColor"),
                                         QStringLiteral("FontsBar"),
                                         QStringLiteral("FontsSizeBar"),
                                         QStringLiteral("PhotoSize"),
                                         QStringLiteral("ThumbnailSize")});
    const QStringList wanted = queried + QStringList(QStringLiteral("close CURRFILE")) + unloaded;
    EXPECT_EQ(found.join(u'|').toStdString(), wanted.join(u'|').toStdString());
}

TEST_F(MainOrder, OfAShowsStart) {
    start(album(2));
    music().lstMUSIC->addItem(QStringLiteral("/a.mp3"));
    music().lstMUSIC->setListIndex(0);
    class HideNote : public QObject {
    public:
        explicit HideNote(std::function<void()> tell) : tell_(std::move(tell)) {}
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Hide) {
                tell_();
            }
            return false;
        }

    private:
        std::function<void()> tell_;
    } hiding([this] { note(QStringLiteral("hidden")); });
    window->installEventFilter(&hiding);
    forget();
    commands().start.trigger();
    QStringList found = noted({QStringLiteral("write "), QStringLiteral("open "),
                               QStringLiteral("hidden"), QStringLiteral("read INTERVAL"),
                               QStringLiteral("read TRANSITION"), QStringLiteral("read Items"),
                               QStringLiteral("read 1"), QStringLiteral("read TBAR")});
    found.replaceInStrings(QRegularExpression(QStringLiteral("^open .*")), QStringLiteral("open"));
    // The first reads are those of the settings dialog, which is asked for the two colours.
    EXPECT_EQ(found.join(u'|').toStdString(),
              "write Items|write 1|write 2|read TBAR|read INTERVAL|read TRANSITION|open|"
              "read INTERVAL|read TRANSITION|read Items|hidden|read 1|read TBAR");
    window->slideShow()->Unload();
}

}  // namespace
}  // namespace velorama
