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
    /// With the words behind the last one.
    QStringList texts(const QString& name) const {
        return parser_.values(name) + parser_.positionalArguments();
    }
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
    std::optional<int> screen(const QString& name);
    std::optional<double> seconds(const QString& name);
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

std::optional<int> Options::screen(const QString& name) {
    bool isNumber = false;
    const int number = text(name).toInt(&isNumber);
    if (has(name) && (!isNumber || number < 1)) {
        refuse(u"--" + name + u" takes a whole number from 1, not " + text(name));
    }
    return has(name) ? std::optional(number) : std::nullopt;
}

std::optional<double> Options::seconds(const QString& name) {
    constexpr double least = 0.1;
    constexpr double most = 24 * 60 * 60;
    bool isNumber = false;
    const double number = text(name).toDouble(&isNumber);
    if (has(name) && !(isNumber && number >= least && number <= most)) {
        refuse(u"--" + name + u" takes a number from 0.1 to 86400, not " + text(name));
    }
    return has(name) ? std::optional(number) : std::nullopt;
}

Call playCall(Options options) {
    PlayCall call;
    call.album = options.text(QStringLiteral("play"));
    call.screen = options.screen(QStringLiteral("screen")).value_or(0);
    call.interval = options.seconds(QStringLiteral("interval"));
    call.music = options.texts(QStringLiteral("music"));
    call.lock = options.has(QStringLiteral("lock"));
    call.once = options.has(QStringLiteral("once"));
    return options.mistake().isEmpty() ? Call(call) : Call(WrongCall{options.mistake()});
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
        case CallKind::Play:
            return playCall(options);
        case CallKind::ExportSettings:
            return ExportSettingsCall{options.text(QStringLiteral("export-settings")),
                                      options.has(QStringLiteral("utf8"))};
        case CallKind::ImportSettings:
            return ImportSettingsCall{options.text(QStringLiteral("import-settings"))};
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
