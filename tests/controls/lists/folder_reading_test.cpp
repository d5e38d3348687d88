#include "controls/lists/folder_reading.h"

#include "support/test_world.h"

#include <QDir>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(FoldersIn, AreThoseThatAreNotHiddenAndTheHiddenOnesThatAreWanted) {
    const QString base = test::temporaryFolder();
    for (const char* name : {"b", "a", ".c", ".d"}) {
        ASSERT_TRUE(QDir(base).mkpath(QLatin1String(name)));
    }
    QStringList names = foldersIn(base, {QStringLiteral(".d"), QStringLiteral(".gone")});
    names.sort();
    EXPECT_EQ(names.join(u' '), QStringLiteral(".d a b"));
    EXPECT_EQ(foldersIn(base + QStringLiteral("/gone"), {}).size(), 0);
}

}  // namespace
}  // namespace velorama
