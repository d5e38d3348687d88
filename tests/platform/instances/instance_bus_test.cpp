#include "platform/instances/instance_bus.h"
#include "platform/instances/message_frame.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <cstring>
#include <vector>

namespace velorama {
namespace {

mode_t modeOf(const QString& path) {
    struct stat state = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &state), 0) << path.toStdString();
    return state.st_mode & 0777U;
}

/// What a process that was killed leaves behind: a socket that nobody listens at, and its title.
void leaveDeadSocket(const QString& path, const QString& title) {
    const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    ASSERT_EQ(::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ::close(handle);
    QFile file(path + QStringLiteral(".title"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(title.toUtf8());
}

class Bus : public testing::Test {
protected:
    std::unique_ptr<InstanceBus> bus(qint64 process) const {
        return makeInstanceBus(folder, process);
    }
    InstanceBus::Receiver keep() {
        return [this](const QString& text) { received.append(text); };
    }
    QString socketPath(const char* name) const { return folder + u'/' + QLatin1String(name); }
    QStringList names() const {
        return QDir(folder).entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    }
    /// Writes bytes as a program would that does not know the form.
    void writeRaw(const QByteArray& bytes) const {
        QLocalSocket socket;
        socket.connectToServer(socketPath("5-100"));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write(bytes);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(100)) {
            QCoreApplication::processEvents();
        }
        socket.abort();
    }
    bool waitForCount(int count) const {
        return test::comesTrue([&] { return received.size() >= count; });
    }

    const QString folder = [] {
        QString path = test::temporaryFolder();
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }();
    QStringList received;
};

TEST(TitlePattern, EndsInAWildcardOrFitsWhole) {
    const QString name = QStringLiteral("Velorama");
    const QString open = QStringLiteral("Velorama - /a/trip.vlr");
    const QString pattern = QStringLiteral("Velorama *");
    EXPECT_TRUE(fitsTitle(open, pattern));
    EXPECT_FALSE(fitsTitle(name, pattern));
    EXPECT_FALSE(fitsTitle(QStringLiteral("Veloramax"), pattern));
    EXPECT_TRUE(fitsTitle(QStringLiteral("Velorama "), pattern));
    EXPECT_TRUE(fitsTitle(name, name));
    EXPECT_FALSE(fitsTitle(open, name));
    EXPECT_FALSE(fitsTitle(QStringLiteral("abc"), QStringLiteral("a*")));
    EXPECT_TRUE(fitsTitle(QStringLiteral("a*"), QStringLiteral("a*")));
    EXPECT_FALSE(fitsTitle(QStringLiteral("x trip"), QStringLiteral("? *")));
}

TEST_F(Bus, AloneThereIsNobody) {
    const auto own = bus(100);
    EXPECT_FALSE(own->othersRun());
    EXPECT_TRUE(own->bind(5, QStringLiteral("Velorama"), keep()));
    EXPECT_FALSE(own->othersRun());
    EXPECT_EQ(own->find(QStringLiteral("Velorama")), 0U);
    EXPECT_FALSE(own->send(QStringLiteral("a"), 5));
    EXPECT_FALSE(own->send(QStringLiteral("a"), 0));
}

TEST_F(Bus, NamesTheSocketByItsWindowForTheUserAlone) {
    const auto own = bus(100);
    ASSERT_TRUE(own->bind(5, QStringLiteral("Velorama"), keep()));
    EXPECT_EQ(names(), QStringList({QStringLiteral("5-100"), QStringLiteral("5-100.title")}));
    EXPECT_EQ(modeOf(socketPath("5-100")) & 077U, 0U);
    EXPECT_EQ(modeOf(socketPath("5-100.title")), 0600U);
}

TEST_F(Bus, TakesItsFilesAwayAtTheEnd) {
    {
        const auto own = bus(100);
        ASSERT_TRUE(own->bind(5, QStringLiteral("Velorama"), keep()));
    }
    EXPECT_EQ(names(), QStringList());
}

TEST_F(Bus, OthersAreFoundByTheirTitles) {
    const auto first = bus(100);
    first->bind(5, QStringLiteral("Velorama"), keep());
    const auto second = bus(200);
    EXPECT_TRUE(second->othersRun());
    EXPECT_EQ(second->find(QStringLiteral("Velorama *")), 0U);
    EXPECT_EQ(second->find(QStringLiteral("Velorama")), 5U);
    first->setTitle(QStringLiteral("Velorama - /a/\u00fc b.vlr"));
    EXPECT_EQ(second->find(QStringLiteral("Velorama *")), 5U);
    EXPECT_EQ(second->find(QStringLiteral("Velorama")), 0U);
}

TEST_F(Bus, TheOldestOfSeveralIsFound) {
    const auto first = bus(300);
    first->bind(9, QStringLiteral("Velorama"), keep());
    // Two sockets of one clock tick would be equally old.
    ASSERT_TRUE(test::comesTrue([&] {
        const auto made = QFileInfo(socketPath("9-300")).lastModified();
        return made.msecsTo(QDateTime::currentDateTime()) > 20;
    }));
    const auto second = bus(100);
    second->bind(5, QStringLiteral("Velorama"), keep());
    EXPECT_EQ(bus(200)->find(QStringLiteral("Velorama")), 9U);
}

TEST_F(Bus, ATextReachesTheWindowItIsFor) {
    const auto first = bus(100);
    first->bind(5, QStringLiteral("Velorama"), keep());
    const auto second = bus(200);
    QStringList seconds;
    second->bind(6, QStringLiteral("Velorama"), [&](const QString& text) { seconds.append(text); });
    EXPECT_TRUE(second->send(QStringLiteral("/a/\u00fc b.vlr"), 5));
    EXPECT_TRUE(second->send(QString(), 5));
    ASSERT_TRUE(waitForCount(2));
    EXPECT_EQ(received, QStringList({QStringLiteral("/a/\u00fc b.vlr"), QString()}));
    EXPECT_EQ(seconds, QStringList());
    EXPECT_FALSE(second->send(QStringLiteral("a"), 7));
}

// On some systems each process counts its windows from 1.
TEST_F(Bus, EqualNumbersOfTwoProcessesAreTwoWindows) {
    const auto first = bus(100);
    ASSERT_TRUE(first->bind(5, QStringLiteral("Velorama"), keep()));
    const auto second = bus(200);
    ASSERT_TRUE(second->bind(5, QStringLiteral("Velorama"), {}));
    EXPECT_TRUE(second->send(QStringLiteral("a"), 5));
    EXPECT_TRUE(waitForCount(1));
}

TEST_F(Bus, ATextGoesToTheWindowThatWasFoundAndToNoOtherOfItsNumber) {
    QStringList others;
    const auto first = bus(100);
    first->bind(5, QStringLiteral("Velorama - a"), [&](const QString& text) { others += text; });
    auto second = bus(200);
    second->bind(5, QStringLiteral("Velorama - b"), keep());
    const auto third = bus(300);
    for (const char* title : {"Velorama - b", "Velorama - a", "Velorama - b"}) {
        EXPECT_EQ(third->find(QLatin1String(title)), 5U);
        EXPECT_TRUE(third->send(QLatin1String(title), 5));
    }
    ASSERT_TRUE(waitForCount(2));
    ASSERT_TRUE(test::comesTrue([&] { return !others.isEmpty(); }));
    EXPECT_EQ(received,
              QStringList({QStringLiteral("Velorama - b"), QStringLiteral("Velorama - b")}));
    EXPECT_EQ(others, QStringList(QStringLiteral("Velorama - a")));
    // Gone in between, it has no heir.
    second.reset();
    EXPECT_FALSE(third->send(QStringLiteral("a"), 5));
    // A number that was not found here is the oldest window's.
    EXPECT_EQ(third->find(QStringLiteral("Velorama - b")), 0U);
    EXPECT_TRUE(third->send(QStringLiteral("a"), 5));
}

TEST_F(Bus, TheLongestTextPassesAndNoLonger) {
    const auto first = bus(100);
    first->bind(5, QStringLiteral("Velorama"), keep());
    const auto second = bus(200);
    EXPECT_TRUE(second->send(QString(65536, u'x'), 5));
    EXPECT_FALSE(second->send(QString(65537, u'x'), 5));
    ASSERT_TRUE(waitForCount(1));
    EXPECT_EQ(received, QStringList(QString(65536, u'x')));
}

TEST_F(Bus, ADeadSocketIsNoHindranceAndIsTakenAway) {
    leaveDeadSocket(socketPath("5-99"), QStringLiteral("Velorama"));
    const auto own = bus(100);
    EXPECT_FALSE(own->othersRun());
    EXPECT_EQ(names(), QStringList());
    leaveDeadSocket(socketPath("5-99"), QStringLiteral("Velorama"));
    EXPECT_EQ(own->find(QStringLiteral("Velorama")), 0U);
    EXPECT_EQ(names(), QStringList());
    leaveDeadSocket(socketPath("5-99"), QStringLiteral("Velorama"));
    EXPECT_FALSE(own->send(QStringLiteral("a"), 5));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(Bus, BindingTakesDeadSocketsAwayAndLeavesLiveOnes) {
    const auto first = bus(100);
    first->bind(5, QStringLiteral("Velorama"), keep());
    leaveDeadSocket(socketPath("7-99"), QStringLiteral("Velorama"));
    const auto second = bus(200);
    EXPECT_TRUE(second->bind(6, QStringLiteral("Velorama"), {}));
    EXPECT_EQ(names().filter(QStringLiteral("7-99")), QStringList());
    EXPECT_TRUE(second->othersRun());
}

TEST_F(Bus, AnEarlierProcessOfTheSameNumberIsNoHindrance) {
    leaveDeadSocket(socketPath("5-100"), QStringLiteral("Velorama"));
    const auto own = bus(100);
    ASSERT_TRUE(own->bind(5, QStringLiteral("Velorama"), keep()));
    EXPECT_TRUE(bus(200)->send(QStringLiteral("a"), 5));
    EXPECT_TRUE(waitForCount(1));
}

TEST_F(Bus, OtherThingsInTheFolderAreLeftAlone) {
    for (const char* name : {"notes", "5-", "-5", "5-x", "12345678901-5", "7-99"}) {
        QFile file(socketPath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ASSERT_EQ(::mkfifo(QFile::encodeName(socketPath("8-99.title")).constData(), 0600), 0);
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("9-99")));
    const QStringList before = names();
    const auto own = bus(100);
    EXPECT_FALSE(own->othersRun());
    EXPECT_EQ(own->find(QStringLiteral("Velorama")), 0U);
    EXPECT_EQ(names(), before);
}

TEST_F(Bus, ATitleThatIsAPipeKeepsNobodyWaiting) {
    QLocalServer other;
    ASSERT_TRUE(other.listen(socketPath("8-99")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(socketPath("8-99.title")).constData(), 0600), 0);
    EXPECT_EQ(bus(100)->find(QStringLiteral("Velorama")), 0U);
    EXPECT_TRUE(bus(100)->othersRun());
}

TEST_F(Bus, HostileBytesDoNoHarm) {
    const auto own = bus(100);
    own->bind(5, QStringLiteral("Velorama"), keep());
    const std::vector<QByteArray> all = {
        {},
        QByteArray(3, '\0'),
        QByteArray(4, '\xFF'),
        "GET / HTTP/1.1\r\n\r\n",
        QByteArray("\0\0\0\x02\xFF\xFE", 6),
        QByteArray("\0\0\0\x09half", 8),
        QByteArray(300000, 'x'),
        QByteArray(300000, '\0'),
        messageFrame(QStringLiteral("a")) + QByteArray(100000, 'y'),
    };
    for (const QByteArray& bytes : all) {
        writeRaw(bytes);
    }
    EXPECT_TRUE(bus(200)->send(QStringLiteral("good"), 5));
    ASSERT_TRUE(test::comesTrue([&] { return received.contains(QStringLiteral("good")); }));
    for (const QString& text : received) {
        EXPECT_TRUE(text.isEmpty() || text == QLatin1String("a") || text == QLatin1String("good"))
            << text.size();
    }
}

TEST_F(Bus, AManyfoldOfSilentCallersIsCutOff) {
    const auto own = bus(100);
    own->bind(5, QStringLiteral("Velorama"), keep());
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 20; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(socketPath("5-100"));
        ASSERT_TRUE(silent.back()->waitForConnected());
    }
    const auto open = [&silent] {
        return std::count_if(silent.begin(), silent.end(), [](const auto& one) {
            return one->state() == QLocalSocket::ConnectedState;
        });
    };
    EXPECT_TRUE(test::comesTrue([&] { return open() <= 8; }));
    // Those that still stand are cut off after a while, and there is room again.
    EXPECT_TRUE(test::comesTrue([&] { return open() == 0; }));
    EXPECT_TRUE(bus(200)->send(QStringLiteral("a"), 5));
    EXPECT_TRUE(waitForCount(1));
}

TEST_F(Bus, WithoutAFolderThereIsNone) {
    const auto own = makeInstanceBus(QString(), 100);
    EXPECT_FALSE(own->bind(5, QStringLiteral("Velorama"), keep()));
    own->setTitle(QStringLiteral("Velorama"));
    EXPECT_FALSE(own->othersRun());
    EXPECT_EQ(own->find(QStringLiteral("Velorama")), 0U);
    EXPECT_FALSE(own->send(QStringLiteral("a"), 5));
}

TEST_F(Bus, AFolderWithTooLongANameIsNone) {
    const QString deep = folder + u'/' + QString(120, u'd');
    QDir().mkpath(deep);
    const auto own = makeInstanceBus(deep, 100);
    EXPECT_FALSE(own->bind(5, QStringLiteral("Velorama"), keep()));
    own->setTitle(QStringLiteral("Velorama"));
    EXPECT_EQ(QDir(deep).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

class Folder : public testing::Test {
protected:
    void SetUp() override {
        qputenv("XDG_RUNTIME_DIR", (place + QStringLiteral("/run")).toUtf8());
        qputenv("TMPDIR", (place + QStringLiteral("/tmp")).toUtf8());
        QDir(place).mkdir(QStringLiteral("run"));
        QDir(place).mkdir(QStringLiteral("tmp"));
    }
    void TearDown() override {
        qputenv("XDG_RUNTIME_DIR", runtime);
        if (temporary.isNull()) {
            qunsetenv("TMPDIR");
        } else {
            qputenv("TMPDIR", temporary);
        }
    }

    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray temporary = qgetenv("TMPDIR");
    const QString place = test::temporaryFolder();
    const QString inRuntime = place + QStringLiteral("/run/velorama");
    const QString inTemporary =
        place + QStringLiteral("/tmp/velorama-") + QString::number(::geteuid());
};

TEST_F(Folder, IsMadeForTheUserAlone) {
    EXPECT_EQ(instanceFolder(), inRuntime);
    EXPECT_EQ(modeOf(inRuntime), 0700U);
    EXPECT_EQ(instanceFolder(), inRuntime);
}

TEST_F(Folder, LiesWithTheTemporaryFilesWithoutARuntimeFolder) {
    for (const QByteArray& none :
         {QByteArray(), QByteArray("relative"), QByteArray("/none/here")}) {
        qputenv("XDG_RUNTIME_DIR", none);
        EXPECT_EQ(instanceFolder(), inTemporary) << none.toStdString();
        EXPECT_EQ(modeOf(inTemporary), 0700U);
    }
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(instanceFolder(), inTemporary);
}

TEST_F(Folder, ThatOthersMayEnterIsNotUsed) {
    QDir().mkpath(inRuntime);
    QDir().mkpath(inTemporary);
    ::chmod(QFile::encodeName(inRuntime).constData(), 0755);
    ::chmod(QFile::encodeName(inTemporary).constData(), 0700);
    EXPECT_EQ(instanceFolder(), inTemporary);
    ::chmod(QFile::encodeName(inTemporary).constData(), 0770);
    EXPECT_EQ(instanceFolder(), QString());
}

TEST_F(Folder, ThatIsALinkOrAFileIsNotUsed) {
    qunsetenv("XDG_RUNTIME_DIR");
    QDir(place).mkdir(QStringLiteral("elsewhere"));
    ::chmod(QFile::encodeName(place + QStringLiteral("/elsewhere")).constData(), 0700);
    ASSERT_TRUE(QFile::link(place + QStringLiteral("/elsewhere"), inTemporary));
    EXPECT_EQ(instanceFolder(), QString());
    QFile::remove(inTemporary);
    QFile file(inTemporary);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(instanceFolder(), QString());
}

TEST_F(Folder, OfAnotherUserIsNotUsed) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser gives folders away";
    }
    qunsetenv("XDG_RUNTIME_DIR");
    QDir().mkpath(inTemporary);
    ::chmod(QFile::encodeName(inTemporary).constData(), 0700);
    ASSERT_EQ(::chown(QFile::encodeName(inTemporary).constData(), 12345, 12345), 0);
    EXPECT_EQ(instanceFolder(), QString());
}

}  // namespace
}  // namespace velorama
