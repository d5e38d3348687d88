#include "core/documents.h"
#include "platform/numbers.h"
#include "webalbum/album_folder.h"
#include "webalbum/mod_webalbum.h"

#include <cmath>

namespace velorama {
namespace {

constexpr int columnsPerRow = 4;
constexpr int rowsPerPage = 3;
constexpr int picturesPerPage = columnsPerRow * rowsPerPage;
constexpr int firstPage = 1;

// The fixed text between what changes from page to page. The whole page is a single line.
constexpr auto upToTitle =
    u"<HTML><HEAD><META NAME=\"GENERATOR\" Content=\"Orvane Page Editor\">"
    u"<TITLE>";
constexpr auto upToHeading =
    u"</TITLE>"
    u"<link rel=\"stylesheet\" href=\"images\\mainwa.css\" type=\"text/css\" /></HEAD>"
    u"<BODY>"
    u"<TABLE cellSpacing=1 cellPadding=10 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left>"
    u"<TABLE class=topbar cellSpacing=1 cellPadding=14 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left>";
constexpr auto upToLeftArrow =
    u"</TD></TR></TABLE>"
    u"<TABLE class=barcol cellSpacing=0 cellPadding=10 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left></TD>"
    u"<TD vAlign=top align=left><BR></TD>"
    u"<TD vAlign=top align=left><P align=center><BR>"
    u"<TABLE cellSpacing=0 cellPadding=0 width=\"198\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>";
constexpr auto upToNumbers =
    u" </P></TD>"
    u"<TD vAlign=top align=left><P align=center>";
constexpr auto upToRightArrow =
    u"</P></TD>"
    u"<TD vAlign=top align=left><P align=center>";
// The first row of the table of pictures is a spacer with one cell less than the others.
constexpr auto upToPictures =
    u" </TR></TABLE></P></TD>"
    u"<TD vAlign=top align=left><BR></TD>"
    u"<TD vAlign=top align=left></TD>"
    u"</TR></TABLE>"
    u"</TD></TR>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>"
    u"<TABLE cellSpacing=0 cellPadding=6 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>"
    u"<TABLE cellSpacing=1 cellPadding=5 width=\"100%\" border=0>"
    u"<TR><TD vAlign=top align=left></TD><TD vAlign=top align=left></TD>"
    u"<TD vAlign=top align=left></TD></TR>";
constexpr auto upToEnd =
    u"</TABLE>"
    u"</P></TD></TR></TABLE>"
    u"</P></TD></TR></TABLE>"
    u"</BODY></HTML>";

QString pageName(int page) {
    return u"index" % decimalText(page) % u".html";
}

QString leftArrow(int page) {
    if (page == firstPage) {
        return QStringLiteral(
            "<IMG alt=\"View Previous\" src=\"images/arrowleftdis.gif\" border=0>");
    }
    return u"<A HREF=\"" % pageName(page - 1) %
           u"\"><IMG alt=\"View Previous\" src=\"images/arrowleft.gif\" border=0></A>";
}

QString rightArrow(int page, int pages) {
    if (page == pages) {
        return QStringLiteral(
            "<IMG alt=\"View Next\" src=\"images/arrowrightdis.gif\" border=0></P></TD>");
    }
    return u"<A HREF=\"" % pageName(page + 1) %
           u"\"><IMG alt=\"View Next\" src=\"images/arrowright.gif\" border=0></A></P></TD>";
}

/// The same on every page.
QString pageNumbers(int pages) {
    QString numbers;
    for (int n = firstPage; n <= pages; ++n) {
        numbers += u"<A HREF=\"" % pageName(n) % u"\">" % decimalText(n) % u"</A>  ";
    }
    return numbers;
}

}  // namespace

int modWEBALBUM::WebAlbumRoundUp(float value) {
    const float nearest = std::nearbyint(value);
    return static_cast<int>(nearest) + (value > nearest ? 1 : 0);
}

void modWEBALBUM::WebAlbumMainPagesWrite(const QString& folder, const QString& title,
                                         const ListView& list) {
    showProgress(list.Count());
    const int pages = WebAlbumRoundUp(static_cast<float>(list.Count()) / picturesPerPage);
    const QString numbers = pageNumbers(pages);
    int i = 0;
    for (int p = firstPage; p <= pages && !stopped_; ++p) {
        // In one piece: the numbers of a large album are longer than all the rest.
        const QString page = upToTitle % title % upToHeading % title % upToLeftArrow %
                             leftArrow(p) % upToNumbers % numbers % upToRightArrow %
                             rightArrow(p, pages) % upToPictures % pictureRows(folder, list, p, i) %
                             upToEnd;
        if (!stopped_) {
            DocumentSaveText(page, fileIn(folder, pageName(p)), Lasting::No);
        }
    }
    hideProgress();
}

/// `i`, the number of the picture reached, lives from page to page, and the test for the last row
/// sees what the row before left in it: a last row filled exactly is followed by an empty one, and
/// what comes behind the last picture begins a row that nothing closes.
QString modWEBALBUM::pictureRows(const QString& folder, const ListView& list, int page, int& i) {
    QString rows;
    for (int r = 0; r < rowsPerPage && !stopped_; ++r) {
        const int first = (page - 1) * picturesPerPage + 1 + r * columnsPerRow;
        rows += u"<TR vAlign=top align=left>";
        if (i > list.Count()) {
            break;
        }
        setProgress(i);
        rows += pictureCells(folder, list, first, i);
        setProgress(i);
        rows += u"</TR><TR>";
        rows += captionCells(list, first, i);
        setProgress(i);
        rows += u"</TR>";
    }
    return rows;
}

QString modWEBALBUM::pictureCells(const QString& folder, const ListView& list, int first, int& i) {
    QString cells;
    for (int c = 0; c < columnsPerRow && !stopped_; ++c) {
        i = first + c;
        if (i == list.Count() + 1) {
            break;
        }
        // Gone, if the list has become shorter in the meantime.
        const ListItem* item = list.item(i);
        if (item != nullptr) {
            const QString name = item->Text();
            cells += u"<TD vAlign=top align=left width=25%><P align=center><A HREF=\"" % name %
                     u".html\"><IMG" %
                     style(folder, QStringLiteral("pictures"), name, thumbnailSize()) %
                     u"\" height=71 alt=\"Click to view page\" src=\"pictures/" % name %
                     u"\" width=90 border=0></A></P></TD>";
        }
        setProgress(i);
    }
    return cells;
}

QString modWEBALBUM::captionCells(const ListView& list, int first, int& i) {
    QString cells;
    for (int c = 0; c < columnsPerRow; ++c) {
        i = first + c;
        if (i == list.Count() + 1) {
            break;
        }
        const ListItem* item = list.item(i);
        if (item != nullptr) {
            cells += u"<TD vAlign=top align=left><P align=center>" % item->Text() % u"</P></TD>";
        }
        setProgress(i);
    }
    return cells;
}

}  // namespace velorama
