#include "settings/controls/CapsuleSegmentedControl.h"

#include "look/Ink.h"
#include "settings/Descendants.h"
#include "settings/Ground.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/controls/PillTheme.h"
#include "settings/controls/SegmentIcon.h"
#include "settings/controls/SettingsScheme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include <cmath>
#include <limits>
#include <memory>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QImage square(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    return image;
}

class CapsuleSegmentedControlTest : public testing::Test {
protected:
    std::unique_ptr<CapsuleSegmentedControl> make(int count, std::optional<double> radius = std::nullopt) {
        const std::vector<QImage> images(static_cast<std::size_t>(count), square(8));
        auto control = std::make_unique<CapsuleSegmentedControl>(
            images, std::vector<QString>{QStringLiteral("One"), QStringLiteral("Two")}, 120, 24, radius,
            &window);
        control->onSelect([this](int index) { selections.push_back(index); });
        return control;
    }

    QWidget window;
    std::vector<int> selections;
};

TEST_F(CapsuleSegmentedControlTest, SizeIsTheGivenOne) {
    EXPECT_EQ(make(3)->minimumSize(), QSize(120, 24));
    EXPECT_EQ(make(3)->maximumSize(), QSize(120, 24));
}

TEST_F(CapsuleSegmentedControlTest, IconsKeepTheirSizeInTheMiddleOfTheirSegments) {
    const auto control = make(3);
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(control->iconFrame(index).size(), QSizeF(8, 8));
        EXPECT_EQ(control->iconFrame(index).center(), QPointF((index + 0.5) * 40, 12));
    }
}

TEST_F(CapsuleSegmentedControlTest, SelectionFillsItsSegmentInFullHeight) {
    const auto control = make(4);
    control->setSelectedIndex(2);
    EXPECT_EQ(control->selectionFrame(), QRectF(60, 0, 30, 24));
}

TEST_F(CapsuleSegmentedControlTest, SeparatorsStandAtTheBoundaries) {
    const auto control = make(3);
    EXPECT_THAT(control->separatorFrames(),
                ElementsAre(QRectF(39.5, 4.8, 1, 14.4), QRectF(79.5, 4.8, 1, 14.4)));
}

TEST_F(CapsuleSegmentedControlTest, RadiusIsHalfTheHeightWhereNoneIsGiven) {
    EXPECT_EQ(make(2)->cornerRadius(), 12);
    EXPECT_EQ(make(2, 6)->cornerRadius(), 6);
}

TEST_F(CapsuleSegmentedControlTest, ClickSelectsAndTellsTheIndex) {
    const auto control = make(3);
    EXPECT_EQ(control->childAt(60, 12), nullptr) << "the icons take no clicks";
    Input::click(*control, QPoint(50, 12));
    EXPECT_EQ(control->selectedIndex(), 1);
    EXPECT_THAT(selections, ElementsAre(1));
}

TEST_F(CapsuleSegmentedControlTest, ClickOnTheSelectedSegmentTellsNothing) {
    const auto control = make(3);
    Input::click(*control, QPoint(5, 12));
    EXPECT_THAT(selections, IsEmpty());
}

TEST_F(CapsuleSegmentedControlTest, ClickOnTheRightmostPixelSelectsTheLastSegment) {
    const auto control = make(3);
    Input::click(*control, QPoint(119, 12));
    EXPECT_THAT(selections, ElementsAre(2));
    EXPECT_EQ(control->segmentAt(120), 2) << "also at the very edge";
}

TEST_F(CapsuleSegmentedControlTest, PlacesOutsideAreHeldWithinTheRange) {
    const auto control = make(3);
    EXPECT_EQ(control->segmentAt(-5), 0);
    EXPECT_EQ(control->segmentAt(1e9), 2);
    EXPECT_EQ(control->segmentAt(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(CapsuleSegmentedControlTest, DisabledControlIgnoresClicks) {
    const auto control = make(3);
    control->setEnabled(false);
    Input::click(*control, QPoint(50, 12));
    EXPECT_EQ(control->selectedIndex(), 0);
    EXPECT_THAT(selections, IsEmpty());
}

TEST_F(CapsuleSegmentedControlTest, ArrowsMoveTheSelectionAndStopAtTheEnds) {
    const auto control = make(2);
    Input::key(*control, Qt::Key_Left);
    Input::key(*control, Qt::Key_Right);
    Input::key(*control, Qt::Key_Right);
    EXPECT_THAT(selections, ElementsAre(1));
}

TEST_F(CapsuleSegmentedControlTest, SelectionFromOutsideIsShownAndNotTold) {
    const auto control = make(3);
    window.show();
    PaintCounter paints(*control);
    control->setSelectedIndex(2);
    EXPECT_EQ(control->selectedIndex(), 2);
    EXPECT_GT(paints.count(), 0);
    EXPECT_THAT(selections, IsEmpty());
}

TEST_F(CapsuleSegmentedControlTest, SelectedIconIsInPrimaryInkAndTheOthersInSecondary) {
    setScheme(window, Scheme::light);
    const auto control = make(2);
    const QImage picture = paintedOver(*control, Qt::white);
    const QColor selected = blended(PillTheme::segOverlay(Scheme::light), Qt::white);
    EXPECT_TRUE(isColor(picture.pixelColor(30, 12), blended(Ink::primary(Scheme::light), selected)));
    EXPECT_TRUE(isColor(picture.pixelColor(90, 12), blended(Ink::secondary(Scheme::light), Qt::white)));
}

TEST_F(CapsuleSegmentedControlTest, ChangeOfSchemeRepaints) {
    const auto control = make(2);
    setScheme(window, Scheme::light);
    window.show();
    PaintCounter paints(*control);
    setScheme(window, Scheme::dark);
    EXPECT_GT(paints.count(), 0);
}

TEST_F(CapsuleSegmentedControlTest, NoSegmentsAndNoSizeDoNoHarm) {
    CapsuleSegmentedControl none({}, {}, 60, 24, std::nullopt, &window);
    Input::click(none, QPoint(30, 12));
    Input::key(none, Qt::Key_Right);
    none.setSelectedIndex(3);
    EXPECT_EQ(none.selectedIndex(), 0);
    EXPECT_EQ(paintedOver(none, Qt::white).size(), QSize(60, 24));
    CapsuleSegmentedControl flat({square(8)}, {}, -4, 0, 50.0, &window);
    EXPECT_EQ(flat.segmentAt(3), 0);
}

TEST_F(CapsuleSegmentedControlTest, ScreenReaderFindsOneChoiceOfSeveralWithItsToolTip) {
    const auto control = make(3);
    const auto icons = descendants<QAbstractButton>(*control);
    ASSERT_EQ(icons.size(), 3);
    QAccessibleInterface* const second = QAccessible::queryAccessibleInterface(icons[1]);
    EXPECT_EQ(second->role(), QAccessible::RadioButton);
    EXPECT_EQ(second->text(QAccessible::Name), "Two");
    EXPECT_FALSE(second->state().checked);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    control->setSelectedIndex(1);
    EXPECT_TRUE(second->state().checked);
    EXPECT_EQ(icons[2]->toolTip(), "") << "there were fewer tool tips than images";
}

}  // namespace
}  // namespace velmora
