#include "settings/blocks/SettingsRow.h"

#include "settings/blocks/TextLabel.h"
#include "settings/controls/VMDropdown.h"

#include <QEvent>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kSideInset = 16;
constexpr int kVerticalInset = 13;
constexpr int kSpacing = 12;
constexpr int kLineSpacing = 2;
constexpr int kSubtitleSize = 11;
/// What the label keeps of its least width in a row that is too narrow for it and its control.
constexpr int kLeastLabel = 80;

}  // namespace

SettingsRow::SettingsRow(QFont::Weight titleWeight, int labelMinWidth, QWidget* control, QWidget* parent)
    : QWidget(parent),
      m_labelMinWidth(labelMinWidth),
      m_title(new TextLabel({.weight = titleWeight}, this)),
      m_subtitle(new TextLabel({.size = kSubtitleSize, .rank = InkRank::tertiary}, this)),
      m_control(control) {
    m_subtitle->hide();
    if (m_control) m_control->setParent(this);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SettingsRow::setTexts(std::string_view title, std::optional<std::string_view> subtitle) {
    m_title->setWords(title);
    m_subtitle->setWords(subtitle.value_or(std::string_view()));
    m_subtitle->setVisible(subtitle.has_value());
    if (m_control) {
        QWidget* const named = m_control->focusProxy() ? m_control->focusProxy() : m_control;
        named->setAccessibleName(m_title->text());
        named->setAccessibleDescription(m_subtitle->text());
    }
    updateGeometry();
    place();
}

QSize SettingsRow::controlSize() const {
    if (!m_control) return {0, 0};
    return m_control->sizeHint().expandedTo(m_control->minimumSize()).boundedTo(m_control->maximumSize());
}

int SettingsRow::labelWidth(int width) const {
    // The spacing stands on both sides of the flexible space between label and control.
    const int taken = m_control ? controlSize().width() + 2 * kSpacing : 0;
    return std::max(width - 2 * kSideInset - taken, kLeastLabel);
}

int SettingsRow::stackHeight(int labelWidth) const {
    const int title = m_title->heightForWidth(labelWidth);
    return m_subtitle->isHidden() ? title : title + kLineSpacing + m_subtitle->heightForWidth(labelWidth);
}

SettingsRow::Frames SettingsRow::frames(int width) const {
    const int label = labelWidth(width);
    const QSize control = controlSize();
    const int stack = stackHeight(label);
    const int content = std::max(stack, control.height());

    Frames frames;
    frames.title =
        QRect(kSideInset, kVerticalInset + (content - stack) / 2, label, m_title->heightForWidth(label));
    if (!m_subtitle->isHidden()) {
        frames.subtitle = QRect(kSideInset, frames.title.bottom() + 1 + kLineSpacing, label,
                                m_subtitle->heightForWidth(label));
    }
    if (m_control) {
        // In a row that is too narrow for both, the control goes on behind the label rather than over it.
        const int left = std::max(width - kSideInset - control.width(), kSideInset + label + 2 * kSpacing);
        frames.control = QRect(QPoint(left, kVerticalInset + (content - control.height()) / 2), control);
    }
    return frames;
}

int SettingsRow::heightForWidth(int width) const {
    return 2 * kVerticalInset + std::max(stackHeight(labelWidth(width)), controlSize().height());
}

QSize SettingsRow::sizeHint() const {
    const int natural =
        std::max({m_title->sizeHint().width(), m_subtitle->isHidden() ? 0 : m_subtitle->sizeHint().width(),
                  m_labelMinWidth});
    const int width = 2 * kSideInset + natural + (m_control ? 2 * kSpacing + controlSize().width() : 0);
    return {width, heightForWidth(width)};
}

QSize SettingsRow::minimumSizeHint() const {
    const int width = 2 * kSideInset + kLeastLabel + (m_control ? 2 * kSpacing + controlSize().width() : 0);
    return {width, heightForWidth(sizeHint().width())};
}

bool SettingsRow::event(QEvent* event) {
    // The control asks for another size, after a change of its title for instance.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void SettingsRow::resizeEvent(QResizeEvent*) {
    place();
}

void SettingsRow::place() {
    const Frames places = frames(width());
    m_title->setGeometry(places.title);
    m_subtitle->setGeometry(places.subtitle);
    if (m_control) m_control->setGeometry(places.control);
}

}  // namespace velmora
