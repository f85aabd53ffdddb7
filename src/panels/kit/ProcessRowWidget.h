#pragma once

#include "panels/kit/KitWidget.h"

#include <QPixmap>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class ProcessIcons;

/// A process in a list: icon, name and figures. Without a process it shows a skeleton.
class ProcessRowWidget final : public KitWidget {
public:
    struct Content {
        std::int32_t pid = 0;
        std::string name;
        std::vector<std::string> figures;
        std::string spokenFigures;
        friend bool operator==(const Content&, const Content&) = default;
    };
    /// One figure as wide as it is, or several in boxes of 44.
    enum class Figures { natural, boxed };
    static constexpr double kBox = 44;

    ProcessRowWidget(Figures figures, ProcessIcons& icons, Scheme scheme, QWidget* parent);

    void setContent(std::optional<Content> content);
    const std::optional<Content>& content() const { return m_content; }
    int heightNeeded() const;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawIcon(QPainter& painter, double room);

    const Figures m_figures;
    ProcessIcons& m_icons;
    std::optional<Content> m_content;
    QPixmap m_icon;
    double m_iconRatio = 0;  ///< That of `m_icon`, 0 where it has to be asked for.
};

}  // namespace velmora
