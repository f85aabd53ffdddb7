#include "menubar/MenuBarRenderer.h"

#include "look/PinnedFont.h"
#include "menubar/MenuBarFigures.h"
#include "menubar/MenuBarGeometry.h"
#include "menubar/MenuBarText.h"
#include "menubar/SampleSnapshots.h"

#include <gtest/gtest.h>

#include <QRect>

#include <cmath>
#include <set>

namespace velmora {
namespace {

using MenuBarRenderer::Ink;

constexpr RGBColor kBlue = {10, 132, 255};

QImage draw(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, double ratio = 2) {
    return MenuBarRenderer::render(style, module, snapshot, Ink::automatic(), ratio).image;
}

double widthOf(const QImage& image) {
    return image.width() / image.devicePixelRatio();
}

int alphaAt(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y));
}

/// The highest alpha in a rectangle of pixels.
int strongest(const QImage& image, const QRect& rect) {
    int alpha = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) alpha = std::max(alpha, alphaAt(image, x, y));
    }
    return alpha;
}

/// The colours of all pixels that are covered wholly.
std::set<QRgb> solidColors(const QImage& image) {
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (alphaAt(image, x, y) == 255) colors.insert(image.pixel(x, y));
        }
    }
    return colors;
}

StatsSnapshot withCpu(double usage) {
    StatsSnapshot snapshot;
    snapshot.cpu.usage = usage;
    return snapshot;
}

TEST(MenuBarRenderer, EveryImageIsTwentyTwoPointsHighAtEveryRatio) {
    const StatsSnapshot snapshot = busySnapshot();
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const StatsModule module : kAllModules) {
            for (const ModuleStyle style : kAllStyles) {
                const QImage image = draw(style, module, snapshot, ratio);
                EXPECT_EQ(image.height(), static_cast<int>(std::ceil(22 * ratio)));
                EXPECT_DOUBLE_EQ(image.devicePixelRatio(), ratio);
            }
        }
    }
}

TEST(MenuBarRenderer, StylesHaveTheirWidths) {
    const StatsSnapshot snapshot = withCpu(0.42);
    EXPECT_EQ(widthOf(draw(ModuleStyle::graph, StatsModule::cpu, snapshot)), 32);
    EXPECT_EQ(widthOf(draw(ModuleStyle::gaugeOnly, StatsModule::cpu, snapshot)), 10);
    EXPECT_EQ(widthOf(draw(ModuleStyle::pieOnly, StatsModule::cpu, snapshot)), 18);
    EXPECT_EQ(widthOf(draw(ModuleStyle::barOnly, StatsModule::cpu, snapshot)), 22);
}

TEST(MenuBarRenderer, LabelledShapesAddTheColumnAndItsGap) {
    double widest = 0;
    for (const char16_t letter : {u'C', u'P', u'U'}) {
        widest = std::max(widest, MenuBarText::width(verticalLabelFont, QString(QChar(letter))));
    }
    const double column = std::ceil(widest) + 2;
    EXPECT_EQ(widthOf(draw(ModuleStyle::gauge, StatsModule::cpu, withCpu(0.5))), column + 10);
    EXPECT_EQ(widthOf(draw(ModuleStyle::pie, StatsModule::cpu, withCpu(0.5))), column + 18);
}

TEST(MenuBarRenderer, GraphAndValueStandThreePointsApart) {
    const StatsSnapshot snapshot = busySnapshot();
    for (const StatsModule module : kAllModules) {
        const QImage value = draw(ModuleStyle::value, module, snapshot);
        const QImage both = draw(ModuleStyle::graphValue, module, snapshot);
        ASSERT_EQ(both.width(), 64 + 6 + value.width());
        EXPECT_EQ(strongest(both, {64, 0, 6, both.height()}), 0);
        EXPECT_EQ(both.copy(0, 0, 64, 44), draw(ModuleStyle::graph, module, snapshot).copy());
        EXPECT_EQ(both.copy(70, 0, value.width(), 44), value.copy());
    }
}

