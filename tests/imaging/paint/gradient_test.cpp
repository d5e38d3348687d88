#include "imaging/paint/gradient.h"

#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velorama {
namespace {

constexpr QRgb unpainted = 0x00ABCDEF;

QImage surface(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        std::fill_n(reinterpret_cast<QRgb*>(image.scanLine(y)), width, unpainted);
    }
    return image;
}

void put(QImage& image, int x, int y, QRgb colour) {
    if (image.rect().contains(x, y)) {
        reinterpret_cast<QRgb*>(image.scanLine(y))[x] = colour;
    }
}

/// A one-pixel line, error by error, its last pixel left out.
void drawLine(QImage& image, QPoint from, QPoint to, QRgb colour) {
    const int dx = std::abs(to.x() - from.x());
    const int dy = std::abs(to.y() - from.y());
    const int sx = to.x() < from.x() ? -1 : 1;
    const int sy = to.y() < from.y() ? -1 : 1;
    const bool steep = dy >= dx;
    int error = steep ? 2 * dx - dy : 2 * dy - dx;
    for (int i = 0; i < std::max(dx, dy); ++i) {
        put(image, from.x(), from.y(), colour);
        if (error > 0) {
            (steep ? from.rx() : from.ry()) += steep ? sx : sy;
            error -= 2 * (steep ? dy : dx);
        }
        error += 2 * (steep ? dx : dy);
        (steep ? from.ry() : from.rx()) += steep ? sy : sx;
    }
}

struct Ends {
    float x[2], y[2];
};

Ends turnedLine(float angle, int width, int height) {
    const int cx = width / 2;
    const int cy = height / 2;
    const double side = std::max(width, height);
    const double half = (std::sqrt(2 * side * side) + 2) * 0.5;
    const double turn = std::fmod(double(angle) + 90, 360) * 0.017453292519943278;
    Ends ends{};
    for (const int i : {0, 1}) {
        const double dx = double(static_cast<float>(i == 0 ? cx - half : cx + half)) - cx;
        ends.x[i] = static_cast<float>(cx + dx * std::cos(turn));
        ends.y[i] = static_cast<float>(cy - dx * std::sin(turn));
    }
    return ends;
}

QPoint sectorStep(float a, bool steep) {
    if (a <= 90) {
        return steep ? QPoint(1, 0) : QPoint(0, -1);
    }
    if (a <= 180) {
        return steep ? QPoint(-1, 0) : QPoint(0, -1);
    }
    if (a <= 270) {
        return steep ? QPoint(-1, 0) : QPoint(0, 1);
    }
    return steep ? QPoint(1, 0) : QPoint(0, 1);
}

bool isPast(QPoint p, QPoint step, int width, int height) {
    return step.x() > 0   ? p.x() > width
           : step.x() < 0 ? p.x() < 0
           : step.y() > 0 ? p.y() > height
                          : p.y() < 0;
}

std::vector<QPoint> linePoints(float angle, int width, int height) {
    Ends e = turnedLine(angle, width, height);
    const bool steep = std::abs(e.y[0] - e.y[1]) >= std::abs(e.x[0] - e.x[1]);
    const QPoint step = sectorStep(angle, steep);
    auto& moved = steep ? e.x : e.y;
    const int forward = step.x() + step.y();
    const float shift =
        forward > 0 ? -std::max(moved[0], moved[1])
                    : static_cast<float>(steep ? width : height) - std::min(moved[0], moved[1]);
    moved[0] += shift;
    moved[1] += shift;
    std::vector<QPoint> points;
    for (const int i : {0, 1}) {
        points.emplace_back(roundHalfEven(e.x[i]), roundHalfEven(e.y[i]));
    }
    do {
        points.push_back(points[points.size() - 2] + step);
        points.push_back(points[points.size() - 2] + step);
    } while (!isPast(points[points.size() - 1], step, width, height) ||
             !isPast(points[points.size() - 2], step, width, height));
    return points;
}

/// The gradient line by line.
QImage drawnLineByLine(const clsPICGRDNT& gradient, int width, int height) {
    QImage image = surface(width, height);
    const std::vector<QPoint> points = linePoints(gradient.Angle(), width, height);
    const auto colours = clsPICGRDNT::BlendColors(gradient.Color1(), gradient.Color2(),
                                                  static_cast<int>(points.size() / 2));
    for (size_t i = 0; i + 1 < points.size(); i += 2) {
        const Colour c = colours[i / 2];
        drawLine(image, points[i], points[i + 1], qRgb(c & 255, c >> 8 & 255, c >> 16 & 255));
    }
    return image;
}

clsPICGRDNT gradientAt(float angle) {
    clsPICGRDNT gradient;
    gradient.Angle(angle);
    gradient.Color1(0x102030);
    gradient.Color2(0xF0C8A0);
    return gradient;
}

