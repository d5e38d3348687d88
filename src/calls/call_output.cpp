#include "calls/call_output.h"

#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace velorama {
namespace {

bool write(std::FILE* stream, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

void complain(const QString& what) {
    write(stderr, u"velorama: " + oneLine(what) + u'\n');
}

}  // namespace

CallResult printText(const QString& text) {
    if (write(stdout, text)) {
        return CallResult::Done;
    }
    return notDone(u"standard output: " + QString::fromLocal8Bit(std::strerror(errno)));
}

CallResult notDone(const QString& what) {
    complain(what);
    return CallResult::NotDone;
}

CallResult wrongCall(const QString& what) {
    complain(what + u"; see velorama --help");
    return CallResult::Wrong;
}

QString oneLine(QString text) {
    const auto breaks = [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
               c.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), breaks, QChar(u'?'));
    return text;
}

ProgressLine::ProgressLine() : isSeen_(::isatty(STDERR_FILENO) != 0) {}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::show(const QString& what, int done, int of) {
    if (!isSeen_) {
        return;
    }
    const QString line = what + u' ' + QString::number(done) + u" of " + QString::number(of);
    if (line != shown_) {
        // Blanks over what a longer line before has left.
        write(stderr, u'\r' + line.leftJustified(shown_.size()));
        shown_ = line;
    }
}

void ProgressLine::clear() {
    if (!shown_.isEmpty()) {
        write(stderr, u'\r' + QString(shown_.size(), u' ') + u'\r');
        shown_.clear();
    }
}

}  // namespace velorama
