#include "support/gif_files.h"
#include "ui/window_world.h"

#include <QLabel>
#include <QShortcut>

namespace velorama {
namespace {

class RecordingDesktop : public DesktopBackground {
public:
    bool set(const QString&) override {
        ++count;
        return true;
    }
    int count = 0;
};

/// The main window with a found list of three pictures and no slides.
class PreviewWindowTest : public test::WithWindow {
protected:
    PreviewWindowTest() {
        folder =
            browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
        setStored("mfrmPRGMAIN\\View", "TABIDX", QStringLiteral("2"));
        window = std::make_unique<mfrmPRGMAIN>(
            MainServices{screenSaver, device, desktop, netCHECKUPDATE});
        window->Form_Load();
    }

    /// Opens the preview; `look` runs while it is up. What it leaves up is closed.
    void previewing(const std::function<void(frmPICTUREPREVIEW& form)>& look) {
        int looked = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* form = qobject_cast<frmPICTUREPREVIEW*>(QApplication::activeModalWidget());
            if (form == nullptr) {
                return;
            }
            timer.stop();
            ++looked;
            const QPointer<QWidget> open = form;
            look(*form);
            if (open) {
                open->close();
            }
        });
        timer.start(0);
        commands().preview.trigger();
        EXPECT_EQ(looked, 1);
    }
    static cbtn& button(QWidget& form, const char* name) {
        auto* found = form.findChild<cbtn*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    int forms() const {
        return static_cast<int>(window->findChildren<frmPICTUREPREVIEW*>().size());
    }

    QString folder;
    RecordingDesktop desktop;
};

TEST_F(PreviewWindowTest, HasEveryControlByItsName) {
    previewing([](QWidget& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("frmPICTUREPREVIEW"));
        for (const char* name :
             {"picBAR", "cbtnBROWSEBTNS0", "cbtnBROWSEBTNS1", "cbtnCONTROLS4", "cbtnCONTROLS5",
              "framBOX", "webVIEWER", "imgPICTURE", "shpBORDER"}) {
            EXPECT_EQ(form.findChildren<QWidget*>(QLatin1String(name)).size(), 1) << name;
        }
    });
}

TEST_F(PreviewWindowTest, ItsButtonsSayWhatTheyDo) {
    previewing([](QWidget& form) {
        for (const cbtn* each : form.findChildren<cbtn*>()) {
            EXPECT_FALSE(each->toolTip().isEmpty());
            EXPECT_EQ(each->accessibleName(), each->toolTip());
            EXPECT_FALSE(each->Symbol().isEmpty());
            EXPECT_NE(each->focusPolicy() & Qt::TabFocus, 0);
            EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()));
        }
    });
}

TEST_F(PreviewWindowTest, ItIsModalOverTheMainWindow) {
    previewing([this](QWidget& form) {
        EXPECT_EQ(form.parentWidget(), window.get());
        EXPECT_TRUE(form.isModal());
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Picture Preview"));
    });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PreviewWindowTest, ItShowsTheCurrentPictureOfTheFoundList) {
    foundControls().lvwFOUND->setSelectedItem(2);
    previewing([](QWidget& form) {
        EXPECT_EQ(form.findChild<ImageBox*>()->naturalSize(), QSize(40, 30));
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblSIZE"))->text(),
                  QStringLiteral("40 × 30 pixels"));
    });
}

TEST_F(PreviewWindowTest, CloseUnloadsIt) {
    previewing([](QWidget& form) { button(form, "cbtnBROWSEBTNS0").click(); });
    EXPECT_EQ(forms(), 0);
    EXPECT_FALSE(window->isUnloaded());
}

