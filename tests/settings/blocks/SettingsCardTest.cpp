#include "settings/blocks/SettingsCard.h"

#include "look/Ink.h"
#include "settings/Ground.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

#include <QGraphicsEffect>

namespace velmora {
namespace {

TEST(SettingsCardTest, BlocksStandBelowEachOtherWithoutGapsOrInsets) {
    SettingsCard card;
    auto* const first = new SettingsRow(QFont::Normal, 120, nullptr);
    auto* const divider = new RowDivider;
    auto* const second = new SettingsRow(QFont::Normal, 120, nullptr);
    first->setTexts("Title", "A subtitle that is so long that it has to wrap in a card of this width, twice");
    second->setTexts("Title");
    for (QWidget* const block : std::initializer_list<QWidget*>{first, divider, second}) card.add(block);
    card.resize(240, card.heightForWidth(240));
    card.show();
    EXPECT_EQ(first->geometry(), QRect(0, 0, 240, first->heightForWidth(240)));
    EXPECT_EQ(divider->geometry(), QRect(0, first->height(), 240, 1));
    EXPECT_EQ(second->y(), first->height() + 1);
    EXPECT_EQ(card.height(), second->geometry().bottom() + 1);
}

TEST(SettingsCardTest, GroundAndBorderAreThoseOfTheScheme) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        SettingsCard card;
        setScheme(card, scheme);
        card.resize(120, 60);
        const QColor ground = Ink::windowBackground(scheme);
        const QImage picture = paintedOver(card, ground);
        const QColor fill = blended(Ink::primary(scheme, 0.055), ground);
        EXPECT_TRUE(isColor(picture.pixelColor(60, 30), fill));
        EXPECT_TRUE(isColor(picture.pixelColor(60, 0), blended(Ink::primary(scheme, 0.07), fill)));
        EXPECT_TRUE(isColor(picture.pixelColor(1, 1), ground)) << "the corner is round";
    }
}

TEST(SettingsCardTest, OpacityWeakensTheCardAndDisablesNothing) {
    SettingsCard card;
    auto* const row = new SettingsRow(QFont::Normal, 120, nullptr);
    card.add(row);
    card.setOpacity(0.5);
    EXPECT_EQ(card.opacity(), 0.5);
    EXPECT_NE(card.graphicsEffect(), nullptr);
    EXPECT_TRUE(row->isEnabled());
    card.setOpacity(1);
    EXPECT_EQ(card.graphicsEffect(), nullptr) << "a full card costs nothing extra";
}

}  // namespace
}  // namespace velmora
