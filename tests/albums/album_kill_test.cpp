#include "albums/album_world.h"

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <random>

namespace velorama {
namespace {

class AlbumKill : public test::WithAlbums {
protected:
    static constexpr int slides = 3000;

    void fillAlbum(const QString& name) {
        lvwSLIDEBAR->Clear();
        QStringList paths;
        for (int i = 1; i <= slides; ++i) {
            paths.append(QStringLiteral("/pictures/%1/%2.jpg").arg(name).arg(i));
        }
        fill(paths);
    }
    /// The whole file of the list as it stands.
    QByteArray wholeFile() { return QByteArray::number(slides) + "| \r\n" + formA(keys()).mid(6); }

    /// Saves two albums in turn and tells of each save, until it is killed.
    [[noreturn]] void saveUntilKilled(int told) {
        for (int turn = 0;; ++turn) {
            lvwSLIDEBAR->item(1)->setKey(turn % 2 == 0 ? even : odd);
            file->mnuFILESAVE_Click();
            if (::write(told, "s", 1) != 1) {
                std::_Exit(1);
            }
        }
    }

    const QString even = QStringLiteral("/pictures/even.jpg");
    const QString odd = QStringLiteral("/pictures/odd.jpg");
};

// True if the victim had saved at least once before it was killed.
bool killAfter(pid_t victim, int told, unsigned microseconds) {
    char sign = 0;
    const bool saved = ::read(told, &sign, 1) == 1;
    ::usleep(microseconds);
    ::kill(victim, SIGKILL);
    ::waitpid(victim, nullptr, 0);
    return saved;
}

TEST_F(AlbumKill, leavesTheOldAlbumOrTheNewOneWhole) {
    const QString path = test::temporaryFolder() + QStringLiteral("/a.vlr");
    file->setTag(path);
    fillAlbum(QStringLiteral("kill"));
    lvwSLIDEBAR->item(1)->setKey(even);
    const QByteArray evenFile = wholeFile();
    lvwSLIDEBAR->item(1)->setKey(odd);
    const QByteArray oddFile = wholeFile();
    ASSERT_NE(evenFile, oddFile);

    // A save lets events run, and the victims have no threads to paint with.
    form.hide();
    QCoreApplication::processEvents();
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        int ends[2] = {};
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t victim = ::fork();
        if (victim == 0) {
            saveUntilKilled(ends[1]);
        }
        ::close(ends[1]);
        EXPECT_TRUE(killAfter(victim, ends[0], random() % 8000U)) << round;
        ::close(ends[0]);
        const QByteArray found = test::contentOf(path);
        ASSERT_TRUE(found == evenFile || found == oddFile)
            << "round " << round << ": " << found.size() << " bytes";
    }
}

}  // namespace
}  // namespace velorama
