#include "browse/other_pictures.h"

#include <QMimeDatabase>

#include <algorithm>

namespace velorama {
namespace {

// Characters: no kind of picture has a longer ending, and names without an ending often go on
// behind a dot.
constexpr qsizetype longestEnding = 8;
// An ending that nothing has takes a quarter of a millisecond, and a folder of numbered files may
// have one for each.
constexpr qsizetype mostKnown = 300;

bool isPictureEnding(const QString& ending) {
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(u"x." + ending);
    return std::any_of(types.begin(), types.end(), [](const QMimeType& type) {
        return type.name().startsWith(QLatin1String("image/"));
    });
}

bool hasLetter(const QString& ending) {
    return std::any_of(ending.begin(), ending.end(), [](QChar c) { return c.isLetter(); });
}

}  // namespace

bool OtherPictures::operator()(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString ending = dot < 0 ? QString() : name.sliced(dot + 1).toLower();
    if (ending.size() > longestEnding || !hasLetter(ending)) {
        return false;
    }
    const auto known = known_.constFind(ending);
    if (known != known_.constEnd()) {
        return *known;
    }
    return known_.size() < mostKnown && *known_.insert(ending, isPictureEnding(ending));
}

}  // namespace velorama
