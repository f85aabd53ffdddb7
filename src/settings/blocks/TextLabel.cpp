#include "settings/blocks/TextLabel.h"

#include "look/Ink.h"
#include "look/SystemFont.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/controls/WrappedText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// Room for a few letters in a line, however narrow the label's place is.
constexpr int kLeastWidth = 40;

QColor ink(InkRank rank, Scheme scheme) {
    switch (rank) {
        case InkRank::primary:
            return Ink::primary(scheme);
        case InkRank::secondary:
            return Ink::secondary(scheme);
        case InkRank::tertiary:
            return Ink::tertiary(scheme);
        case InkRank::quaternary:
            return Ink::quaternary(scheme);
    }
    return Ink::primary(scheme);
}

}  // namespace

TextLabel::TextLabel(const Style& style, QWidget* parent) : QLabel(parent), m_style(style) {
    setTextFormat(Qt::PlainText);
    followSystemFont();
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(hasHeightForWidth());
    setSizePolicy(policy);
}

void TextLabel::setWords(std::string_view words) {
    const QString text = QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
    // Other words may be those of another language, which may have another font.
    if (!followSystemFont() && text == this->text()) return;
    setText(text);
    updateGeometry();
    update();
}

bool TextLabel::followSystemFont() {
    if (m_fontGeneration == SystemFont::generation()) return false;
    m_fontGeneration = SystemFont::generation();
    setFont(SystemFont::ofPixelSize(m_style.size, m_style.weight));
    return true;
}

void TextLabel::setTint(std::optional<QColor> tint) {
    m_style.tint = tint;
    update();
}

QSize TextLabel::sizeHint() const {
    const int width = WrappedText::naturalWidth(text(), font());
    const QString& laidOut = m_style.fit == TextFit::wrap ? text() : QString();
    return {width, static_cast<int>(WrappedText::size(laidOut, font(), width).height())};
}

QSize TextLabel::minimumSizeHint() const {
    return {std::min(kLeastWidth, sizeHint().width()), sizeHint().height()};
}

int TextLabel::heightForWidth(int width) const {
    if (!hasHeightForWidth()) return sizeHint().height();
    return static_cast<int>(WrappedText::size(text(), font(), width).height());
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor color = m_style.tint.value_or(ink(m_style.rank, schemeOf(this)));
    if (m_style.fit == TextFit::wrap) {
        return WrappedText::draw(painter, text(), font(), color, QRectF(rect()), m_style.alignment);
    }
    WrappedText::drawLine(painter, text(), font(), color, QRectF(rect()), m_style.alignment);
}

}  // namespace velmora
