#include "panels/kit/PanelWidget.h"

#include "panels/kit/CardWidget.h"
#include "panels/kit/ChipPlacement.h"
#include "panels/kit/FooterIconRowWidget.h"
#include "panels/kit/HoverChip.h"
#include "panels/kit/PanelText.h"

#include <optional>

namespace velmora {
namespace {

constexpr int kSpacing = 6;
constexpr int kVerticalPadding = 4;
constexpr int kSidePadding = 8;
constexpr int kInner = PanelWidget::kWidth - 2 * kSidePadding;

}  // namespace

PanelWidget::PanelWidget(Scheme scheme, ProcessIcons& icons, QWidget* parent)
    : KitWidget(scheme, parent),
      m_factory(icons, [this] { updateChip(); }),
      m_footer(new FooterIconRowWidget(scheme, this)),
      m_chip(new HoverChip(scheme, this)) {
    m_chip->hide();
    place();
}

PanelWidget::~PanelWidget() {
    // Graphs report a pointer that leaves as they are hidden, and must find the panel whole.
    hide();
}

void PanelWidget::setPanel(MenuPanel panel) {
    m_name = PanelText::plain(panel.name);
    if (accessibleName() != m_name) setAccessibleName(m_name);
    while (m_cards.size() > panel.cards.size()) {
        m_cards.back()->hide();
        m_cards.back()->deleteLater();
        m_cards.pop_back();
    }
    for (std::size_t index = 0; index < panel.cards.size(); ++index) {
        if (index < m_cards.size()) {
            m_cards[index]->setCard(panel.cards[index]);
            continue;
        }
        auto* const card = new CardWidget(panel.cards[index], m_factory, scheme(), this);
        // Screen readers and the eye meet the cards before the footer and the chip.
        card->stackUnder(m_footer);
        card->show();
        m_cards.push_back(card);
    }
    m_footer->setRow(panel.footer);
    place();
    updateChip();
}

QSize PanelWidget::sizeHint() const {
    return {kWidth, m_height};
}

KitWidget::Spoken PanelWidget::spoken() const {
    return {QAccessible::Pane, m_name, {}};
}

void PanelWidget::place() {
    int bottom = kVerticalPadding;
    const auto append = [&bottom](KitWidget& part) {
        const int height = part.heightForWidth(kInner);
        if (height <= 0) return part.setPlace({});
        if (bottom > kVerticalPadding) bottom += kSpacing;
        part.setPlace({kSidePadding, bottom, kInner, height});
        bottom += height;
    };
    for (CardWidget* const card : m_cards) append(*card);
    append(*m_footer);
    m_height = bottom + kVerticalPadding;
    setFixedSize(kWidth, m_height);
}

void PanelWidget::updateChip() {
    std::optional<GraphHoverInfo> reported;
    for (const CardWidget* const card : m_cards) {
        std::optional<GraphHoverInfo> next = card->hoverInfo();
        if (next) next->anchor.translate(card->pos());
        GraphHoverKey::reduce(reported, std::move(next));
    }
    if (!reported) {
        m_chip->hide();
        return;
    }
    constexpr int kFromEdges = 4;
    m_chip->setContent(reported->title, reported->rows, kWidth - kFromEdges);
    m_chip->centreOn(chipPosition(*reported, reported->anchor, size(), m_chip->measured()));
    m_chip->raise();
    m_chip->show();
}

}  // namespace velmora
