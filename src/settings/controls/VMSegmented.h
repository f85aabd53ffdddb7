#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace velmora {

class CapsuleSegmentedControl;

/// A segmented control of symbols. A symbol that is not among the program's own leaves its segment empty.
class VMSegmented final : public QWidget {
public:
    VMSegmented(const std::vector<std::string>& symbols, const std::vector<QString>& tooltips, int selection,
                int width, int height, QWidget* parent = nullptr);

    /// Held within the valid range; does not call the action.
    void setSelection(int index);
    /// Called with the index when the user selects another segment.
    void onSelect(std::function<void(int index)> select) { m_onSelect = std::move(select); }
    CapsuleSegmentedControl& control() const { return *m_control; }

private:
    int clamped(int index) const;

    std::function<void(int)> m_onSelect;
    CapsuleSegmentedControl* m_control;
};

}  // namespace velmora
