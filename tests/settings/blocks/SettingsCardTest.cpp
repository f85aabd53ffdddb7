#include "settings/blocks/SettingsCard.h"

#include "look/Ink.h"
#include "settings/Descendants.h"
#include "settings/Ground.h"
#include "settings/blocks/FooterNote.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/blocks/TextLabel.h"
#include "settings/blocks/TwoLineHeading.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

#include <QGraphicsEffect>
#include <QLayout>

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

TEST(RowDividerTest, LineIsInsetAtTheLeadingEdgeOnly) {
    const QRectF line = RowDivider::line(300, 2);
    EXPECT_EQ(line, QRectF(16, 0, 284, 0.5));
}

TEST(RowDividerTest, LineIsNeverThinnerThanAPixel) {
    EXPECT_EQ(RowDivider::line(300, 1).height(), 1);
    EXPECT_EQ(RowDivider::line(300, 3).height(), 0.5);
    EXPECT_EQ(RowDivider::line(300, 0).height(), 1);
    EXPECT_EQ(RowDivider::line(10, 1).width(), 0);
}

TEST(FooterNoteTest, TextIsInsetFourAtTheSidesAndWraps) {
    FooterNote note;
    note.setText("Each module gets its own item. Click it for details. Drag items to rearrange them.");
    auto* const label = &descendant<TextLabel>(note);
    note.resize(200, note.heightForWidth(200));
    note.show();
    EXPECT_EQ(label->geometry(), QRect(4, 0, 192, label->heightForWidth(192)));
    EXPECT_GT(note.height(), label->sizeHint().height());
    EXPECT_EQ(label->style().size, 11);
    EXPECT_EQ(label->style().rank, InkRank::tertiary);
    EXPECT_FALSE(label->style().tint.has_value());
}

TEST(FooterNoteTest, TintIsTheLabels) {
    FooterNote note(QColor(Qt::red));
    auto* const label = &descendant<TextLabel>(note);
    EXPECT_EQ(label->style().tint, QColor(Qt::red));
    note.setTint(std::nullopt);
    EXPECT_FALSE(label->style().tint.has_value());
}

TEST(TwoLineHeadingTest, SubtitleStandsTwoPointsBelowTheTitle) {
    TwoLineHeading heading;
    heading.setTexts("Colour", "Of the item in the status bar");
    heading.resize(300, heading.heightForWidth(300));
    heading.show();
    const auto labels = descendants<TextLabel>(heading);
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[1]->y(), labels[0]->y() + labels[0]->height() + 2);
    EXPECT_EQ(labels[0]->style().size, 13);
    EXPECT_EQ(labels[1]->style().size, 11);
    EXPECT_EQ(labels[1]->style().rank, InkRank::tertiary);
}

}  // namespace
}  // namespace velmora
