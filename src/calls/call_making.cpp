#include "calls/call_making.h"

#include "platform/numbers.h"
#include "webalbum/web_album_settings.h"

#include <QColor>

#include <array>
#include <utility>

namespace velorama {
namespace {

/// Takes options one by one, and remembers the first that will not do.
class Options {
public:
    explicit Options(const QCommandLineParser& parser) : parser_(parser) {}

    bool has(const QString& name) const { return parser_.isSet(name); }
    QString text(const QString& name) const { return parser_.value(name); }
    std::optional<QString> textIfSaid(const QString& name) const {
        return has(name) ? std::optional(text(name)) : std::nullopt;
    }
    QString needed(const QString& name, const QString& leading, const QString& value) {
        if (!has(name)) {
            refuse(u"--" + leading + u" needs --" + name + u' ' + value);
        }
        return text(name);
    }
    std::optional<int> number(const QString& name, const WebAlbumSizes& bounds);
    AlbumColours colours(const QString& name);

    /// Empty as long as all will do.
    const QString& mistake() const { return mistake_; }

private:
    void takeColour(const QString& pair, AlbumColours& colours);
    void refuse(const QString& mistake) {
        if (mistake_.isEmpty()) {
            mistake_ = mistake;
        }
    }

    const QCommandLineParser& parser_;
    QString mistake_;
};

std::optional<int> Options::number(const QString& name, const WebAlbumSizes& bounds) {
    if (!has(name)) {
        return std::nullopt;
    }
    bool isNumber = false;
    const int number = text(name).toInt(&isNumber);
    if (!isNumber || number < bounds.least || number > bounds.most) {
        refuse(u"--" + name + u" takes a whole number from " + decimalText(bounds.least) + u" to " +
               decimalText(bounds.most) + u", not " + text(name));
    }
    return number;
}

AlbumColours Options::colours(const QString& name) {
    AlbumColours colours;
    if (has(name)) {
        for (const QString& pair : text(name).split(u',')) {
            takeColour(pair.trimmed(), colours);
        }
    }
    return colours;
}

void Options::takeColour(const QString& pair, AlbumColours& colours) {
    using Part = std::optional<Colour> AlbumColours::*;
    static constexpr std::array<std::pair<const char*, Part>, 5> parts = {{
        {"page", &AlbumColours::page},
        {"text", &AlbumColours::text},
        {"bar", &AlbumColours::bar},
        {"title-bar", &AlbumColours::titleBar},
        {"title-bar-text", &AlbumColours::titleBarText},
    }};
    const QString name = pair.section(u'=', 0, 0);
    const QColor colour(pair.section(u'=', 1));
    // A page is not seen through.
    const bool isColour = colour.isValid() && colour.alpha() == 255;
    for (const auto& [known, part] : parts) {
        if (isColour && name == QLatin1String(known)) {
            colours.*part = colour.red() | colour.green() << 8 | colour.blue() << 16;
            return;
        }
    }
    refuse(u"--colours does not take " + pair);
}

Call webAlbumCall(Options options) {
    const QString lead = QStringLiteral("web-album");
    const WebAlbumCall call{
        options.text(lead),
        options.needed(QStringLiteral("to"), lead, QStringLiteral("FOLDER")),
        options.textIfSaid(QStringLiteral("title")),
        options.number(QStringLiteral("photo-size"), webAlbumPhotoSizes),
        options.number(QStringLiteral("thumbnail-size"), webAlbumThumbnailSizes),
        options.colours(QStringLiteral("colours")),
    };
    return options.mistake().isEmpty() ? Call(call) : Call(WrongCall{options.mistake()});
}

}  // namespace

Call makeCall(CallKind kind, const QCommandLineParser& parser) {
    const Options options(parser);
    switch (kind) {
        case CallKind::WebAlbum:
            return webAlbumCall(options);
        case CallKind::Check:
            return CheckCall{options.text(QStringLiteral("check")),
                             options.has(QStringLiteral("json"))};
        case CallKind::Wallpaper:
            return WallpaperCall{options.text(QStringLiteral("wallpaper"))};
        case CallKind::Help:
            return HelpCall{};
        case CallKind::Version:
            return VersionCall{};
    }
    return WrongCall{};
}

}  // namespace velorama
