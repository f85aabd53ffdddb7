#include "look/PinnedFont.h"
#include "menubar/MenuBarIcon.h"
#include "menubar/MenuBarRenderer.h"
#include "menubar/SampleSnapshots.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include <cstdlib>

namespace velmora {
namespace {

/// Versions of the font rasteriser differ by shades at the edges of letters.
constexpr int kLargestPixelDifference = 40;
constexpr double kLargestShare = 0.02;

const QString kExpectedFolder = QStringLiteral(VELMORA_FIXTURES "/pictures/menubar");
const QString kFailedFolder = QStringLiteral(VELMORA_BINARY_DIR "/failed-pictures/menubar");

int difference(QRgb left, QRgb right) {
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                     std::abs(qBlue(left) - qBlue(right)), std::abs(qAlpha(left) - qAlpha(right))});
}

/// White where the pictures differ; both have one size.
QImage differenceOf(const QImage& actual, const QImage& expected, int& count) {
    QImage picture(actual.size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    count = 0;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (difference(actual.pixel(x, y), expected.pixel(x, y)) <= kLargestPixelDifference) continue;
            picture.setPixel(x, y, 0xFFFFFFFF);
            ++count;
        }
    }
    return picture;
}

/// Leaves actual, expected and difference in the build tree when they are not alike.
void expectPicture(const QString& name, QImage actual) {
    actual = actual.convertToFormat(QImage::Format_ARGB32);
    actual.setDevicePixelRatio(1);
    QImage expected(kExpectedFolder + u'/' + name + QStringLiteral(".png"));
    expected = expected.convertToFormat(QImage::Format_ARGB32);
    const auto leave = [&name](const QImage& image, const QString& kind) {
        QDir().mkpath(kFailedFolder);
        image.save(kFailedFolder + u'/' + name + u'-' + kind + QStringLiteral(".png"));
    };
    if (actual.size() != expected.size()) {
        leave(actual, QStringLiteral("actual"));
        ADD_FAILURE() << name.toStdString() << " has another size; see " << kFailedFolder.toStdString();
        return;
    }
    int count = 0;
    const QImage different = differenceOf(actual, expected, count);
    if (count <= kLargestShare * actual.width() * actual.height()) return;
    leave(actual, QStringLiteral("actual"));
    leave(expected, QStringLiteral("expected"));
    leave(different, QStringLiteral("difference"));
    ADD_FAILURE() << name.toStdString() << " differs in " << count << " pixels; see "
                  << kFailedFolder.toStdString();
}

class GoldenPictures : public testing::Test {
protected:
    void SetUp() override {
        // The pictures are of this font; with another one they say nothing.
        ASSERT_TRUE(QFontDatabase::hasFamily(kFamily)) << "these tests need DejaVu Sans";
    }

    QImage item(ModuleStyle style, StatsModule module, double ratio) const {
        const auto ink = MenuBarRenderer::Ink::automatic();
        return MenuBarRenderer::render(style, module, busySnapshot(), ink, ratio).image;
    }

private:
    inline static const QString kFamily = QStringLiteral("DejaVu Sans");
    PinnedFont m_font{kFamily};
};

TEST_F(GoldenPictures, GraphWithValue) {
    expectPicture(QStringLiteral("cpu-graphValue-1x"), item(ModuleStyle::graphValue, StatsModule::cpu, 1));
    expectPicture(QStringLiteral("cpu-graphValue-2x"), item(ModuleStyle::graphValue, StatsModule::cpu, 2));
}

TEST_F(GoldenPictures, TwoSeriesInAColour) {
    const auto ink = MenuBarRenderer::Ink::of(RGBColor{10, 132, 255}, true);
    expectPicture(
        QStringLiteral("network-graphValue-colour-2x"),
        MenuBarRenderer::render(ModuleStyle::graphValue, StatsModule::network, busySnapshot(), ink, 2).image);
}

TEST_F(GoldenPictures, ChargingBattery) {
    expectPicture(QStringLiteral("battery-value-2x"), item(ModuleStyle::value, StatsModule::battery, 2));
}

TEST_F(GoldenPictures, ShapesWithLabels) {
    expectPicture(QStringLiteral("memory-gauge-2x"), item(ModuleStyle::gauge, StatsModule::memory, 2));
    expectPicture(QStringLiteral("sensors-pie-2x"), item(ModuleStyle::pie, StatsModule::sensors, 2));
    expectPicture(QStringLiteral("disk-bar-2x"), item(ModuleStyle::bar, StatsModule::disk, 2));
}

TEST_F(GoldenPictures, FallbackIcon) {
    expectPicture(QStringLiteral("gauge-icon-2x"), MenuBarIcon::gauge(2).image);
}

}  // namespace
}  // namespace velmora
