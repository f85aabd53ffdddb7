#include "BarePopup.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <memory>

namespace velmora {
namespace {

constexpr QRect kBar(0, 0, 66, 26);
constexpr QRect kPopup(0, 30, 300, 400);

class Popup final : public QWidget {
public:
    Popup() : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint) {
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_NoMouseReplay);
        setGeometry(kPopup);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), QColor(42, 42, 45)); }
};

class Bar final : public QWidget {
public:
    Bar() : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint) {
        setGeometry(kBar);
    }

protected:
    void mousePressEvent(QMouseEvent*) override { (new Popup)->show(); }
};

}  // namespace

int runBarePopup(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    Bar bar;
    bar.show();
    return QApplication::exec();
}

}  // namespace velmora
