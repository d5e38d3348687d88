#pragma once

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <gtest/gtest.h>

namespace velorama::test {

/// For the runs on two screens side by side, the right one lower. Elsewhere its tests are skipped.
template <typename World>
class OnTwoScreens : public World {
protected:
    void SetUp() override {
        if (QGuiApplication::screens().size() != 2) {
            GTEST_SKIP() << "has a run of its own, on two screens";
        }
        ASSERT_EQ(left(), QRect(0, 0, 1280, 960));
        ASSERT_EQ(right(), QRect(1280, 0, 1280, 720));
        World::SetUp();
    }
    static QRect left() { return QGuiApplication::screens().at(0)->geometry(); }
    static QRect right() { return QGuiApplication::screens().at(1)->geometry(); }
};

}  // namespace velorama::test
