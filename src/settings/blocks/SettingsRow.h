#pragma once

#include <QFont>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <optional>
#include <string_view>

namespace velmora {

class TextLabel;

/// A title, with a subtitle below if it has one, and a control at the right edge. Texts that have no room in
/// one line wrap. The control is named by the title for screen readers.
class SettingsRow final : public QWidget {
public:
    struct Frames {
        QRect title;
        QRect subtitle;  ///< Empty without one.
        QRect control;
    };

    /// The control becomes the row's; null for a row of texts. The texts are given by `setTexts`.
    SettingsRow(QFont::Weight titleWeight, int labelMinWidth, QWidget* control, QWidget* parent = nullptr);

    /// UTF-8. Call it again when the language has changed.
    void setTexts(std::string_view title, std::optional<std::string_view> subtitle = std::nullopt);

    QWidget* control() const { return m_control; }
    /// Where everything stands in a row of this width, as high as it needs.
    Frames frames(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize controlSize() const;
    int labelWidth(int width) const;
    /// Of the texts, which are this wide.
    int stackHeight(int labelWidth) const;
    void place();

    int m_labelMinWidth;
    TextLabel* m_title;
    TextLabel* m_subtitle;
    QWidget* m_control;
};

}  // namespace velmora
