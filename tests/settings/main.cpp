#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryFile>

namespace {

/// A usual screen, a small one to its right, and one of twice the pixels.
constexpr auto kScreens = R"({"screens": [
    {"name": "usual", "x": 0, "y": 0, "width": 1440, "height": 900,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "small", "x": 1440, "y": 0, "width": 640, "height": 400,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "dense", "x": 2080, "y": 0, "width": 1440, "height": 900,
     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})";

}  // namespace

int main(int argumentCount, char** arguments) {
    // No test of this room needs a real screen.
    QTemporaryFile screens;
    if (!screens.open()) return 1;
    screens.write(kScreens);
    screens.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    testing::InitGoogleMock(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
