#include "platform/qt/strip/StripWindow.h"

#include "platform/qt/strip/StripCell.h"
#include "platform/qt/strip/StripGeometry.h"

#include <QApplication>
#include <QMoveEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

Qt::WindowFlags flagsOf(StripWindow::Kind kind) {
    // A dock is not told to stay on top: a full-screen window may cover it.
    Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
    if (kind == StripWindow::Kind::topBar) flags |= Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint;
    return flags;
}

/// In logical coordinates.
std::vector<QRect> docksOn(const QScreen& screen, double ratio) {
    const QPoint origin = screen.geometry().topLeft();
    const auto logical = [ratio](int from, int device) {
        return from + static_cast<int>(std::round((device - from) / ratio));
    };
    std::vector<QRect> docks;
    for (const DockProperties::Dock& dock : DockProperties::allDocks()) {
        const QRect& device = dock.geometry;
        docks.emplace_back(QPoint(logical(origin.x(), device.left()), logical(origin.y(), device.top())),
                           QPoint(logical(origin.x(), device.right() + 1) - 1,
                                  logical(origin.y(), device.bottom() + 1) - 1));
    }
    return docks;
}

Anchor anchorOf(const StripCell& cell) {
    const QPoint corner = cell.mapToGlobal(QPoint(0, 0));
    return {corner.x(), corner.y(), cell.width(), cell.height()};
}

}  // namespace

StripWindow::StripWindow(Kind kind) : QWidget(nullptr, flagsOf(kind)), m_kind(kind) {
    setObjectName(QStringLiteral("Velmora strip"));
    setWindowTitle(QStringLiteral("Velmora"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    // The strip's window is never the active one, and its tips must show all the same.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    // The program goes on when its last window closes; the strip does not count as one.
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    setFixedHeight(StripGeometry::kHeight);

    connect(qApp, &QGuiApplication::primaryScreenChanged, this, [this] { followScreen(); });
    followScreen();
}

StripWindow::~StripWindow() {
    for (const QMetaObject::Connection& connection : m_screenConnections) disconnect(connection);
}

void StripWindow::setItems(const std::vector<StatusItem>& items) {
    std::vector<StripCell*> cells;
    for (const StatusItem& item : items) {
        const auto known =
            std::ranges::find_if(m_cells, [&](const StripCell* cell) { return cell->item().id == item.id; });
        if (known == m_cells.end()) {
            auto* const cell = new StripCell(this, item);
            cell->setBackdrop(m_backdrop);
            cell->pressed = [this](StripCell& clicked) {
                if (pressed) pressed(clicked.item(), anchorOf(clicked));
            };
            cells.push_back(cell);
        } else {
            (*known)->setItem(item);
            cells.push_back(*known);
            m_cells.erase(known);
        }
    }
    // A click may be what removes its own cell.
    for (StripCell* const cell : m_cells) {
        cell->hide();
        cell->deleteLater();
    }
    m_cells = std::move(cells);
    if (m_cells.empty()) hide();
    place();
}

void StripWindow::setImage(const std::string& id, const ItemImage& image) {
    const auto cell =
        std::ranges::find_if(m_cells, [&](const StripCell* candidate) { return candidate->item().id == id; });
    if (cell == m_cells.end()) return;
    const bool isFirst = !(*cell)->hasImage();
    if ((*cell)->setImage(image) == StripCell::ImageChange::width || isFirst) place();
}

void StripWindow::setBackdrop(const QColor& backdrop) {
    if (m_backdrop == backdrop) return;
    m_backdrop = backdrop;
    for (StripCell* const cell : m_cells) cell->setBackdrop(backdrop);
    update();
}

std::optional<Anchor> StripWindow::placeOf(const std::string& id) const {
    const auto cell =
        std::ranges::find_if(m_cells, [&](const StripCell* candidate) { return candidate->item().id == id; });
    if (cell == m_cells.end() || !(*cell)->isVisible()) return std::nullopt;
    return anchorOf(**cell);
}

/// After a popup the toolkit does not remember which cell it was.
void StripWindow::leaveEvent(QEvent*) {
    if (QApplication::activePopupWidget()) return;
    for (StripCell* const cell : m_cells) cell->setHovered(false);
}

void StripWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!isVisible() || geometry().topLeft() == m_asked.topLeft()) return;
    m_forcedY = geometry().y();
    reserve();
}

void StripWindow::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), m_backdrop);
}

void StripWindow::followScreen() {
    for (const QMetaObject::Connection& connection : m_screenConnections) disconnect(connection);
    m_screenConnections.clear();
    m_screen = QGuiApplication::primaryScreen();
    if (!m_screen) return;
    setScreen(m_screen);
    const auto changed = [this] {
        m_forcedY.reset();
        place();
        if (ratioChanged) ratioChanged();
    };
    m_screenConnections = {connect(m_screen, &QScreen::geometryChanged, this, changed),
                           connect(m_screen, &QScreen::availableGeometryChanged, this, changed),
                           connect(m_screen, &QScreen::logicalDotsPerInchChanged, this, changed)};
    changed();
}

/// Waits until every cell has its image: a strip that grew while they arrive would make the work area, and
/// with it every other window, jump.
void StripWindow::place() {
    if (m_cells.empty() || !m_screen || !std::ranges::all_of(m_cells, &StripCell::hasImage)) return;
    std::vector<int> widths;
    widths.reserve(m_cells.size());
    for (const StripCell* const cell : m_cells) widths.push_back(cell->imageWidth());
    const std::vector<QRect> cells = StripGeometry::cells(widths);
    for (std::size_t index = 0; index < cells.size(); ++index) {
        m_cells[index]->setGeometry(cells[index]);
        m_cells[index]->show();
    }
    m_asked = wantedGeometry(StripGeometry::totalWidth(widths));
    if (geometry() != m_asked) setGeometry(m_asked);
    declareDock();
    reserve();
    show();
}

/// The display gets to know the window when it has its place, and before it is shown.
void StripWindow::declareDock() {
    if (m_kind != Kind::dock || m_properties) return;
    m_properties.emplace(winId());
    m_properties->declareDock();
}

QRect StripWindow::wantedGeometry(int stripWidth) const {
    const QRect screen = m_screen->geometry();
    const QRect available = m_screen->availableGeometry();
    if (m_kind == Kind::topBar) return StripGeometry::topBar(stripWidth, screen, available);
    const auto present = isVisible() ? std::optional(geometry()) : std::nullopt;
    const bool mayBePushed = present && available.y() > present->y() + present->height();
    QRect wanted =
        StripGeometry::dock(stripWidth, screen, available, present,
                            mayBePushed ? docksOn(*m_screen, devicePixelRatioF()) : std::vector<QRect>{});
    if (m_forcedY) wanted.moveTop(*m_forcedY);
    return wanted;
}

void StripWindow::reserve() {
    if (!m_properties || !m_screen) return;
    const Strut strut = StripGeometry::strut(geometry(), m_screen->geometry(), devicePixelRatioF());
    if (m_strut == strut) return;
    m_strut = strut;
    m_properties->setStrut(strut);
}

}  // namespace velmora
