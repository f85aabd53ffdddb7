#include "settings/controls/LinkButton.h"

#include "look/SystemFont.h"
#include "settings/Ground.h"
#include "settings/Input.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QWidget>

namespace velmora {
namespace {

TEST(LinkButtonTest, NaturalSizeHoldsTheText) {
    const LinkButton link(QStringLiteral("velmora.example"), [] {});
    const QFontMetricsF metrics(SystemFont::ofPixelSize(12, QFont::Normal));
    EXPECT_GE(link.sizeHint().width(), metrics.horizontalAdvance(link.text()));
    EXPECT_GE(link.sizeHint().height(), metrics.height());
}

TEST(LinkButtonTest, PointerAndKeyboardPressIt) {
    QWidget window;
    int presses = 0;
    LinkButton link(
        QStringLiteral("velmora.example"), [&presses] { ++presses; }, &window);
    link.resize(link.sizeHint());
    Input::click(link);
    Input::key(link, Qt::Key_Return);
    EXPECT_EQ(presses, 2);
    EXPECT_EQ(link.accessibleName(), "velmora.example");
}

TEST(LinkButtonTest, LongAndEmptyTextsDoNoHarm) {
    for (const QString& text : {QString(), QString(200, 'w')}) {
        LinkButton link(text, [] {});
        link.resize(80, 20);
        EXPECT_TRUE(isColor(paintedOver(link, Qt::white).pixelColor(0, 10), Qt::white)) << "room at the side";
        EXPECT_TRUE(isColor(paintedOver(link, Qt::white).pixelColor(79, 10), Qt::white));
    }
}

}  // namespace
}  // namespace velmora
