#include "settings/blocks/FooterNote.h"

#include "settings/blocks/TextLabel.h"

#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kSideInset = 4;
constexpr int kTextSize = 11;

}  // namespace

FooterNote::FooterNote(std::optional<QColor> tint, QWidget* parent)
    : QWidget(parent),
      m_label(new TextLabel({.size = kTextSize, .rank = InkRank::tertiary, .tint = tint}, this)) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(kSideInset, 0, kSideInset, 0);
    stack->addWidget(m_label);
}

void FooterNote::setText(std::string_view text) {
    m_label->setWords(text);
}

void FooterNote::setTint(std::optional<QColor> tint) {
    m_label->setTint(tint);
}

}  // namespace velmora