TEST(MenuBarRenderer, BatteryGaugeOnADesktopIsTheHistoryGraph) {
    StatsSnapshot snapshot = busySnapshot();
    snapshot.battery.present = false;
    for (const ModuleStyle style : {ModuleStyle::gauge, ModuleStyle::gaugeOnly, ModuleStyle::pie,
                                    ModuleStyle::pieOnly, ModuleStyle::bar, ModuleStyle::barOnly}) {
        const QImage image = draw(style, StatsModule::battery, snapshot);
        EXPECT_EQ(image, draw(ModuleStyle::graph, StatsModule::battery, snapshot));
        EXPECT_EQ(widthOf(image), 32);
        // The newest bar, in the last slot.
        EXPECT_NEAR(alphaAt(image, static_cast<int>((1 + 1.875 * 15 + 1.375 / 2) * 2), 34), 255 * 0.85, 2);
    }
}

TEST(MenuBarRenderer, AbsentFiguresShowTheGraphInPlaceOfAShape) {
    const StatsSnapshot nothing;
    for (const StatsModule module : {StatsModule::disk, StatsModule::sensors, StatsModule::battery}) {
        for (const ModuleStyle style : {ModuleStyle::gauge, ModuleStyle::pieOnly, ModuleStyle::bar}) {
            EXPECT_EQ(widthOf(draw(style, module, nothing)), 32);
        }
    }
    for (const StatsModule module : {StatsModule::cpu, StatsModule::memory, StatsModule::network}) {
        EXPECT_EQ(widthOf(draw(ModuleStyle::gaugeOnly, module, nothing)), 10) << "these have a figure, 0";
    }
}

TEST(MenuBarRenderer, GraphOfAModuleIsOfItsOwnSeries) {
    const auto hasBars = [](StatsModule module, const StatsSnapshot& snapshot) {
        return strongest(draw(ModuleStyle::graph, module, snapshot), {40, 10, 22, 28}) > 128;
    };
    StatsSnapshot own;
    own.cpu.history.append(1);
    own.memory.pressureHistory.append(1);
    own.disk.activityHistory.append(1e9);
    own.network.downHistory.append(1e9);
    own.sensors.history.append(1);
    own.battery.history.append(1);
    StatsSnapshot others;
    others.cpu.userHistory.append(1);
    others.memory.history.append(1);
    others.disk.readHistory.append(1e9);
    for (const StatsModule module : kAllModules) {
        EXPECT_TRUE(hasBars(module, own)) << shortLabel(module);
        EXPECT_FALSE(hasBars(module, others)) << shortLabel(module);
    }
}

TEST(MenuBarRenderer, BarHasTheModulesLabelAndBarOnlyNone) {
    // Above 13 points there is the label and nothing else.
    const QRect above(0, 0, 44, 18);
    EXPECT_GT(strongest(draw(ModuleStyle::bar, StatsModule::cpu, withCpu(0.5)), above), 0);
    EXPECT_EQ(strongest(draw(ModuleStyle::barOnly, StatsModule::cpu, withCpu(0.5)), {0, 0, 44, 14}), 0);
    EXPECT_NE(draw(ModuleStyle::bar, StatsModule::cpu, withCpu(0)),
              draw(ModuleStyle::bar, StatsModule::memory, {}));
}

TEST(MenuBarRenderer, BatteryValueOnADesktopIsADashBelowTheLabel) {
    const QImage absent = draw(ModuleStyle::value, StatsModule::battery, {});
    // Label above, and below it only the dash: a line in the lower half that is not as high as digits.
    EXPECT_GT(strongest(absent, {0, 0, absent.width(), 18}), 0);
    int rowsWithInk = 0;
    for (int y = 20; y < absent.height(); ++y) {
        if (strongest(absent, {0, y, absent.width(), 1}) > 0) ++rowsWithInk;
    }
    EXPECT_GT(rowsWithInk, 0);
    EXPECT_LT(rowsWithInk, 8);
}

