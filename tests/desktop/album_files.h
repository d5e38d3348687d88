#pragma once

#include "desktop/session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace velorama::desktop {

/// Makes an album without slides, `name` below the home, with the folders on its way. Its path.
inline QString makeAlbum(const DesktopSession& session, const QString& name) {
    const QString path = session.home() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0\r\n");
    return path;
}

}  // namespace velorama::desktop
