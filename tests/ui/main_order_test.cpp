// What the window writes, reads and asks of the music device, in which order.

#include "support/sight_notes.h"
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

/// What of the window has changed since the last call, told as notes.
class Changes {
public:
    explicit Changes(std::function<QStringList()> state) : state_(std::move(state)) {}
    QStringList told() {
        const QStringList now = state_();
        QStringList changes;
        for (const QString& part : now) {
            if (!before_.contains(part)) {
                changes.append(part);
            }
        }
        before_ = now;
        return changes;
    }

private:
    std::function<QStringList()> state_;
    QStringList before_;
};

TEST_F(MainOrder, OfALoad) {
    const QString path = album(1);
    setStored("mfrmPRGMAIN\\View", "Slideshow", path);
    setStored("mfrmPRGMAIN\\View", "TABIDX", QStringLiteral("2"));
    MainServices withStart = services();
    withStart.startUp = [this](QWidget&, const QString&) { note(QStringLiteral("start up")); };
    window = std::make_unique<mfrmPRGMAIN>(withStart);
    Changes changes([this] {
        return QStringList{
            QStringLiteral("page ") + QString::number(pages().tabPAGES->ActiveTab()),
            QStringLiteral("title ") + QFileInfo(window->windowTitle()).fileName(),
            QStringLiteral("%1 slides").arg(slides().size()),
            QStringLiteral("%1 albums").arg(albums().size()),
            QStringLiteral("pattern ") + foundControls().flbFOUND->Pattern(),
            QStringLiteral("hint ") + commands().add.text().section(u'\t', 1),
            QLatin1String(commands().remove.isEnabled() ? "remove on" : "remove off"),
            QLatin1String(commands().save.isEnabled() ? "save on" : "save off"),
            QStringLiteral("%1 selected").arg(slideControls().lvwSLIDEBAR->SelectedCount()),
            QLatin1String(FormLoading ? "loading" : "loaded"),
        };
    });
    changes.told();
    noting.before = [this, &changes](const QString& text) {
        if (!text.endsWith(QLatin1String("INTERVAL"))) {
            noting.notes += changes.told();
        }
    };
    test::SightNotes windowSight(*window, "window", noting);
    test::SightNotes slidesSight(*slideControls().lvwSLIDEBAR, "slides", noting);
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, [this, &changes] {
        if (const QStringList told = changes.told(); !told.isEmpty()) {
            noting.notes += told;
            noting.notes.append(QStringLiteral("events"));
        }
    });
    events.start(0);
    forget();
    window->Form_Load();
    QStringList found = noting.notes + changes.told();
    found.removeAll(QStringLiteral("read INTERVAL"));
    noting.before = [](const QString&) {};
    EXPECT_EQ(
        found.join(u'|').toStdString(),
        "loading|read BackColor|read TextColor|read Fonts|read FontsSize|read TitleBarColor|"
        "read BarColor|read TitleBarTextColor|read FontsBar|read FontsSizeBar|"
        "read PhotoSize|read ThumbnailSize|start up|hide slides|hint Ins|read Height|"
        "read Width|read Left|read Top|read Window State|read Splitter Bar Left|read TABIDX|"
        "page 2|remove off|save off|read Slideshow|show window|pattern *.bmp;*.jpg;*.gif|"
        "events|read lvwALBUMSList Total|read lstMUSICList Total|read Slideshow|1 slides|events|"
        "show slides|title one.vlr|read projectlist|1 albums|remove on|1 selected|"
        "events|loaded|read Files Location|write Files Location");
}

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
