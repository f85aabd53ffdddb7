#include "settings/controls/VMSegmented.h"

#include "look/Symbol.h"
#include "settings/controls/CapsuleSegmentedControl.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kSymbolPoints = 12;
constexpr double kCornerRadius = 6;

}  // namespace

VMSegmented::VMSegmented(const std::vector<std::string>& symbols, const std::vector<QString>& tooltips,
                         int selection, int width, int height, QWidget* parent)
    : QWidget(parent) {
    // Drawn for the densest usual screen; a coarser one scales them down smoothly.
    const double ratio = std::max(std::ceil(devicePixelRatioF()), 2.0);
    std::vector<QImage> images;
    images.reserve(symbols.size());
    for (const std::string& symbol : symbols) {
        images.push_back(Symbol::image(symbol, kSymbolPoints, Qt::black, ratio));
    }
    m_control = new CapsuleSegmentedControl(images, tooltips, width, height, kCornerRadius, this);
    setFixedSize(m_control->size());
    setFocusProxy(m_control);
    m_control->setSelectedIndex(clamped(selection));
    m_control->onSelect([this](int index) {
        if (m_onSelect) m_onSelect(index);
    });
}

void VMSegmented::setSelection(int index) {
    m_control->setSelectedIndex(clamped(index));
}

int VMSegmented::clamped(int index) const {
    return std::clamp(index, 0, std::max(m_control->segmentCount() - 1, 0));
}

}  // namespace velmora
