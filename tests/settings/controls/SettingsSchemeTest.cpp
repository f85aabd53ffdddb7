#include "settings/controls/SettingsScheme.h"

#include "settings/PaintCounter.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace velmora {
namespace {

TEST(SettingsSchemeTest, WidgetWithoutAnySchemeAboveIsLight) {
    QWidget window;
    QWidget child(&window);
    EXPECT_EQ(schemeOf(&child), Scheme::light);
    EXPECT_EQ(schemeOf(nullptr), Scheme::light);
}

TEST(SettingsSchemeTest, EverythingInAWindowHasItsScheme) {
    QWidget window;
    QWidget child(&window);
    QWidget grandchild(&child);
    setScheme(window, Scheme::dark);
    EXPECT_EQ(schemeOf(&window), Scheme::dark);
    EXPECT_EQ(schemeOf(&grandchild), Scheme::dark);
    setScheme(window, Scheme::light);
    EXPECT_EQ(schemeOf(&grandchild), Scheme::light);
}

TEST(SettingsSchemeTest, PopupHasTheSchemeOfTheWidgetThatItBelongsTo) {
    QWidget window;
    setScheme(window, Scheme::dark);
    QWidget popup(&window, Qt::Popup);
    EXPECT_EQ(schemeOf(&popup), Scheme::dark);
}

TEST(SettingsSchemeTest, ChangeRepaintsEveryShownWidgetInside) {
    QWidget window;
    QWidget child(&window);
    setScheme(window, Scheme::light);
    window.show();
    PaintCounter paints(child);
    setScheme(window, Scheme::dark);
    EXPECT_GT(paints.count(), 0);
}

TEST(SettingsSchemeTest, ToolkitsOwnTextsStandOutFromTheGround) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        QWidget window;
        setScheme(window, scheme);
        const int ground = window.palette().color(QPalette::Window).lightness();
        // The ink is white or black, weakened by its opacity.
        const int ink = window.palette().color(QPalette::WindowText).lightness();
        EXPECT_GT(std::abs(ink - ground), 200);
    }
}

}  // namespace
}  // namespace velmora