TEST(Gradient, equals_the_drawing_line_by_line_and_leaves_no_pixel) {
    for (const QSize size : {QSize(2, 2), QSize(3, 2), QSize(2, 9), QSize(17, 16), QSize(64, 31),
                             QSize(31, 64), QSize(101, 101), QSize(240, 135)}) {
        for (int turn = 0; turn < 48; ++turn) {
            const float angle = 7.5F * static_cast<float>(turn);
            const clsPICGRDNT gradient = gradientAt(angle);
            QImage image = surface(size.width(), size.height());
            ASSERT_TRUE(gradient.Draw(image));
            ASSERT_EQ(image, drawnLineByLine(gradient, size.width(), size.height()))
                << size.width() << " x " << size.height() << " at " << angle;
            for (int y = 0; y < size.height(); ++y) {
                const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
                ASSERT_EQ(std::find(row, row + size.width(), unpainted), row + size.width());
            }
        }
    }
}

TEST(Gradient, runs_left_to_right_at_0_and_bottom_to_top_at_90) {
    QImage image = surface(200, 100);
    gradientAt(0).Draw(image);
    EXPECT_EQ(image.pixel(0, 0), qRgb(0x30, 0x20, 0x10));
    EXPECT_EQ(image.pixel(0, 99), qRgb(0x30, 0x20, 0x10));
    EXPECT_LT(qRed(image.pixel(50, 50)), qRed(image.pixel(150, 50)));
    gradientAt(90).Draw(image);
    EXPECT_EQ(image.pixel(3, 70), image.pixel(190, 70));
    EXPECT_LT(qRed(image.pixel(100, 99)), qRed(image.pixel(100, 0)));
}

TEST(Gradient, draws_nothing_on_a_side_of_one_pixel_or_none) {
    for (const QSize size : {QSize(1, 10), QSize(10, 1), QSize(1, 1)}) {
        QImage image = surface(size.width(), size.height());
        EXPECT_FALSE(clsPICGRDNT().Draw(image));
        EXPECT_EQ(image.pixel(0, 0) & 0xFFFFFF, unpainted);
    }
    QImage none;
    EXPECT_FALSE(clsPICGRDNT().Draw(none));
}

TEST(Gradient, of_equal_colours_is_a_plain_fill) {
    clsPICGRDNT gradient = gradientAt(45);
    gradient.Color2(0x102030);
    QImage image = surface(40, 30);
    QImage plain = surface(40, 30);
    plain.fill(qRgb(0x30, 0x20, 0x10));
    EXPECT_TRUE(gradient.Draw(image));
    EXPECT_EQ(image, plain);
}

TEST(Gradient, reduces_its_angle_to_one_turn) {
    clsPICGRDNT gradient;
    EXPECT_EQ(gradient.Angle(), 315);
    gradient.Angle(360);
    EXPECT_EQ(gradient.Angle(), 0);
    gradient.Angle(-45);
    EXPECT_EQ(gradient.Angle(), 315);
    gradient.Angle(765.5F);
    EXPECT_EQ(gradient.Angle(), 45.5F);
    gradient.Angle(-1e-9F);
    EXPECT_LT(gradient.Angle(), 360);
    gradient.Angle(30);
    gradient.Angle(INFINITY);
    EXPECT_EQ(gradient.Angle(), 30);
}

TEST(Gradient, stores_system_colours_as_their_present_colour) {
    clsPICGRDNT gradient;
    EXPECT_EQ(gradient.Color1(), 0xFFFFD0);
    EXPECT_EQ(gradient.Color2(), 0x400000);
    gradient.Color1(systemColour(15));
    EXPECT_EQ(gradient.Color1(), GetSysColor(15));
    gradient.Color2(systemColour(24));
    EXPECT_EQ(gradient.Color2(), GetSysColor(24));
    gradient.Color2(systemColour(25));
    EXPECT_EQ(gradient.Color2(), systemColour(25));
}

TEST(GradientColours, stop_short_of_the_last_which_is_set_apart) {
    const std::vector<Colour> expected{0x000000, 0x000033, 0x000066, 0x000099, 0x0000FF};
    EXPECT_EQ(clsPICGRDNT::BlendColors(0, 0x0000FF, 5), expected);
}

TEST(GradientColours, are_two_at_least) {
    const std::vector<Colour> expected{0x123456, 0x654321};
    EXPECT_EQ(clsPICGRDNT::BlendColors(0x123456, 0x654321, 0), expected);
    EXPECT_EQ(clsPICGRDNT::BlendColors(0x123456, 0x654321, 1), expected);
    EXPECT_EQ(clsPICGRDNT::BlendColors(0x123456, 0x654321, 2), expected);
}

TEST(GradientColours, round_halves_to_even_in_every_channel) {
    const std::vector<Colour> colours = clsPICGRDNT::BlendColors(0x000000, 0x020A06, 4);
    EXPECT_EQ(colours[1], 0x000202);  // 0.5, 2.5, 1.5
    EXPECT_EQ(colours[2], 0x010503);
}

}  // namespace
}  // namespace velorama