TEST_F(PreviewWindowTest, EscapeUnloadsIt) {
    previewing([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    EXPECT_EQ(forms(), 0);
}

TEST_F(PreviewWindowTest, ButtonsAndArrowsWalk) {
    previewing([](QWidget& form) {
        // Shortcuts are for the active window, which the display of the tests does not choose.
        QApplication::setActiveWindow(&form);
        const auto at = [&form](int number) {
            const QString name = QString(QChar(u'a' + number - 1)) + QStringLiteral(".bmp");
            EXPECT_EQ(form.windowTitle(), QStringLiteral("(%1 of 3) ").arg(number) + name);
        };
        button(form, "cbtnCONTROLS5").click();
        at(2);
        button(form, "cbtnCONTROLS4").click();
        at(1);
        button(form, "cbtnCONTROLS4").click();
        at(3);
        QTest::keyClick(&form, Qt::Key_Right);
        at(1);
        QTest::keyClick(&button(form, "cbtnBROWSEBTNS1"), Qt::Key_Left);
        at(3);
    });
    EXPECT_EQ(desktop.count, 0);
}

TEST_F(PreviewWindowTest, RepeatsOfAHeldKeyThatPileUpAreOneStep) {
    previewing([](QWidget& form) {
        QApplication::setActiveWindow(&form);
        const auto right = [&form](bool repeated) {
            QKeyEvent before(QEvent::ShortcutOverride, Qt::Key_Right, Qt::NoModifier, {}, repeated);
            QApplication::sendEvent(&form, &before);
            for (auto* key : form.findChildren<QShortcut*>()) {
                if (key->key() == QKeySequence(Qt::Key_Right)) {
                    Q_EMIT key->activated();
                }
            }
        };
        right(false);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(2 of 3) b.bmp"));
        for (int i = 0; i < 5; ++i) {
            right(true);
        }
        QApplication::processEvents();
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(3 of 3) c.bmp"));
        right(true);
        QApplication::processEvents();
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(1 of 3) a.bmp"));
        right(false);
        right(false);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(3 of 3) c.bmp"));
    });
}

TEST_F(PreviewWindowTest, AnotherPictureMovesNoWindow) {
    previewing([](QWidget& form) {
        form.move(120, 90);
        for (int i = 0; i < 3; ++i) {
            button(form, "cbtnCONTROLS5").click();
        }
        EXPECT_EQ(form.pos(), QPoint(120, 90));
    });
}

TEST_F(PreviewWindowTest, AnotherPictureOfItsSizeLeavesItHalfOffTheScreen) {
    previewing([](QWidget& form) {
        const QPoint place = form.screen()->geometry().bottomRight() - QPoint(60, 40);
        form.move(place);
        button(form, "cbtnCONTROLS5").click();
        EXPECT_EQ(form.pos(), place);
    });
}

TEST_F(PreviewWindowTest, MadeAnewItHasItsDesignCaption) {
    previewing([](QWidget& form) {
        button(form, "cbtnCONTROLS5").click();
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(2 of 3) b.bmp"));
    });
    previewing([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Picture Preview"));
        // From where the list stands, not from where the last walk ended.
        button(form, "cbtnCONTROLS5").click();
        EXPECT_EQ(form.windowTitle(), QStringLiteral("(2 of 3) b.bmp"));
    });
}

TEST_F(PreviewWindowTest, F1IsSwallowedWhereverTheKeyboardIs) {
    QStringList help;
    gLibrary->disconnect();
    QObject::connect(gLibrary.get(), &clsLIBRARY::helpPageWanted,
                     [&help](const QString& address) { help.append(address); });
    previewing([](QWidget& form) {
        QList<QWidget*> places = {&form};
        for (cbtn* each : form.findChildren<cbtn*>()) {
            places.append(each);
        }
        for (QWidget* place : places) {
            for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ShiftModifier}) {
                QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, held);
                press.ignore();
                QApplication::sendEvent(place, &press);
                EXPECT_TRUE(press.isAccepted());
            }
        }
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
    });
    EXPECT_EQ(help, QStringList());
}

TEST_F(PreviewWindowTest, FirstItComesUpInTheMiddle) {
    previewing([](QWidget& form) {
        EXPECT_NEAR(Left(form), (screenWidth(form) - 7000) / 2, 15);
        EXPECT_NEAR(Top(form), (screenHeight(form) - 5400) / 2, 15);
    });
}

TEST_F(PreviewWindowTest, ItComesBackWhereItWasLeft) {
    previewing([](QWidget& form) {
        setLeft(form, 300);
        setTop(form, 315);
    });
    EXPECT_EQ(stored("frmPICTUREPREVIEW\\Window", "Left"), QStringLiteral("300"));
    EXPECT_EQ(stored("frmPICTUREPREVIEW\\Window", "Top"), QStringLiteral("315"));
    for (const char* name : {"Width", "Height", "Window State"}) {
        EXPECT_EQ(stored("frmPICTUREPREVIEW\\Window", name), QStringLiteral("absent"));
    }
    for (int i = 0; i < 2; ++i) {
        previewing([](QWidget& form) {
            EXPECT_FLOAT_EQ(Left(form), 300);
            EXPECT_FLOAT_EQ(Top(form), 315);
        });
    }
}

TEST_F(PreviewWindowTest, MaximisedItComesBackInItsOwnSizeAndPlace) {
    previewing([](QWidget& form) {
        form.move(20, 15);
        QApplication::processEvents();
        form.showMaximized();
        QApplication::processEvents();
        EXPECT_GT(form.width(), form.screen()->geometry().width() - 10);
    });
    previewing([](QWidget& form) {
        EXPECT_FALSE(form.isMaximized());
        EXPECT_FLOAT_EQ(Width(form), 7000);
        EXPECT_EQ(form.pos(), QPoint(20, 15));
    });
}