TEST(MenuBarRenderer, PieAtHalfAPercentIsTheOutlineOnly) {
    const QImage image = draw(ModuleStyle::pieOnly, StatsModule::cpu, withCpu(0.005), 3);
    EXPECT_EQ(strongest(image, {27 - 14, 33 - 14, 28, 28}), 0);
    EXPECT_GT(strongest(image, {0, 0, image.width(), image.height()}), 90);
}

TEST(MenuBarRenderer, PieAtOneIsAFullDisc) {
    const QImage image = draw(ModuleStyle::pieOnly, StatsModule::cpu, withCpu(1), 3);
    for (int degrees = 0; degrees < 360; degrees += 5) {
        const double angle = degrees * 3.14159265358979 / 180;
        for (const double radius : {0.0, 3.0, 6.2}) {
            const int x = static_cast<int>((9 + radius * std::cos(angle)) * 3);
            const int y = static_cast<int>((11 + radius * std::sin(angle)) * 3);
            EXPECT_EQ(alphaAt(image, x, y), 255) << degrees << " " << radius;
        }
    }
}

TEST(MenuBarRenderer, QuarterPieFillsTheUpperRightQuarter) {
    const QImage image = draw(ModuleStyle::pieOnly, StatsModule::cpu, withCpu(0.25), 3);
    EXPECT_EQ(alphaAt(image, 27 + 9, 33 - 9), 255);
    EXPECT_EQ(alphaAt(image, 27 - 9, 33 - 9), 0);
    EXPECT_EQ(alphaAt(image, 27 + 9, 33 + 9), 0);
    EXPECT_EQ(alphaAt(image, 27 - 9, 33 + 9), 0);
}

TEST(MenuBarRenderer, FiveHistoryValuesStandAtTheRightEdge) {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 5; ++tick) snapshot.cpu.history.append(1);
    const QImage image = draw(ModuleStyle::graph, StatsModule::cpu, snapshot);
    // Slot 11 begins at 21.625; left of it only the frame shows.
    EXPECT_EQ(strongest(image, {4, 8, 38, 28}), 0);
    for (int slot = 11; slot < 16; ++slot) {
        const double middle = 1 + 1.875 * slot + 1.375 / 2;
        EXPECT_NEAR(alphaAt(image, static_cast<int>(middle * 2), 20), 255 * 0.85, 2) << slot;
    }
}

TEST(MenuBarRenderer, SixtyHistoryValuesShowTheLastSixteen) {
    StatsSnapshot all;
    StatsSnapshot last;
    for (int tick = 0; tick < 60; ++tick) {
        const double value = (tick * 37 % 60) / 60.0;
        all.cpu.history.append(value);
        if (tick >= 44) last.cpu.history.append(value);
    }
    EXPECT_EQ(draw(ModuleStyle::graph, StatsModule::cpu, all),
              draw(ModuleStyle::graph, StatsModule::cpu, last));
}

TEST(MenuBarRenderer, HistoryOfZerosShowsBarsOnePointHigh) {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 16; ++tick) snapshot.cpu.history.append(0);
    const QImage image = draw(ModuleStyle::graph, StatsModule::cpu, snapshot);
    // From 3.5 to 4.5 points above the bottom: two rows of pixels.
    const int x = static_cast<int>((1 + 1.875 * 8 + 1.375 / 2) * 2);
    EXPECT_EQ(alphaAt(image, x, 34), 0);
    EXPECT_NEAR(alphaAt(image, x, 35), 255 * 0.85, 2);
    EXPECT_NEAR(alphaAt(image, x, 36), 255 * 0.85, 2);
    EXPECT_EQ(alphaAt(image, x, 37), 0);
}

TEST(MenuBarRenderer, DualGraphOfZerosShowsBothSeriesOnePointHigh) {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 16; ++tick) {
        snapshot.network.downHistory.append(0);
        snapshot.network.upHistory.append(0);
    }
    const QImage image = draw(ModuleStyle::graph, StatsModule::network, snapshot);
    const int x = static_cast<int>((1 + 1.875 * 8 + 1.375 / 2) * 2);
    EXPECT_EQ(alphaAt(image, x, 34), 0);
    // The second series lies over the first: 0.85, and 0.4 of what is left.
    EXPECT_NEAR(alphaAt(image, x, 35), 255 * (0.85 + 0.15 * 0.4), 2);
}

