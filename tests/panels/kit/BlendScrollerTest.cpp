#include "panels/kit/BlendScroller.h"

#include "panels/kit/KitFixture.h"

#include <gtest/gtest.h>

#include <QScrollArea>
#include <QStyle>

namespace velmora {
namespace {

class BlendScrollerTest : public testing::Test {
protected:
    BlendScrollerTest() {
        scroller.resize(9, 200);
        scroller.setRange(0, 300);
        scroller.setPageStep(100);
    }
    BlendScroller scroller{Qt::Vertical, Scheme::dark};
};

TEST_F(BlendScrollerTest, NothingButTheKnobIsDrawn) {
    const QImage picture = pictureOf(scroller);
    EXPECT_FALSE(isEmpty(picture.copy(0, 0, 9, 50)));
    EXPECT_TRUE(isEmpty(picture.copy(0, 50, 9, 150)));
}

TEST_F(BlendScrollerTest, KnobIsTheShareThatIsInSight) {
    EXPECT_NEAR(scroller.knob().height(), 200 * 100 / 400 - 4, 1);
}

TEST_F(BlendScrollerTest, KnobFollowsTheValueToTheEnd) {
    scroller.setValue(300);
    EXPECT_EQ(scroller.knob().bottom(), 198);
    scroller.setValue(0);
    EXPECT_EQ(scroller.knob().top(), 2);
}

TEST_F(BlendScrollerTest, WhereEverythingIsInSightThereIsNoKnob) {
    scroller.setRange(0, 0);
    EXPECT_TRUE(scroller.knob().isEmpty());
    EXPECT_TRUE(isEmpty(pictureOf(scroller)));
}

TEST_F(BlendScrollerTest, KnobOfALongContentCanStillBeHeld) {
    scroller.setRange(0, 2'000'000'000);
    EXPECT_GE(scroller.knob().height(), 20);
}

TEST_F(BlendScrollerTest, KnobCanBeDragged) {
    scroller.show();
    const auto send = [this](QEvent::Type type, int y, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, QPointF(4, y), scroller.mapToGlobal(QPointF(4, y)), button, held,
                          Qt::NoModifier);
        QApplication::sendEvent(&scroller, &event);
    };
    send(QEvent::MouseButtonPress, 10, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, 85, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, 85, Qt::LeftButton, Qt::NoButton);
    // 75 of the 150 that the knob can travel.
    EXPECT_NEAR(scroller.value(), 150, 3);
}

TEST_F(BlendScrollerTest, ScrollAreaKeepsNoRoomForIt) {
    QScrollArea area;
    area.setFrameShape(QFrame::NoFrame);
    area.setVerticalScrollBar(new BlendScroller(Qt::Vertical, Scheme::dark));
    auto* const content = new QWidget;
    content->setFixedSize(100, 1000);
    area.setWidget(content);
    area.resize(300, 200);
    area.show();
    QApplication::processEvents();
    EXPECT_EQ(area.viewport()->width(), 300);
    EXPECT_TRUE(area.verticalScrollBar()->isVisible());
}

}  // namespace
}  // namespace velmora
