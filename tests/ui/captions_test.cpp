#include "core/frm_helpmessagebox.h"
#include "shell/frm_helpabout.h"
#include "shell/frm_helpcenter.h"
#include "shell/frm_helpcheckupdate.h"
#include "ui/dialogs/frm_picturepreview.h"
#include "ui/dialogs/frm_resourcewait.h"
#include "ui/window_world.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>

namespace velorama {
namespace {

/// A text of another language, longer by half.
QString longer(const QString& text) {
    QString more = text.left(text.size() / 2);
    return text + more.remove(QLatin1Char('&'));
}

void lengthen(QWidget& form) {
    for (auto* button : form.findChildren<QAbstractButton*>()) {
        button->setText(longer(button->text()));
    }
    for (auto* label : form.findChildren<QLabel*>()) {
        if (!label->text().isEmpty()) {
            label->setText(longer(label->text()));
        }
    }
    for (auto* group : form.findChildren<QGroupBox*>()) {
        group->setTitle(longer(group->title()));
    }
    for (auto* strip : form.findChildren<tab*>()) {
        QStringList captions = strip->ActiveTabs().split(QLatin1Char(','));
        for (QString& caption : captions) {
            caption = longer(caption);
        }
        strip->setActiveTabs(captions.join(QLatin1Char(',')));
    }
}

std::string nameOf(const QWidget& control) {
    return control.parentWidget()->objectName().toStdString() + " " +
           control.objectName().toStdString();
}

struct CaptionCase {
    qreal points;
    bool lengthened;
    friend void PrintTo(const CaptionCase& each, std::ostream* out) {
        *out << each.points << " pt" << (each.lengthened ? ", lengthened" : "");
    }
};

/// Every captioned control of every form is asked what its caption needs.
class Captions : public test::WithMenus, public testing::WithParamInterface<CaptionCase> {
protected:
    Captions() { useFont(GetParam().points); }
    ~Captions() override {
        window.reset();
        QApplication::setFont(usual_);
    }

    // Logical pixels: the row at the foot of a page, and the lowest of a column in the smallest
    // window.
    static constexpr int usualHeight = 26;
    static constexpr int smallHeight = 13;

    void useFont(qreal points) {
        QFont font = usual_;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        QApplication::processEvents();
    }

    void expectPages(int leastHeight) {
        for (Page* page : pages().all()) {
            page->show();
            page->raise();
            window->Form_Resize();
            QApplication::processEvents();
            expectButtons(*page, leastHeight);
            expectLabels(*page, leastHeight);
            page->hide();
        }
    }

    static void prepare(QWidget& form) {
        if (GetParam().lengthened) {
            lengthen(form);
        }
        // As a form that comes up with these texts.
        for (const QWidget* part : form.findChildren<QWidget*>()) {
            if (part->layout() != nullptr) {
                part->layout()->invalidate();
                part->layout()->activate();
            }
        }
        if (form.layout() != nullptr) {
            form.layout()->invalidate();
            form.layout()->activate();
        }
        QApplication::processEvents();
    }