TEST_F(PreviewWindowTest, ALargerPictureBringsItBackOntoTheScreen) {
    QImage large(2000, 2000, QImage::Format_RGB32);
    large.fill(Qt::green);
    ASSERT_TRUE(large.save(folder + QStringLiteral("/b.bmp")));
    previewing([](QWidget& form) {
        const QRect screen = form.screen()->geometry();
        const QSize small = form.size();
        form.move(screen.bottomRight() - QPoint(small.width(), small.height()));
        QApplication::processEvents();
        const QPoint left = form.pos();
        button(form, "cbtnCONTROLS5").click();
        QApplication::processEvents();
        EXPECT_GT(form.height(), small.height());
        EXPECT_TRUE(screen.contains(form.frameGeometry()));
        EXPECT_LT(form.y(), left.y());
    });
    // And at once, where the larger one is the first.
    foundControls().lvwFOUND->setSelectedItem(2);
    const QRect screen = window->screen()->geometry();
    setStored("frmPICTUREPREVIEW\\Window", "Left", QString::number((screen.width() - 470) * 15));
    setStored("frmPICTUREPREVIEW\\Window", "Top", QString::number((screen.height() - 370) * 15));
    previewing([screen](QWidget& form) { EXPECT_TRUE(screen.contains(form.frameGeometry())); });
}

TEST_F(PreviewWindowTest, ABadPlaceInTheStoreIsNoObstacle) {
    for (const char* value : {"-99999", "999999", "x", "", "nan", "1e30"}) {
        for (const char* name : {"Left", "Top", "Width", "Height", "Window State"}) {
            setStored("frmPICTUREPREVIEW\\Window", name, QLatin1String(value));
        }
        previewing([value](QWidget& form) {
            const QRect screen = form.screen()->geometry();
            EXPECT_TRUE(screen.contains(form.pos())) << value;
            EXPECT_FLOAT_EQ(Width(form), 7000);
        });
    }
}

TEST_F(PreviewWindowTest, BarAndBorderReachFromEdgeToEdge) {
    previewing([](QWidget& form) {
        for (const int width : {700, 467}) {
            form.resize(width, 500);
            QApplication::processEvents();
            for (const char* name : {"picBAR", "shpBORDER"}) {
                const auto* part = form.findChild<QWidget*>(QLatin1String(name));
                EXPECT_EQ(part->width(), width) << name;
                EXPECT_EQ(part->x(), 0) << name;
            }
        }
    });
}

TEST_F(PreviewWindowTest, ThePartsStandOneBelowTheOther) {
    previewing([](QWidget& form) {
        const auto place = [&form](const char* name) {
            return form.findChild<QWidget*>(QLatin1String(name))->geometry();
        };
        EXPECT_LE(place("picBAR").bottom(), place("shpBORDER").top());
        EXPECT_TRUE(place("shpBORDER").contains(place("framBOX")));
        EXPECT_LE(place("shpBORDER").bottom(), place("lblSIZE").top());
        EXPECT_TRUE(form.rect().contains(place("lblSIZE")));
        const auto* label = form.findChild<QLabel*>(QStringLiteral("lblSIZE"));
        EXPECT_GE(label->height(), label->sizeHint().height());
    });
}

TEST_F(PreviewWindowTest, TheWallpaperIsThePictureOnShow) {
    const QString target =
        qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/velorama/Velorama Wallpaper.bmp");
    QImage other(17, 11, QImage::Format_RGB32);
    other.fill(Qt::green);
    ASSERT_TRUE(other.save(folder + QStringLiteral("/b.bmp")));
    previewing([&](QWidget& form) {
        button(form, "cbtnCONTROLS5").click();
        button(form, "cbtnBROWSEBTNS1").click();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
    });
    EXPECT_EQ(desktop.count, 1);
    EXPECT_EQ(QImage(target).size(), QSize(17, 11));
    EXPECT_EQ(foundControls().lvwFOUND->SelectedItem()->Index(), 1);
}

TEST_F(PreviewWindowTest, TheMainWindowsSmallPictureStaysAsItIs) {
    const QImage before = window->findChild<PictureBox*>(QStringLiteral("picPREVIEW"))->Image();
    previewing([](QWidget& form) { button(form, "cbtnCONTROLS5").click(); });
    EXPECT_EQ(window->findChild<PictureBox*>(QStringLiteral("picPREVIEW"))->Image(), before);
}

TEST_F(PreviewWindowTest, TheMainWindowMayCloseUnderIt) {
    previewing([this](QWidget&) { window->close(); });
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(forms(), 0);
    EXPECT_NE(stored("frmPICTUREPREVIEW\\Window", "Left"), QStringLiteral("absent"));
}

TEST_F(PreviewWindowTest, AFolderThatVanishesUnderItIsSurvived) {
    previewing([this](QWidget& form) {
        ASSERT_TRUE(QDir(folder).removeRecursively());
        button(form, "cbtnCONTROLS5").click();
        button(form, "cbtnBROWSEBTNS1").click();
        EXPECT_EQ(form.findChild<ImageBox*>()->naturalSize(), QSize(40, 30));
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblSIZE"))->text(),
                  QStringLiteral("This picture cannot be shown."));
    });
}

}  // namespace
}  // namespace velorama
