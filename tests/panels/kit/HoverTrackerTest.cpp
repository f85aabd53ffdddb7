#include "panels/kit/HoverTracker.h"

#include "panels/kit/KitFixture.h"

#include <gtest/gtest.h>

#include <QEnterEvent>

namespace velmora {
namespace {

class HoverTrackerTest : public testing::Test {
protected:
    HoverTrackerTest() {
        m_tracker->onMove = [this](std::optional<QPointF> place) { reports.push_back(place); };
    }
    QWidget widget;
    std::vector<std::optional<QPointF>> reports;

private:
    HoverTracker* m_tracker = new HoverTracker(widget);
};

TEST_F(HoverTrackerTest, EnteringAndMovingReportThePlace) {
    QEnterEvent enter(QPointF(3, 4), QPointF(3, 4), QPointF(3, 4));
    QApplication::sendEvent(&widget, &enter);
    movePointer(widget, {7, 8});
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0], QPointF(3, 4));
    EXPECT_EQ(reports[1], QPointF(7, 8));
}

TEST_F(HoverTrackerTest, LeavingReportsNothing) {
    leave(widget);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0], std::nullopt);
}

TEST_F(HoverTrackerTest, MovesAreReportedWithoutAButtonHeld) {
    EXPECT_TRUE(widget.hasMouseTracking());
}

}  // namespace
}  // namespace velmora
