#include "settings/blocks/FooterNote.h"

#include "settings/Descendants.h"
#include "settings/blocks/TextLabel.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

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
    FooterNote note(QColor{Qt::red});
    auto* const label = &descendant<TextLabel>(note);
    EXPECT_EQ(label->style().tint, QColor(Qt::red));
    note.setTint(std::nullopt);
    EXPECT_FALSE(label->style().tint.has_value());
}

}  // namespace
}  // namespace velmora
