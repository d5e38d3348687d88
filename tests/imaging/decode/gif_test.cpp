#include "imaging/bmp_samples.h"
#include "imaging/decode/decoding.h"

#include <gtest/gtest.h>

#include <QHash>
#include <QRect>

#include <random>

namespace velorama {
namespace {

using test::bytesOf;
using test::Pixels;
using test::pixelsOf;
using test::pixels::black;
using test::pixels::blue;
using test::pixels::green;
using test::pixels::red;

constexpr QRgb clear = 0;
const QByteArray primaries = bytesOf("000000 FF0000 00FF00 0000FF");
const QByteArray backwards = bytesOf("0000FF 00FF00 FF0000 000000");

struct Coding {
    /// Bits of an index.
    int bits = 2;
    /// Begin with an empty table, and begin anew when it is full.
    bool clears = true;
    bool ends = true;
};

/// Packs codes, lowest bits first, into the blocks of a frame.
class CodeWriter {
public:
    void put(int code, int width) {
        held_ |= static_cast<quint32>(code) << bits_;
        for (bits_ += width; bits_ >= 8; bits_ -= 8) {
            bytes_ += static_cast<char>(held_ & 0xFF);
            held_ >>= 8;
        }
    }
    QByteArray blocks() {
        put(0, 7);  // what is begun comes out
        QByteArray blocks;
        for (qsizetype i = 0; i < bytes_.size(); i += 255) {
            const QByteArray block = bytes_.mid(i, 255);
            blocks += static_cast<char>(block.size()) + block;
        }
        return blocks + '\0';
    }

private:
    quint32 held_ = 0;
    int bits_ = 0;
    QByteArray bytes_;
};

/// What a frame ends with: bits and blocks. As long strings as there are, and codes that grow.
QByteArray coded(const QByteArray& indices, const Coding& coding = {}) {
    const int clearCode = 1 << coding.bits;
    CodeWriter writer;
    QHash<QByteArray, int> table;
    int width = coding.bits + 1;
    const auto begin = [&] {
        writer.put(clearCode, width);
        table.clear();
        width = coding.bits + 1;
    };
    // The reader is a string behind, and has none yet at the first code.
    const auto grown = [&](int next) {
        return next >= 1 << width && width < 12 && !table.isEmpty() ? width + 1 : width;
    };
    const auto codeOf = [&](const QByteArray& text) {
        return text.size() == 1 ? int(text[0]) & 0xFF : table.value(text);
    };
    if (coding.clears) {
        begin();
    }
    QByteArray text;
    for (const char index : indices) {
        if (text.isEmpty() || table.contains(text + index)) {
            text += index;
            continue;
        }
        writer.put(codeOf(text), width);
        const int next = clearCode + 2 + int(table.size());
        if (next < 4096) {
            width = grown(next);
            table.insert(text + index, next);
        } else if (coding.clears) {
            begin();
        }
        text = QByteArray(1, index);
    }
    writer.put(codeOf(text), width);
    if (coding.ends) {
        const int next = clearCode + 2 + int(table.size());
        writer.put(clearCode + 1, grown(next));
    }
    return static_cast<char>(coding.bits) + writer.blocks();
}

struct Sample {
    QSize screen{4, 2};
    /// The screen's palette and the frame's own.
    QByteArray shared = primaries;
    int background = 1;
    /// What stands before the frame.
    QByteArray before = {};
    QRect frame{1, 0, 2, 1};
    QByteArray own = {};
    bool interlaced = false;
    QByteArray content = coded(bytesOf("02 03"));
};

QByteArray two(int number) {
    return QByteArray(1, static_cast<char>(number & 0xFF)) + static_cast<char>(number >> 8);
}

/// The packed field of a palette.
char packed(const QByteArray& palette, int more = 0) {
    int bits = 0;
    while (3 << (bits + 1) < palette.size()) {
        ++bits;
    }
    return static_cast<char>((palette.isEmpty() ? 0 : 0x80 | bits) | more);
}

QByteArray gif(const Sample& sample) {
    const QRect& frame = sample.frame;
    return "GIF89a" + two(sample.screen.width()) + two(sample.screen.height()) +
           packed(sample.shared) + static_cast<char>(sample.background) + '\0' + sample.shared +
           sample.before + ',' + two(frame.x()) + two(frame.y()) + two(frame.width()) +
           two(frame.height()) + packed(sample.own, sample.interlaced ? 0x40 : 0) + sample.own +
           sample.content + ';';
}

TEST(GifGround, IsOfTheScreensPaletteWhicheverTheFrameHas) {
    EXPECT_EQ(pixelsOf(gif({})), (Pixels{red, green, blue, red, red, red, red, red}));
    EXPECT_EQ(pixelsOf(gif({.own = backwards})),
              (Pixels{red, red, black, red, red, red, red, red}));
}

TEST(GifGround, ThatNoPaletteOfTheScreenHasIsSeenThrough) {
    const Pixels wanted{clear, red, black, clear, clear, clear, clear, clear};
    EXPECT_EQ(pixelsOf(gif({.shared = {}, .own = backwards})), wanted);
    EXPECT_EQ(pixelsOf(gif({.background = 4, .own = backwards})), wanted);
}

TEST(GifPalette, HasBlackBeyondItsEnd) {
    const QByteArray content = coded(bytesOf("02 07"), {.bits = 3});
    EXPECT_EQ(pixelsOf(gif({.screen = {2, 1}, .frame = {0, 0, 2, 1}, .content = content})),
              (Pixels{green, black}));
    EXPECT_EQ(pixelsOf(gif({.screen = {2, 1}, .shared = {}, .frame = {0, 0, 2, 1}})),
              (Pixels{black, black}));
}

TEST(GifRows, OfAnyNumberMayBeInterlaced) {
    for (int height = 1; height < 20; ++height) {
        QByteArray rows;
        Pixels wanted;
        for (const auto& [first, step] : {std::pair(0, 8), {4, 8}, {2, 4}, {1, 2}}) {
            for (int y = first; y < height; y += step) {
                rows += static_cast<char>(y % 3 + 1);
            }
        }
        for (int y = 0; y < height; ++y) {
            wanted.push_back(y % 3 == 0 ? red : y % 3 == 1 ? green : blue);
        }
        const QByteArray bytes = gif({.screen = {1, height},
                                      .frame = {0, 0, 1, height},
                                      .interlaced = true,
                                      .content = coded(rows)});
        EXPECT_EQ(pixelsOf(bytes), wanted) << height;
    }
}

TEST(GifFrame, BeyondTheScreenIsCutOff) {
    const QByteArray content = coded(bytesOf("02 03 03 02"));
    EXPECT_EQ(pixelsOf(gif({.screen = {2, 2}, .frame = {1, 1, 2, 2}, .content = content})),
              (Pixels{red, red, red, green}));
    EXPECT_EQ(pixelsOf(gif({.screen = {2, 1}, .frame = {9, 0, 2, 2}, .content = content})),
              (Pixels{red, red}));
    EXPECT_EQ(pixelsOf(gif({.screen = {2, 1}, .frame = {0, 0, 65535, 65535}, .content = content})),
              Pixels{});
}

TEST(GifFrame, IsTheScreenWhereThatHasNoSize) {
    const Pixels wanted{green, blue};
    for (const QSize screen : {QSize(0, 0), QSize(0, 7), QSize(7, 0)}) {
        EXPECT_EQ(pixelsOf(gif({.screen = screen})), wanted);
    }
    const QByteArray comment = bytesOf("21 FE 03") + "abc" + '\0';
    EXPECT_EQ(pixelsOf(gif({.screen = {0, 0}, .before = comment.repeated(9000)})), wanted);
    const QByteArray far = gif({.screen = {0, 0}, .before = comment.repeated(10'000)});
    MemoryBytes source(far);
    EXPECT_EQ(pictureSize(source), QSize());
    EXPECT_TRUE(decodePicture(far).isNull());
}

// The frame and its palette are to stand in the first 64 KiB, which are what the size is told from.
TEST(GifFrame, IsTheScreenUpTo63KibibytesBehindTheStart) {
    const qsizetype first = gif({.screen = {0, 0}}).indexOf(',');
    const QByteArray stray(63 * 1024 - first, '\0');
    EXPECT_EQ(pixelsOf(gif({.screen = {0, 0}, .before = stray})), (Pixels{green, blue}));
    EXPECT_TRUE(decodePicture(gif({.screen = {0, 0}, .before = stray + '\0'})).isNull());
}

TEST(GifFrame, MayComeBehindStrayBytes) {
    const QByteArray comment = bytesOf("21 FE 01 2C 00");
    const QByteArray before = bytesOf("00 00") + comment + bytesOf("00 FF") + comment;
    EXPECT_EQ(pixelsOf(gif({.before = before})), pixelsOf(gif({})));
    EXPECT_TRUE(decodePicture(gif({.before = ";"})).isNull());
}

TEST(GifCodes, GrowAndBeginAnew) {
    std::mt19937 random(26);
    constexpr int width = 211;
    constexpr int height = 97;
    for (const int bits : {2, 3, 7, 8}) {
        for (const Coding coding :
             {Coding{bits, true, true}, {bits, false, true}, {bits, true, false}}) {
            QByteArray palette;
            for (int i = 0; i < 3 << bits; ++i) {
                palette += static_cast<char>(random());
            }
            QByteArray indices;
            Pixels wanted;
            for (int i = 0; i < width * height; ++i) {
                // Runs, so that strings grow long.
                const unsigned index = i > 0 && random() % 3 != 0 ? unsigned(indices.back()) & 0xFFU
                                                                  : random() % (1U << bits);
                indices += static_cast<char>(index);
                const auto* colour =
                    reinterpret_cast<const uchar*>(palette.data()) + size_t{3} * index;
                wanted.push_back(qRgb(colour[0], colour[1], colour[2]));
            }
            const QByteArray bytes = gif({.screen = {width, height},
                                          .shared = palette,
                                          .frame = {0, 0, width, height},
                                          .content = coded(indices, coding)});
            EXPECT_TRUE(pixelsOf(bytes) == wanted) << bits << coding.clears << coding.ends;
        }
    }
}

TEST(GifCodes, OfOneBitGrowBehindTheSecond) {
    // Clear, 0 and 1 in two bits, then both again and the end in three.
    const QByteArray content = bytesOf("01 02 12 07 00");
    EXPECT_EQ(pixelsOf(gif({.screen = {4, 1}, .frame = {0, 0, 4, 1}, .content = content})),
              (Pixels{black, red, black, red}));
}

TEST(GifCodes, ThatStandForNothingEndTheFrame) {
    // Clear, 2, and then the string behind the next one; then the end without any index.
    for (const QByteArray& blocks : {bytesOf("02 54 01 00"), bytesOf("02 54 01 01 00")}) {
        const Pixels shown = pixelsOf(gif({.content = '\2' + blocks}));
        EXPECT_EQ(shown, (Pixels{red, green, red, red, red, red, red, red}));
    }
    EXPECT_EQ(pixelsOf(gif({.content = bytesOf("02 01 05 00")})), Pixels(8, red));
}

TEST(GifCodes, OfNoOrTooManyBitsAreNotRead) {
    for (const char bits : {'\0', '\x09', '\x0C', '\xFF'}) {
        QByteArray content = coded(bytesOf("02 03"));
        content[0] = bits;
        EXPECT_TRUE(decodePicture(gif({.content = content})).isNull()) << int(bits);
    }
}

TEST(GifCut, IsNullUnlessAllPixelsAreThere) {
    QByteArray indices;
    for (int i = 0; i < 900; ++i) {
        indices += static_cast<char>(i * i % 4);
    }
    const QByteArray whole =
        gif({.screen = {30, 30}, .frame = {0, 0, 30, 30}, .content = coded(indices)});
    const Pixels wanted = pixelsOf(whole);
    ASSERT_EQ(wanted.size(), 900U);
    qsizetype shown = 0;
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const QByteArray bytes = whole.first(length);
        const bool isNull = decodePicture(bytes).isNull();
        EXPECT_TRUE(isNull || pixelsOf(bytes) == wanted) << length;
        shown += isNull ? 0 : 1;
    }
    // Without the last part of a byte, the blocks' end and the file's.
    EXPECT_GE(shown, 2);
    EXPECT_LE(shown, 4);
}

}  // namespace
}  // namespace velorama
