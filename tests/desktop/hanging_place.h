#pragma once

#include "desktop/albums_page.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

namespace velorama::desktop {

/// A place of the disk that does not answer, as a server that is gone: what opens, reads or looks
/// at anything below it waits as long as it hangs.
class HangingPlace {
public:
    enum class First { Hangs, Answers };
    explicit HangingPlace(const QString& path, First first = First::Hangs)
        : path_(path), flag_(path + QStringLiteral(".hangs")) {
        if (first == First::Hangs) {
            hang();
        }
    }
    ~HangingPlace() { QFile::remove(flag_); }
    HangingPlace(const HangingPlace&) = delete;
    HangingPlace& operator=(const HangingPlace&) = delete;

    void hang() const { EXPECT_TRUE(putBytes(flag_, "yes")); }
    void answer() const { EXPECT_TRUE(QFile::remove(flag_)); }
    /// Something has been waiting for it, and may still.
    bool isWaitedFor() const {
        return waitFor([this] { return QFile::exists(path_ + QStringLiteral(".waited")); });
    }
    QStringList environment() const {
        return {QStringLiteral("LD_PRELOAD=" VELORAMA_HANGING_LIBRARY),
                QStringLiteral("VELORAMA_HANGING_PLACE=") + path_};
    }

private:
    QString path_;
    QString flag_;
};

}  // namespace velorama::desktop
