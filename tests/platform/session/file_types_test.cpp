#include "platform/session/file_types.h"
#include "support/files.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QDirIterator>
#include <QProcess>
#include <QThreadPool>

namespace velorama {
namespace {

using test::contentOf;
using test::writeFile;

QStringList filesBelow(const QString& folder) {
    QStringList files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        files.append(QDir(folder).relativeFilePath(walk.next()));
    }
    files.sort();
    return files;
}

const QStringList written = {
    QStringLiteral("applications/velorama.desktop"),
    QStringLiteral("icons/hicolor/scalable/apps/velorama.svg"),
    QStringLiteral("icons/hicolor/scalable/mimetypes/application-x-velorama-album.svg"),
    QStringLiteral("mime/packages/velorama.xml"),
};

/// A home and a system of the test's own; the environment is put back at the end.
class FileTypesWorld : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "PATH"}) {
            before.append({name, qgetenv(name)});
        }
        qputenv("XDG_DATA_HOME", data.toUtf8());
        qputenv("XDG_CONFIG_HOME", (place + QStringLiteral("/config")).toUtf8());
        qputenv("XDG_DATA_DIRS", (system + QStringLiteral(":/usr/share")).toUtf8());
        makeProgram(type.program);
    }
    void TearDown() override {
        for (const auto& [name, value] : before) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }

    FileType albumType() const {
        FileType made;
        made.id = QStringLiteral("velorama");
        made.mimeType = QStringLiteral("application/x-velorama-album");
        made.extension = QStringLiteral(".vlr");
        made.description = QStringLiteral("Velorama File");
        made.icon = "<svg/>";
        made.program = place + QStringLiteral("/bin/velorama");
        made.programName = QStringLiteral("Velorama");
        made.programComment = QStringLiteral("Shows");
        made.programIcon = "<svg />";
        return made;
    }
    /// Links and waits until the files are written and the commands are started.
    void link() const {
        makeDesktopFileTypes()->link(type);
        QThreadPool::globalInstance()->waitForDone();
    }
    /// The same of the look at a later start.
    void tidy() const {
        makeDesktopFileTypes()->tidy(type);
        QThreadPool::globalInstance()->waitForDone();
    }

    void makeProgram(const QString& path, const QByteArray& lines = "#!/bin/sh\n") {
        type.program = path;
        writeFile(path, lines);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }
    void makeSystemsOwn() const {
        writeFile(system + u'/' + written[0], "[Desktop Entry]\n");
        writeFile(system + u'/' + written[3], "<mime-info/>\n");
    }

    QString entry() const {
        return QString::fromUtf8(
            contentOf(data + QStringLiteral("/applications/velorama.desktop")));
    }

    const QString place = test::temporaryFolder();
    const QString data = place + QStringLiteral("/data");
    const QString system = place + QStringLiteral("/system");
    FileType type = albumType();
    QList<std::pair<const char*, QByteArray>> before;
};

/// Commands that only note what they were given.
class FakeCommands : public FileTypesWorld {
protected:
    void SetUp() override {
        FileTypesWorld::SetUp();
        const QByteArray note =
            "#!/bin/sh\n"
            "for word in \"$@\"; do printf '%s\\n' \"$word\"; done >\"$0.part\"\n"
            "mv \"$0.part\" \"$0.args\"\n";
        for (const char* command :
             {"update-mime-database", "update-desktop-database", "xdg-mime"}) {
            const QString path = fakes + QLatin1String(command);
            writeFile(path, note);
            QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        }
        qputenv("PATH", fakes.toUtf8() + ":/usr/bin:/bin");
    }
    QByteArray argumentsOf(const char* command) const {
        const QString note = fakes + QLatin1String(command) + QStringLiteral(".args");
        EXPECT_TRUE(test::comesTrue([&] { return QFileInfo::exists(note); })) << command;
        return contentOf(note);
    }
    QStringList notes() const { return QDir(fakes).entryList({QStringLiteral("*.args")}); }

    const QString fakes = place + QStringLiteral("/fakes/");
};

TEST_F(FakeCommands, WritesFourFilesAndTellsTheDatabases) {
    link();
    EXPECT_EQ(filesBelow(data), written);
    EXPECT_EQ(contentOf(data + u'/' + written[1]), "<svg />");
    EXPECT_EQ(contentOf(data + u'/' + written[2]), "<svg/>");
    EXPECT_TRUE(
        entry().contains(QStringLiteral("\nExec=") + type.program + QStringLiteral(" %f\n")));
    EXPECT_EQ(argumentsOf("update-mime-database"), data.toUtf8() + "/mime\n");
    EXPECT_EQ(argumentsOf("update-desktop-database"), data.toUtf8() + "/applications\n");
    EXPECT_EQ(argumentsOf("xdg-mime"), "default\nvelorama.desktop\napplication/x-velorama-album\n");
}

