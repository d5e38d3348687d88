#include "controls/lists/local_files.h"

#include <QSysInfo>
#include <QUrl>

namespace velorama {
namespace {

/// Some file managers name the machine.
bool isThisMachine(const QString& host) {
    return host.isEmpty() || host == QLatin1String("localhost") ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

}  // namespace

QStringList localFiles(const QMimeData& data) {
    QStringList paths;
    for (QUrl& url : data.urls()) {
        if (!url.isLocalFile() || !isThisMachine(url.host())) {
            continue;
        }
        url.setHost(QString());
        const QString path = url.toLocalFile();
        if (!path.isEmpty() && !path.contains(QChar(u'\0'))) {
            paths.append(path);
        }
    }
    return paths;
}

}  // namespace velorama
