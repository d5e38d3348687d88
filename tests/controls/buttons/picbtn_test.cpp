#include "controls/buttons/picbtn.h"

#include "controls/input/keys.h"

#include <QAccessible>
#include <QCursor>
#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

ButtonPicture picture(const char* colour) {
    static int number = 0;
    static const QString folder = test::temporaryFolder();
    const QString path = folder + QStringLiteral("/%1.svg").arg(++number);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 32 32'>"
                          "<rect width='32' height='32' fill='") +
               colour + "'/></svg>");
    file.close();
    return ButtonPicture(path);
}

// With the doors that only derived buttons have, and a count of how often it painted.
class Button : public picbtn {
public:
    using picbtn::isMouseDown;
    using picbtn::picbtn;
    using picbtn::setDisabledLook;
    int paints = 0;
    QList<ButtonPicture> painted;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        painted.append(shownPicture());
        picbtn::paintEvent(event);
    }
};

class PictureButton : public testing::Test {
protected:
    void SetUp() override {
        form.setGeometry(0, 0, 200, 100);
        button = std::make_unique<Button>(&form);
        button->setGeometry(40, 20, 32, 24);
        button->setPictureNormal(normal);
        button->setPictureHLight(hlight);
        button->setPicturePressed(pressed);
        button->setPictureDisabled(disabled);
        log();
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        QCoreApplication::processEvents();
        button->clearFocus();
    }

    void log() {
        const picbtn* b = button.get();
        QObject::connect(b, &picbtn::Click, [this] { events.append("Click"); });
        QObject::connect(b, &picbtn::DblClick, [this] { events.append("DblClick"); });
        log("MouseDown", &picbtn::MouseDown);
        log("MouseMove", &picbtn::MouseMove);
        log("MouseOut", &picbtn::MouseOut);
        log("MouseUp", &picbtn::MouseUp);
    }
    void log(const char* name, void (picbtn::*signal)(int, int, float, float)) {
        QObject::connect(button.get(), signal, [this, name](int held, int shift, float x, float y) {
            events.append(QStringLiteral("%1 %2 %3 %4 %5")
                              .arg(QLatin1String(name))
                              .arg(held)
                              .arg(shift)
                              .arg(x)
                              .arg(y));
        });
    }

    // Places are logical pixels of the button.
    void send(QEvent::Type type, QPoint at, Qt::MouseButton which, Qt::MouseButtons held,
              Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QMouseEvent event(type, at, button->mapToGlobal(at), which, held, keys);
        QCoreApplication::sendEvent(button.get(), &event);
    }
    void move(QPoint at, Qt::MouseButtons held = Qt::NoButton) {
        send(QEvent::MouseMove, at, Qt::NoButton, held);
    }
    void press(QPoint at, Qt::MouseButton which = Qt::LeftButton) {
        send(QEvent::MouseButtonPress, at, which, which);
    }
    void release(QPoint at, Qt::MouseButton which = Qt::LeftButton) {
        send(QEvent::MouseButtonRelease, at, which, Qt::NoButton);
    }
    QStringList taken() { return std::exchange(events, {}); }

    const QPoint inside{10, 8};
    const QPoint outside{60, 8};
    const ButtonPicture normal = picture("red");
    const ButtonPicture hlight = picture("lime");
    const ButtonPicture pressed = picture("blue");
    const ButtonPicture disabled = picture("gray");
    QWidget form;
    std::unique_ptr<Button> button;
    QStringList events;
};

TEST_F(PictureButton, BeginsNormalEnabledAndFree) {
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_TRUE(button->Enabled());
    EXPECT_EQ(button->CAPTION(), QString());
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_FALSE(button->isMouseDown());
    EXPECT_EQ(button->MousePointer(), 0);
    EXPECT_EQ(button->font().family(), QStringLiteral("Comic sans MS"));
}

