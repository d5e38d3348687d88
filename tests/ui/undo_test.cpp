#include "ui/window_world.h"

#include <QLineEdit>

namespace velorama {
namespace {

class UndoKeys : public test::WithWindow {
protected:
    UndoKeys() {
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
        start(album(3));
        window->activateWindow();
        all = slides();
        commands().removeAll.trigger();
    }
    static void undo(QWidget& field) { QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier); }
    static void redo(QWidget& field) {
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    ListView& list() { return *slideControls().lvwSLIDEBAR; }

    QStringList all;
};

TEST_F(UndoKeys, WorkWhereverTheKeyboardIs) {
    const QList<QWidget*> places = {&list(),
                                    foundControls().lvwFOUND,
                                    foundControls().ftvFOLDER,
                                    albumControls().lvwALBUMS,
                                    slideBar().cbtnCONTROLS[0],
                                    pages().webAlbum->cboFONTS,
                                    music().lstMUSIC};
    for (QWidget* place : places) {
        undo(*place);
        EXPECT_EQ(slides(), all) << place->objectName().toStdString();
        redo(*place);
        EXPECT_EQ(slides(), QStringList()) << place->objectName().toStdString();
    }
}

TEST_F(UndoKeys, BelongToATextThatIsBeingTyped) {
    QLineEdit& field = *pages().webAlbum->txtTITLE;
    QTest::keyClicks(&field, QStringLiteral("Summer"));
    undo(field);
    EXPECT_EQ(field.text(), QString());
    redo(field);
    EXPECT_EQ(field.text(), QStringLiteral("Summer"));
    EXPECT_EQ(slides(), QStringList());
}

TEST_F(UndoKeys, BelongToACaptionThatIsBeingEdited) {
    undo(list());
    ASSERT_EQ(slides(), all);
    list().setFocus();
    static_cast<QAbstractItemView&>(list()).edit(list().model()->index(0, 0));
    auto* field = list().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    const QString before = field->text();
    QTest::keyClicks(field, QStringLiteral("Mine"));
    undo(*field);
    EXPECT_EQ(field->text(), before);
    redo(*field);
    EXPECT_EQ(field->text(), QStringLiteral("Mine"));
    EXPECT_EQ(slides(), all);
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(list().item(1)->Text(), QStringLiteral("Mine"));
    undo(list());
    EXPECT_EQ(list().item(1)->Text(), before);
}

TEST_F(UndoKeys, DoNothingInAShow) {
    undo(list());
    commands().start.trigger();
    const QPointer<frmSLIDESHOW> show = window->slideShow();
    ASSERT_TRUE(show);
    redo(*show);
    EXPECT_EQ(slides(), all);
    if (show) {
        show->Unload();
    }
}

TEST_F(UndoKeys, ShowTheSlideThatCameBack) {
    undo(list());
    const QString folder = folderWith(QStringList());
    for (int i = 0; i < 60; ++i) {
        list().Add(1, folder + QString::number(i), QString::number(i), 0);
    }
    list().clearSelection();
    list().item(63)->setSelected(true);
    commands().remove.trigger();
    list().scrollToTop();
    undo(list());
    EXPECT_TRUE(
        list().viewport()->rect().contains(list().visualRect(list().currentIndex()).center()));
    EXPECT_EQ(list().currentIndex().row(), 62);
}

}  // namespace
}  // namespace velorama
