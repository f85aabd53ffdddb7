#include "settings/controls/VMDropdown.h"

#include "settings/controls/PillMenu.h"
#include "settings/controls/PulldownPill.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kMenuGap = 4;

}  // namespace

VMDropdown::VMDropdown(QWidget* parent)
    : QWidget(parent),
      m_pill(new PulldownPill(
          QString(), [this] { pressed(); }, this)) {
    setFocusProxy(m_pill);
}

VMDropdown::~VMDropdown() {
    delete m_menu;  // Its action reaches back to here.
}

void VMDropdown::setOptions(std::vector<Option> options) {
    if (options == m_options) return;
    m_options = std::move(options);
    refresh();
}

void VMDropdown::setOptionImages(Images images) {
    m_optionImages = std::move(images);
    refresh();
}

void VMDropdown::setSelection(const std::string& value) {
    m_selection = value;
    refresh();
}

bool VMDropdown::isOpen() const {
    return m_menu && m_menu->isVisible();
}

PillMenu* VMDropdown::menu() const {
    return isOpen() ? m_menu.data() : nullptr;
}

QSize VMDropdown::sizeHint() const {
    return m_pill->sizeHint();
}

void VMDropdown::resizeEvent(QResizeEvent*) {
    m_pill->setGeometry(rect());
}

void VMDropdown::hideEvent(QHideEvent*) {
    // A page that goes takes its menu along.
    if (m_menu) m_menu->close();
}

QString VMDropdown::titleOfSelection() const {
    const auto option = std::ranges::find(m_options, m_selection, &Option::value);
    return option == m_options.end() ? QString() : QString::fromUtf8(option->title);
}

void VMDropdown::refresh() {
    m_pill->setLabel(titleOfSelection());
    if (!m_menu) return;
    std::vector<PillMenu::Item> items;
    for (const Option& option : m_options) {
        PillMenu::Item item{QString::fromUtf8(option.title), std::nullopt, option.value == m_selection};
        const auto image = m_optionImages.find(option.value);
        if (image != m_optionImages.end() && !image->second.isNull()) item.image = image->second;
        items.push_back(std::move(item));
    }
    m_menu->setItems(items);
}

void VMDropdown::pressed() {
    if (isOpen()) return;
    if (m_onOpen) m_onOpen();
    delete m_menu;
    m_menu = new PillMenu(m_pill, [this](int tag) { picked(tag); });
    m_menu->setMinimumWidth(m_pill->width());
    refresh();
    m_menu->popup(m_pill->mapToGlobal(QPoint(0, m_pill->height() + kMenuGap)));
}

void VMDropdown::picked(int tag) {
    if (tag < 0 || static_cast<std::size_t>(tag) >= m_options.size()) return;
    // The action may set other options while it runs.
    const std::string value = m_options[static_cast<std::size_t>(tag)].value;
    if (m_onPick) m_onPick(value);
}

}  // namespace velmora
