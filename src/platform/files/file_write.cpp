#include "platform/files/file_write.h"

#include "platform/files/file_beside.h"
#include "platform/process/detached_thread.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <memory>

namespace velorama {
namespace {

/// What a chain of symbolic links ends at, there or not; empty for a chain without an end.
QString endOfLinks(const QString& path) {
    constexpr int longestChain = 40;
    QFileInfo end(path);
    for (int i = 0; end.isSymLink(); ++i) {
        if (i == longestChain) {
            return QString();
        }
        end.setFile(end.symLinkTarget());
    }
    return end.filePath();
}

/// False where the old file may not be replaced. A new one has the mode that the user wants.
bool takeMode(const QByteArray& old, int to) {
    struct stat status {};
    return ::stat(old.constData(), &status) != 0 ||
           (::access(old.constData(), W_OK) == 0 && ::fchmod(to, status.st_mode & 07777) == 0);
}

/// Keeps an old file alive while another takes its place, and lets go of it beside the caller:
/// giving back the space of a large one takes longer than the exchange itself.
class OldFile {
public:
    explicit OldFile(const QByteArray& name)
        : file_(std::make_shared<Descriptor>(isLarge(name) ? hold(name) : -1)) {}
    OldFile(const OldFile&) = delete;
    OldFile& operator=(const OldFile&) = delete;
    ~OldFile() {
        if (file_->number() >= 0) {
            startDetached([file = std::move(file_)]() mutable { file.reset(); });
        }
    }

private:
    static bool isLarge(const QByteArray& name) {
        constexpr qint64 large = 128LL * 1024;
        struct stat status {};
        return ::stat(name.constData(), &status) == 0 && status.st_size >= large;
    }
    // Neither a right to read it nor a device's attention is needed.
    static int hold(const QByteArray& name) { return ::open(name.constData(), O_PATH | O_CLOEXEC); }

    std::shared_ptr<Descriptor> file_;
};

}  // namespace

bool writeFileWhole(const QString& target, const QByteArray& bytes, Lasting lasting) {
    const QString end = endOfLinks(target);
    if (end.isEmpty()) {
        return false;
    }
    const QByteArray name = QFile::encodeName(end);
    FileBeside file(QFile::encodeName(QFileInfo(end).path()));
    if (file.number() < 0 || !takeMode(name, file.number()) ||
        !writeAll(file.number(), bytes.constData(), bytes.size())) {
        return false;
    }
    if (lasting == Lasting::Yes && !reachesDisk(file.number())) {
        return false;
    }
    const OldFile old(name);
    return file.becomes(name);
}

}  // namespace velorama
