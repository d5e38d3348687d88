#include "platform/files/private_files.h"

#include "platform/files/folder_world.h"
#include "support/files.h"

#include <sys/stat.h>

namespace velorama {
namespace {

class PrivateFiles : public testing::Test, protected test::WithFolder {
protected:
    QString make(const QString& name, mode_t mode) const {
        test::writeFile(path(name));
        EXPECT_EQ(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
        return path(name);
    }
    QString makeFolder(const QString& name, mode_t mode) const {
        EXPECT_TRUE(QDir().mkpath(path(name)));
        EXPECT_EQ(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
        return path(name);
    }
    static mode_t modeOf(const QString& path) {
        struct stat state = {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0) << path.toStdString();
        return state.st_mode & 07777U;
    }
};

TEST_F(PrivateFiles, OthersLoseTheirRightsAndTheUserNone) {
    for (const auto& [before, after] :
         {std::pair(0666U, 0600U), std::pair(0755U, 0700U), std::pair(0444U, 0400U)}) {
        const QString file = make(QStringLiteral("a"), before);
        closeToOthers(file);
        EXPECT_EQ(modeOf(file), after);
        QFile::remove(file);
    }
    const QString common = makeFolder(QStringLiteral("common"), 01777);
    closeToOthers(common);
    EXPECT_EQ(modeOf(common), 01777U);
}

TEST_F(PrivateFiles, WhatALinkLeadsToKeepsItsRights) {
    const QString file = make(QStringLiteral("file"), 0644);
    const QString place = makeFolder(QStringLiteral("folder"), 0755);
    for (const QString& target : {file, place}) {
        const QString link = target + QStringLiteral(".link");
        ASSERT_TRUE(QFile::link(target, link));
        const mode_t before = modeOf(target);
        closeToOthers(link);
        EXPECT_EQ(modeOf(target), before) << target.toStdString();
    }
}

TEST_F(PrivateFiles, AFolderBehindALinkAboveIsMadePrivate) {
    makeFolder(QStringLiteral("elsewhere"), 0755);
    ASSERT_TRUE(QFile::link(path(QStringLiteral("elsewhere")), path(QStringLiteral("config"))));
    makePrivateFolder(path(QStringLiteral("config/velorama")));
    EXPECT_EQ(modeOf(path(QStringLiteral("elsewhere/velorama"))), 0700U);
    EXPECT_EQ(modeOf(path(QStringLiteral("elsewhere"))), 0755U);
}

}  // namespace
}  // namespace velorama
