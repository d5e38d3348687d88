#include "player/player_world.h"

#include "player/slide_sequence.h"

namespace velorama::test {
namespace {

struct CaptionCase {
    const char* about;
    const char* path;
    const char* caption;
};

void PrintTo(const CaptionCase& row, std::ostream* out) {
    *out << row.about << ": " << row.path;
}

const CaptionCase cases[] = {
    {"ending of three letters", "C:\\pics\\beach.jpg", "beach"},
    {"ending of four letters", "C:\\pics\\beach.jpeg", "beach"},
    {"ending of one letter", "C:\\pics\\beach.x", "pics\\beach.x"},
    {"ending of two letters", "C:\\pics\\beach.jp", "pics\\beach.jp"},
    {"ending of five letters", "C:\\pics\\beach.jpegs", "pics\\beach.jpegs"},
    {"no ending", "C:\\pics\\beach", "pics\\beach"},
    {"no ending, deep", "C:\\a\\b\\c\\beach", "a\\b\\c\\beach"},
    {"root of the drive", "C:\\beach.jpg", "beach"},
    {"deep folder", "C:\\a\\b\\c\\beach.gif", "beach"},
    {"share", "\\\\server\\share\\beach.jpg", "beach"},
    {"share, other ending", "\\\\server\\share\\beach.x", "server\\share\\beach.x"},
    {"several dots", "C:\\pics\\beach.1.2.jpg", "beach.1.2"},
    {"several dots, four letters", "C:\\pics\\beach.1.jpeg", "beach.1"},
    {"last ending too short, the one before in place", "C:\\pics\\a.x.b", "a"},
    {"last ending short, the one before in place", "C:\\pics\\img.2.jp", "img"},
    {"two endings, neither in place", "C:\\pics\\photo.tar.gz", "pics\\photo.tar.gz"},
    {"name of one letter", "C:\\pics\\a.jpg", "a"},
    {"nothing before the ending", "C:\\pics\\.jpg", ""},
    {"nothing before the longer ending", "C:\\pics\\.jpeg", ""},
    {"dot of the folder three before the end", "C:\\a.b\\c", "c"},
    {"dot of the folder four before the end", "C:\\a.jp\\x", "x"},
    {"dot of the folder, two letters", "C:\\a.b\\cd", "cd"},
    {"folder with a dot", "C:\\pics.old\\beach.jpg", "beach"},
    {"folder with a dot, no ending", "C:\\pics.old\\beach", "pics.old\\beach"},
    {"blanks", "C:\\my pics\\a day out.jpg", "a day out"},
    {"no separator", "beach.jpg", "beach.jpg"},
    {"no separator, drive", "C:beach.jpg", "C:beach.jpg"},
    {"slashes in a drive's path", "C:/pics/beach.jpg", "C:/pics/beach.jpg"},
    {"shorter than an ending", "C:\\a", "a"},
    {"one letter", "a", "a"},
    {"empty", "", ""},
    {"backslash at the very start, which the scan does not reach", "\\beach.jpg", "\\beach.jpg"},
    {"backslash at the very start, other ending", "\\pics\\beach.x", "beach.x"},
    {"slash: ending of three letters", "/pics/beach.jpg", "beach"},
    {"slash: ending of four letters", "/pics/beach.jpeg", "beach"},
    {"slash: ending of one letter", "/pics/beach.x", "pics/beach.x"},
    {"slash: no ending", "/pics/beach", "pics/beach"},
    {"slash: no ending, deep", "/home/ann/pics/beach", "home/ann/pics/beach"},
    {"slash: root of the drive", "/beach.jpg", "beach"},
    {"slash: several dots", "/pics/beach.1.2.jpg", "beach.1.2"},
    {"slash: nothing before the ending", "/pics/.jpg", ""},
    {"slash: dot of the folder three before the end", "/a.b/c", "c"},
    {"slash: backslash in the name", "/pics/odd\\name.jpg", "odd\\name"},
    {"slash: letters beyond ASCII", "/Fotos/Füße 🏖.jpg", "Füße 🏖"},
};

class Caption : public PlayerTest, public testing::WithParamInterface<CaptionCase> {};

TEST_P(Caption, IsTheNameWithoutItsEnding) {
    EXPECT_EQ(CaptionFromPath(QString::fromUtf8(GetParam().path)).toStdString(),
              GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(Paths, Caption, testing::ValuesIn(cases));

using CaptionYield = PlayerTest;

TEST_F(CaptionYield, TwiceACharacterUpToTheSeparator) {
    const AtYield watch([] {});
    CaptionFromPath(QStringLiteral("C:\\pics\\beach.jpg"));
    // Positions 0 to 9 yield before and after, the separator at 10 ends the scan after its first.
    EXPECT_EQ(watch.yields(), 21);
}

}  // namespace
}  // namespace velorama::test
