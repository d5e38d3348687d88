#include "platform/numbers.h"
#include "webalbum/mod_webalbum.h"
#include "webalbum/page_plan.h"

#include <cmath>

namespace velorama {
namespace {

constexpr int columnsPerRow = 4;
constexpr int rowsPerPage = 3;
static_assert(picturesPerPage == columnsPerRow * rowsPerPage);
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

QString leftArrow(int page) {
    if (page == firstPage) {
        return QStringLiteral(
            "<IMG alt=\"View Previous\" src=\"images/arrowleftdis.gif\" border=0>");
    }
    return u"<A HREF=\"" % modWEBALBUM::WebAlbumPageName(page - 1) %
           u"\"><IMG alt=\"View Previous\" src=\"images/arrowleft.gif\" border=0></A>";
}

QString rightArrow(int page, int pages) {
    if (page == pages) {
        return QStringLiteral(
            "<IMG alt=\"View Next\" src=\"images/arrowrightdis.gif\" border=0></P></TD>");
    }
    return u"<A HREF=\"" % modWEBALBUM::WebAlbumPageName(page + 1) %
           u"\"><IMG alt=\"View Next\" src=\"images/arrowright.gif\" border=0></A></P></TD>";
}

/// The same on every page.
QString pageNumbers(int pages) {
    QString numbers;
    for (int n = firstPage; n <= pages; ++n) {
        numbers +=
            u"<A HREF=\"" % modWEBALBUM::WebAlbumPageName(n) % u"\">" % decimalText(n) % u"</A>  ";
    }
    return numbers;
}

class MainPages {
public:
    MainPages(AlbumBuild& build, const QString& folder, const QString& title, const ListView& list)
        : build_(build), folder_(folder), title_(title), list_(list) {}

    void write();

private:
    QString pictureRows(int page);
    QString cells(int first, QString (MainPages::*cell)(const QString& name));
    QString pictureCell(const QString& name);
    QString captionCell(const QString& name);
    bool isStopped() const { return build_.stop.stop_requested(); }
    void tellProgress() { build_.prgBARSLIDES.setValue(static_cast<float>(i_)); }

    AlbumBuild& build_;
    const QString& folder_;
    const QString& title_;
    const ListView& list_;
    /// Number of the picture reached. It lives from page to page, and the test for the last row
    /// sees what the row before left in it: a last row filled exactly is followed by an empty one,
    /// and what comes behind the last picture begins a row that nothing closes.
    int i_ = 0;
};

void MainPages::write() {
    build_.prgBARSLIDES.setWork(QStringLiteral("Indexing"), leavingBuild);
    build_.prgBARSLIDES.setVisible(true);
    build_.prgBARSLIDES.setMax(static_cast<float>(list_.Count()));
    const int pages = modWEBALBUM::WebAlbumPageCount(list_.Count());
    const QString numbers = pageNumbers(pages);
    for (int p = firstPage; p <= pages && !isStopped(); ++p) {
        // In one piece: the numbers of a large album are longer than all the rest.
        const QString page = upToTitle % title_ % upToHeading % title_ % upToLeftArrow %
                             leftArrow(p) % upToNumbers % numbers % upToRightArrow %
                             rightArrow(p, pages) % upToPictures % pictureRows(p) % upToEnd;
        if (!isStopped()) {
            build_.save(page, folder_, modWEBALBUM::WebAlbumPageName(p));
        }
    }
    build_.prgBARSLIDES.setVisible(false);
}

QString MainPages::pictureRows(int page) {
    QString rows;
    for (int r = 0; r < rowsPerPage && !isStopped(); ++r) {
        const int first = (page - 1) * picturesPerPage + 1 + r * columnsPerRow;
        rows += u"<TR vAlign=top align=left>";
        if (i_ > list_.Count()) {
            break;
        }
        tellProgress();
        rows += cells(first, &MainPages::pictureCell);
        tellProgress();
        rows += u"</TR><TR>";
        rows += cells(first, &MainPages::captionCell);
        tellProgress();
        rows += u"</TR>";
    }
    return rows;
}

QString MainPages::cells(int first, QString (MainPages::*cell)(const QString& name)) {
    QString row;
    for (int c = 0; c < columnsPerRow && !isStopped(); ++c) {
        i_ = first + c;
        if (i_ == list_.Count() + 1) {
            break;
        }
        // Gone, if the list has become shorter in the meantime.
        if (const ListItem* item = list_.item(i_)) {
            row += (this->*cell)(item->Text());
        }
        tellProgress();
    }
    return row;
}

QString MainPages::pictureCell(const QString& name) {
    return u"<TD vAlign=top align=left width=25%><P align=center><A HREF=\"" % name %
           u".html\"><IMG" %
           build_.measure.styleOf(folder_, QStringLiteral("pictures"), name,
                                  build_.values().udnTHUMBNAIL) %
           u"\" height=71 alt=\"Click to view page\" src=\"pictures/" % name %
           u"\" width=90 border=0></A></P></TD>";
}

QString MainPages::captionCell(const QString& name) {
    return u"<TD vAlign=top align=left><P align=center>" % name % u"</P></TD>";
}

}  // namespace

int modWEBALBUM::WebAlbumRoundUp(float value) {
    const float nearest = std::nearbyint(value);
    return static_cast<int>(nearest) + (value > nearest ? 1 : 0);
}

int modWEBALBUM::WebAlbumPageCount(int slides) {
    return WebAlbumRoundUp(static_cast<float>(slides) / picturesPerPage);
}

QString modWEBALBUM::WebAlbumPageName(int page) {
    return u"index" % decimalText(page) % u".html";
}

void modWEBALBUM::WebAlbumMainPagesWrite(AlbumBuild& build, const QString& folder,
                                         const QString& title, const ListView& list) {
    MainPages(build, folder, title, list).write();
}

}  // namespace velorama
