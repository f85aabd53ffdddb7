#pragma once

#include <QColor>
#include <QWidget>

#include <string>
#include <string_view>

namespace velmora {

/// A rounded tile with a symbol in a colour, beside the heading of a page.
class SymbolTile final : public QWidget {
public:
    explicit SymbolTile(std::string_view symbol, QWidget* parent = nullptr);

    void setColor(const QColor& color);
    QColor color() const { return m_color; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    QColor m_color;
};

}  // namespace velmora
