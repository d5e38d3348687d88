#include "calls/check_call.h"

#include "calls/call_application.h"
#include "calls/call_output.h"
#include "calls/missing_slides.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velorama {
namespace {

QString wordOf(SlideFind find) {
    switch (find) {
        case SlideFind::AsWritten:
            return QStringLiteral("ok");
        case SlideFind::OnDrive:
            return QStringLiteral("drive");
        case SlideFind::OtherSpelling:
            return QStringLiteral("case");
        case SlideFind::Lost:
            return QStringLiteral("lost");
        case SlideFind::Missing:
            break;
    }
    return QStringLiteral("missing");
}

QString lineOf(const NamedSlide& slide) {
    constexpr int pathColumn = 9;
    const SlideFind find = slide.find;
    const QString line = wordOf(find).leftJustified(pathColumn) + oneLine(slide.path);
    const bool isElsewhere = find == SlideFind::OnDrive || find == SlideFind::OtherSpelling;
    return isElsewhere ? QString(line + u" -> " + oneLine(hostFile(slide.path))) : line;
}

QString listOf(const AlbumSlides& album) {
    QString text;
    for (const NamedSlide& slide : album.named) {
        text += lineOf(slide) + u'\n';
    }
    return text;
}

QJsonObject objectOf(const NamedSlide& slide) {
    return {
        {QStringLiteral("path"), slide.path},
        {QStringLiteral("found"), wordOf(slide.find)},
        {QStringLiteral("file"), slide.find != SlideFind::Missing ? QJsonValue(hostFile(slide.path))
                                                                  : QJsonValue(QJsonValue::Null)}};
}

QString jsonOf(const QString& path, const AlbumSlides& album) {
    QJsonArray slides;
    for (const NamedSlide& slide : album.named) {
        slides.append(objectOf(slide));
    }
    const QJsonObject object{{QStringLiteral("album"), path},
                             {QStringLiteral("note"), album.header.note},
                             {QStringLiteral("count"), static_cast<int>(album.named.size())},
                             {QStringLiteral("missing"), countOfMissing(album)},
                             {QStringLiteral("slides"), slides}};
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

CallResult check(const CheckCall& call) {
    const std::optional<AlbumSlides> album = slidesOfAlbum(call.album);
    if (!album) {
        return notDone(call.album + u": " + readingObstacle(hostFile(call.album)));
    }
    const QString text = call.json ? jsonOf(call.album, *album) : listOf(*album);
    const CallResult printed = printText(text);
    const QString missing = missingSlides(*album);
    return printed != CallResult::Done || missing.isEmpty() ? printed
                                                            : notDone(call.album + u": " + missing);
}

}  // namespace

CallResult run(const CheckCall& call, char* program) {
    NameOnly name(program);
    const QCoreApplication application(name.count(), name.words());
    return check(call);
}

}  // namespace velorama