TEST(MenuBarRenderer, DualGraphSharesOneScale) {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 16; ++tick) {
        snapshot.network.downHistory.append(1e6);
        snapshot.network.upHistory.append(5e5);
    }
    const QImage image = draw(ModuleStyle::graph, StatsModule::network, snapshot);
    const int x = static_cast<int>((1 + 1.875 * 8 + 1.375 / 2) * 2);
    // Half of 15 points from 3.5 up is 11: above it only the first series.
    EXPECT_NEAR(alphaAt(image, x, 12), 255 * 0.85, 2);
    EXPECT_NEAR(alphaAt(image, x, 30), 255 * 0.91, 2);
}

TEST(MenuBarRenderer, DiskActivityBelowTenMegabytesDoesNotFillTheGraph) {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 16; ++tick) snapshot.disk.activityHistory.append(5e6);
    const QImage image = draw(ModuleStyle::graph, StatsModule::disk, snapshot);
    const int x = static_cast<int>((1 + 1.875 * 8 + 1.375 / 2) * 2);
    EXPECT_EQ(alphaAt(image, x, 20), 0);
    EXPECT_NEAR(alphaAt(image, x, 23), 255 * 0.85, 2);
}

TEST(MenuBarRenderer, FrameOfAGraphIsFaint) {
    const QImage image = draw(ModuleStyle::graph, StatsModule::cpu, {});
    EXPECT_NEAR(alphaAt(image, 32, 5), 255 * 0.28, 2);
    EXPECT_NEAR(alphaAt(image, 32, 38), 255 * 0.28, 2);
    EXPECT_EQ(alphaAt(image, 32, 20), 0);
}

TEST(MenuBarRenderer, EmptyVialStillShowsASliver) {
    const QImage image = draw(ModuleStyle::gaugeOnly, StatsModule::cpu, withCpu(0));
    // From 3.5 to 5 points above the bottom.
    EXPECT_EQ(alphaAt(image, 10, 35), 255);
    EXPECT_EQ(alphaAt(image, 10, 32), 0);
}

TEST(MenuBarRenderer, HalfVialIsFilledToItsMiddle) {
    const QImage image = draw(ModuleStyle::gaugeOnly, StatsModule::cpu, withCpu(0.5));
    EXPECT_EQ(alphaAt(image, 10, 23), 255);
    EXPECT_EQ(alphaAt(image, 10, 21), 0);
}

TEST(MenuBarRenderer, LabelsAreFainterThanFigures) {
    const QImage image = draw(ModuleStyle::value, StatsModule::cpu, withCpu(0.88), 3);
    EXPECT_LE(strongest(image, {0, 0, image.width(), 26}), 255 * 0.72 + 2);
    EXPECT_EQ(strongest(image, {0, 30, image.width(), 36}), 255);
}

TEST(MenuBarRenderer, ValueOfOneDigitIsAsWideAsOneOfThree) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        EXPECT_EQ(draw(ModuleStyle::value, StatsModule::cpu, withCpu(1)).width(),
                  draw(ModuleStyle::value, StatsModule::cpu, withCpu(0.05)).width());
    }
}

TEST(MenuBarRenderer, NoPercentageMovesTheWidth) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        std::set<int> widths;
        for (int percent = 0; percent <= 100; ++percent) {
            widths.insert(draw(ModuleStyle::graphValue, StatsModule::cpu, withCpu(percent / 100.0)).width());
        }
        EXPECT_EQ(widths.size(), 1U) << family.toStdString();
    }
}

