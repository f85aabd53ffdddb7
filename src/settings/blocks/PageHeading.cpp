#include "settings/blocks/PageHeading.h"

#include "settings/blocks/TextLabel.h"

#include <QVBoxLayout>

namespace velmora {

PageHeading::PageHeading(QWidget* parent)
    : QWidget(parent),
      m_title(new TextLabel({.size = 22, .weight = QFont::Bold, .alignment = Qt::AlignHCenter})),
      m_subtitle(new TextLabel({.size = 13, .rank = InkRank::secondary, .alignment = Qt::AlignHCenter})) {
    constexpr int kSpacing = 4;
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    stack->addWidget(m_title);
    stack->addWidget(m_subtitle);
}

void PageHeading::setTexts(std::string_view title, std::string_view subtitle) {
    m_title->setWords(title);
    m_subtitle->setWords(subtitle);
}

}  // namespace velmora