TEST_F(PictureButton, APointerThatComesInHighlightsAndCaptures) {
    move(inside);
    EXPECT_EQ(button->shownPicture(), hlight);
    EXPECT_TRUE(button->MousePosnONOUT());
    EXPECT_EQ(button->MousePointer(), 99);
    EXPECT_EQ(button->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(taken(), QStringList({"MouseMove 0 0 150 120", "MouseOut 0 0 150 120"}));
}

TEST_F(PictureButton, TheMoveThatLeavesGivesTheCaptureBack) {
    move(inside);
    taken();
    move(outside);
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_EQ(taken(), QStringList({"MouseMove 0 0 900 120", "MouseOut 0 0 900 120"}));
}

TEST_F(PictureButton, TheEdgesBelongToTheButton) {
    const struct {
        QPoint at;
        bool in;
    } rows[] = {{{0, 0}, true},   {{32, 24}, true}, {{33, 24}, false}, {{32, 25}, false},
                {{-1, 0}, false}, {{0, -1}, false}, {{32, 0}, true},   {{0, 24}, true}};
    for (const auto& row : rows) {
        move(row.at);
        EXPECT_EQ(button->MousePosnONOUT(), row.in) << row.at.x() << ',' << row.at.y();
        EXPECT_EQ(button->shownPicture(), row.in ? hlight : normal);
    }
}

TEST_F(PictureButton, TheMouseIsNotTakenFromOtherPrograms) {
    // The platform of the tests would warn of that as well.
    move(inside);
    EXPECT_TRUE(button->MousePosnONOUT());
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    move(outside);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(PictureButton, TheEdgesFollowTheSize) {
    button->resize(64, 24);
    move(outside);
    EXPECT_TRUE(button->MousePosnONOUT());
    button->resize(32, 24);
    move(outside);
    EXPECT_FALSE(button->MousePosnONOUT());
}

TEST_F(PictureButton, MousePointerIsTheDefaultWhileMouseOutIsHandledLast) {
    int during = -1;
    QObject::connect(button.get(), &picbtn::MouseOut,
                     [&](int, int, float, float) { during = button->MousePointer(); });
    move(inside);
    EXPECT_EQ(during, 99);
    button->UserControlMouseOut(0, 0, 150, 120);
    EXPECT_EQ(button->MousePointer(), 0);
    EXPECT_EQ(button->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PictureButton, UserControlMouseOutIsTheCaptureStep) {
    button->UserControlMouseOut(3, 5, 480, 360);
    EXPECT_TRUE(button->MousePosnONOUT());
    EXPECT_EQ(button->shownPicture(), hlight);
    button->UserControlMouseOut(3, 5, 481, 360);
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_EQ(taken(), QStringList({"MouseOut 3 5 480 360", "MouseOut 3 5 481 360"}));
}

TEST_F(PictureButton, ALeftPressShowsPressedUntilItIsReleased) {
    press(inside);
    EXPECT_TRUE(button->isMouseDown());
    EXPECT_EQ(button->shownPicture(), pressed);
    EXPECT_EQ(taken(), QStringList({"MouseDown 1 0 150 120"}));
    release(inside);
    EXPECT_FALSE(button->isMouseDown());
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_EQ(taken(), QStringList({"MouseUp 1 0 150 120", "Click"}));
}

TEST_F(PictureButton, AMiddlePressIsAPressWithoutAClick) {
    press(inside, Qt::MiddleButton);
    EXPECT_TRUE(button->isMouseDown());
    EXPECT_EQ(button->shownPicture(), pressed);
    release(inside, Qt::MiddleButton);
    EXPECT_EQ(taken(), QStringList({"MouseDown 4 0 150 120", "MouseUp 4 0 150 120"}));
}

TEST_F(PictureButton, ARightPressLeavesItNormalAndUnpressed) {
    move(inside);
    taken();
    press(inside, Qt::RightButton);
    EXPECT_FALSE(button->isMouseDown());
    EXPECT_EQ(button->shownPicture(), normal);
    release(inside, Qt::RightButton);
    EXPECT_EQ(taken(), QStringList({"MouseDown 2 0 150 120", "MouseUp 2 0 150 120"}));
}

TEST_F(PictureButton, ARightPressEndsALeftOne) {
    press(inside);
    press(inside, Qt::RightButton);
    EXPECT_FALSE(button->isMouseDown());
    release(inside, Qt::RightButton);
    release(inside);
    EXPECT_FALSE(events.contains("Click"));
}

TEST_F(PictureButton, DraggingOutShowsNormalAndBackInPressed) {
    move(inside);
    press(inside);
    move(outside, Qt::LeftButton);
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_TRUE(button->isMouseDown());
    move(inside, Qt::LeftButton);
    EXPECT_EQ(button->shownPicture(), pressed);
    EXPECT_EQ(button->MousePointer(), 99);
    // No MouseOut while the press lasts.
    EXPECT_EQ(taken().filter("MouseOut").size(), 1);
}

TEST_F(PictureButton, AReleaseOutsideIsNoClickAndKeepsNoCapture) {
    move(inside);
    press(inside);
    move(outside, Qt::LeftButton);
    release(outside);
    EXPECT_FALSE(events.contains("Click"));
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_EQ(button->shownPicture(), normal);
}

TEST_F(PictureButton, AReleaseInsideKeepsTheCapture) {
    move(inside);
    press(inside);
    release(inside);
    EXPECT_TRUE(button->MousePosnONOUT());
    EXPECT_EQ(button->shownPicture(), normal);
    move(inside);
    EXPECT_EQ(button->shownPicture(), hlight);
}

TEST_F(PictureButton, OtherHeldButtonsKeepThePictureUntilTheCaptureStep) {
    // A left press elsewhere, dragged over the button: pressed, then the highlight of the hover.
    move(inside, Qt::LeftButton);
    EXPECT_EQ(button->shownPicture(), hlight);
    // With a press of this button in progress, a sum of held buttons changes nothing.
    press(inside);
    move(outside, Qt::LeftButton | Qt::MiddleButton);
    EXPECT_EQ(button->shownPicture(), pressed);
    EXPECT_EQ(taken().last(), QStringLiteral("MouseMove 5 0 900 120"));
}

TEST_F(PictureButton, ShiftStatesArePassedOn) {
    send(QEvent::MouseButtonPress, inside, Qt::LeftButton, Qt::LeftButton,
         Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(taken(), QStringList({"MouseDown 1 7 150 120"}));
}

TEST_F(PictureButton, ADoubleClickRaisesItsEventAndBothClicks) {
    press(inside);
    release(inside);
    send(QEvent::MouseButtonDblClick, inside, Qt::LeftButton, Qt::LeftButton);
    release(inside);
    QStringList kinds;
    for (const QString& event : taken()) {
        kinds.append(event.section(QLatin1Char(' '), 0, 0));
    }
    EXPECT_EQ(kinds, QStringList({"MouseDown", "MouseUp", "Click", "DblClick", "MouseDown",
                                  "MouseUp", "Click"}));
}

TEST_F(PictureButton, SpaceAndEnterFlashItAndClick) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QCoreApplication::processEvents();
        button->painted.clear();
        QTest::keyPress(button.get(), key);
        EXPECT_EQ(taken(), QStringList({"Click"}));
        EXPECT_EQ(button->shownPicture(), normal);
        QCoreApplication::processEvents();
        EXPECT_EQ(button->painted, QList<ButtonPicture>({pressed, normal}));
        QTest::keyRelease(button.get(), key);
    }
    EXPECT_EQ(taken(), QStringList());
}

TEST_F(PictureButton, AHeldKeyClicksOnceAndOtherKeysAreTheForms) {
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(button.get(), &repeated);
    QKeyEvent arrow(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCoreApplication::sendEvent(button.get(), &arrow);
    EXPECT_FALSE(arrow.isAccepted());
    EXPECT_EQ(taken(), QStringList());
}

TEST_F(PictureButton, AClickTakesNoFocus) {
    EXPECT_EQ(button->focusPolicy(), Qt::TabFocus);
}

TEST_F(PictureButton, ADisabledButtonGetsTheDefaultPointerAndNoInput) {
    move(inside);
    button->setEnabled(false);
    EXPECT_EQ(button->MousePointer(), 0);
    EXPECT_EQ(button->cursor().shape(), Qt::ArrowCursor);
    taken();
    QTest::mouseClick(button.get(), Qt::LeftButton, {}, inside);
    QTest::keyClick(button.get(), Qt::Key_Space);
    move(inside);
    EXPECT_EQ(taken(), QStringList());
    EXPECT_FALSE(button->MousePosnONOUT());
}

TEST_F(PictureButton, AButtonWithoutAHighlightShowsNothingThere) {
    button->setPictureHLight(ButtonPicture());
    move(inside);
    EXPECT_TRUE(button->shownPicture().isNull());
    QImage image(32, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    button->render(&image, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(image.pixelColor(16, 12).alpha(), 0);
    move(outside);
    EXPECT_EQ(button->shownPicture(), normal);
}

TEST_F(PictureButton, NothingIsPaintedAnewWithinOneState) {
    move(inside);
    QCoreApplication::processEvents();
    const int before = button->paints;
    move(inside + QPoint(1, 0));
    move(inside + QPoint(2, 3));
    QCoreApplication::processEvents();
    EXPECT_EQ(button->paints, before);
    move(outside);
    QCoreApplication::processEvents();
    EXPECT_EQ(button->paints, before + 1);
}

TEST_F(PictureButton, TheDisabledLookCoversEveryState) {
    button->setDisabledLook(true);
    EXPECT_EQ(button->shownPicture(), disabled);
    move(inside);
    EXPECT_EQ(button->shownPicture(), disabled);
    press(inside);
    EXPECT_EQ(button->shownPicture(), disabled);
    release(inside);
    button->PICPNORMAL();
    EXPECT_EQ(button->shownPicture(), disabled);
    button->setDisabledLook(false);
    EXPECT_EQ(button->shownPicture(), normal);
}

TEST_F(PictureButton, WithoutTheDisabledLookPicdisabledIsNormal) {
    press(inside);
    button->PICDISABLED();
    EXPECT_EQ(button->shownPicture(), normal);
    button->setEnabled(false);
    EXPECT_EQ(button->shownPicture(), normal);
    button->setDisabledLook(true);
    button->PICDISABLED();
    EXPECT_EQ(button->shownPicture(), disabled);
}

TEST_F(PictureButton, SettersStoreTellTheirNameAndRedraw) {
    QSignalSpy changes(button.get(), &picbtn::PropertyChanged);
    const ButtonPicture other = picture("white");
    button->setCAPTION(QStringLiteral("Go"));
    button->setEnabled(true);
    button->setPictureNormal(other);
    EXPECT_EQ(button->shownPicture(), other);
    button->setPictureHLight(other);
    button->setPicturePressed(other);
    button->setPictureDisabled(other);
    QStringList names;
    for (const auto& change : changes) {
        names.append(change.first().toString());
    }
    EXPECT_EQ(names, QStringList({"CAPTION", "ENABLED", "PICTURENORMAL", "PICTUREHLIGHT",
                                  "PICTUREPRESSED", "PICTUREDISABLED"}));
    EXPECT_EQ(button->CAPTION(), QStringLiteral("Go"));
    EXPECT_EQ(button->PictureHLight(), other);
    EXPECT_EQ(button->PicturePressed(), other);
    EXPECT_EQ(button->PictureDisabled(), other);
}

TEST_F(PictureButton, PropertiesComeBackFromTheirBag) {
    button->setCAPTION(QStringLiteral("Go"));
    button->setEnabled(false);
    const QVariantMap bag = button->WriteProperties();
    EXPECT_EQ(bag.keys(), QStringList({"CAPTION", "ENABLED", "PICTUREDISABLED", "PICTUREHLIGHT",
                                       "PICTURENORMAL", "PICTUREPRESSED"}));
    picbtn other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.CAPTION(), QStringLiteral("Go"));
    EXPECT_FALSE(other.Enabled());
    EXPECT_EQ(other.shownPicture(), normal);
    EXPECT_EQ(other.PictureHLight(), hlight);
    EXPECT_EQ(other.PicturePressed(), pressed);
    EXPECT_EQ(other.PictureDisabled(), disabled);
}

TEST_F(PictureButton, AnEmptyBagKeepsTheShownPictureAsTheNormalOne) {
    move(inside);
    button->ReadProperties({});
    EXPECT_EQ(button->PictureNormal(), hlight);
    EXPECT_TRUE(button->PictureHLight().isNull());
    EXPECT_TRUE(button->Enabled());
    EXPECT_EQ(button->CAPTION(), QString());
    EXPECT_EQ(button->shownPicture(), hlight);
}

// The ways a button can go while it holds the mouse.
TEST_F(PictureButton, AHiddenButtonHoldsNothing) {
    move(inside);
    press(inside);
    button->hide();
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_FALSE(button->isMouseDown());
    button->show();
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_EQ(button->MousePointer(), 0);
}

TEST_F(PictureButton, AFormThatHidesOrIsDisabledFreesTheMouse) {
    move(inside);
    form.hide();
    EXPECT_FALSE(button->MousePosnONOUT());
    form.show();
    move(inside);
    ASSERT_TRUE(button->MousePosnONOUT());
    form.setEnabled(false);
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_TRUE(button->Enabled());
}

TEST_F(PictureButton, AWindowThatLosesThePlaceInFrontFreesTheMouse) {
    for (const QEvent::Type type : {QEvent::WindowDeactivate, QEvent::WindowBlocked}) {
        move(inside);
        ASSERT_TRUE(button->MousePosnONOUT());
        QEvent gone(type);
        QCoreApplication::sendEvent(&form, &gone);
        EXPECT_FALSE(button->MousePosnONOUT()) << type;
        EXPECT_EQ(button->shownPicture(), normal);
    }
}

TEST_F(PictureButton, AButtonThatMovesToAnotherFormFreesTheMouse) {
    QWidget other;
    move(inside);
    button->setParent(&other);
    EXPECT_FALSE(button->MousePosnONOUT());
    button->setParent(&form);
}

TEST_F(PictureButton, AHandlerThatHidesOrDisablesItIsNotOvertakenByTheCapture) {
    const auto once = QObject::connect(button.get(), &picbtn::MouseMove,
                                       [&](int, int, float, float) { button->hide(); });
    move(inside);
    EXPECT_FALSE(button->MousePosnONOUT());
    QObject::disconnect(once);
    button->show();
    QObject::connect(button.get(), &picbtn::MouseMove,
                     [&](int, int, float, float) { button->setEnabled(false); });
    move(inside);
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_EQ(button->MousePointer(), 0);
}

TEST_F(PictureButton, ALeaveWithoutAMoveEndsTheHover) {
    QCursor::setPos(form.mapToGlobal(QPoint(190, 90)));
    move(inside);
    taken();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button.get(), &leave);
    EXPECT_FALSE(button->MousePosnONOUT());
    EXPECT_EQ(button->shownPicture(), normal);
    EXPECT_EQ(taken().size(), 2);
    QCoreApplication::sendEvent(button.get(), &leave);
    EXPECT_EQ(taken(), QStringList());
}

// Beyond the right and the lower edge lies a line that belongs to the button and is not in it.
TEST_F(PictureButton, APointerThatStopsAtItsEdgeHasLeft) {
    for (const QPoint& edge : {QPoint(32, 10), QPoint(10, 24)}) {
        QTest::mouseMove(form.windowHandle(), button->mapToParent(inside));
        EXPECT_EQ(button->shownPicture(), hlight);
        QCursor::setPos(button->mapToGlobal(edge));
        QTest::mouseMove(form.windowHandle(), button->mapToParent(edge));
        EXPECT_EQ(button->shownPicture(), normal);
        EXPECT_FALSE(button->MousePosnONOUT());
    }
}

TEST_F(PictureButton, TheTooltipNamesItElseTheCaption) {
    button->setCAPTION(QStringLiteral("Go"));
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Go"));
    button->setToolTip(QStringLiteral("Click to Next Slide"));
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Click to Next Slide"));
}

TEST_F(PictureButton, AssistiveToolsFindAButtonAndPressIt) {
    button->setToolTip(QStringLiteral("Click to Next Slide"));
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(button.get());
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::Button);
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Click to Next Slide"));
    ASSERT_TRUE(
        face->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(taken(), QStringList({"Click"}));
    button->setEnabled(false);
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(taken(), QStringList());
}

TEST_F(PictureButton, ACaptionIsPrintedInTheMiddleWhileEnabled) {
    const auto ink = [this] {
        QImage image(200, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        button->render(&image, {}, {}, QWidget::DrawChildren);
        QRegion region;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                region += image.pixelColor(x, y).alpha() > 60 ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return region.boundingRect();
    };
    button->ReadProperties(
        {{QStringLiteral("PICTURENORMAL"), QVariant::fromValue(ButtonPicture())}});
    button->resize(200, 40);
    EXPECT_TRUE(ink().isEmpty());
    button->setCAPTION(QStringLiteral("HHHH"));
    const QRect printed = ink();
    ASSERT_FALSE(printed.isEmpty());
    EXPECT_NEAR(printed.center().x(), 100, 3);
    EXPECT_NEAR(printed.center().y(), 20, 5);
    button->setEnabled(false);
    EXPECT_TRUE(ink().isEmpty());
}

TEST_F(PictureButton, TheKeyboardsPlaceIsSeen) {
    QImage before(32, 24, QImage::Format_ARGB32_Premultiplied);
    before.fill(Qt::black);
    QImage after = before;
    button->render(&before, {}, {}, QWidget::DrawChildren);
    button->setFocus();
    ASSERT_TRUE(button->hasFocus());
    button->render(&after, {}, {}, QWidget::DrawChildren);
    EXPECT_NE(before, after);
}

// One device pixel of every other column: only a picture drawn for the pixels of the screen keeps
// its columns apart.
TEST(ButtonPictureTest, IsSharpAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const int side = qRound(32 * scale);
        QByteArray svg = QStringLiteral(
                             "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 %1 "
                             "%1' shape-rendering='crispEdges'>")
                             .arg(side)
                             .toUtf8();
        for (int x = 0; x < side; x += 2) {
            svg += QStringLiteral("<rect x='%1' width='1' height='%2' fill='white'/>")
                       .arg(x)
                       .arg(side)
                       .toUtf8();
        }
        const QString path = test::temporaryFolder() + QStringLiteral("/columns.svg");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(svg + "</svg>");
        file.close();

        QImage screen(100, 100, QImage::Format_ARGB32_Premultiplied);
        screen.fill(Qt::black);
        screen.setDevicePixelRatio(scale);
        QPainter painter(&screen);
        // 3 logical pixels are no whole number of device pixels at 1.25 and 1.5.
        ButtonPicture(path).paint(painter, QRectF(3, 3, 32, 32));
        painter.end();
        const int left = qRound(3 * scale);
        for (int x = 0; x < side; ++x) {
            EXPECT_EQ(qGray(screen.pixel(left + x, left + side / 2)), x % 2 == 0 ? 255 : 0)
                << "scale " << scale << " column " << x;
        }
    }
}

TEST(ButtonPictureTest, IsNullWithoutADrawing) {
    EXPECT_TRUE(ButtonPicture().isNull());
    EXPECT_TRUE(ButtonPicture(QStringLiteral("/no/such.svg")).isNull());
    const ButtonPicture one = picture("red");
    EXPECT_EQ(one, ButtonPicture(one));
    EXPECT_NE(one, picture("red"));
}

TEST(ButtonPictureTest, ADamagedFileGivesNoPicture) {
    const QString path = test::temporaryFolder() + QStringLiteral("/damaged.svg");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a drawing");
    file.close();
    test::expectMessage(QStringLiteral("Cannot read file"));
    EXPECT_TRUE(ButtonPicture(path).isNull());
}

}  // namespace
}  // namespace velorama
