#pragma once

#include <QString>
#include <QWidget>

namespace velmora {

/// A small weak count at the right edge of a header, in digits of one width.
class CountLabel final : public QWidget {
public:
    explicit CountLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    QString text() const { return m_text; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};

}  // namespace velmora
