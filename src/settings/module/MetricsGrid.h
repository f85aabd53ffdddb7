#pragma once

#include "model/StatsModule.h"

#include <QRect>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace velmora {

class AppSettings;
class CheckBox;
class L10n;

/// The check boxes of a module's hideable metrics, in two columns, row by row.
class MetricsGrid final : public QWidget {
public:
    MetricsGrid(StatsModule module, const std::function<void(const std::string& key, bool visible)>& toggle,
                QWidget* parent = nullptr);

    void retext(const L10n& l10n);
    void showHidden(const AppSettings& settings);

    const std::vector<CheckBox*>& boxes() const { return m_boxes; }

    static int columnWidth(int width);
    /// The cells of boxes of these heights in a grid of this width. A row is as high as its higher box; an
    /// odd number leaves the last cell empty.
    static std::vector<QRect> cells(int width, const std::vector<int>& heights);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::vector<QRect> cells(int width) const;
    void place();

    StatsModule m_module;
    std::vector<CheckBox*> m_boxes;
};

}  // namespace velmora
