#pragma once

#include <QColor>
#include <QWidget>

#include <optional>
#include <string_view>

namespace velmora {

class TextLabel;

/// A small note below the cards of a page.
class FooterNote final : public QWidget {
public:
    /// Without a tint the note is in the tertiary ink.
    explicit FooterNote(std::optional<QColor> tint = std::nullopt, QWidget* parent = nullptr);

    /// UTF-8. Call it again when the language has changed.
    void setText(std::string_view text);
    void setTint(std::optional<QColor> tint);

private:
    TextLabel* m_label;
};

}  // namespace velmora
