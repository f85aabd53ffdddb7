#include <gmock/gmock.h>

#include <QGuiApplication>

int main(int argumentCount, char** arguments) {
    // No test of this room needs a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argumentCount, arguments);
    const QGuiApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
