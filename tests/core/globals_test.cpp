#include "core/globals.h"

#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString versionKey = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION");

TEST(Globals, ServicesAreMadeOverTheStore) {
    MemoryRegistryStore store;
    test::RecordingShell shell;
    store.setValue(Hive::LocalMachine, versionKey, QStringLiteral("CurrentVersion"),
                   {ValueType::Text, "6.0"});
    makeServices(store, shell);
    EXPECT_TRUE(gPagProps && gLibrary && gRegistry && gGradient && gDlgHook && gColrStyle &&
                gFileFoldr);
    EXPECT_EQ(SystemVersion, QStringLiteral("6.0"));
    EXPECT_TRUE(isModernSystem());

    EXPECT_TRUE(saveSetting(QStringLiteral("\\frmCONFIG\\Items"), QStringLiteral("INTERVAL"),
                            QStringLiteral("9")));
    EXPECT_EQ(loadSetting(QStringLiteral("frmCONFIG\\Items"), QStringLiteral("interval"),
                          QStringLiteral("4")),
              QStringLiteral("9"));
    releaseServices();
    EXPECT_FALSE(gPagProps || gLibrary || gRegistry || gGradient || gDlgHook || gColrStyle ||
                 gFileFoldr);
}

TEST(Globals, NothingIsLoadingOrCancelledAtTheStart) {
    EXPECT_FALSE(FormLoading);
    EXPECT_FALSE(SaveCancelled);
    EXPECT_EQ(ActiveList, QString());
}

TEST(Globals, TheModernSystemBeginsAbove499) {
    const QString before = SystemVersion;
    const struct {
        const char* version;
        bool modern;
    } rows[] = {{"4.0", false}, {"4.99", false}, {"4.991", true}, {"5.0", true},
                {"6.0", true},  {"", false},     {"x", false},    {"4.90.3000", false}};
    for (const auto& row : rows) {
        SystemVersion = QString::fromUtf8(row.version);
        EXPECT_EQ(isModernSystem(), row.modern) << row.version;
    }
    SystemVersion = before;
}

}  // namespace
}  // namespace velorama