TEST(MenuBarRenderer, NoRateMovesTheWidth) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        std::set<int> widths;
        for (double rate = 1; rate <= 1e9; rate *= 1.07) {
            // Rounding up to the next unit writes one digit more than the format has room for.
            const bool roundsUp = (rate >= 999'500 && rate < 1e6) || (rate >= 99'950'000 && rate < 1e8) ||
                                  (rate >= 999'500'000 && rate < 1e9);
            if (roundsUp) continue;
            StatsSnapshot snapshot;
            snapshot.network.downPerSec = rate;
            widths.insert(draw(ModuleStyle::value, StatsModule::network, snapshot).width());
        }
        EXPECT_EQ(widths.size(), 1U) << family.toStdString();
    }
}

TEST(MenuBarRenderer, RatiosGiveTheSameWidthInPoints) {
    const StatsSnapshot snapshot = busySnapshot();
    for (const StatsModule module : kAllModules) {
        for (const ModuleStyle style : kAllStyles) {
            const double once = widthOf(draw(style, module, snapshot, 1));
            EXPECT_EQ(widthOf(draw(style, module, snapshot, 2)), once);
            EXPECT_NEAR(widthOf(draw(style, module, snapshot, 1.5)), once, 1 / 1.5);
        }
    }
}

TEST(MenuBarRenderer, AutomaticInkIsABlackTemplate) {
    const MenuBarImage image = MenuBarRenderer::render(ModuleStyle::graphValue, StatsModule::cpu,
                                                       busySnapshot(), Ink::of(std::nullopt, true), 2);
    EXPECT_TRUE(image.isTemplate);
    for (int y = 0; y < image.image.height(); ++y) {
        for (int x = 0; x < image.image.width(); ++x) {
            EXPECT_EQ(image.image.pixel(x, y) & 0xFFFFFF, 0U);
        }
    }
}

TEST(MenuBarRenderer, CustomColourOnADarkBarHasWhiteTextAndColouredShapes) {
    const Ink ink = Ink::of(kBlue, true);
    EXPECT_EQ(ink.primary, QColor(10, 132, 255));
    EXPECT_EQ(ink.text, QColor(Qt::white));
    const auto value = MenuBarRenderer::render(ModuleStyle::value, StatsModule::cpu, withCpu(0.88), ink, 3);
    EXPECT_FALSE(value.isTemplate);
    EXPECT_EQ(solidColors(value.image), std::set<QRgb>{qRgb(255, 255, 255)});
    const auto pie = MenuBarRenderer::render(ModuleStyle::pieOnly, StatsModule::cpu, withCpu(0.88), ink, 3);
    EXPECT_FALSE(pie.isTemplate);
    EXPECT_EQ(solidColors(pie.image), std::set<QRgb>{qRgb(10, 132, 255)});
}

TEST(MenuBarRenderer, CustomColourOnALightBarHasBlackText) {
    const auto value = MenuBarRenderer::render(ModuleStyle::value, StatsModule::cpu, withCpu(0.88),
                                               Ink::of(kBlue, false), 3);
    EXPECT_EQ(solidColors(value.image), std::set<QRgb>{qRgb(0, 0, 0)});
}

TEST(MenuBarRenderer, RemovingTheColourReturnsToAutomaticInk) {
    const Ink ink = Ink::of(std::nullopt, true);
    EXPECT_EQ(ink.primary, QColor(Qt::black));
    EXPECT_EQ(ink.text, QColor(Qt::black));
    EXPECT_TRUE(ink.isTemplate);
}

TEST(MenuBarRenderer, TemplateIsTintedForItsBar) {
    const MenuBarImage image = MenuBarRenderer::render(ModuleStyle::graphValue, StatsModule::cpu,
                                                       busySnapshot(), Ink::automatic(), 2);
    const QImage onDark = MenuBarRenderer::tinted(image, true);
    EXPECT_EQ(solidColors(onDark), std::set<QRgb>{qRgb(255, 255, 255)});
    EXPECT_EQ(onDark.devicePixelRatio(), 2);
    EXPECT_EQ(onDark.size(), image.image.size());
    for (int y = 0; y < onDark.height(); ++y) {
        for (int x = 0; x < onDark.width(); ++x) {
            ASSERT_EQ(alphaAt(onDark, x, y), alphaAt(image.image, x, y));
        }
    }
    EXPECT_EQ(MenuBarRenderer::tinted(image, false), image.image);
}

