#include "settings/controls/PillButton.h"

#include "look/Ink.h"
#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/Ground.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/controls/PillTheme.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QWidget>

#include <cmath>

namespace velmora {
namespace {

class PillButtonTest : public testing::Test {
protected:
    QWidget window;
    int taps = 0;
    PillButton button{QStringLiteral("Check now"), PillFill::unfilled, [this] { ++taps; }, &window};
};

TEST_F(PillButtonTest, WidthIsTheTitlesAnd24) {
    const QFontMetricsF metrics(SystemFont::ofPixelSize(11, QFont::DemiBold));
    EXPECT_EQ(button.sizeHint().width(),
              static_cast<int>(std::ceil(metrics.horizontalAdvance(button.buttonTitle()))) + 24);
    EXPECT_EQ(button.sizeHint().height(), static_cast<int>(std::ceil(metrics.height())));
}

TEST_F(PillButtonTest, EqualTitleChangesNothing) {
    button.resize(100, 26);
    window.show();
    PaintCounter paints(button);
    button.setButtonTitle(QStringLiteral("Check now"));
    EXPECT_EQ(paints.count(), 0);
}

TEST_F(PillButtonTest, OtherTitleRepaintsAndChangesTheNaturalSize) {
    button.resize(100, 26);
    window.show();
    PaintCounter paints(button);
    const int before = button.sizeHint().width();
    button.setButtonTitle(QStringLiteral("Check for updates now"));
    EXPECT_GT(paints.count(), 0);
    EXPECT_GT(button.sizeHint().width(), before);
    EXPECT_EQ(button.accessibleName(), "Check for updates now");
}

TEST_F(PillButtonTest, UnfilledOneHasFieldAndBorderOfTheScheme) {
    button.resize(100, 26);
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        const QColor ground = Ink::windowBackground(scheme);
        const QImage picture = paintedOver(button, ground);
        const QColor field = blended(PillTheme::field(scheme), ground);
        EXPECT_TRUE(isColor(picture.pixelColor(50, 3), field));
        EXPECT_TRUE(isColor(picture.pixelColor(50, 0), blended(PillTheme::fieldBorder(scheme), field)));
    }
}

TEST_F(PillButtonTest, FilledOneIsInTheAccentColorWithoutABorder) {
    PillButton filled(
        QStringLiteral("Sign in"), PillFill::filled, [] {}, &window);
    filled.resize(100, 26);
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        const QImage picture = paintedOver(filled, Ink::windowBackground(scheme));
        EXPECT_TRUE(isColor(picture.pixelColor(50, 3), Theme::accent));
        EXPECT_TRUE(isColor(picture.pixelColor(50, 0), Theme::accent));
    }
}

TEST_F(PillButtonTest, ChangeOfSchemeRepaintsAtOnce) {
    setScheme(window, Scheme::light);
    window.show();
    PaintCounter paints(button);
    setScheme(window, Scheme::dark);
    EXPECT_GT(paints.count(), 0);
}

TEST_F(PillButtonTest, PointerAndKeyboardTapIt) {
    button.resize(100, 26);
    Input::click(button);
    Input::key(button, Qt::Key_Return);
    Input::key(button, Qt::Key_Space);
    EXPECT_EQ(taps, 3);
}

TEST_F(PillButtonTest, OddTitlesDoNoHarm) {
    for (const QString& title : {QString(), QString(200, 'W'), QStringLiteral("שלום 🙂")}) {
        button.setButtonTitle(title);
        EXPECT_GE(button.sizeHint().width(), 24);
        button.resize(60, 26);
        EXPECT_EQ(paintedOver(button, Qt::white).size(), button.size());
    }
}

}  // namespace
}  // namespace velmora
