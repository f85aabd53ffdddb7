#pragma once

#include "panels/kit/GraphHoverInfo.h"
#include "panels/kit/KitWidget.h"
#include "panels/kit/Views.h"

#include <optional>
#include <utility>

namespace velmora {

/// One view of a card. It is as high as `heightForWidth` says, and a view of height 0 takes no place.
class ViewWidget : public KitWidget {
public:
    using KitWidget::KitWidget;

    int heightForWidth(int width) const override = 0;
    bool hasHeightForWidth() const final { return true; }
    /// Shows another value of the same kind; an equal one costs no repaint.
    virtual void setView(const PanelView& view) = 0;
    /// What a graph reports of the slot under the pointer, in the view's own coordinates.
    virtual std::optional<GraphHoverInfo> hoverInfo() const { return std::nullopt; }
};

/// A view that paints a value as it is.
template <typename Value>
class ValueWidget : public ViewWidget {
public:
    ValueWidget(const Value& value, Scheme scheme, QWidget* parent)
        : ViewWidget(scheme, parent), m_value(value) {}

    void setView(const PanelView& view) final { setValue(std::get<Value>(view)); }
    void setValue(const Value& value) {
        if (m_value == value) return;
        m_value = value;
        refresh();
    }

protected:
    const Value& value() const { return m_value; }

private:
    Value m_value;
};

}  // namespace velmora