TEST(MenuBarRenderer, ColouredImageIsNotTinted) {
    const MenuBarImage image =
        MenuBarRenderer::render(ModuleStyle::pie, StatsModule::cpu, busySnapshot(), Ink::of(kBlue, true), 2);
    EXPECT_EQ(MenuBarRenderer::tinted(image, true), image.image);
}

TEST(MenuBarRenderer, SquaresAreSquareWhateverTheyShow) {
    for (const StatsSnapshot& snapshot : {busySnapshot(), StatsSnapshot{}}) {
        for (const StatsModule module : kAllModules) {
            for (const ModuleStyle style : kAllStyles) {
                const auto image =
                    MenuBarRenderer::squareImage(style, module, snapshot, Ink::automatic(), 2).image;
                EXPECT_EQ(image.size(), QSize(44, 44));
            }
        }
    }
}

TEST(MenuBarRenderer, SquareTextsFitIntoTheSquare) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const double rate : {0.0, 999e3, 3.4e6, 99.9e6, 999e6, 120e9}) {
            StatsSnapshot snapshot = withCpu(1);
            snapshot.network.downPerSec = rate;
            snapshot.network.upPerSec = rate;
            snapshot.battery.isCharging = snapshot.battery.present = true;
            snapshot.battery.percent = 100;
            for (const StatsModule module : {StatsModule::cpu, StatsModule::network, StatsModule::battery}) {
                const QImage image =
                    MenuBarRenderer::squareImage(ModuleStyle::value, module, snapshot, Ink::automatic(), 3)
                        .image;
                // What is cut off shows as full ink at an edge.
                EXPECT_LT(strongest(image, {0, 0, 1, image.height()}), 200);
                EXPECT_LT(strongest(image, {image.width() - 1, 0, 1, image.height()}), 200);
            }
        }
    }
}

TEST(MenuBarRenderer, SquareGraphIsAsWideAsTheSquare) {
    const QImage image = MenuBarRenderer::squareImage(ModuleStyle::graph, StatsModule::cpu, busySnapshot(),
                                                      Ink::automatic(), 2)
                             .image;
    EXPECT_GT(alphaAt(image, 0, 20), 0);
    EXPECT_GT(alphaAt(image, 43, 20), 0);
}

TEST(MenuBarRenderer, SquareLeavesTheLabelOutWhereItDoesNotFit) {
    const auto square = [](ModuleStyle style) {
        return MenuBarRenderer::squareImage(style, StatsModule::cpu, withCpu(0.4), Ink::automatic(), 2).image;
    };
    EXPECT_EQ(square(ModuleStyle::pie), square(ModuleStyle::pieOnly));
    EXPECT_NE(square(ModuleStyle::gauge), square(ModuleStyle::gaugeOnly));
    EXPECT_EQ(square(ModuleStyle::bar), draw(ModuleStyle::bar, StatsModule::cpu, withCpu(0.4)));
}

TEST(MenuBarRenderer, ValueLineIsTheFigureInOneLine) {
    EXPECT_EQ(MenuBarRenderer::valueLine(StatsModule::cpu, busySnapshot()), QStringLiteral("42%"));
    EXPECT_EQ(MenuBarRenderer::valueLine(StatsModule::network, busySnapshot()),
              QStringLiteral("↑ 12K ↓ 3.4M"));
    EXPECT_EQ(MenuBarRenderer::valueLine(StatsModule::sensors, {}), QStringLiteral("—"));
}

TEST(MenuBarRenderer, UnusableRatioDrawsAtOne) {
    for (const double ratio : {0.0, -2.0, std::nan("")}) {
        EXPECT_EQ(draw(ModuleStyle::graph, StatsModule::cpu, busySnapshot(), ratio).size(), QSize(32, 22));
    }
}

}  // namespace
}  // namespace velmora
