#include "settings/window/DetailPane.h"

#include "look/Ink.h"
#include "settings/controls/SettingsScheme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kModuleContentWidth = 540;
constexpr int kModuleSides = 30;
constexpr int kModuleTop = 34;
constexpr int kModuleSpacing = 16;
constexpr int kModuleBottom = 30;
constexpr int kPageSides = 28;
constexpr int kPageTop = 30;
constexpr int kPageSpacing = 22;
constexpr int kPageBottom = 28;

}  // namespace

DetailPane::DetailPane(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
}

void DetailPane::showModule(QWidget* header, QWidget* body) {
    auto* const content = new QWidget;
    content->setMaximumWidth(kModuleContentWidth + 2 * kModuleSides);
    auto* const stack = new QVBoxLayout(content);
    stack->setContentsMargins(kModuleSides, kModuleTop, kModuleSides, kModuleBottom);
    stack->setSpacing(kModuleSpacing);
    stack->addWidget(header);
    stack->addWidget(body);
    stack->addStretch(1);
    showContent(content);
}

void DetailPane::showPage(QWidget* heading, QWidget* body) {
    auto* const content = new QWidget;
    auto* const stack = new QVBoxLayout(content);
    stack->setContentsMargins(kPageSides, kPageTop, kPageSides, kPageBottom);
    stack->setSpacing(kPageSpacing);
    stack->addWidget(heading);
    if (body) stack->addWidget(body);
    stack->addStretch(1);
    showContent(content);
}

void DetailPane::showContent(QWidget* content) {
    // The old page may be what asked for the new one.
    if (QWidget* const before = takeWidget()) {
        before->hide();
        before->deleteLater();
    }
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    content->show();
}

void DetailPane::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Ink::windowBackground(schemeOf(this)));
}

}  // namespace velmora
