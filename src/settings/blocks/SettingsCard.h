#pragma once

#include <QWidget>

class QVBoxLayout;

namespace velmora {

/// A rounded ground for rows and blocks, which stand below each other without gaps and bring their own
/// insets.
class SettingsCard final : public QWidget {
public:
    explicit SettingsCard(QWidget* parent = nullptr);

    /// Appends a row or block, which becomes the card's.
    void add(QWidget* block);
    /// 1 is full; anything else draws the card and its content weaker. Everything in it still works.
    void setOpacity(double opacity);
    double opacity() const { return m_opacity; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_stack;
    double m_opacity = 1;
};

}  // namespace velmora
