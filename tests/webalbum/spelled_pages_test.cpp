#include "webalbum/album_world.h"

#include "imaging/pixels/colours.h"

namespace velorama::test {
namespace {

/// Pages whose every byte is spelled out.
class SpelledPages : public AlbumWorld {};

TEST_F(SpelledPages, StyleSheetOfTheFirstSettings) {
    build();
    EXPECT_EQ(page(QStringLiteral("images/mainwa.css")),
              "Body {\r\n"
              "        font-family: Arial, Helvetica, Sans-Serif;\r\n"
              "        background-COLOR:#E4F4FE;\r\n"
              "        COLOR:#000040;\r\n"
              "}\r\n"
              "\r\n"
              "\r\n"
              "Table {\r\n"
              "        font-size: 12px;\r\n"
              "}\r\n"
              "\r\n"
              "\r\n"
              ".barcol {\r\n"
              "    background-COLOR:#C0C0FF;\r\n"
              "}\r\n"
              "\r\n"
              "\r\n"
              ".topbar {\r\n"
              "    background-COLOR:#8080FF;\r\n"
              "        font-family: Georgia, \"Times New Roman\", Times, Serif;\r\n"
              "         font-size: 24px;\r\n"
              "        COLOR:#FFFFFF;\r\n"
              "}\r\n");
}

TEST_F(SpelledPages, MainPageOfOnePicture) {
    addSlide(QStringLiteral("sunset.jpg"), {800, 600});
    build();
    EXPECT_EQ(
        page(QStringLiteral("index1.html")),
        "<HTML><HEAD><META NAME=\"GENERATOR\" Content=\"Orvane Page Editor\"><TITLE>Trip</TITLE>"
        "<link rel=\"stylesheet\" href=\"images\\mainwa.css\" type=\"text/css\" /></HEAD><BODY>"
        "<TABLE cellSpacing=1 cellPadding=10 width=\"100%\" border=0><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><TABLE class=topbar cellSpacing=1 cellPadding=14 width=\"100%\""
        " border=0><TR vAlign=top align=left><TD vAlign=top align=left>Trip</TD></TR></TABLE>"
        "<TABLE class=barcol cellSpacing=0 cellPadding=10 width=\"100%\" border=0>"
        "<TR vAlign=top align=left><TD vAlign=top align=left></TD><TD vAlign=top align=left><BR>"
        "</TD><TD vAlign=top align=left><P align=center><BR><TABLE cellSpacing=0 cellPadding=0"
        " width=\"198\" border=0><TR vAlign=top align=left><TD vAlign=top align=left>"
        "<P align=center><IMG alt=\"View Previous\" src=\"images/arrowleftdis.gif\" border=0>"
        " </P></TD><TD vAlign=top align=left><P align=center><A HREF=\"index1.html\">1</A>  "
        "</P></TD><TD vAlign=top align=left><P align=center><IMG alt=\"View Next\""
        " src=\"images/arrowrightdis.gif\" border=0></P></TD> </TR></TABLE></P></TD>"
        "<TD vAlign=top align=left><BR></TD><TD vAlign=top align=left></TD></TR></TABLE></TD></TR>"
        "<TR vAlign=top align=left><TD vAlign=top align=left><P align=center><TABLE cellSpacing=0"
        " cellPadding=6 width=\"100%\" border=0><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><P align=center><TABLE cellSpacing=1 cellPadding=5"
        " width=\"100%\" border=0><TR><TD vAlign=top align=left></TD><TD vAlign=top align=left>"
        "</TD><TD vAlign=top align=left></TD></TR><TR vAlign=top align=left>"
        "<TD vAlign=top align=left width=25%><P align=center><A HREF=\"sunset.jpg.html\">"
        "<IMG style=\"WIDTH: 95px; HEIGHT: 71px \" height=71 alt=\"Click to view page\""
        " src=\"pictures/sunset.jpg\" width=90 border=0></A></P></TD></TR><TR>"
        "<TD vAlign=top align=left><P align=center>sunset.jpg</P></TD></TR>"
        "<TR vAlign=top align=left></TABLE></P></TD></TR></TABLE></P></TD></TR></TABLE>"
        "</BODY></HTML>\r\n");
}

TEST_F(SpelledPages, SlidePageOfOnePicture) {
    addSlide(QStringLiteral("sunset.jpg"), {600, 800});
    build();
    EXPECT_EQ(
        page(QStringLiteral("sunset.jpg.html")),
        "<HTML><HEAD><META NAME=\"GENERATOR\" Content=\"Orvane Page Editor\"><TITLE>Trip</TITLE>"
        "<link rel=\"stylesheet\" href=\"images\\mainwa.css\" type=\"text/css\" /></HEAD><BODY><P>"
        "<TABLE cellSpacing=1 cellPadding=10 width=\"100%\" border=0><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><TABLE class=barcol cellSpacing=0 cellPadding=10 width=\"100%\""
        " border=0><TR vAlign=top align=left><TD vAlign=top align=center width=200>"
        "<P align=center><IMG  style=\"WIDTH: 95px; HEIGHT: 71px \"height=47 alt=\"View Previous\""
        " src=\"images/end.gif\" width=60 border=0></P></TD><TD vAlign=top align=left><BR></TD>"
        "<TD vAlign=top align=left><P align=center class=topbar><P align=center>"
        "<TABLE cellSpacing=0 cellPadding=0 width=\"198\" border=0"
        " style=\"WIDTH: 198px; HEIGHT: 20px\"><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><P align=center><IMG alt=\"View Previous\""
        " src=\"images/arrowleftdis.gif\" border=0></P></TD><TD vAlign=top align=left>"
        "<P align=center><A HREF=\"index1.html\">Home Page</A></P></TD>"
        "<TD vAlign=top align=left><P align=center><IMG alt=\"View Next\""
        " src=\"images/arrowrightdis.gif\" border=0></P></TD></TR></TABLE></P></TD>"
        "<TD vAlign=top align=left><BR></TD><TD vAlign=top align=center width=200>"
        "<P align=center><IMG  style=\"WIDTH: 95px; HEIGHT: 71px \"height=47 alt=\"View Next\""
        " src=\"images/end.gif\" width=60 border=0></P></TD></TR></TABLE></TD></TR>"
        "<TR vAlign=top align=left><TD vAlign=top align=left><P align=center><TABLE cellSpacing=0"
        " cellPadding=6 width=\"100%\" border=0><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><P align=center><IMG  style=\"WIDTH: 357px; HEIGHT: 476px \""
        "src=\"pictures/sunset.jpg\"></P></TD></TR><TR vAlign=top align=left>"
        "<TD vAlign=top align=left><P align=center>sunset.jpg</P></TD></TR></TABLE></P></TD></TR>"
        "</TABLE></P></BODY></HTML>\r\n");
}

/// Parts of pages that depend on the neighbours and on the number of pictures.
class SpelledParts : public AlbumWorld {
protected:
    void addSlides(int count) {
        for (int i = 1; i <= count; ++i) {
            addSlide(QStringLiteral("a%1.jpg").arg(i, 2, 10, QLatin1Char('0')), {800, 600});
        }
    }
    /// What a page holds behind the spacer row of its pictures' table.
    QByteArray rows(const QString& name) const {
        const QByteArray text = page(name);
        const qsizetype start = text.indexOf("left></TD></TR>", text.indexOf("cellPadding=5"));
        return start < 0 ? QByteArray() : text.mid(start + 15);
    }
};

TEST_F(SpelledParts, SlidePagesInTheMiddleLinkBothWays) {
    addSlides(3);
    build();
    const QByteArray middle = page(QStringLiteral("a02.jpg.html"));
    for (const char* part : {
             "<P align=center><A HREF=\"a01.jpg.html\"><IMG  style=\"WIDTH: 95px; HEIGHT: 71px \""
             "height=47 alt=\"View Previous\" src=\"pictures/a01.jpg\" width=60 border=0></A></P>"
             "</TD>",
             "<P align=center><A HREF=\"a01.jpg.html\"><IMG alt=\"View Previous\""
             " src=\"images/arrowleft.gif\" border=0></A></P></TD>",
             "<P align=center><A HREF=\"a03.jpg.html\"><IMG alt=\"View Next\""
             " src=\"images/arrowright.gif\" border=0></A></P></TD></TR></TABLE></P></TD>",
             "<P align=center><A HREF=\"a03.jpg.html\"><IMG  style=\"WIDTH: 95px; HEIGHT: 71px \""
             "height=47 alt=\"View Next\" src=\"pictures/a03.jpg\" width=60 border=0></A></P></TD>"
             "</TR></TABLE></TD></TR>",
             "<P align=center><IMG  style=\"WIDTH: 500px; HEIGHT: 375px \""
             "src=\"pictures/a02.jpg\"></P></TD></TR>",
         }) {
        EXPECT_TRUE(middle.contains(part)) << part;
    }
    EXPECT_FALSE(middle.contains("end.gif"));
}

TEST_F(SpelledParts, TheFirstAndTheLastSlideHaveAnEnd) {
    addSlides(14);
    build();
    const QByteArray end(
        "<P align=center><IMG  style=\"WIDTH: 95px; HEIGHT: 71px \"height=47 alt=\"View "
        "%1\" src=\"images/end.gif\" width=60 border=0></P></TD>");
    const QByteArray first = page(QStringLiteral("a01.jpg.html"));
    EXPECT_TRUE(first.contains(QByteArray(end).replace("%1", "Previous")));
    EXPECT_EQ(first.count("end.gif"), 1);
    EXPECT_EQ(first.count("arrowleftdis.gif"), 1);
    EXPECT_EQ(first.count("<A HREF=\"a02.jpg.html\">"), 2);
    const QByteArray last = page(QStringLiteral("a14.jpg.html"));
    EXPECT_TRUE(last.contains(QByteArray(end).replace("%1", "Next")));
    EXPECT_EQ(last.count("end.gif"), 1);
    EXPECT_EQ(last.count("arrowrightdis.gif"), 1);
    EXPECT_EQ(last.count("<A HREF=\"a13.jpg.html\">"), 2);
    EXPECT_EQ(last.count("<A HREF=\"index1.html\">Home Page</A></P></TD>"), 1);
}

TEST_F(SpelledParts, TwoMainPagesLinkEachOther) {
    addSlides(14);
    build();
    const QByteArray numbers(
        "<P align=center><A HREF=\"index1.html\">1</A>  <A HREF=\"index2.html\">2</A>  </P></TD>");
    const QByteArray one = page(QStringLiteral("index1.html"));
    const QByteArray two = page(QStringLiteral("index2.html"));
    EXPECT_TRUE(one.contains(numbers));
    EXPECT_TRUE(two.contains(numbers));
    EXPECT_TRUE(one.contains(
        "<P align=center><IMG alt=\"View Previous\" src=\"images/arrowleftdis.gif\" border=0>"
        " </P></TD>"));
    EXPECT_TRUE(one.contains(
        "<P align=center><A HREF=\"index2.html\"><IMG alt=\"View Next\""
        " src=\"images/arrowright.gif\" border=0></A></P></TD> </TR></TABLE></P></TD>"));
    EXPECT_TRUE(
        two.contains("<P align=center><A HREF=\"index1.html\"><IMG alt=\"View Previous\""
                     " src=\"images/arrowleft.gif\" border=0></A> </P></TD>"));
    EXPECT_TRUE(two.contains(
        "<P align=center><IMG alt=\"View Next\" src=\"images/arrowrightdis.gif\" border=0>"
        "</P></TD> </TR></TABLE></P></TD>"));
    EXPECT_EQ(one.count("Click to view page"), 12);
    EXPECT_EQ(two.count("Click to view page"), 2);
    EXPECT_EQ(page(QStringLiteral("index3.html")), "(none)");
}

TEST_F(SpelledParts, RowsEndAsTheNumberOfPicturesHasIt) {
    const QByteArray table =
        "</TABLE></P></TD></TR></TABLE></P></TD></TR></TABLE></BODY></HTML>\r\n";
    const QByteArray open = "<TR vAlign=top align=left>";
    const QByteArray empty = open + "</TR><TR></TR>";
    const QByteArray caption = "</P></TD></TR>";
    const struct {
        int pictures;
        QByteArray end;
    } rows[] = {
        {1, caption + open + table},  {2, caption + open + table},
        {3, caption + open + table},  {4, caption + empty + open + table},
        {5, caption + open + table},  {7, caption + open + table},
        {8, caption + empty + table}, {9, caption + table},
        {11, caption + table},        {12, caption + table},
    };
    for (const auto& row : rows) {
        lvwSLIDEBAR.Clear();
        addSlides(row.pictures);
        build();
        EXPECT_TRUE(this->rows(QStringLiteral("index1.html")).endsWith(row.end)) << row.pictures;
        EXPECT_EQ(this->rows(QStringLiteral("index1.html")).count("<TD vAlign=top align=left wid"),
                  row.pictures);
    }
}

TEST_F(SpelledParts, ThirteenPicturesHaveOneOnTheSecondPage) {
    addSlides(13);
    build();
    EXPECT_TRUE(rows(QStringLiteral("index1.html"))
                    .endsWith("<P "
                              "align=center>a12.jpg</P></TD></TR></TABLE></P></TD></TR></TABLE></"
                              "P></TD></TR></TABLE>"
                              "</BODY></HTML>\r\n"));
    EXPECT_EQ(rows(QStringLiteral("index2.html")),
              "<TR vAlign=top align=left><TD vAlign=top align=left width=25%><P align=center>"
              "<A HREF=\"a13.jpg.html\"><IMG style=\"WIDTH: 95px; HEIGHT: 71px \" height=71"
              " alt=\"Click to view page\" src=\"pictures/a13.jpg\" width=90 border=0></A></P></TD>"
              "</TR><TR><TD vAlign=top align=left><P align=center>a13.jpg</P></TD></TR>"
              "<TR vAlign=top align=left></TABLE></P></TD></TR></TABLE></P></TD></TR></TABLE>"
              "</BODY></HTML>\r\n");
}

TEST_F(SpelledParts, ASlideWithNoCaptionIsAnEndForItsNeighbours) {
    addSlides(3);
    lvwSLIDEBAR.item(2)->setText(QString());
    build();
    const QByteArray first = page(QStringLiteral("a01.jpg.html"));
    EXPECT_EQ(first.count("end.gif"), 2);
    EXPECT_TRUE(first.contains("arrowrightdis.gif"));
    const QByteArray third = page(QStringLiteral("a03.jpg.html"));
    EXPECT_EQ(third.count("end.gif"), 2);
    EXPECT_TRUE(third.contains("arrowleftdis.gif"));
    EXPECT_TRUE(page(QStringLiteral(".html")).contains("<A HREF=\"a03.jpg.html\">"));
}

/// One line of a style sheet by its number, from 1.
class SpelledSheets : public AlbumWorld {
protected:
    QByteArray line(int number) {
        build();
        return page(QStringLiteral("images/mainwa.css")).split('\n').value(number - 1);
    }
};

TEST_F(SpelledSheets, SizesAreTheLabelsPoints) {
    const struct {
        const char* label;
        const char* css;
    } rows[] = {
        {"1 (8 pt)", "8px"},   {"2 (10 pt)", "10px"}, {"3 (12 pt)", "12px"},  {"4 (14 pt)", "14px"},
        {"5 (18 pt)", "18px"}, {"6 (24 pt)", "24px"}, {"7 (36 pt)", "36px"},  {"", "12px"},
        {"8 (48 pt)", "12px"}, {"7 (36 PT)", "12px"}, {" 7 (36 pt)", "12px"},
    };
    for (const auto& row : rows) {
        fontSize = QString::fromLatin1(row.label);
        barFontSize = QStringLiteral("5 (18 pt)");
        EXPECT_EQ(line(9), QByteArray("        font-size: ") + row.css + ";\r") << row.label;
        EXPECT_EQ(line(21), "         font-size: 18px;\r");
        barFontSize = QString::fromLatin1(row.label);
        EXPECT_EQ(line(21), QByteArray("         font-size: ") + row.css + ";\r") << row.label;
    }
}

TEST_F(SpelledSheets, FontsAreWrittenAsTheyStand) {
    font = QStringLiteral("\"Times New Roman\", Times, Serif");
    barFont = QStringLiteral("no; such } font\u00E4");
    EXPECT_EQ(line(2), "        font-family: \"Times New Roman\", Times, Serif;\r");
    EXPECT_EQ(line(20), "        font-family: no; such } font\xC3\xA4;\r");
    font.clear();
    barFont.clear();
    EXPECT_EQ(line(2), "        font-family: ;\r");
    EXPECT_EQ(line(20), "        font-family: ;\r");
}

TEST_F(SpelledSheets, ColoursComeOutAsTheyAre) {
    textColour = 255;
    bar = 16711680;
    titleBarText = 0x0A0B0C;
    EXPECT_EQ(line(4), "        COLOR:#FF0000;\r");
    EXPECT_EQ(line(14), "    background-COLOR:#0000FF;\r");
    EXPECT_EQ(line(22), "        COLOR:#0C0B0A;\r");
}

TEST_F(SpelledSheets, ASystemColourIsNotLookedUp) {
    background = static_cast<Colour>(0x8000000FU);
    const QString plain =
        clsCOLRSTYLE().ColorSTRtoHTML(QStringLiteral("-2147483633")).value_or(QString());
    EXPECT_EQ(line(3), "        background-COLOR:" + plain.toUtf8() + ";\r");
    EXPECT_TRUE(plain.startsWith(u'#'));
}

}  // namespace
}  // namespace velorama::test
