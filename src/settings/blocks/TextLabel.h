#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>

#include <optional>
#include <string_view>

namespace velmora {

/// How strong a text stands out from its ground.
enum class InkRank { primary, secondary, tertiary, quaternary };
/// What a text does that is wider than its place.
enum class TextFit { wrap, elide };

/// A text of the pages in the system font. It follows the window's scheme.
class TextLabel final : public QLabel {
public:
    struct Style {
        int size = 13;  ///< Pixels.
        QFont::Weight weight = QFont::Normal;
        InkRank rank = InkRank::primary;
        TextFit fit = TextFit::wrap;
        Qt::Alignment alignment = Qt::AlignLeft;    ///< Horizontal; texts begin at the top.
        std::optional<QColor> tint = std::nullopt;  ///< In place of the rank's ink.
    };

    explicit TextLabel(const Style& style, QWidget* parent = nullptr);

    /// UTF-8, drawn as it is. An empty text keeps the height of one line.
    void setWords(std::string_view words);
    void setTint(std::optional<QColor> tint);
    const Style& style() const { return m_style; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return m_style.fit == TextFit::wrap; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// True if it has another font now.
    bool followSystemFont();

    Style m_style;
    std::optional<unsigned> m_fontGeneration;
};

}  // namespace velmora