    static void expectButtons(const QWidget& form, int leastHeight = usualHeight) {
        for (const auto* button : form.findChildren<QAbstractButton*>()) {
            if (button->text().isEmpty() || !button->isVisible()) {
                continue;
            }
            EXPECT_GE(button->width(), button->sizeHint().width()) << nameOf(*button);
            EXPECT_GE(button->height(), qMin(leastHeight, button->fontMetrics().height()))
                << nameOf(*button);
        }
    }
    // Those that paint themselves, in whose place stands what has no fixed length, are elided and
    // have a tooltip; their letters are whole.
    static void expectOwnLabels(const QWidget& form, int leastHeight) {
        for (const auto* label : form.findChildren<Label*>()) {
            const bool isSample = label->objectName().contains(QLatin1String("COL"));
            if (!label->isVisible() || label->Caption().isEmpty() || isSample) {
                continue;
            }
            EXPECT_GE(label->height(), qMin(leastHeight, label->fontMetrics().height()))
                << nameOf(*label);
        }
    }
    static void expectLabels(const QWidget& form, int leastHeight = usualHeight) {
        expectOwnLabels(form, leastHeight);
        for (const auto* label : form.findChildren<QLabel*>()) {
            if (label->text().isEmpty() || !label->isVisible()) {
                continue;
            }
            if (label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << nameOf(*label);
                EXPECT_GE(label->width(), label->minimumSizeHint().width()) << nameOf(*label);
            } else {
                EXPECT_GE(label->width(), label->sizeHint().width()) << nameOf(*label);
                EXPECT_GE(label->height(), label->sizeHint().height()) << nameOf(*label);
            }
        }
        for (const auto* group : form.findChildren<QGroupBox*>()) {
            EXPECT_GE(group->width(), group->fontMetrics().horizontalAdvance(group->title()))
                << nameOf(*group);
        }
    }
    void expectApart();
    static void expectWhole(QWidget& form) {
        prepare(form);
        expectButtons(form);
        expectLabels(form);
    }
    static void expectWholeWhenShown(QWidget& form) {
        form.show();
        expectWhole(form);
        form.hide();
    }

private:
    QFont usual_ = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(Sizes, Captions,
                         testing::Values(CaptionCase{9, false}, CaptionCase{9, true},
                                         CaptionCase{11, false}, CaptionCase{11, true},
                                         CaptionCase{14, false}, CaptionCase{14, true},
                                         CaptionCase{20, false}, CaptionCase{20, true}));

TEST_P(Captions, OfThePagesAreWhole) {
    start(album(2));
    for (int number = 1; number <= 5; ++number) {
        pages().tabPAGES->setActiveTab(number);
        pages().show(number);
    }
    prepare(*window);
    expectPages(usualHeight);
    const tab& strip = *pages().tabPAGES;
    EXPECT_LE(strip.parts(strip.Tabcount()).right.right(), Width(strip));
}

TEST_P(Captions, AreWholeInTheSmallestWindow) {
    start(album(2));
    window->resize(window->minimumSize());
    prepare(*window);
    expectPages(smallHeight);
}

TEST_P(Captions, AreWholeWhenTheDesktopChangesItsFont) {
    useFont(9);
    start(album(2));
    prepare(*window);
    useFont(GetParam().points);
    expectPages(usualHeight);
}

void Captions::expectApart() {
    for (Page* page : pages().all()) {
        page->show();
        window->Form_Resize();
        QList<QWidget*> shown = page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        shown.removeIf([](const QWidget* control) { return !control->isVisible(); });
        for (const QWidget* control : shown) {
            EXPECT_TRUE(page->rect().contains(control->geometry())) << nameOf(*control);
            for (const QWidget* other : shown) {
                EXPECT_TRUE(control == other || !control->geometry().intersects(other->geometry()))
                    << nameOf(*control) << " over " << nameOf(*other);
            }
        }
        page->hide();
    }
}

// What grows pushes its neighbours and stays on its page.
TEST_P(Captions, OfThePagesLeaveOneAnotherRoom) {
    if (GetParam().lengthened && GetParam().points > 14) {
        GTEST_SKIP() << "half as long again, such captions are wider than the window";
    }
    start(album(2));
    prepare(*window);
    expectApart();
}

TEST_P(Captions, LeaveOneAnotherRoomInTheSmallestWindow) {
    if (GetParam().lengthened) {
        GTEST_SKIP() << "half as long again, the captions of a row are wider than the window";
    }
    start(album(2));
    window->resize(window->minimumSize());
    prepare(*window);
    expectApart();
}

TEST_P(Captions, OfTheDialogsAreWhole) {
    start();
    frmTOOLSSETTINGS settings(window.get(), QString(), *albumControls().lvwALBUMS);
    expectWholeWhenShown(settings);
    frmPICTUREPREVIEW preview(window.get());
    expectWholeWhenShown(preview);
    frmRESOURCEWAIT wait(window.get());
    expectWholeWhenShown(wait);
    frmHELPABOUT about(window.get(), QIcon());
    expectWholeWhenShown(about);
    frmHELPCHECKUPDATE update(window.get());
    expectWholeWhenShown(update);
    frmHELPCENTER center;
    expectWholeWhenShown(center);
}

TEST_P(Captions, OfTheMessagesAreWhole) {
    start();
    for (const bool question : {false, true}) {
        test::Presser presser(question ? QStringLiteral("btnCANCEL") : QStringLiteral("btnOK"));
        presser.look = [](QWidget& form) { expectWhole(form); };
        if (question) {
            gStatus->MessageBoxQuestionOpen(6, QStringLiteral("/home/ann/Pictures/garden.vlr"));
        } else {
            gStatus->MessageBoxOpen(8, QStringLiteral("/home/ann/Pictures/garden.vlr"));
        }
        EXPECT_EQ(presser.forms.size(), 1);
    }
}

}  // namespace
}  // namespace velorama
