#pragma once

#include <QWidget>

#include <string_view>

namespace velmora {

class TextLabel;

/// The heading of a page that is not a module's: title and subtitle in the middle.
class PageHeading final : public QWidget {
public:
    explicit PageHeading(QWidget* parent = nullptr);

    /// UTF-8. Call it again when the language has changed.
    void setTexts(std::string_view title, std::string_view subtitle);

private:
    TextLabel* m_title;
    TextLabel* m_subtitle;
};

}  // namespace velmora