TEST_F(FakeCommands, WhatTheSystemKnowsIsLeftToIt) {
    makeSystemsOwn();
    link();
    EXPECT_EQ(filesBelow(data), QStringList());
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(FakeCommands, HalfKnownIsNotKnown) {
    writeFile(system + u'/' + written[0], "[Desktop Entry]\n");
    link();
    EXPECT_EQ(filesBelow(data), written);
}

TEST_F(FakeCommands, TheUsersOwnEntryStays) {
    const QByteArray own = "[Desktop Entry]\nName=Mine\nX-MadeAtFirstRun=truely\n";
    writeFile(data + u'/' + written[0], own);
    link();
    EXPECT_EQ(filesBelow(data), QStringList(written[0]));
    EXPECT_EQ(entry().toUtf8(), own);
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(FakeCommands, AnEntryOfAnEarlierFirstRunIsReplaced) {
    link();
    makeProgram(place + QStringLiteral("/new/velorama"));
    link();
    EXPECT_TRUE(entry().contains(QStringLiteral("Exec=") + type.program));
}

TEST_F(FakeCommands, WhatIsNoProgramIsNotLinked) {
    for (const QString& none : QStringList{QString(), QStringLiteral("velorama"),
                                           QStringLiteral("C:\\Progs\\velorama.exe"), place,
                                           place + QStringLiteral("/missing")}) {
        type.program = none;
        link();
        EXPECT_EQ(filesBelow(data), QStringList()) << none.toStdString();
    }
}

TEST_F(FakeCommands, ABuildTreeIsNotLinked) {
    writeFile(place + QStringLiteral("/bin/CMakeCache.txt"), "");
    link();
    EXPECT_EQ(filesBelow(data), QStringList());
    EXPECT_EQ(notes(), QStringList());
}

/// An entry that a first run has made, looked at by a later start.
class MadeEntry : public FakeCommands {
protected:
    void SetUp() override {
        FakeCommands::SetUp();
        makeProgram(place + QStringLiteral("/my $(x) \"5%\" \\\\n\tx/velorama"));
        link();
        for (const char* command :
             {"update-mime-database", "update-desktop-database", "xdg-mime"}) {
            argumentsOf(command);
            QFile::remove(fakes + QLatin1String(command) + QStringLiteral(".args"));
        }
        ASSERT_EQ(filesBelow(data), written);
    }
    void expectGone() const {
        EXPECT_EQ(filesBelow(data), QStringList());
        EXPECT_EQ(argumentsOf("update-mime-database"), data.toUtf8() + "/mime\n");
        EXPECT_EQ(argumentsOf("update-desktop-database"), data.toUtf8() + "/applications\n");
    }
};

TEST_F(MadeEntry, StaysWhileItIsTheOnlyOne) {
    tidy();
    EXPECT_EQ(filesBelow(data), written);
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(MadeEntry, GoesWhenTheSystemHasOne) {
    makeSystemsOwn();
    tidy();
    expectGone();
}

TEST_F(MadeEntry, GoesWhenTheSystemHasOneAtTheFirstRunOfThePackage) {
    makeSystemsOwn();
    link();
    expectGone();
}

TEST_F(MadeEntry, StaysWhereTheSystemHasTheEntryWithoutTheType) {
    writeFile(system + u'/' + written[0], "[Desktop Entry]\n");
    tidy();
    EXPECT_EQ(filesBelow(data), written);
}

TEST_F(MadeEntry, GoesWithItsProgram) {
    QFile::remove(type.program);
    makeProgram(place + QStringLiteral("/elsewhere/velorama"));
    tidy();
    expectGone();
}

TEST_F(MadeEntry, GoesWhenItsProgramIsABuildTrees) {
    writeFile(QFileInfo(type.program).path() + QStringLiteral("/CMakeCache.txt"), "");
    tidy();
    expectGone();
}

TEST_F(MadeEntry, GoesAtTheFirstRunOfABuildTreeWhenItsProgramIsGone) {
    QFile::remove(type.program);
    makeProgram(place + QStringLiteral("/tree/velorama"));
    writeFile(place + QStringLiteral("/tree/CMakeCache.txt"), "");
    link();
    expectGone();
}

TEST_F(MadeEntry, StaysOnceTheUserHasMadeItHisOwn) {
    const QByteArray own = "[Desktop Entry]\nTryExec=/none\nX-MadeAtFirstRun=false\n";
    writeFile(data + u'/' + written[0], own);
    makeSystemsOwn();
    tidy();
    EXPECT_EQ(filesBelow(data), written);
    EXPECT_EQ(entry().toUtf8(), own);
}

TEST_F(FakeCommands, NothingIsTidiedWhereNothingWasMade) {
    makeSystemsOwn();
    writeFile(data + u'/' + written[3], "<mime-info/>\n");
    tidy();
    EXPECT_EQ(filesBelow(data), QStringList(written[3]));
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(FakeCommands, AFolderThatTakesNoFilesIsPassedOver) {
    writeFile(data, "a file stands in the way");
    link();
    EXPECT_EQ(contentOf(data), "a file stands in the way");
}

TEST_F(FakeCommands, AbsentCommandsArePassedOver) {
    qputenv("PATH", (place + QStringLiteral("/none")).toUtf8());
    link();
    EXPECT_EQ(filesBelow(data), written);
}

TEST(FileTypes, NullBodyDoesNothing) {
    FileTypes none;
    none.link({});
    none.tidy({});
}

/// The commands of the desktop itself.
class RealCommands : public FileTypesWorld {
protected:
    static QString output(const QString& command, const QStringList& arguments) {
        QProcess process;
        process.start(command, arguments);
        if (!process.waitForFinished() || process.exitCode() != 0) {
            ADD_FAILURE() << command.toStdString() << ": "
                          << process.readAllStandardError().toStdString()
                          << process.readAllStandardOutput().toStdString();
        }
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    void linkAndWait() const {
        link();
        const QStringList results = {data + QStringLiteral("/mime/mime.cache"),
                                     data + QStringLiteral("/applications/mimeinfo.cache"),
                                     place + QStringLiteral("/config/mimeapps.list")};
        for (const QString& result : results) {
            EXPECT_TRUE(test::comesTrue([&] { return QFileInfo(result).size() > 0; }))
                << result.toStdString();
        }
    }
};

TEST_F(RealCommands, EntryAndPackageAreValid) {
    makeProgram(place + QStringLiteral("/my $(x) \"5%\"/velorama"));
    linkAndWait();
    EXPECT_EQ(output(QStringLiteral("desktop-file-validate"), {data + u'/' + written[0]}),
              QString());
    output(QStringLiteral("xmllint"), {QStringLiteral("--noout"), data + u'/' + written[3]});
}

TEST_F(RealCommands, TheDesktopKnowsTypeAndProgram) {
    linkAndWait();
    const QString album = place + QStringLiteral("/my trip.VLR");
    writeFile(album, "1\r\n/a.jpg\r\n");
    const QString mime = QStringLiteral("application/x-velorama-album");
    EXPECT_EQ(output(QStringLiteral("xdg-mime"),
                     {QStringLiteral("query"), QStringLiteral("filetype"), album}),
              mime);
    EXPECT_EQ(output(QStringLiteral("xdg-mime"),
                     {QStringLiteral("query"), QStringLiteral("default"), mime}),
              QStringLiteral("velorama.desktop"));
    EXPECT_TRUE(output(QStringLiteral("gio"), {QStringLiteral("info"), album})
                    .contains(QStringLiteral("standard::content-type: ") + mime));
    EXPECT_TRUE(output(QStringLiteral("gio"), {QStringLiteral("mime"), mime})
                    .contains(QLatin1String("velorama.desktop")));
}

/// Both ways in which desktops open a file reach the program with the file's path to the letter.
class Opening : public RealCommands, public testing::WithParamInterface<const char*> {
protected:
    /// What the program got as its only word, once it has run.
    QString opened(const QStringList& command, const QString& album) const {
        QFile::remove(note());
        output(command.front(), command.mid(1) + QStringList(album));
        EXPECT_TRUE(test::comesTrue([&] { return QFileInfo::exists(note()); }));
        return QString::fromUtf8(contentOf(note()));
    }
    QString note() const { return place + QStringLiteral("/note"); }
    void makeNotingProgram(const QString& path) {
        const QByteArray file = note().toUtf8();
        makeProgram(path, "#!/bin/sh\n{ printf '%s' \"$#:$1\"; } >'" + file + ".part'\nmv '" +
                              file + ".part' '" + file + "'\n");
    }
    QString makeAlbum() const {
        QString album = place + QStringLiteral("/albums ü/") + QString::fromUtf8(GetParam());
        writeFile(album, "0\r\n");
        return album;
    }
    const QStringList xdgOpen = {QStringLiteral("env"), QStringLiteral("DISPLAY=:77"),
                                 QStringLiteral("xdg-open")};
    const QStringList gio = {QStringLiteral("gio"), QStringLiteral("open")};
};

TEST_P(Opening, ReachesAProgramInAPlainPlace) {
    makeNotingProgram(place + QStringLiteral("/bin2/velorama"));
    linkAndWait();
    const QString album = makeAlbum();
    EXPECT_EQ(opened(xdgOpen, album), QStringLiteral("1:") + album);
    EXPECT_EQ(opened(gio, album), QStringLiteral("1:") + album);
}

TEST_P(Opening, ReachesAProgramWhoseOwnPathIsOdd) {
    makeNotingProgram(place + QStringLiteral("/my $(x) `y` \"q\" \\ #;ü/velorama"));
    linkAndWait();
    const QString album = makeAlbum();
    EXPECT_EQ(opened(gio, album), QStringLiteral("1:") + album);
}

INSTANTIATE_TEST_SUITE_P(Names, Opening,
                         testing::Values("trip.vlr", "my  trip.vlr", "it's.vlr", "say \"hi\".vlr",
                                         "100%f %u.vlr", "a%20b.vlr", "#1;2.vlr", "$(touch x).vlr",
                                         "`touch x`.vlr", "$HOME.vlr", "back\\slash.vlr",
                                         "Grüße ☀.vlr", "-v.vlr", "&|<>*?.vlr"),
                         [](const auto& one) { return std::to_string(one.index); });

}  // namespace
}  // namespace velorama
