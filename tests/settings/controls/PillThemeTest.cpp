#include "settings/controls/PillTheme.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr double kRounding = 0.002;

void expectOpacity(const QColor& color, const QColor& base, double opacity) {
    EXPECT_EQ(color.rgb() & RGB_MASK, base.rgb() & RGB_MASK);
    EXPECT_NEAR(static_cast<double>(color.alphaF()), opacity, kRounding);
}

TEST(PillThemeTest, ColorsAreWhiteOnDark) {
    expectOpacity(PillTheme::field(Scheme::dark), Qt::white, 0.06);
    expectOpacity(PillTheme::fieldBorder(Scheme::dark), Qt::white, 0.12);
    expectOpacity(PillTheme::segOverlay(Scheme::dark), Qt::white, 0.052);
}

TEST(PillThemeTest, ColorsAreBlackOnLight) {
    expectOpacity(PillTheme::field(Scheme::light), Qt::black, 0.05);
    expectOpacity(PillTheme::fieldBorder(Scheme::light), Qt::black, 0.12);
    expectOpacity(PillTheme::segOverlay(Scheme::light), Qt::black, 0.075);
}

}  // namespace
}  // namespace velmora
