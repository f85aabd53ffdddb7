#include "settings/blocks/TwoLineHeading.h"

#include "settings/blocks/TextLabel.h"

#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kSpacing = 2;
constexpr int kSubtitleSize = 11;

}  // namespace

TwoLineHeading::TwoLineHeading(QWidget* parent)
    : QWidget(parent),
      m_title(new TextLabel({}, this)),
      m_subtitle(new TextLabel({.size = kSubtitleSize, .rank = InkRank::tertiary}, this)) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    stack->addWidget(m_title);
    stack->addWidget(m_subtitle);
}

void TwoLineHeading::setTexts(std::string_view title, std::string_view subtitle) {
    m_title->setWords(title);
    m_subtitle->setWords(subtitle);
}

}  // namespace velmora
