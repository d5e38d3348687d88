#include "albums/album_world.h"

#include <QCursor>

namespace velorama {
namespace {

class AlbumHeader : public test::WithAlbums {
protected:
    QString read(const QByteArray& bytes) { return file->DocumentOpenText(album(bytes)); }
    QByteArray oneSlide(const QByteArray& header) {
        return header + "\r\n" + p[0].toUtf8() + "\r\n\r\n";
    }
    QByteArray firstLineAfterSave() {
        file->setTag(test::temporaryFolder() + QStringLiteral("/n.vlr"));
        file->mnuFILESAVE_Click();
        const QByteArray bytes = test::contentOf(file->Tag());
        return bytes.left(bytes.indexOf("\r\n"));
    }
    bool isWaiting() const {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::WaitCursor;
    }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    const QString missing = QStringLiteral("/none/m.vlr");
};

TEST_F(AlbumHeader, theNoteStandsBehindTheBar) {
    for (const QByteArray& header : {QByteArray("5|My note "), QByteArray("5|My note")}) {
        read(oneSlide(header));
        EXPECT_EQ(file->note().trimmed(), QStringLiteral("My note"));
        EXPECT_EQ(prgBARSLIDES->Max(), 5);
        EXPECT_EQ(prgBARSLIDES->Value(), 1);
    }
}

TEST_F(AlbumHeader, withoutABarTheNoteIsEmpty) {
    read(oneSlide("1|Note"));
    ASSERT_EQ(file->note(), QStringLiteral("Note"));
    read(oneSlide("1"));
    EXPECT_EQ(file->note(), QString());
    read(oneSlide("1|Note"));
    read(oneSlide("1| "));
    EXPECT_EQ(file->note(), QString());
}

TEST_F(AlbumHeader, saveWritesTheNoteBackAndABlank) {
    read(oneSlide("9|My note "));
    const QByteArray line = firstLineAfterSave();
    EXPECT_EQ(line, QByteArray("1|My note "));
    file->DocumentOpenText(file->Tag());
    EXPECT_EQ(firstLineAfterSave(), line);
}

TEST_F(AlbumHeader, saveAsDropsTheNoteFromTheFileOnly) {
    read(oneSlide("1|My note "));
    chosen = test::temporaryFolder() + QStringLiteral("/s.vlr");
    file->mnuFILESAVEAS_Click();
    EXPECT_EQ(test::contentOf(chosen), oneSlide("1"));
    EXPECT_EQ(firstLineAfterSave(), QByteArray("1|My note "));
}

TEST_F(AlbumHeader, newAndAMissingAlbumKeepTheNote) {
    read(oneSlide("1|My note "));
    file->mnuFILENEW_Click();
    EXPECT_EQ(file->note(), QStringLiteral("My note"));
    file->DocumentOpenText(missing);
    EXPECT_EQ(file->note(), QStringLiteral("My note"));
    EXPECT_EQ(firstLineAfterSave(), QByteArray("0|My note "));
}

TEST_F(AlbumHeader, aSecondBarStaysInTheNote) {
    read(oneSlide("1|a|b"));
    EXPECT_EQ(file->note(), QStringLiteral("a|"));
    EXPECT_EQ(firstLineAfterSave(), QByteArray("1|a| "));
}

TEST_F(AlbumHeader, aCommaCutsTheNote) {
    read("1|Rome, Italy \r\n" + p[0].toUtf8() + "\r\n\r\n");
    EXPECT_EQ(file->note(), QStringLiteral("Rome"));
    EXPECT_EQ(keys(), QStringList("Italy, " + p[0] + "," + p[0]));
}

TEST_F(AlbumHeader, aQuotedFirstLineKeepsItsComma) {
    read(oneSlide("\"1|Rome, Italy\""));
    EXPECT_EQ(file->note(), QStringLiteral("Rome, Italy"));
    EXPECT_EQ(keys(), QStringList(p[0]));
}

TEST_F(AlbumHeader, theCountIsForTheBarAlone) {
    struct Row {
        const char* header;
        float max;
        float value;
    };
    for (const Row& row :
         {Row{"3", 3, 3}, Row{"10", 10, 3}, Row{"2.5", 2.5F, 2}, Row{"7|x", 7, 3}}) {
        prgBARSLIDES->setMax(100);
        read(row.header + formA(p).mid(1));
        EXPECT_EQ(lvwSLIDEBAR->Count(), 3) << row.header;
        EXPECT_EQ(prgBARSLIDES->Max(), row.max) << row.header;
        EXPECT_EQ(prgBARSLIDES->Value(), row.value) << row.header;
    }
}

TEST_F(AlbumHeader, aCountThatTheBarRefusesLeavesItsMaximum) {
    for (const char* header : {"0", "-1", "none", "", "|note"}) {
        prgBARSLIDES->setMax(50);
        read(header + formA(p).mid(1));
        EXPECT_EQ(keys(), p) << header;
        EXPECT_EQ(prgBARSLIDES->Max(), 50) << header;
        EXPECT_EQ(prgBARSLIDES->Value(), 3) << header;
    }
}

TEST_F(AlbumHeader, theBarIsUpWhileTheAlbumIsRead) {
    bool up = false;
    bool hidden = false;
    bool waiting = false;
    test::atNextYield([&] {
        up = !prgBARSLIDES->isHidden();
        hidden = lvwSLIDEBAR->isHidden();
        waiting = isWaiting();
    });
    read(formA(p));
    EXPECT_TRUE(up);
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(waiting);
    EXPECT_TRUE(prgBARSLIDES->isHidden());
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AlbumHeader, theBarStaysForAnAlbumThatIsNotThere) {
    for (const QString& path : {missing, QString(), test::temporaryFolder()}) {
        prgBARSLIDES->hide();
        prgBARSLIDES->setValue(7);
        file->DocumentOpenText(path);
        EXPECT_FALSE(prgBARSLIDES->isHidden()) << path.toStdString();
        EXPECT_EQ(prgBARSLIDES->Value(), 0) << path.toStdString();
        EXPECT_FALSE(lvwSLIDEBAR->isHidden()) << path.toStdString();
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << path.toStdString();
    }
}

TEST_F(AlbumHeader, theNextReadTakesTheBarDownAgain) {
    file->DocumentOpenText(missing);
    read(formA(p));
    EXPECT_TRUE(prgBARSLIDES->isHidden());
}

TEST_F(AlbumHeader, eventsRunAfterEachSlide) {
    QList<int> counts;
    for (const int count : {1, 2, 3}) {
        atSlide(count, [&, count] { counts.append(count * 10 + lvwSLIDEBAR->Count()); });
    }
    read(formA(p));
    EXPECT_EQ(counts, QList<int>({11, 22, 33}));
}

}  // namespace
}  // namespace velorama
