#include "platform/process/events.h"
#include "webalbum/mod_webalbum.h"

namespace velorama {
namespace {

/// File names of a slide and of its neighbours; empty where there is none.
struct Slide {
    QString prev;
    QString cur;
    QString next;
};

const QString pictures = QStringLiteral("pictures");
const QString viewPrevious = QStringLiteral("View Previous");
const QString viewNext = QStringLiteral("View Next");

// The fixed text between what changes from page to page. The whole page is a single line.
constexpr auto upToTitle =
    u"<HTML><HEAD>"
    u"<META NAME=\"GENERATOR\" Content=\"Orvane Page Editor\">"
    u"<TITLE>";
constexpr auto upToLeftPreview =
    u"</TITLE>"
    u"<link rel=\"stylesheet\" href=\"images\\mainwa.css\" type=\"text/css\" /></HEAD>"
    u"<BODY><P>"
    u"<TABLE cellSpacing=1 cellPadding=10 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left>"
    u"<TABLE class=barcol cellSpacing=0 cellPadding=10 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=center width=200><P align=center>";
constexpr auto upToLeftArrow =
    u"</TD><TD vAlign=top align=left><BR></TD>"
    u"<TD vAlign=top align=left><P align=center class=topbar>"
    u"<P align=center><TABLE cellSpacing=0 cellPadding=0 width=\"198\" border=0"
    u" style=\"WIDTH: 198px; HEIGHT: 20px\">"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>";
constexpr auto upToRightArrow =
    u"</TD><TD vAlign=top align=left><P align=center>"
    u"<A HREF=\"index1.html\">Home Page</A></P></TD>"
    u"<TD vAlign=top align=left><P align=center>";
constexpr auto upToRightPreview =
    u"</TR></TABLE></P></TD>"
    u"<TD vAlign=top align=left><BR></TD>"
    u"<TD vAlign=top align=center width=200><P align=center>";
constexpr auto upToPicture =
    u"</TR></TABLE></TD></TR>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>"
    u"<TABLE cellSpacing=0 cellPadding=6 width=\"100%\" border=0>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>";
constexpr auto upToCaption =
    u"</TD></TR>"
    u"<TR vAlign=top align=left><TD vAlign=top align=left><P align=center>";
constexpr auto upToEnd =
    u"</P></TD></TR></TABLE>"
    u"</P></TD></TR></TABLE>"
    u"</P></BODY></HTML>";
// Only what stands on the right closes its cell.
constexpr auto endOfCell = u"</TD>";

/// `picture` is arrowleft or arrowright.
QString arrow(const QString& neighbour, const QString& alt, QLatin1String picture) {
    if (neighbour.isEmpty()) {
        return u"<IMG alt=\"" % alt % u"\" src=\"images/" % picture % u"dis.gif\" border=0></P>";
    }
    return u"<A HREF=\"" % neighbour % u".html\"><IMG alt=\"" % alt % u"\" src=\"images/" %
           picture % u".gif\" border=0></A></P>";
}

QString nameOf(const ListView& list, int index) {
    const ListItem* item = list.item(index);
    return item != nullptr ? item->Text() : QString();
}

class SlidePages {
public:
    SlidePages(AlbumBuild& build, const QString& folder, const QString& title, const ListView& list)
        : build_(build), folder_(folder), title_(title), list_(list) {}

    void write();

private:
    Slide slide(int i, int n) const;
    QString page(const Slide& slide);
    QString preview(const QString& neighbour, const QString& alt);
    QString thumbnailStyle(const QString& subfolder, const QString& name);
    bool isStopped() const { return build_.stop.stop_requested(); }

    AlbumBuild& build_;
    const QString& folder_;
    const QString& title_;
    const ListView& list_;
};

void SlidePages::write() {
    const int n = list_.Count();
    build_.prgBARSLIDES.setWork(QStringLiteral("Writing page"), leavingBuild);
    build_.prgBARSLIDES.setVisible(true);
    build_.prgBARSLIDES.setMax(static_cast<float>(n));
    for (int i = 1; i <= n && !isStopped(); ++i) {
        DoEvents();
        build_.prgBARSLIDES.setValue(static_cast<float>(i));
        DoEvents();
        // Gone, if the list has become shorter in the meantime.
        if (list_.item(i) == nullptr) {
            continue;
        }
        const Slide shown = slide(i, n);
        const QString text = page(shown);
        if (!isStopped()) {
            build_.save(text, folder_, shown.cur + QStringLiteral(".html"));
        }
    }
    build_.prgBARSLIDES.setVisible(false);
}

Slide SlidePages::slide(int i, int n) const {
    return {i > 1 ? nameOf(list_, i - 1) : QString(), nameOf(list_, i),
            i < n ? nameOf(list_, i + 1) : QString()};
}

/// Pictures are measured in the order in which they stand on the page: one that cannot be read
/// takes the shape of the one before it.
QString SlidePages::page(const Slide& slide) {
    QString page = upToTitle % title_ % upToLeftPreview;
    page += preview(slide.prev, viewPrevious);
    page += upToLeftArrow % arrow(slide.prev, viewPrevious, QLatin1String("arrowleft")) %
            upToRightArrow % arrow(slide.next, viewNext, QLatin1String("arrowright")) % endOfCell %
            upToRightPreview;
    page += preview(slide.next, viewNext);
    page += endOfCell;
    page += upToPicture;
    page += u"<IMG " %
            build_.measure.styleOf(folder_, pictures, slide.cur, build_.values().udnPHOTO) %
            u"\"src=\"pictures/" % slide.cur % u"\"></P>";
    return page % upToCaption % slide.cur % upToEnd;
}

QString SlidePages::preview(const QString& neighbour, const QString& alt) {
    const auto shown = [&alt](const QString& openStyle, const QString& source) {
        return QString(u"<IMG " % openStyle % u"\"height=47 alt=\"" % alt % u"\" src=\"" % source %
                       u"\" width=60 border=0>");
    };
    if (neighbour.isEmpty()) {
        return shown(thumbnailStyle(QStringLiteral("images"), QStringLiteral("end.gif")),
                     QStringLiteral("images/end.gif")) %
               u"</P>";
    }
    return u"<A HREF=\"" % neighbour % u".html\">" %
           shown(thumbnailStyle(pictures, neighbour), u"pictures/" % neighbour) % u"</A></P>";
}

QString SlidePages::thumbnailStyle(const QString& subfolder, const QString& name) {
    return build_.measure.styleOf(folder_, subfolder, name, build_.values().udnTHUMBNAIL);
}

}  // namespace

void modWEBALBUM::WebAlbumSlidePagesWrite(AlbumBuild& build, const QString& folder,
                                          const QString& title, const ListView& list) {
    SlidePages(build, folder, title, list).write();
}

}  // namespace velorama
