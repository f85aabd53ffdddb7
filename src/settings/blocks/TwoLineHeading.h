#pragma once

#include <QWidget>

#include <string_view>

namespace velmora {

class TextLabel;

/// The heading of a block in a card: a title and a smaller subtitle.
class TwoLineHeading final : public QWidget {
public:
    explicit TwoLineHeading(QWidget* parent = nullptr);

    /// UTF-8. Call it again when the language has changed.
    void setTexts(std::string_view title, std::string_view subtitle);

private:
    TextLabel* m_title;
    TextLabel* m_subtitle;
};

}  // namespace velmora
