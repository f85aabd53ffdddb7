#include "settings/blocks/SettingsRow.h"

#include "settings/Descendants.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/PulldownPill.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMDropdown.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <string>

namespace velmora {
namespace {

constexpr int kTopInset = 13;
constexpr int kSideInset = 16;

QWidget* controlOf(int width, int height) {
    auto* const control = new QWidget;
    control->setFixedSize(width, height);
    return control;
}

TEST(SettingsRowTest, InsetsAre13And16) {
    SettingsRow row(QFont::Normal, 120, controlOf(100, 28));
    row.setTexts("Style");
    const auto places = row.frames(480);
    EXPECT_EQ(row.heightForWidth(480), 28 + 2 * kTopInset);
    EXPECT_EQ(places.control, QRect(480 - kSideInset - 100, kTopInset, 100, 28));
    EXPECT_EQ(places.title.left(), kSideInset);
}

TEST(SettingsRowTest, SubtitleStandsTwoPointsBelowTheTitle) {
    SettingsRow row(QFont::Normal, 120, controlOf(38, 22));
    row.setTexts("Show", "In the status bar");
    const auto places = row.frames(480);
    EXPECT_EQ(places.subtitle.top(), places.title.top() + places.title.height() + 2);
    EXPECT_EQ(places.subtitle.left(), places.title.left());
    EXPECT_EQ(places.title.top(), kTopInset);
    EXPECT_EQ(row.heightForWidth(480), places.subtitle.bottom() + 1 + kTopInset);
}

TEST(SettingsRowTest, ControlAndTextsAreCenteredOnEachOther) {
    SettingsRow high(QFont::Normal, 120, controlOf(60, 80));
    high.setTexts("Show", "In the status bar");
    const auto places = high.frames(480);
    EXPECT_NEAR((places.title.top() + places.subtitle.bottom()) / 2.0, places.control.center().y(), 1);
    SettingsRow low(QFont::Normal, 120, controlOf(38, 8));
    low.setTexts("Show", "In the status bar");
    const auto lower = low.frames(480);
    EXPECT_NEAR((lower.title.top() + lower.subtitle.bottom()) / 2.0, lower.control.center().y(), 1);
}

TEST(SettingsRowTest, LabelHasAtLeastItsLeastWidthWhereThereIsRoom) {
    SettingsRow row(QFont::Normal, 180, controlOf(200, 28));
    row.setTexts("L");
    // The insets, the label, the spacing on both sides of the space between, and the control.
    const int narrowest = 16 + 180 + 12 + 12 + 200 + 16;
    EXPECT_GE(row.frames(narrowest).title.width(), 180);
    EXPECT_GE(row.sizeHint().width(), narrowest);
}

TEST(SettingsRowTest, NoWidthMakesControlAndTextsOverlap) {
    SettingsRow row(QFont::Normal, 180, controlOf(200, 28));
    row.setTexts(std::string(200, 'W'), std::string(200, 'w') + " and more words");
    for (int width = 0; width < 900; width += 7) {
        const auto places = row.frames(width);
        EXPECT_FALSE(places.control.intersects(places.title)) << width;
        EXPECT_FALSE(places.control.intersects(places.subtitle)) << width;
        EXPECT_FALSE(places.title.intersects(places.subtitle)) << width;
        EXPECT_GE(places.title.width(), 80);
    }
}

TEST(SettingsRowTest, EverythingIsInsideFromTheLeastWidthOn) {
    SettingsRow row(QFont::Normal, 180, controlOf(200, 28));
    row.setTexts("Sprache der Benutzeroberfläche", "Wird sofort gewechselt");
    for (int width = row.minimumSizeHint().width(); width < 700; width += 11) {
        const QRect bounds(0, 0, width, row.heightForWidth(width));
        const auto places = row.frames(width);
        for (const QRect& place : {places.title, places.subtitle, places.control}) {
            EXPECT_TRUE(bounds.contains(place)) << width;
        }
    }
}

TEST(SettingsRowTest, LongSubtitleWrapsAndMakesTheRowHigher) {
    SettingsRow row(QFont::Normal, 120, new ToggleSwitch);
    row.setTexts("Help",
                 "Sends anonymous figures such as the load of each module, and contains nothing else.");
    EXPECT_GT(row.heightForWidth(300), row.heightForWidth(900));
}

TEST(SettingsRowTest, RowWithoutAControlGivesTheTextsTheWholeWidth) {
    SettingsRow row(QFont::Normal, 120, nullptr);
    row.setTexts("Title");
    EXPECT_EQ(row.frames(400).title.width(), 400 - 2 * kSideInset);
    EXPECT_TRUE(row.frames(400).control.isEmpty());
    EXPECT_TRUE(row.frames(400).subtitle.isEmpty());
}

TEST(SettingsRowTest, WidgetsStandAtTheirFrames) {
    auto* const control = new ToggleSwitch;
    SettingsRow row(QFont::Normal, 120, control);
    row.setTexts("Show", "In the status bar");
    row.resize(480, row.heightForWidth(480));
    row.show();
    EXPECT_EQ(control->geometry(), row.frames(480).control);
    const auto labels = descendants<TextLabel>(row);
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->geometry(), row.frames(480).title);
    EXPECT_EQ(labels[1]->geometry(), row.frames(480).subtitle);
}

TEST(SettingsRowTest, SubtitleMayComeAndGoWithTheTexts) {
    SettingsRow row(QFont::Normal, 120, nullptr);
    row.setTexts("Title", "Subtitle");
    const int with = row.heightForWidth(400);
    row.setTexts("Title");
    EXPECT_LT(row.heightForWidth(400), with);
}

TEST(SettingsRowTest, ControlIsNamedByTheTitleForScreenReaders) {
    auto* const toggle = new ToggleSwitch;
    SettingsRow row(QFont::Normal, 120, toggle);
    row.setTexts("Show", "In the status bar");
    EXPECT_EQ(toggle->accessibleName(), "Show");
    EXPECT_EQ(toggle->accessibleDescription(), "In the status bar");

    auto* const dropdown = new VMDropdown;
    SettingsRow other(QFont::Normal, 120, dropdown);
    other.setTexts("Style");
    EXPECT_EQ(dropdown->pill().accessibleName(), "Style") << "what has the focus has the name";
}

}  // namespace
}  // namespace velmora
