#include "webalbum/second_writer.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace velorama::test {
namespace {

using Values = QMap<QString, QString>;

QString templateText(const QString& name) {
    QFile file(QStringLiteral(VELORAMA_SOURCE_DIR "/tests/webalbum/templates/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

// Each {place} takes its value once; what a value holds is never looked into.
QString filledIn(const QString& text, const Values& values) {
    static const QRegularExpression place(QStringLiteral("\\{([a-z ]+)\\}"));
    QString result;
    qsizetype at = 0;
    for (auto found = place.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        const bool known = values.contains(match.captured(1));
        result += text.mid(at, match.capturedStart() - at);
        result += known ? values.value(match.captured(1)) : match.captured(0);
        at = match.capturedEnd();
    }
    return result + text.mid(at);
}

QString oneLine(const QString& name, const Values& values) {
    return filledIn(templateText(name).remove(u'\n'), values);
}

QByteArray asFile(const QString& text) {
    return text.toUtf8() + "\r\n";
}

// a / b in whole numbers, to the nearest, halves to the even one.
qint64 nearest(qint64 a, qint64 b) {
    const qint64 below = a / b;
    const qint64 twice = 2 * (a - below * b);
    return twice > b || (twice == b && below % 2 != 0) ? below + 1 : below;
}

class Writer {
public:
    explicit Writer(const ToldAlbum& album) : album_(album), count_(int(album.slides.size())) {}

    QMap<QString, QByteArray> files() {
        QMap<QString, QByteArray> all;
        for (auto one = album_.images.begin(); one != album_.images.end(); ++one) {
            all[QStringLiteral("images/") + one.key()] = one.value();
        }
        for (const ToldSlide& slide : album_.slides) {
            if (!slide.file.isEmpty()) {
                all[QStringLiteral("pictures/") + slide.file] = slide.bytes;
            }
        }
        for (int page = 1; page <= pages(); ++page) {
            all[QStringLiteral("index%1.html").arg(page)] = asFile(indexPage(page));
        }
        for (int i = 0; i < count_; ++i) {
            all[album_.slides[size_t(i)].text + QStringLiteral(".html")] = asFile(slidePage(i));
        }
        return all;
    }

private:
    int pages() const { return (count_ + 11) / 12; }
    QString text(int i) const {
        return i < 0 || i >= count_ ? QString() : album_.slides[size_t(i)].text;
    }

    // Shape of the picture measured, or of the one before where there is none.
    Values sized(QSize picture, qint64 wanted) {
        shape_ = picture.isEmpty() ? shape_ : picture;
        const qint64 w = shape_.width();
        const qint64 h = shape_.height();
        const bool wide = w > h;
        return {
            {QStringLiteral("w"), QString::number(wide ? wanted : nearest((wanted - 24) * w, h))},
            {QStringLiteral("h"), QString::number(wide ? nearest(wanted * h, w) : wanted - 24)}};
    }

    QString indexPage(int page) {
        const QString link = QStringLiteral("<A HREF=\"index%1.html\">%2</A>");
        const QString image = QStringLiteral("<IMG alt=\"%1\" src=\"images/%2.gif\" border=0>");
        const QString previous = QStringLiteral("View Previous");
        const QString next = QStringLiteral("View Next");
        QString numbers;
        for (int n = 1; n <= pages(); ++n) {
            numbers += link.arg(n).arg(n) + QStringLiteral("  ");
        }
        Values values{{QStringLiteral("title"), album_.title},
                      {QStringLiteral("numbers"), numbers},
                      {QStringLiteral("rows"), rows(page)}};
        values[QStringLiteral("left arrow")] =
            page == 1 ? image.arg(previous, QStringLiteral("arrowleftdis"))
                      : link.arg(page - 1).arg(image.arg(previous, QStringLiteral("arrowleft")));
        values[QStringLiteral("right arrow")] =
            (page == pages()
                 ? image.arg(next, QStringLiteral("arrowrightdis"))
                 : link.arg(page + 1).arg(image.arg(next, QStringLiteral("arrowright")))) +
            QStringLiteral("</P></TD>");
        return oneLine(QStringLiteral("index.txt"), values);
    }

    // What stands in the table of a page that holds so many pictures, by that number alone.
    QString rows(int page) {
        const int held = std::min(12, count_ - (page - 1) * 12);
        QString all;
        for (int done = 0; done < held; done += 4) {
            all += row((page - 1) * 12 + done, std::min(4, held - done));
        }
        const QString opened = QStringLiteral("<TR vAlign=top align=left>");
        const QString emptyRow = opened + QStringLiteral("</TR><TR></TR>");
        const QMap<int, QString> ends{
            {1, opened}, {2, opened}, {3, opened}, {4, emptyRow + opened},
            {5, opened}, {6, opened}, {7, opened}, {8, emptyRow},
        };
        return all + ends.value(held);
    }

    QString row(int first, int cells) {
        QString pictures;
        QString captions;
        for (int i = first; i < first + cells; ++i) {
            Values values = sized(album_.slides[size_t(i)].size, album_.thumbnail);
            values[QStringLiteral("name")] = text(i);
            pictures += oneLine(QStringLiteral("cell.txt"), values);
            captions += filledIn(
                QStringLiteral("<TD vAlign=top align=left><P align=center>{name}</P></TD>"),
                values);
        }
        return QStringLiteral("<TR vAlign=top align=left>") + pictures +
               QStringLiteral("</TR><TR>") + captions + QStringLiteral("</TR>");
    }

    QString slidePage(int i) {
        Values values;
        values[QStringLiteral("left preview")] = preview(i - 1, QStringLiteral("View Previous"));
        values[QStringLiteral("right preview")] =
            preview(i + 1, QStringLiteral("View Next")) + QStringLiteral("</TD>");
        values[QStringLiteral("left arrow")] =
            arrow(i - 1, QStringLiteral("View Previous"), QStringLiteral("arrowleft"));
        values[QStringLiteral("right arrow")] =
            arrow(i + 1, QStringLiteral("View Next"), QStringLiteral("arrowright")) +
            QStringLiteral("</TD>");
        values.insert(sized(album_.slides[size_t(i)].size, album_.photo));
        values[QStringLiteral("title")] = album_.title;
        values[QStringLiteral("cur")] = text(i);
        return oneLine(QStringLiteral("slide.txt"), values);
    }

    QString preview(int neighbour, const QString& alt) {
        const QString name = text(neighbour);
        const bool none = name.isEmpty();
        Values values =
            sized(none ? album_.end : album_.slides[size_t(neighbour)].size, album_.thumbnail);
        values[QStringLiteral("alt")] = alt;
        values[QStringLiteral("src")] =
            none ? QStringLiteral("images/end.gif") : QStringLiteral("pictures/") + name;
        const QString image = filledIn(
            QStringLiteral("<IMG  style=\"WIDTH: {w}px; HEIGHT: {h}px \"height=47 alt=\"{alt}\" "
                           "src=\"{src}\" width=60 border=0>"),
            values);
        return none ? image + QStringLiteral("</P>") : linked(name, image);
    }

    QString arrow(int neighbour, const QString& alt, const QString& picture) {
        const QString name = text(neighbour);
        const QString image = QStringLiteral("<IMG alt=\"%1\" src=\"images/%2.gif\" border=0>");
        return name.isEmpty()
                   ? image.arg(alt, picture + QStringLiteral("dis")) + QStringLiteral("</P>")
                   : linked(name, image.arg(alt, picture));
    }

    static QString linked(const QString& name, const QString& inside) {
        return QStringLiteral("<A HREF=\"") + name + QStringLiteral(".html\">") + inside +
               QStringLiteral("</A></P>");
    }

    const ToldAlbum& album_;
    int count_;
    QSize shape_{90, 90};
};

}  // namespace

QMap<QString, QByteArray> toldFiles(const ToldAlbum& album) {
    return Writer(album).files();
}

QByteArray toldSheet(const QMap<QString, QString>& values) {
    return filledIn(templateText(QStringLiteral("sheet.txt")), values)
        .replace(QStringLiteral("\n"), QStringLiteral("\r\n"))
        .toUtf8();
}

}  // namespace velorama::test
